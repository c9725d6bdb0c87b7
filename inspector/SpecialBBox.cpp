#include "SpecialBBox.h"

SpecialBBox::SpecialBBox(BRect frame, const char* name, uint32 resizingMode, uint32 flags,
	border_style border)
	: BBox(frame, name, resizingMode, flags, border)
{
}

void
SpecialBBox::Draw(BRect updateRect)
{
	BBox::Draw(updateRect);
}
