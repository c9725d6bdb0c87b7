#include <String.h>

#include <algorithm>
#include <cctype>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <strings.h>

namespace {

const char* Safe(const char* string)
{
	return string != nullptr ? string : "";
}

// Bytes of string, up to maxLength or its NUL, whichever comes first.
size_t BoundedLength(const char* string, int32 maxLength)
{
	if (string == nullptr || maxLength <= 0)
		return 0;
	return strnlen(string, static_cast<size_t>(maxLength));
}

}	// namespace

BString::BString() = default;

BString::BString(const char* string)
	: fData(Safe(string))
{
}

BString::BString(const char* string, int32 maxLength)
	: fData(Safe(string), BoundedLength(string, maxLength))
{
}

BString::BString(const BString& other) = default;

BString::BString(BString&& other) noexcept
	: fData(std::move(other.fData))
{
}

BString::~BString() = default;

int32
BString::CountChars() const
{
	int32 count = 0;
	for (unsigned char c : fData) {
		if ((c & 0xC0) != 0x80)
			count++;
	}
	return count;
}

BString&
BString::operator=(const BString& other)
{
	if (this != &other)
		fData = other.fData;
	return *this;
}

BString&
BString::operator=(BString&& other) noexcept
{
	fData = std::move(other.fData);
	return *this;
}

BString&
BString::operator=(const char* string)
{
	return SetTo(string);
}

BString&
BString::operator=(char c)
{
	fData.assign(1, c);
	return *this;
}

BString&
BString::SetTo(const char* string)
{
	fData.assign(Safe(string));
	return *this;
}

BString&
BString::SetTo(const char* string, int32 maxLength)
{
	fData.assign(Safe(string), BoundedLength(string, maxLength));
	return *this;
}

BString&
BString::SetTo(const BString& other)
{
	return *this = other;
}

BString&
BString::SetTo(const BString& other, int32 maxLength)
{
	std::string copy = other.fData.substr(0, std::max<int32>(maxLength, 0));
	fData = std::move(copy);
	return *this;
}

BString&
BString::SetTo(char c, int32 count)
{
	fData.assign(std::max<int32>(count, 0), c);
	return *this;
}

BString&
BString::SetToFormat(const char* format, ...)
{
	va_list args;
	va_start(args, format);
	va_list copy;
	va_copy(copy, args);
	int length = vsnprintf(nullptr, 0, format, copy);
	va_end(copy);
	if (length < 0) {
		fData.clear();
	} else {
		std::string buffer(static_cast<size_t>(length) + 1, '\0');
		vsnprintf(buffer.data(), buffer.size(), format, args);
		buffer.resize(static_cast<size_t>(length));
		fData = std::move(buffer);
	}
	va_end(args);
	return *this;
}

BString&
BString::Adopt(BString& from)
{
	if (this != &from) {
		fData = std::move(from.fData);
		from.fData.clear();
	}
	return *this;
}

int32
BString::pvClampOffset(int32 offset) const
{
	return std::clamp<int32>(offset, 0, Length());
}

BString&
BString::CopyInto(BString& into, int32 fromOffset, int32 length) const
{
	if (&into != this) {
		int32 from = pvClampOffset(fromOffset);
		into.fData = fData.substr(from, std::max<int32>(length, 0));
	}
	return into;
}

void
BString::CopyInto(char* into, int32 fromOffset, int32 length) const
{
	if (into == nullptr)
		return;
	int32 from = pvClampOffset(fromOffset);
	int32 count = std::clamp<int32>(length, 0, Length() - from);
	memcpy(into, fData.data() + from, count);
}

BString&
BString::operator+=(const BString& other)
{
	fData += other.fData;
	return *this;
}

BString&
BString::operator+=(const char* string)
{
	fData += Safe(string);
	return *this;
}

BString&
BString::operator+=(char c)
{
	fData += c;
	return *this;
}

BString&
BString::Append(const BString& other)
{
	return *this += other;
}

BString&
BString::Append(const char* string)
{
	return *this += string;
}

BString&
BString::Append(const BString& other, int32 length)
{
	fData.append(other.fData, 0, std::max<int32>(length, 0));
	return *this;
}

BString&
BString::Append(const char* string, int32 length)
{
	fData.append(Safe(string), BoundedLength(string, length));
	return *this;
}

