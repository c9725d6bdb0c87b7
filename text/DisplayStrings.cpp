#include "DisplayStrings.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <TypeConstants.h>

#include "AttrTypes.h"
#include "Formatting.h"

const char* const kTooLargeText = "<<Too large to display>>";
const char* const kTooLongText = "<<Too long to show>>";

namespace {

const uint32 kLargeIconType = 'ICON';
const uint32 kMiniIconType = 'MICN';

// The longest text that fits in a row's value buffer.
const int32 kMaxAttrStringLength = kAttrStringSize - 1;


const char kHexDigits[] = "0123456789ABCDEF";


void
AppendHexByte(String& text, uint8 byte)
{
	text << kHexDigits[byte >> 4] << kHexDigits[byte & 0x0F];
}


struct IntegerKind {
	int32	width;
	bool	isSigned;
};


// The integer layout of a value of this type and size; false when the value
// is not shown as an integer.
bool
IntegerKindFor(uint32 type, int32 size, IntegerKind* kind)
{
	switch (type) {
		case B_INT8_TYPE:
		case B_CHAR_TYPE:
			*kind = { 1, true };
			break;
		case B_UINT8_TYPE:
			*kind = { 1, false };
			break;
		case B_INT16_TYPE:
			*kind = { 2, true };
			break;
		case B_UINT16_TYPE:
			*kind = { 2, false };
			break;
		case B_INT32_TYPE:
			*kind = { 4, true };
			break;
		case B_UINT32_TYPE:
			*kind = { 4, false };
			break;
		case B_INT64_TYPE:
		case B_OFF_T_TYPE:
			*kind = { 8, true };
			break;
		case B_UINT64_TYPE:
			*kind = { 8, false };
			break;
		case B_SIZE_T_TYPE:
		case B_SSIZE_T_TYPE:
			// Four bytes where they were written on a 32-bit system.
			if (size != 4 && size != 8)
				return false;
			*kind = { size, type == B_SSIZE_T_TYPE };
			break;
		default:
			return false;
	}
	return kind->width == size;
}


// Grouped decimal, the bytes as quoted characters, then "0x" and the digits,
// all most significant byte first.
String
IntegerString(const uint8* data, const IntegerKind& kind)
{
	uint64 bits = 0;
	for (int32 index = kind.width - 1; index >= 0; index--)
		bits = (bits << 8) | data[index];

	String text;
	if (kind.isSigned) {
		int shift = 64 - 8 * kind.width;
		int64 value = static_cast<int64>(bits << shift) >> shift;
		text = LongNumStr(value);
	} else
		text = ULongNumStr(bits);

	text << " '";
	for (int32 index = kind.width - 1; index >= 0; index--) {
		uint8 byte = data[index];
		text << (byte >= 0x20 && byte < 0x7F && byte != '\'' ? char(byte) : '.');
	}
	text << "' 0x";
	for (int32 index = kind.width - 1; index >= 0; index--)
		AppendHexByte(text, data[index]);
	return text;
}


// Fixed-point numbers longer than this are shown with an exponent instead.
const int32 kLongestFixed = 40;


// The shortest decimal text that reads back to the same value, with at least
// two decimals where there is no exponent: 3.00, 3.14159, 1e+300. Without
// allowExponent it stays fixed-point, whatever its length.
template<typename Real>
String
ExactDecimal(Real value, bool allowExponent)
{
	// Room for the longest fixed-point double, 1.8e308 or 4.9e-324.
	char digits[400];
	char* end = std::to_chars(digits, digits + sizeof(digits), value,
		std::chars_format::fixed).ptr;
	if (allowExponent && (std::fabs(value) >= 1e15 || end - digits > kLongestFixed)) {
		end = std::to_chars(digits, digits + sizeof(digits), value,
			std::chars_format::scientific).ptr;
	}
	String text;
	text.SetTo(digits, end - digits);
	if (!std::isfinite(value) || text.FindFirst('e') >= 0)
		return text;
	int32 point = text.FindFirst('.');
	if (point < 0) {
		point = text.Length();
		text << '.';
	}
	while (text.Length() - point - 1 < 2)
		text << '0';
	return text;
}


template<typename Value>
Value
ValueAt(const uint8* data)
{
	Value value;
	memcpy(&value, data, sizeof(value));
	return value;
}


// A rectangle's or a point's floats, (1.00, 2.50, 3.00, 4.00), each with as
// many decimals as it takes to read back the same float and never with an
// exponent, which the rectangle's parser would read as two numbers.
String
EdgesString(const uint8* data, int32 count)
{
	String text("(");
	for (int32 index = 0; index < count; index++) {
		if (index > 0)
			text << ", ";
		text << ExactDecimal(ValueAt<float>(data + index * sizeof(float)), false);
	}
	text << ')';
	return text;
}


// "0x" and groups of eight hex digits, each followed by a blank.
bool
RawString(const uint8* data, int32 size, String& text)
{
	if (2 + 9 * ((int64(size) + 3) / 4) > kMaxAttrStringLength)
		return false;

	text = "0x";
	for (int32 index = 0; index < size; index++) {
		AppendHexByte(text, data[index]);
		if (index % 4 == 3 || index == size - 1)
			text << ' ';
	}
	return true;
}


bool
TextString(const uint8* data, int32 size, String& text)
{
	size_t length = strnlen(reinterpret_cast<const char*>(data), size);
	if (length > size_t(kMaxAttrStringLength))
		return false;
	text.SetTo(reinterpret_cast<const char*>(data), length);
	return true;
}


// Whether the bytes are valid UTF-8 without control characters other than
// tab and line breaks.
bool
IsPrintableUTF8(const uint8* data, int32 size)
{
	int32 index = 0;
	while (index < size) {
		uint8 byte = data[index];
		int32 continuation;
		if (byte < 0x80) {
			if ((byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r')
				|| byte == 0x7F)
				return false;
			continuation = 0;
		} else if (byte >= 0xC2 && byte <= 0xDF)
			continuation = 1;
		else if (byte >= 0xE0 && byte <= 0xEF)
			continuation = 2;
		else if (byte >= 0xF0 && byte <= 0xF4)
			continuation = 3;
		else
			return false;

		if (index + continuation >= size)
			return false;
		for (int32 next = 1; next <= continuation; next++) {
			if ((data[index + next] & 0xC0) != 0x80)
				return false;
		}
		index += continuation + 1;
	}
	return true;
}


bool
XattrString(const uint8* data, int32 size, String& text)
{
	int32 length = data[size - 1] == 0 ? size - 1 : size;
	if (length <= kMaxAttrStringLength && IsPrintableUTF8(data, length)) {
		text.SetTo(reinterpret_cast<const char*>(data), length);
		return true;
	}
	return RawString(data, size, text);
}


// "32 x 32 icon" for bitmap data of a square size.
bool
IconString(int32 size, String& text)
{
	int64 side = std::llround(std::sqrt(double(size)));
	if (side * side != size)
		return false;
	text.SetToFormat("%d x %d icon", static_cast<int>(side), static_cast<int>(side));
	return true;
}


// The display text of a non-empty value; false when it is too long to show.
bool
ValueString(uint32 type, const uint8* data, int32 size, String& text)
{
	IntegerKind kind;
	if (IntegerKindFor(type, size, &kind)) {
		text = IntegerString(data, kind);
		return true;
	}

	switch (type) {
		case B_STRING_TYPE:
		case B_ASCII_TYPE:
		case B_MIME_TYPE:
		case B_MIME_STRING_TYPE:
			return TextString(data, size, text);
		case B_XATTR_TYPE:
			return XattrString(data, size, text);
		case B_BOOL_TYPE:
			if (size != 1)
				break;
			text = data[0] != 0 ? "true" : "false";
			return true;
		case B_FLOAT_TYPE:
			if (size != sizeof(float))
				break;
			text = ExactDecimal(ValueAt<float>(data), true);
			return true;
		case B_DOUBLE_TYPE:
			if (size != sizeof(double))
				break;
			text = ExactDecimal(ValueAt<double>(data), true);
			return true;
		case B_RECT_TYPE:
			if (size != 4 * sizeof(float))
				break;
			text = EdgesString(data, 4);
			return true;
		case B_POINT_TYPE:
			if (size != 2 * sizeof(float))
				break;
			text = EdgesString(data, 2);
			return true;
		case B_TIME_TYPE:
			if (size == sizeof(int32)) {
				text = datetostring(ValueAt<int32>(data));
				return true;
			}
			if (size == sizeof(int64)) {
				text = datetostring(static_cast<time_t>(ValueAt<int64>(data)));
				return true;
			}
			break;
		case kLargeIconType:
		case kMiniIconType:
		case B_COLOR_8_BIT_TYPE:
			if (IconString(size, text))
				return true;
			break;
	}
	return RawString(data, size, text);
}


// The value as MakeAttrString shows it, or its size when it is too large.
String
DescribedValue(uint32 type, const void* data, int32 size)
{
	String text;
	if (data == nullptr || size <= 0
		|| ValueString(type, static_cast<const uint8*>(data), size, text))
		return text;
	text << "(" << LongNumStr(size) << " bytes)";
	return text;
}


// Appends one labelled item to a description list.
void
AppendItem(String& list, const char* label, const BString& value)
{
	if (list.Length() > 0)
		list << ", ";
	list << label << ' ' << value;
}


String
Quoted(const char* text)
{
	String quoted;
	quoted << '"' << text << '"';
	return quoted;
}


bool
IsNewValue(const AttrData& current, const void* data, long size)
{
	if (data == nullptr)
		return false;
	if (size < 0) {
		return strcmp(static_cast<const char*>(data),
			DescribedValue(current.type, current.data, current.size)) != 0;
	}
	if (size != current.size)
		return true;
	return size > 0 && memcmp(data, current.data, size) != 0;
}


// A text value, shown as it is unless it is too long for a question.
String
DescribedText(const char* text)
{
	size_t length = strlen(text);
	if (length <= size_t(kMaxAttrStringLength))
		return String(text);
	String described;
	described << "(" << LongNumStr(length) << " bytes)";
	return described;
}

}	// namespace


void
MakeAttrString(char* buffer, uint32 type, const void* data, int32 size)
{
	String text;
	if (data != nullptr && size > 0
		&& !ValueString(type, static_cast<const uint8*>(data), size, text)) {
		// A row small enough to be edited in place must not show a text that
		// its editor would read as another value.
		if (size >= kAttrStringSize)
			return;
		text = kTooLongText;
	}
	if (text.Length() > kMaxAttrStringLength)
		return;
	memcpy(buffer, static_cast<const char*>(text), text.Length() + 1);
}


String
MakeHeaderString(uint32 type, uint32 size, const char* name)
{
	String header("Attribute");
	if (name != nullptr && name[0] != '\0')
		header << ' ' << Quoted(name);
	header << " (" << ASCII(type) << ", " << LongNumStr(size)
		<< (size == 1 ? " byte)" : " bytes)");
	return header;
}


void
MakeChangeStrings(const AttrData& current, const char* name, const char* type,
	const void* data, long size, String& question, String& details)
{
	question = "";
	details = "";

	// A change of letter case is a rename too.
	const bool nameChanged = name != nullptr && name[0] != '\0'
		&& strcmp(name, current.name) != 0;
	const uint32 newType = type != nullptr ? TypeCodeFromText(type) : current.type;
	const bool typeChanged = newType != current.type;
	const bool valueChanged = IsNewValue(current, data, size);

	if (nameChanged) {
		AppendItem(question, "name", Quoted(current.name));
		AppendItem(details, "name", Quoted(name));
	}
	if (typeChanged) {
		AppendItem(question, "type", ASCII(current.type));
		AppendItem(details, "type", ASCII(newType));
	}
	if (valueChanged) {
		AppendItem(question, "value",
			DescribedValue(current.type, current.data, current.size));
		AppendItem(details, "value", size < 0
			? DescribedText(static_cast<const char*>(data))
			: DescribedValue(newType, data, size));
	}
	if (!nameChanged && question.Length() > 0)
		question << " of " << Quoted(current.name);
}
