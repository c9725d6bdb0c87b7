#include <Region.h>

#include <cmath>
#include <cstdio>

BRegion::BRegion(const BRect& rect)
{
	Set(rect);
}

BRect
BRegion::pvPixelRect(BRect rect)
{
	return BRect(std::floor(rect.left), std::floor(rect.top), std::ceil(rect.right),
		std::ceil(rect.bottom));
}

void
BRegion::pvSubtract(const BRect& from, const BRect& cut, std::vector<BRect>& pieces)
{
	if (!from.Intersects(cut)) {
		pieces.push_back(from);
		return;
	}
	// Bands above and below the cut, then the parts left and right of it.
	if (cut.top > from.top)
		pieces.emplace_back(from.left, from.top, from.right, cut.top - 1);
	if (cut.bottom < from.bottom)
		pieces.emplace_back(from.left, cut.bottom + 1, from.right, from.bottom);
	float top = std::max(from.top, cut.top);
	float bottom = std::min(from.bottom, cut.bottom);
	if (cut.left > from.left)
		pieces.emplace_back(from.left, top, cut.left - 1, bottom);
	if (cut.right < from.right)
		pieces.emplace_back(cut.right + 1, top, from.right, bottom);
}

BRect
BRegion::Frame() const
{
	if (fRects.empty())
		return BRect();
	BRect frame = fRects.front();
	for (const BRect& rect : fRects)
		frame = frame | rect;
	return frame;
}

BRect
BRegion::RectAt(int32 index) const
{
	if (index < 0 || index >= CountRects())
		return BRect();
	return fRects[index];
}

void
BRegion::Set(BRect rect)
{
	fRects.clear();
	Include(rect);
}

void
BRegion::Include(BRect rect)
{
	if (!rect.IsValid())
		return;
	rect = pvPixelRect(rect);
	Exclude(rect);
	fRects.push_back(rect);
}

void
BRegion::Include(const BRegion* region)
{
	if (region == nullptr || region == this)
		return;
	for (const BRect& rect : region->fRects)
		Include(rect);
}

void
BRegion::Exclude(BRect rect)
{
	if (!rect.IsValid())
		return;
	rect = pvPixelRect(rect);
	std::vector<BRect> pieces;
	pieces.reserve(fRects.size() + 4);
	for (const BRect& each : fRects)
		pvSubtract(each, rect, pieces);
	fRects.swap(pieces);
}

void
BRegion::Exclude(const BRegion* region)
{
	if (region == nullptr)
		return;
	if (region == this) {
		MakeEmpty();
		return;
	}
	for (const BRect& rect : region->fRects)
		Exclude(rect);
}

void
BRegion::IntersectWith(const BRegion* region)
{
	if (region == nullptr || region == this)
		return;
	std::vector<BRect> result;
	for (const BRect& mine : fRects) {
		for (const BRect& theirs : region->fRects) {
			BRect common = mine & theirs;
			if (common.IsValid())
				result.push_back(common);
		}
	}
	fRects.swap(result);
}

void
BRegion::OffsetBy(float dx, float dy)
{
	for (BRect& rect : fRects)
		rect = pvPixelRect(rect.OffsetByCopy(dx, dy));
}

bool
BRegion::Contains(BPoint point) const
{
	BPoint pixel(std::floor(point.x), std::floor(point.y));
	for (const BRect& rect : fRects) {
		if (rect.Contains(pixel))
			return true;
	}
	return false;
}

bool
BRegion::Intersects(BRect rect) const
{
	rect = pvPixelRect(rect);
	for (const BRect& each : fRects) {
		if (each.Intersects(rect))
			return true;
	}
	return false;
}

bool
BRegion::operator==(const BRegion& other) const
{
	BRegion difference(*this);
	difference.Exclude(&other);
	BRegion reverse(other);
	reverse.Exclude(this);
	return difference.IsEmpty() && reverse.IsEmpty();
}

void
BRegion::PrintToStream() const
{
	BRect frame = Frame();
	printf("BRegion: %d rects, frame (%g, %g, %g, %g)\n", int(CountRects()), frame.left,
		frame.top, frame.right, frame.bottom);
	for (const BRect& rect : fRects)
		printf("  (%g, %g, %g, %g)\n", rect.left, rect.top, rect.right, rect.bottom);
}
