#ifndef VALUE_PARSING_H
#define VALUE_PARSING_H

#include <SupportDefs.h>

// Values made from the text of an editor field. Each returns a new buffer
// (release it with delete[]) holding the value in host byte order and one
// zero byte more, and stores the value's size through size when it is given.
// The parsing is deliberately simple: a malformed number becomes 0 and a
// value out of range is cut to the type's width.

// A number of the type spelt by typeText. newText is the edited text,
// oldText the display string that the field showed before; the first of
// their fields that differs chooses how the text is read: its decimal digits,
// its quoted characters or its hex digits. NULL for a numeric type without
// a rule ('BYTE', 'UBYT').
char* ExtractNumValue(const char* newText, const char* oldText,
	const char* typeText, long* size);

// Four floats (left, top, right, bottom) from the first four runs of digits;
// signs are separators, so negative edges come back positive.
char* ExtractRectValue(const char* text, long* size);

// One byte: 1 when text is a prefix of "true" in any letter case (the empty
// text included), else 0.
char* ExtractBoolValue(const char* text, long* size);

// Bytes from the pairs of hexadecimal digits after the first "0x", other
// characters skipped; a lone digit makes a byte of its own.
char* ExtractHexValue(const char* text, long* size);

#endif
