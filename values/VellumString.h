#ifndef VELLUM_STRING_H
#define VELLUM_STRING_H

#include <String.h>

// The program's string: a BString that converts to const char* wherever a C
// string is expected. The class name hides BString::String(), so read the text
// of a String through the conversion (or through a BString reference).
class String : public BString {
public:
	using BString::BString;
	using BString::operator=;

	String() = default;
	String(const BString& other) : BString(other) {}

	operator const char*() const { return BString::String(); }
};

#endif
