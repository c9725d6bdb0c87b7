#ifndef ATTR_TYPES_H
#define ATTR_TYPES_H

#include <SupportDefs.h>

#include "VellumString.h"

// The type codes this program knows, in search order, ended by 0.
extern const uint32 kAttrTypes[];
extern const int32 kAttrTypeCount;

// The numeric type codes, ended by 0.
extern const uint32 kNumTypes[];

bool IsNumType(uint32 type);

// The size a fresh value of the type occupies; for types without a fixed size
// the length of data read as a NUL-terminated string, plus one.
uint32 SizeForType(uint32 type, const void* data);

// The size a type change aims at; 4 for every type not listed.
long CalcStandardAttrSize(uint32 type);

// Overwrites *size with the fixed size of the type; other types keep theirs.
void CalculateSize(uint32 type, long* size);

// The known code that the typed code means when its letters are upper-cased,
// or the typed code itself when no known code matches.
uint32 SuggestedTypeFor(uint32 typed);

// The code spelt by the first four bytes of text, read most significant byte
// first; bytes past the end of the text count as zeros.
uint32 TypeCodeFromText(const char* text);

// The type text with its first four characters spelling code (blanks added
// to a shorter text).
String TypeTextOf(const char* text, uint32 code);

#endif
