#ifndef VALUE_TEXT_H
#define VALUE_TEXT_H

#include <SupportDefs.h>

#include "VellumString.h"

// Small conversions between the display strings of values and numbers. The
// names strtol, strtof and strtod overload the C library's for String
// arguments; these versions read the characters of a display field, not a
// number in C syntax.

bool ishexdigit(char c);
int hexvalue(char c);

// Field n (from 0) of a display string: a run of digits, the hex digits after
// "0x", or the characters between single quotes. Empty if there is none.
String GetFieldStr(String& text, int n);

// Index of the first hexadecimal digit (past a leading "0x"), or the length.
int32 FindFirstHex(BString& text);
// Bytes that the hexadecimal digits from FindFirstHex on make.
int32 HexLength(String& text);

float hextof(String& text);
double hextod(String& text);
int64 hextol(BString& text);

// Every character shifts the value by four bits and adds its code.
int64 strtol(BString text);
float strtof(String& text);
double strtod(String& text);

// atol as a 32-bit long reads it: out-of-range values saturate.
int32 Atol32(const char* text);

#endif
