#include <Point.h>

#include <algorithm>
#include <cstdio>

#include <Rect.h>

const BPoint B_ORIGIN(0, 0);

void
BPoint::ConstrainTo(BRect rect)
{
	x = std::clamp(x, rect.left, std::max(rect.left, rect.right));
	y = std::clamp(y, rect.top, std::max(rect.top, rect.bottom));
}

void
BPoint::PrintToStream() const
{
	printf("BPoint(x:%.0f, y:%.0f)\n", x, y);
}
