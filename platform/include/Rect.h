#ifndef _RECT_H
#define _RECT_H

#include <cmath>

#include <Point.h>

// A rectangle with inclusive edges: a rect from 0 to 9 covers ten pixels
// and has Width() 9.
class BRect {
public:
	float left = 0;
	float top = 0;
	float right = -1;
	float bottom = -1;

	BRect() = default;
	BRect(float l, float t, float r, float b) : left(l), top(t), right(r), bottom(b) {}
	BRect(BPoint leftTop, BPoint rightBottom)
		: left(leftTop.x), top(leftTop.y), right(rightBottom.x), bottom(rightBottom.y) {}
	BRect(BPoint leftTop, float width, float height)
		: left(leftTop.x), top(leftTop.y), right(leftTop.x + width), bottom(leftTop.y + height) {}

	void Set(float l, float t, float r, float b) { left = l; top = t; right = r; bottom = b; }
	void PrintToStream() const;

	BPoint LeftTop() const { return BPoint(left, top); }
	BPoint RightBottom() const { return BPoint(right, bottom); }
	BPoint LeftBottom() const { return BPoint(left, bottom); }
	BPoint RightTop() const { return BPoint(right, top); }
	void SetLeftTop(BPoint p) { left = p.x; top = p.y; }
	void SetRightBottom(BPoint p) { right = p.x; bottom = p.y; }
	void SetLeftBottom(BPoint p) { left = p.x; bottom = p.y; }
	void SetRightTop(BPoint p) { right = p.x; top = p.y; }

	void InsetBy(BPoint p) { InsetBy(p.x, p.y); }
	void InsetBy(float dx, float dy) { left += dx; right -= dx; top += dy; bottom -= dy; }
	void OffsetBy(BPoint p) { OffsetBy(p.x, p.y); }
	void OffsetBy(float dx, float dy) { left += dx; right += dx; top += dy; bottom += dy; }
	void OffsetTo(BPoint p) { OffsetTo(p.x, p.y); }
	void OffsetTo(float x, float y) { OffsetBy(x - left, y - top); }

	BRect& InsetBySelf(float dx, float dy) { InsetBy(dx, dy); return *this; }
	BRect& InsetBySelf(BPoint p) { InsetBy(p); return *this; }
	BRect InsetByCopy(float dx, float dy) const { BRect r(*this); r.InsetBy(dx, dy); return r; }
	BRect InsetByCopy(BPoint p) const { return InsetByCopy(p.x, p.y); }
	BRect& OffsetBySelf(float dx, float dy) { OffsetBy(dx, dy); return *this; }
	BRect& OffsetBySelf(BPoint p) { OffsetBy(p); return *this; }
	BRect OffsetByCopy(float dx, float dy) const { BRect r(*this); r.OffsetBy(dx, dy); return r; }
	BRect OffsetByCopy(BPoint p) const { return OffsetByCopy(p.x, p.y); }
	BRect& OffsetToSelf(float x, float y) { OffsetTo(x, y); return *this; }
	BRect& OffsetToSelf(BPoint p) { OffsetTo(p); return *this; }
	BRect OffsetToCopy(float x, float y) const { BRect r(*this); r.OffsetTo(x, y); return r; }
	BRect OffsetToCopy(BPoint p) const { return OffsetToCopy(p.x, p.y); }

	bool operator==(const BRect& r) const
	{
		return left == r.left && top == r.top && right == r.right && bottom == r.bottom;
	}
	bool operator!=(const BRect& r) const { return !(*this == r); }

	// Intersection and union.
	BRect operator&(const BRect& r) const;
	BRect operator|(const BRect& r) const;

	bool IsValid() const { return left <= right && top <= bottom; }
	float Width() const { return right - left; }
	int32 IntegerWidth() const { return static_cast<int32>(std::ceil(right - left)); }
	float Height() const { return bottom - top; }
	int32 IntegerHeight() const { return static_cast<int32>(std::ceil(bottom - top)); }

	bool Intersects(const BRect& r) const;
	bool Contains(BPoint p) const;
	bool Contains(const BRect& r) const;
};

#endif
