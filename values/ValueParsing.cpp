#include "ValueParsing.h"

#include <cctype>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <strings.h>

#include <TypeConstants.h>

#include "AttrTypes.h"
#include "ValueText.h"
#include "VellumString.h"

namespace {

enum NumMode {
	kDecimalMode = 0,
	kCharactersMode = 1,
	kHexMode = 2
};


char*
NewValue(const void* value, long length, long* size)
{
	char* buffer = new char[length + 1]();
	memcpy(buffer, value, length);
	if (size != nullptr)
		*size = length;
	return buffer;
}


// Picks the field of the new text that differs from the old one and
// narrows text to it; an unchanged text is read whole in decimal.
NumMode
ChooseNumMode(String& text, String& old)
{
	if (text == old || (text.Length() > 0 && old.Length() > 0
			&& strcasecmp(text, old) == 0))
		return kDecimalMode;

	NumMode mode = kDecimalMode;
	String field = GetFieldStr(text, 0);
	if (field == GetFieldStr(old, 0)) {
		mode = kCharactersMode;
		field = GetFieldStr(text, 1);
		if (field == GetFieldStr(old, 1)) {
			mode = kHexMode;
			field = GetFieldStr(text, 2);
		}
	}
	if (field.Length() > 0)
		text = field;
	return mode;
}


int64
IntegerInMode(String& text, NumMode mode)
{
	switch (mode) {
		case kCharactersMode:
			return strtol(text);
		case kHexMode:
			return hextol(text);
		default:
			return Atol32(text);
	}
}


template<typename Integer>
char*
NewInteger(int64 value, long* size)
{
	Integer narrowed = static_cast<Integer>(value);
	return NewValue(&narrowed, sizeof(narrowed), size);
}

}	// namespace


char*
ExtractNumValue(const char* newText, const char* oldText, const char* typeText,
	long* size)
{
	String text(newText);
	String old(oldText);
	NumMode mode = ChooseNumMode(text, old);

	switch (TypeCodeFromText(typeText)) {
		case B_FLOAT_TYPE:
		{
			float value = mode == kDecimalMode ? atof(text)
				: mode == kCharactersMode ? strtof(text) : hextof(text);
			return NewValue(&value, sizeof(value), size);
		}
		case B_DOUBLE_TYPE:
		{
			// The characters mode goes through single precision.
			double value = mode == kDecimalMode ? atof(text)
				: mode == kCharactersMode ? strtof(text) : hextod(text);
			return NewValue(&value, sizeof(value), size);
		}
		case B_CHAR_TYPE:
			return NewInteger<int8>(IntegerInMode(text, mode), size);
		case B_INT16_TYPE:
		case B_UINT16_TYPE:
			return NewInteger<int16>(IntegerInMode(text, mode), size);
		case B_INT32_TYPE:
		case B_UINT32_TYPE:
			return NewInteger<int32>(IntegerInMode(text, mode), size);
		case B_INT64_TYPE:
		case B_UINT64_TYPE:
			return NewInteger<int64>(IntegerInMode(text, mode), size);
		default:
			return nullptr;
	}
}


char*
ExtractRectValue(const char* text, long* size)
{
	String copy(text);
	const char* characters = copy;
	const int32 length = copy.Length();
	float edges[4] = { 0, 0, 0, 0 };

	int32 index = 0;
	for (float& edge : edges) {
		while (index < length && !isdigit(static_cast<unsigned char>(characters[index])))
			index++;
		if (index >= length)
			break;
		edge = static_cast<float>(atof(characters + index));
		while (index < length && (isdigit(static_cast<unsigned char>(characters[index]))
				|| characters[index] == '.'))
			index++;
	}
	return NewValue(edges, sizeof(edges), size);
}


char*
ExtractBoolValue(const char* text, long* size)
{
	String copy(text);
	char value = strncasecmp(copy, "true", copy.Length()) == 0 ? 1 : 0;
	return NewValue(&value, 1, size);
}


char*
ExtractHexValue(const char* text, long* size)
{
	String copy(text);
	const char* characters = copy;
	const int32 length = copy.Length();
	const int32 byteCount = HexLength(copy);

	// Lone digits can make more bytes than the digits' count allows for;
	// only the first byteCount bytes belong to the value.
	char* buffer = new char[byteCount + 1]();
	int32 made = 0;
	for (int32 index = FindFirstHex(copy); index < length && made < byteCount;
			index++) {
		if (!ishexdigit(characters[index]))
			continue;
		int byte = hexvalue(characters[index]);
		if (index + 1 < length && ishexdigit(characters[index + 1])) {
			index++;
			byte = byte * 16 + hexvalue(characters[index]);
		}
		buffer[made++] = static_cast<char>(byte);
	}

	if (size != nullptr)
		*size = byteCount;
	return buffer;
}
