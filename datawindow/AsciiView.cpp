#include "AsciiView.h"

AsciiView::AsciiView(BRect frame, const char* name, BRect textRect, uint32 resizingMode,
	uint32 flags)
	: SpecialTextView(frame, name, textRect, resizingMode, flags)
{
}

int32
AsciiView::FormatLine(const uchar* bytes, int32 count, char* out) const
{
	for (int32 i = 0; i < count; i++)
		out[i] = bytes[i] >= 0x20 && bytes[i] < 0x7f ? char(bytes[i]) : '.';
	return count;
}