BString&
BString::Append(char c, int32 count)
{
	fData.append(std::max<int32>(count, 0), c);
	return *this;
}

BString&
BString::Prepend(const char* string)
{
	fData.insert(0, Safe(string));
	return *this;
}

BString&
BString::Prepend(const BString& other)
{
	fData.insert(0, other.fData);
	return *this;
}

BString&
BString::Prepend(const char* string, int32 length)
{
	fData.insert(0, Safe(string), BoundedLength(string, length));
	return *this;
}

BString&
BString::Prepend(char c, int32 count)
{
	fData.insert(0, std::max<int32>(count, 0), c);
	return *this;
}

BString&
BString::Insert(const char* string, int32 position)
{
	fData.insert(pvClampOffset(position), Safe(string));
	return *this;
}

BString&
BString::Insert(const char* string, int32 length, int32 position)
{
	fData.insert(pvClampOffset(position), Safe(string), BoundedLength(string, length));
	return *this;
}

BString&
BString::Insert(const BString& other, int32 position)
{
	fData.insert(pvClampOffset(position), other.fData);
	return *this;
}

BString&
BString::Insert(char c, int32 count, int32 position)
{
	fData.insert(pvClampOffset(position), std::max<int32>(count, 0), c);
	return *this;
}

BString&
BString::Truncate(int32 newLength, bool)
{
	if (newLength < 0)
		newLength = 0;
	if (newLength < Length())
		fData.resize(newLength);
	return *this;
}

BString&
BString::Remove(int32 from, int32 length)
{
	if (from >= 0 && from < Length() && length > 0)
		fData.erase(from, length);
	return *this;
}

BString&
BString::RemoveFirst(const char* string)
{
	int32 at = FindFirst(string);
	if (at >= 0)
		fData.erase(at, strlen(string));
	return *this;
}

BString&
BString::RemoveLast(const char* string)
{
	int32 at = FindLast(string);
	if (at >= 0)
		fData.erase(at, strlen(string));
	return *this;
}

BString&
BString::RemoveAll(const char* string)
{
	return ReplaceAll(string, "");
}

BString&
BString::RemoveSet(const char* setOfCharsToRemove)
{
	const char* set = Safe(setOfCharsToRemove);
	std::erase_if(fData, [set](char c) { return c != '\0' && strchr(set, c) != nullptr; });
	return *this;
}

BString&
BString::MoveInto(BString& into, int32 from, int32 length)
{
	CopyInto(into, from, length);
	Remove(from, length);
	return into;
}

int
BString::Compare(const BString& other) const
{
	return strcmp(String(), other.String());
}

int
BString::Compare(const char* string) const
{
	return strcmp(String(), Safe(string));
}

int
BString::Compare(const BString& other, int32 length) const
{
	return strncmp(String(), other.String(), std::max<int32>(length, 0));
}

int
BString::Compare(const char* string, int32 length) const
{
	return strncmp(String(), Safe(string), std::max<int32>(length, 0));
}

int
BString::ICompare(const BString& other) const
{
	return strcasecmp(String(), other.String());
}

int
BString::ICompare(const char* string) const
{
	return strcasecmp(String(), Safe(string));
}

int
BString::ICompare(const BString& other, int32 length) const
{
	return strncasecmp(String(), other.String(), std::max<int32>(length, 0));
}

int
BString::ICompare(const char* string, int32 length) const
{
	return strncasecmp(String(), Safe(string), std::max<int32>(length, 0));
}

int32
BString::FindFirst(const BString& string, int32 fromOffset) const
{
	return FindFirst(string.String(), fromOffset);
}

int32
BString::FindFirst(const char* string, int32 fromOffset) const
{
	if (string == nullptr || fromOffset < 0 || fromOffset > Length())
		return B_ERROR;
	size_t at = fData.find(string, fromOffset);
	return at == std::string::npos ? B_ERROR : static_cast<int32>(at);
}

int32
BString::FindFirst(char c, int32 fromOffset) const
{
	if (fromOffset < 0 || fromOffset > Length())
		return B_ERROR;
	size_t at = fData.find(c, fromOffset);
	return at == std::string::npos ? B_ERROR : static_cast<int32>(at);
}

int32
BString::FindLast(const BString& string) const
{
	return FindLast(string.String());
}

int32
BString::FindLast(const char* string) const
{
	return FindLast(string, Length());
}

