#include <Rect.h>

#include <algorithm>
#include <cstdio>

BRect
BRect::operator&(const BRect& r) const
{
	return BRect(std::max(left, r.left), std::max(top, r.top),
		std::min(right, r.right), std::min(bottom, r.bottom));
}

BRect
BRect::operator|(const BRect& r) const
{
	return BRect(std::min(left, r.left), std::min(top, r.top),
		std::max(right, r.right), std::max(bottom, r.bottom));
}

bool
BRect::Intersects(const BRect& r) const
{
	if (!IsValid() || !r.IsValid())
		return false;
	return left <= r.right && r.left <= right && top <= r.bottom && r.top <= bottom;
}

bool
BRect::Contains(BPoint p) const
{
	return p.x >= left && p.x <= right && p.y >= top && p.y <= bottom;
}

bool
BRect::Contains(const BRect& r) const
{
	return r.left >= left && r.right <= right && r.top >= top && r.bottom <= bottom;
}

void
BRect::PrintToStream() const
{
	printf("BRect(l:%.1f, t:%.1f, r:%.1f, b:%.1f)\n", left, top, right, bottom);
}
