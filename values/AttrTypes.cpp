#include "AttrTypes.h"

#include <cctype>
#include <cstring>

#include <TypeConstants.h>

const uint32 kAttrTypes[] = {
	B_ANY_TYPE, B_ASCII_TYPE, B_BOOL_TYPE, B_CHAR_TYPE, B_COLOR_8_BIT_TYPE,
	B_DOUBLE_TYPE, B_FLOAT_TYPE, B_GRAYSCALE_8_BIT_TYPE, B_INT64_TYPE,
	B_INT32_TYPE, B_INT16_TYPE, B_INT8_TYPE, B_MESSAGE_TYPE, B_MESSENGER_TYPE,
	B_MIME_TYPE, B_MONOCHROME_1_BIT_TYPE, B_OBJECT_TYPE, B_OFF_T_TYPE,
	B_PATTERN_TYPE, B_POINTER_TYPE, B_POINT_TYPE, B_RAW_TYPE, B_RECT_TYPE,
	B_REF_TYPE, B_RGB_32_BIT_TYPE, B_RGB_COLOR_TYPE, B_SIZE_T_TYPE,
	B_SSIZE_T_TYPE, B_STRING_TYPE, B_TIME_TYPE, B_UINT64_TYPE, B_UINT32_TYPE,
	B_UINT16_TYPE, B_UINT8_TYPE, B_MIME_STRING_TYPE,
	0
};

const int32 kAttrTypeCount = sizeof(kAttrTypes) / sizeof(kAttrTypes[0]) - 1;

const uint32 kNumTypes[] = {
	B_FLOAT_TYPE, B_DOUBLE_TYPE, B_INT64_TYPE, B_INT32_TYPE, B_INT16_TYPE,
	B_INT8_TYPE, B_UINT64_TYPE, B_UINT32_TYPE, B_UINT16_TYPE, B_UINT8_TYPE,
	0
};


bool
IsNumType(uint32 type)
{
	for (const uint32* code = kNumTypes; *code != 0; code++) {
		if (*code == type)
			return true;
	}
	return false;
}


uint32
SizeForType(uint32 type, const void* data)
{
	switch (type) {
		case B_BOOL_TYPE:
		case B_INT8_TYPE:
		case B_CHAR_TYPE:
		case B_UINT8_TYPE:
			return 1;
		case B_INT16_TYPE:
		case B_UINT16_TYPE:
			return 2;
		case B_FLOAT_TYPE:
		case B_INT32_TYPE:
		case B_TIME_TYPE:
		case B_UINT32_TYPE:
			return 4;
		case B_POINT_TYPE:
		case B_DOUBLE_TYPE:
		case B_INT64_TYPE:
		case B_UINT64_TYPE:
			return 8;
		case B_RECT_TYPE:
			return 16;
		default:
			return strlen(static_cast<const char*>(data)) + 1;
	}
}


long
CalcStandardAttrSize(uint32 type)
{
	switch (type) {
		case B_BOOL_TYPE:
		case B_INT8_TYPE:
			return 1;
		case B_INT16_TYPE:
		case B_UINT16_TYPE:
			return 2;
		case B_INT64_TYPE:
		case B_UINT64_TYPE:
			return 8;
		default:
			// 'LONG', 'ULNG' and 'FLOT' are 4 bytes, and so is every
			// type not listed, 'UBYT' and 'DBLE' included.
			return 4;
	}
}


void
CalculateSize(uint32 type, long* size)
{
	switch (type) {
		case B_BOOL_TYPE:
		case B_INT8_TYPE:
		case B_UINT8_TYPE:
			*size = 1;
			break;
		case B_INT16_TYPE:
		case B_UINT16_TYPE:
			*size = 2;
			break;
		case B_INT32_TYPE:
		case B_UINT32_TYPE:
		case B_FLOAT_TYPE:
		case B_TIME_TYPE:
		case B_POINTER_TYPE:
			*size = 4;
			break;
		case B_INT64_TYPE:
		case B_UINT64_TYPE:
		case B_DOUBLE_TYPE:
		case B_OFF_T_TYPE:
			*size = 8;
			break;
		case B_RECT_TYPE:
			*size = 16;
			break;
		default:
			break;
	}
}


uint32
SuggestedTypeFor(uint32 typed)
{
	uint32 upper = 0;
	for (int shift = 24; shift >= 0; shift -= 8) {
		uint32 byte = toupper(static_cast<int>((typed >> shift) & 0xFF));
		upper |= (byte & 0xFF) << shift;
	}

	for (const uint32* code = kAttrTypes; *code != 0; code++) {
		if (*code == upper)
			return *code;
	}
	return typed;
}


uint32
TypeCodeFromText(const char* text)
{
	uint32 code = 0;
	bool ended = text == nullptr;
	for (int i = 0; i < 4; i++) {
		uint8 byte = ended ? 0 : static_cast<uint8>(text[i]);
		ended = ended || byte == 0;
		code = (code << 8) | byte;
	}
	return code;
}

String
TypeTextOf(const char* text, uint32 code)
{
	String adjusted(text);
	while (adjusted.Length() < 4)
		adjusted << ' ';
	char* characters = adjusted.LockBuffer(adjusted.Length());
	for (int32 index = 0; index < 4; index++)
		characters[index] = static_cast<char>(code >> (8 * (3 - index)));
	adjusted.UnlockBuffer(adjusted.Length());
	return adjusted;
}
