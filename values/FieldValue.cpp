#include "FieldValue.h"

#include <cstring>

#include <TypeConstants.h>
#include <parsedate.h>

#include "AttrTypes.h"
#include "ValueParsing.h"
#include "VellumString.h"


char*
ExtractDateValue(const char* text, long* size)
{
	String copy(text);
	int32 time = static_cast<int32>(parsedate(copy, -1));
	char* buffer = new char[sizeof(time) + 1]();
	memcpy(buffer, &time, sizeof(time));
	if (size != nullptr)
		*size = sizeof(time);
	return buffer;
}


char*
GetDataFromText(const char* text, const char* oldText, const char* typeText,
	long* size)
{
	String copy(text);
	const uint32 type = TypeCodeFromText(typeText);

	switch (type) {
		case B_STRING_TYPE:
		{
			char* buffer = new char[copy.Length() + 1];
			memcpy(buffer, static_cast<const char*>(copy), copy.Length() + 1);
			if (size != nullptr)
				*size = copy.Length() + 1;
			return buffer;
		}
		case B_RECT_TYPE:
			return ExtractRectValue(copy, size);
		case B_TIME_TYPE:
			return ExtractDateValue(copy, size);
		case B_BOOL_TYPE:
			return ExtractBoolValue(copy, size);
	}
	if (IsNumType(type))
		return ExtractNumValue(copy, oldText, typeText, size);

	switch (type) {
		case B_RAW_TYPE:
		case 'MWPr':
		case 'APPF':
		case 'pref':
		case 'APPV':
			return ExtractHexValue(copy, size);
		default:
			return nullptr;
	}
}
