#include "HexText.h"

#include <algorithm>

namespace {

const int32 kGroup = 4;
// A group's digits and the blank after it.
const int32 kGroupCells = kGroup * 2 + 1;

}	// namespace

HexText::HexText(BRect frame, const char* name, BRect textRect, uint32 resizingMode,
	uint32 flags)
	: SpecialTextView(frame, name, textRect, resizingMode, flags)
{
}

int32
HexText::CellOf(int32 column) const
{
	return column / kGroup * kGroupCells + column % kGroup * 2;
}

int32
HexText::FormatLine(const uchar* bytes, int32 count, char* out) const
{
	static const char kDigits[] = "0123456789ABCDEF";
	int32 length = 0;
	for (int32 i = 0; i < count; i++) {
		if (i > 0 && i % kGroup == 0)
			out[length++] = ' ';
		out[length++] = kDigits[bytes[i] >> 4];
		out[length++] = kDigits[bytes[i] & 0x0f];
	}
	return length;
}

int32
HexText::PositionInLine(int32 cell) const
{
	// The blank between two groups counts as the last digit of the group before.
	int32 group = cell / kGroupCells;
	int32 digit = std::min(cell % kGroupCells, kGroup * 2 - 1);
	return group * kGroup * 2 + digit;
}