int32
BString::FindLast(const char* string, int32 beforeOffset) const
{
	if (string == nullptr || beforeOffset < 0)
		return B_ERROR;
	size_t length = strlen(string);
	if (length > static_cast<size_t>(std::min(beforeOffset, Length())))
		return B_ERROR;
	size_t last = std::min(beforeOffset, Length()) - length;
	size_t at = fData.rfind(string, last, length);
	return at == std::string::npos ? B_ERROR : static_cast<int32>(at);
}

int32
BString::FindLast(char c) const
{
	size_t at = fData.rfind(c);
	return at == std::string::npos ? B_ERROR : static_cast<int32>(at);
}

int32
BString::FindLast(char c, int32 beforeOffset) const
{
	if (beforeOffset <= 0)
		return B_ERROR;
	size_t at = fData.rfind(c, std::min(beforeOffset, Length()) - 1);
	return at == std::string::npos ? B_ERROR : static_cast<int32>(at);
}

int32
BString::IFindFirst(const char* string, int32 fromOffset) const
{
	BString lower(*this);
	BString needle(string);
	return lower.ToLower().FindFirst(needle.ToLower(), fromOffset);
}

int32
BString::IFindLast(const char* string) const
{
	BString lower(*this);
	BString needle(string);
	return lower.ToLower().FindLast(needle.ToLower());
}

BString&
BString::ReplaceFirst(char replaceThis, char withThis)
{
	size_t at = fData.find(replaceThis);
	if (at != std::string::npos)
		fData[at] = withThis;
	return *this;
}

BString&
BString::ReplaceLast(char replaceThis, char withThis)
{
	size_t at = fData.rfind(replaceThis);
	if (at != std::string::npos)
		fData[at] = withThis;
	return *this;
}

BString&
BString::ReplaceAll(char replaceThis, char withThis, int32 fromOffset)
{
	for (size_t i = pvClampOffset(fromOffset); i < fData.size(); i++) {
		if (fData[i] == replaceThis)
			fData[i] = withThis;
	}
	return *this;
}

BString&
BString::ReplaceFirst(const char* replaceThis, const char* withThis)
{
	int32 at = FindFirst(replaceThis);
	if (at >= 0 && *replaceThis != '\0')
		fData.replace(at, strlen(replaceThis), Safe(withThis));
	return *this;
}

BString&
BString::ReplaceLast(const char* replaceThis, const char* withThis)
{
	int32 at = FindLast(replaceThis);
	if (at >= 0 && *replaceThis != '\0')
		fData.replace(at, strlen(replaceThis), Safe(withThis));
	return *this;
}

BString&
BString::ReplaceAll(const char* replaceThis, const char* withThis, int32 fromOffset)
{
	if (replaceThis == nullptr || *replaceThis == '\0')
		return *this;
	size_t length = strlen(replaceThis);
	const char* with = Safe(withThis);
	size_t withLength = strlen(with);
	for (size_t at = fData.find(replaceThis, pvClampOffset(fromOffset));
			at != std::string::npos; at = fData.find(replaceThis, at + withLength)) {
		fData.replace(at, length, with);
	}
	return *this;
}

BString&
BString::IReplaceAll(const char* replaceThis, const char* withThis, int32 fromOffset)
{
	if (replaceThis == nullptr || *replaceThis == '\0')
		return *this;
	size_t length = strlen(replaceThis);
	const char* with = Safe(withThis);
	size_t withLength = strlen(with);
	for (int32 at = IFindFirst(replaceThis, pvClampOffset(fromOffset)); at >= 0;
			at = IFindFirst(replaceThis, at + static_cast<int32>(withLength))) {
		fData.replace(at, length, with);
	}
	return *this;
}

BString&
BString::ReplaceSet(const char* setOfChars, char with)
{
	const char* set = Safe(setOfChars);
	for (char& c : fData) {
		if (c != '\0' && strchr(set, c) != nullptr)
			c = with;
	}
	return *this;
}

BString&
BString::ToLower()
{
	for (char& c : fData)
		c = static_cast<char>(tolower(static_cast<unsigned char>(c)));
	return *this;
}

BString&
BString::ToUpper()
{
	for (char& c : fData)
		c = static_cast<char>(toupper(static_cast<unsigned char>(c)));
	return *this;
}

