#include "ValueText.h"

#include <cctype>
#include <cstdlib>

namespace {

// The character at index, or 0 past the end of the text.
char
CharAt(const BString& text, int32 index)
{
	return index >= 0 && index < text.Length() ? text.ByteAt(index) : '\0';
}


bool
IsDigit(char c)
{
	return isdigit(static_cast<unsigned char>(c)) != 0;
}


int
Upper(char c)
{
	return toupper(static_cast<unsigned char>(c));
}


// Past a "0x" or "0X" at index, else index itself.
int32
SkipHexPrefix(const BString& text, int32 index)
{
	if (CharAt(text, index) == '0' && index < text.Length()
		&& Upper(CharAt(text, index + 1)) == 'X')
		return index + 2;
	return index;
}

}	// namespace


bool
ishexdigit(char c)
{
	int upper = Upper(c);
	return IsDigit(c) || (upper >= 'A' && upper <= 'F');
}


int
hexvalue(char c)
{
	if (IsDigit(c))
		return c - '0';
	int upper = Upper(c);
	if (upper >= 'A' && upper <= 'F')
		return upper - 55;
	return 0;
}


String
GetFieldStr(String& text, int n)
{
	const int32 length = text.Length();
	int32 pos = 0;
	int32 end = 0;

	for (int field = 0; field <= n; field++) {
		// The digit test is made once: a scan for the quote does not stop
		// at the digits it passes.
		if (!IsDigit(CharAt(text, pos))) {
			while (pos < length && CharAt(text, pos) != '\'')
				pos++;
		}
		pos = SkipHexPrefix(text, pos);
		if (pos >= length)
			continue;

		end = pos + 1;
		if (IsDigit(CharAt(text, pos))) {
			while (end < length && ishexdigit(CharAt(text, end)))
				end++;
		} else if (CharAt(text, pos) == '\'') {
			pos++;
			end = pos;
			while (end < length && CharAt(text, end) != '\'')
				end++;
		}

		if (field == n) {
			String result;
			text.CopyInto(result, pos, end - pos);
			return result;
		}

		pos = end + 1;
		while (pos < length && CharAt(text, pos) != '\''
			&& !IsDigit(CharAt(text, pos)))
			pos++;
	}
	return String();
}


int32
FindFirstHex(BString& text)
{
	const int32 length = text.Length();
	int32 index = 0;
	while (index < length && !ishexdigit(CharAt(text, index)))
		index++;
	return SkipHexPrefix(text, index);
}


int32
HexLength(String& text)
{
	const int32 length = text.Length();
	int32 count = 0;
	for (int32 index = FindFirstHex(text); index < length; index++) {
		if (ishexdigit(CharAt(text, index)))
			count++;
	}
	return (count + 1) / 2;
}


float
hextof(String& text)
{
	float value = 0.0f;
	float divisor = 10.0f;
	const int32 length = text.Length();
	for (int32 index = 0; index <= 8 && index < length; index++) {
		int digit = hexvalue(CharAt(text, index));
		if (index < 2)
			value = value * 16 + digit;
		else {
			value += digit / divisor;
			divisor /= 10;
		}
	}
	return value;
}


double
hextod(String& text)
{
	double value = 0.0;
	double divisor = 10.0;
	const int32 length = text.Length();
	for (int32 index = 0; index <= 16 && index < length; index++) {
		char c = CharAt(text, index);
		if (index < 4)
			value = value * 16 + hexvalue(c);
		else if (ishexdigit(c)) {
			value += hexvalue(c) / divisor;
			divisor /= 10;
		}
	}
	return value;
}


int64
hextol(BString& text)
{
	// Unsigned arithmetic: the digits wrap around as the 64-bit value does.
	uint64 value = 0;
	const int32 length = text.Length();
	for (int32 index = 0; index <= 16 && index < length; index++)
		value = value * 16 + hexvalue(CharAt(text, index));
	return static_cast<int64>(value);
}


int64
strtol(BString text)
{
	uint64 value = 0;
	for (int32 index = 0; index < text.Length(); index++) {
		int64 code = static_cast<signed char>(CharAt(text, index));
		value = value * 16 + static_cast<uint64>(code);
	}
	return static_cast<int64>(value);
}


float
strtof(String& text)
{
	return static_cast<float>(atof(text));
}


double
strtod(String& text)
{
	return atof(text);
}


// atol as a 32-bit long reads it: out-of-range values saturate.
int32
Atol32(const char* text)
{
	long long value = strtoll(text, nullptr, 10);
	if (value > INT32_MAX)
		return INT32_MAX;
	if (value < INT32_MIN)
		return INT32_MIN;
	return static_cast<int32>(value);
}
