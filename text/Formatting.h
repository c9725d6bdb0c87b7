#ifndef FORMATTING_H
#define FORMATTING_H

#include <ctime>

#include <Point.h>
#include <Rect.h>
#include <SupportDefs.h>

#include "VellumString.h"

// The four characters of a type code in reading order ("LONG"); a code with
// a byte outside printable ASCII is shown as "0x" and eight hex digits.
String ASCII(uint32 type);

// Numbers with their thousands separated by commas: 1,234,567 and -1,234.
String LongNumStr(int64 value);
String ULongNumStr(uint64 value);

// Local date "Mar 7, 2004", local time "14:05:09" and the two together,
// "Mar 7, 2004 14:05:09", in forms that parsedate reads back. A time with no
// calendar date shows as its number of seconds.
String datestring(time_t time);
String timestring(time_t time);
String datetostring(time_t time);

// "%d %d %d %d" of the edges truncated to integers.
String IntegerRectString(const BRect& rect);
// "(%.2f, %.2f, %.2f, %.2f)": left, top, right, bottom.
String RectString(const BRect& rect);
// "(%.2f, %.2f)": x, y.
String PointString(const BPoint& point);

#endif