BString&
BString::Capitalize()
{
	ToLower();
	if (!fData.empty())
		fData[0] = static_cast<char>(toupper(static_cast<unsigned char>(fData[0])));
	return *this;
}

BString&
BString::CapitalizeEachWord()
{
	bool wordStart = true;
	for (char& c : fData) {
		unsigned char byte = static_cast<unsigned char>(c);
		if (isalpha(byte)) {
			c = static_cast<char>(wordStart ? toupper(byte) : tolower(byte));
			wordStart = false;
		} else {
			wordStart = true;
		}
	}
	return *this;
}

BString&
BString::CharacterEscape(const char* setOfCharsToEscape, char escapeWith)
{
	const char* set = Safe(setOfCharsToEscape);
	std::string escaped;
	escaped.reserve(fData.size());
	for (char c : fData) {
		if (c != '\0' && strchr(set, c) != nullptr)
			escaped += escapeWith;
		escaped += c;
	}
	fData = std::move(escaped);
	return *this;
}

BString&
BString::CharacterDeescape(char escapeChar)
{
	std::string plain;
	plain.reserve(fData.size());
	for (size_t i = 0; i < fData.size(); i++) {
		if (fData[i] == escapeChar && i + 1 < fData.size())
			i++;
		plain += fData[i];
	}
	fData = std::move(plain);
	return *this;
}

BString&
BString::Trim()
{
	auto isSpace = [](char c) { return isspace(static_cast<unsigned char>(c)) != 0; };
	auto first = std::find_if_not(fData.begin(), fData.end(), isSpace);
	auto last = std::find_if_not(fData.rbegin(), fData.rend(), isSpace).base();
	fData = first < last ? std::string(first, last) : std::string();
	return *this;
}

char
BString::operator[](int32 index) const
{
	return ByteAt(index);
}

char
BString::ByteAt(int32 index) const
{
	if (index < 0 || index >= Length())
		return '\0';
	return fData[index];
}

char*
BString::LockBuffer(int32 maxLength)
{
	if (maxLength > Length())
		fData.resize(maxLength, '\0');
	return fData.data();
}

BString&
BString::UnlockBuffer(int32 length)
{
	if (length < 0)
		length = static_cast<int32>(strnlen(fData.data(), fData.size()));
	fData.resize(std::clamp<int32>(length, 0, Length()));
	return *this;
}

BString&
BString::operator<<(const char* string)
{
	return *this += string;
}

BString&
BString::operator<<(const BString& other)
{
	return *this += other;
}

BString&
BString::operator<<(char c)
{
	return *this += c;
}

BString&
BString::operator<<(int value)
{
	fData += std::to_string(value);
	return *this;
}

BString&
BString::operator<<(unsigned int value)
{
	fData += std::to_string(value);
	return *this;
}

BString&
BString::operator<<(long value)
{
	fData += std::to_string(value);
	return *this;
}

BString&
BString::operator<<(unsigned long value)
{
	fData += std::to_string(value);
	return *this;
}

BString&
BString::operator<<(long long value)
{
	fData += std::to_string(value);
	return *this;
}

BString&
BString::operator<<(unsigned long long value)
{
	fData += std::to_string(value);
	return *this;
}

BString&
BString::operator<<(float value)
{
	return *this << static_cast<double>(value);
}

BString&
BString::operator<<(double value)
{
	char buffer[64];
	snprintf(buffer, sizeof(buffer), "%.2f", value);
	fData += buffer;
	return *this;
}

BString
operator+(const BString& a, const BString& b)
{
	BString sum(a);
	return sum += b;
}

BString
operator+(const BString& a, const char* b)
{
	BString sum(a);
	return sum += b;
}

bool operator<(const char* a, const BString& b) { return b.Compare(a) > 0; }
bool operator<=(const char* a, const BString& b) { return b.Compare(a) >= 0; }
bool operator==(const char* a, const BString& b) { return b.Compare(a) == 0; }
bool operator>(const char* a, const BString& b) { return b.Compare(a) < 0; }
bool operator>=(const char* a, const BString& b) { return b.Compare(a) <= 0; }
bool operator!=(const char* a, const BString& b) { return b.Compare(a) != 0; }

int
Compare(const BString& a, const BString& b)
{
	return a.Compare(b);
}

int
ICompare(const BString& a, const BString& b)
{
	return a.ICompare(b);
}
