#include "TypeConversion.h"

#include <cstring>

#include <TypeConstants.h>

#include "AttrTypes.h"

namespace {

bool
IsIntegerType(uint32 type)
{
	switch (type) {
		case B_INT64_TYPE:
		case B_UINT64_TYPE:
		case B_INT32_TYPE:
		case B_UINT32_TYPE:
		case B_INT16_TYPE:
		case B_UINT16_TYPE:
		case B_INT8_TYPE:
		case B_UINT8_TYPE:
		case B_BOOL_TYPE:
			return true;
		default:
			return false;
	}
}


// How many bytes of a widened integer a conversion to the type fills: none
// for the one-byte targets.
long
FilledWidth(uint32 newType)
{
	switch (newType) {
		case B_INT64_TYPE:
		case B_UINT64_TYPE:
			return 8;
		case B_INT32_TYPE:
		case B_UINT32_TYPE:
			return 4;
		case B_INT16_TYPE:
		case B_UINT16_TYPE:
			return 2;
		default:
			return 0;
	}
}


// The source integer widened to 64 bits, or false when a value of this
// size is not widened. 'BOOL' is zero-extended from its first byte; the
// others are read by their size, not their type, so unsigned sources are
// sign-extended too.
bool
WidenedSource(const void* data, uint32 oldType, long size, int64* value)
{
	if (data == nullptr || size < 1)
		return false;
	if (oldType == B_BOOL_TYPE) {
		*value = *static_cast<const uint8*>(data);
		return true;
	}

	switch (size) {
		case 1:
			*value = *static_cast<const int8*>(data);
			return true;
		case 2:
		{
			int16 source;
			memcpy(&source, data, sizeof(source));
			*value = source;
			return true;
		}
		case 4:
		{
			int32 source;
			memcpy(&source, data, sizeof(source));
			*value = source;
			return true;
		}
		default:
			return false;
	}
}


// Stores the low width bytes of value at buffer in host byte order.
void
StoreLowBytes(char* buffer, int64 value, long width)
{
	switch (width) {
		case 2:
		{
			int16 narrowed = static_cast<int16>(value);
			memcpy(buffer, &narrowed, sizeof(narrowed));
			break;
		}
		case 4:
		{
			int32 narrowed = static_cast<int32>(value);
			memcpy(buffer, &narrowed, sizeof(narrowed));
			break;
		}
		case 8:
			memcpy(buffer, &value, sizeof(value));
			break;
	}
}

}	// namespace


void
ConvertDataToNewType(void** data, uint32 oldType, long* size, uint32 newType)
{
	if (!IsIntegerType(newType))
		return;

	const long standardSize = CalcStandardAttrSize(newType);
	if (standardSize <= *size) {
		*size = standardSize;
		return;
	}

	// The bytes the conversion does not set stay zero.
	char* converted = new char[standardSize + 1]();
	int64 value;
	if (IsIntegerType(oldType) && WidenedSource(*data, oldType, *size, &value))
		StoreLowBytes(converted, value, FilledWidth(newType));

	*data = converted;
	*size = standardSize;
}
