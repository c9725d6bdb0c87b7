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


FieldForm
FieldFormOf(uint32 type)
{
	switch (type) {
		case B_STRING_TYPE:
			return kStringForm;
		case B_RECT_TYPE:
			return kRectForm;
		case B_TIME_TYPE:
			return kDateForm;
		case B_BOOL_TYPE:
			return kBoolForm;
	}
	if (IsNumType(type))
		return kNumberForm;

	switch (type) {
		case B_RAW_TYPE:
		case 'MWPr':
		case 'APPF':
		case 'pref':
		case 'APPV':
			return kHexForm;
		default:
			return kNoForm;
	}
}


char*
ExtractStringValue(const char* text, long* size)
{
	size_t length = strlen(text);
	char* buffer = new char[length + 1];
	memcpy(buffer, text, length + 1);
	if (size != nullptr)
		*size = length + 1;
	return buffer;
}


char*
GetDataFromText(const char* text, const char* oldText, const char* typeText,
	long* size)
{
	String copy(text);
	switch (FieldFormOf(TypeCodeFromText(typeText))) {
		case kStringForm:
			return ExtractStringValue(copy, size);
		case kRectForm:
			return ExtractRectValue(copy, size);
		case kDateForm:
			return ExtractDateValue(copy, size);
		case kBoolForm:
			return ExtractBoolValue(copy, size);
		case kNumberForm:
			return ExtractNumValue(copy, oldText, typeText, size);
		case kHexForm:
			return ExtractHexValue(copy, size);
		case kNoForm:
			break;
	}
	return nullptr;
}
