#ifndef FIELD_VALUE_H
#define FIELD_VALUE_H

#include <SupportDefs.h>

// How the text of an editor's Data field becomes the value of a type.
enum FieldForm {
	kStringForm,	// the text and its NUL
	kRectForm,
	kDateForm,
	kBoolForm,
	kNumberForm,
	kHexForm,		// raw bytes as hex digits
	kNoForm			// the type has no rule: the text makes no value
};

FieldForm FieldFormOf(uint32 type);

// The text with its NUL, which the size counts. Release with delete[].
char* ExtractStringValue(const char* text, long* size);

// A 32-bit time from free-form date text, relative to now; a text that does
// not parse stores -1. Release the result with delete[].
char* ExtractDateValue(const char* text, long* size);

// The value that the text of an editor's Data field makes for the type spelt
// by typeText (its first four characters). oldText is the value string that
// the row showed, which numbers are compared with. 'CSTR' keeps the text with
// its NUL (counted in the size); 'RECT', 'TIME', 'BOOL', the numeric types and
// the raw types ('RAWT', 'MWPr', 'APPF', 'pref', 'APPV') are parsed; any other
// type gives NULL and leaves *size alone. Release the result with delete[].
char* GetDataFromText(const char* text, const char* oldText,
	const char* typeText, long* size);

#endif
