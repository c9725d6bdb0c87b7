#include "Formatting.h"

namespace {

const char* const kMonths[] = {
	"Jan", "Feb", "Mar", "Apr", "May", "Jun",
	"Jul", "Aug", "Sep", "Oct", "Nov", "Dec"
};


bool
IsPrintable(uint32 byte)
{
	return byte >= 0x20 && byte < 0x7F;
}


String
GroupDigits(uint64 magnitude, bool negative)
{
	char digits[32];
	int count = 0;
	do {
		digits[count++] = static_cast<char>('0' + magnitude % 10);
		magnitude /= 10;
	} while (magnitude != 0);

	String result;
	if (negative)
		result << '-';
	for (int index = count - 1; index >= 0; index--) {
		result << digits[index];
		if (index > 0 && index % 3 == 0)
			result << ',';
	}
	return result;
}


// The broken-down local time, or false when the time has no calendar date.
bool
LocalTime(time_t time, struct tm* local)
{
	return localtime_r(&time, local) != nullptr;
}

}	// namespace


String
ASCII(uint32 type)
{
	String text;
	for (int shift = 24; shift >= 0; shift -= 8) {
		uint32 byte = (type >> shift) & 0xFF;
		if (!IsPrintable(byte))
			return String().SetToFormat("0x%08X", static_cast<unsigned>(type));
		text << static_cast<char>(byte);
	}
	return text;
}


String
LongNumStr(int64 value)
{
	// The magnitude in unsigned arithmetic, so that the smallest value has one.
	uint64 magnitude = value < 0 ? 0 - static_cast<uint64>(value)
		: static_cast<uint64>(value);
	return GroupDigits(magnitude, value < 0);
}


String
ULongNumStr(uint64 value)
{
	return GroupDigits(value, false);
}


String
datestring(time_t time)
{
	struct tm local;
	if (!LocalTime(time, &local))
		return LongNumStr(time);
	return String().SetToFormat("%s %d, %lld", kMonths[local.tm_mon],
		local.tm_mday, static_cast<long long>(local.tm_year) + 1900);
}


String
timestring(time_t time)
{
	struct tm local;
	if (!LocalTime(time, &local))
		return String();
	return String().SetToFormat("%02d:%02d:%02d", local.tm_hour, local.tm_min,
		local.tm_sec);
}


String
datetostring(time_t time)
{
	struct tm local;
	if (!LocalTime(time, &local))
		return LongNumStr(time);
	String text = datestring(time);
	text << ' ' << timestring(time);
	return text;
}


String
IntegerRectString(const BRect& rect)
{
	return String().SetToFormat("%d %d %d %d", static_cast<int>(rect.left),
		static_cast<int>(rect.top), static_cast<int>(rect.right),
		static_cast<int>(rect.bottom));
}


String
RectString(const BRect& rect)
{
	return String().SetToFormat("(%.2f, %.2f, %.2f, %.2f)", rect.left, rect.top,
		rect.right, rect.bottom);
}


String
PointString(const BPoint& point)
{
	return String().SetToFormat("(%.2f, %.2f)", point.x, point.y);
}
