#ifndef _REGION_H
#define _REGION_H

#include <vector>

#include <Rect.h>

// A set of pixels as non-overlapping rectangles with whole-pixel, inclusive edges.
// Rectangles with fractional edges are widened to the pixels they touch.
class BRegion {
public:
	BRegion() = default;
	BRegion(const BRect& rect);

	BRect Frame() const;
	int32 CountRects() const { return static_cast<int32>(fRects.size()); }
	BRect RectAt(int32 index) const;

	void Set(BRect rect);
	void MakeEmpty() { fRects.clear(); }
	void Include(BRect rect);
	void Include(const BRegion* region);
	void Exclude(BRect rect);
	void Exclude(const BRegion* region);
	void IntersectWith(const BRegion* region);
	void OffsetBy(float dx, float dy);
	void OffsetBy(BPoint delta) { OffsetBy(delta.x, delta.y); }

	bool Contains(BPoint point) const;
	bool Intersects(BRect rect) const;
	bool IsEmpty() const { return fRects.empty(); }

	void PrintToStream() const;

	bool operator==(const BRegion& other) const;

private:
	static BRect pvPixelRect(BRect rect);
	static void pvSubtract(const BRect& from, const BRect& cut, std::vector<BRect>& pieces);

	std::vector<BRect> fRects;
};

#endif
