#ifndef DISPLAY_STRINGS_H
#define DISPLAY_STRINGS_H

#include <SupportDefs.h>

#include "AttrData.h"
#include "VellumString.h"

// The value column of an attribute row is a buffer of this size that holds
// kTooLargeText until MakeAttrString writes the value's text into it.
const int32 kAttrStringSize = 256;
extern const char* const kTooLargeText;
// What a value too long for the buffer shows when it is shorter than
// kAttrStringSize bytes, so small enough to be edited in its row: a text
// without a hex digit, which the raw parser reads as no value.
extern const char* const kTooLongText;

// Writes the display text of a value into buffer (kAttrStringSize bytes),
// kTooLongText when that does not fit, or leaves the buffer as it is when the
// value is not shorter than kAttrStringSize bytes either. Every text that fits
// reads back to the same bytes through the editor's parsers where the parser
// can hold the value at all:
// - integers: grouped decimal, the bytes as quoted characters (most
//   significant first, '.' for a byte that is not printable ASCII) and "0x"
//   with the hex digits: 1,234 '....' 0x000004D2;
// - 'FLOT', 'DBLE': the shortest exact decimal, at least two decimals, 3.00,
//   3.14159 (an exponent from 1e15 on);
// - 'RECT' (1.00, 2.00, 3.00, 4.25); 'BPNT' (1.00, 2.00), exact decimals;
// - 'BOOL': true or false; 'TIME' (4 or 8 bytes): its local date and time;
// - strings: their text up to the first NUL; 'XATR': its text when it is
//   printable UTF-8 (a final NUL allowed), else as raw data;
// - 'ICON', 'MICN' and square 'CLRB' bitmaps: "32 x 32 icon";
// - raw data, unknown types, and values whose size does not fit their type:
//   "0x" and groups of eight hex digits, each followed by a blank;
// - an empty value (no data or size 0): the empty text.
void MakeAttrString(char* buffer, uint32 type, const void* data, int32 size);

// The data window's header: Attribute "name" (LONG, 4 bytes).
String MakeHeaderString(uint32 type, uint32 size, const char* name);

// The two halves of the "Change %s to %s?" question, naming what differs
// between the current attribute and the new name, type text and value: for
// example name "old" and name "new", or type LONG, value 5 and type SHRT,
// value 5. A null argument is no change; a name that differs only in letter
// case is a change. The new value is bytes of the new type when
// size >= 0 and a text (shown as it is) when size < 0. Both strings are empty
// when nothing changes.
void MakeChangeStrings(const AttrData& current, const char* name,
	const char* type, const void* data, long size, String& question,
	String& details);

#endif
