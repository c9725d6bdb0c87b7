#ifndef _POINT_H
#define _POINT_H

#include <SupportDefs.h>

class BRect;

class BPoint {
public:
	float x = 0;
	float y = 0;

	BPoint() = default;
	BPoint(float x, float y) : x(x), y(y) {}

	void Set(float newX, float newY) { x = newX; y = newY; }
	void ConstrainTo(BRect rect);
	void PrintToStream() const;

	BPoint operator-() const { return BPoint(-x, -y); }
	BPoint operator+(const BPoint& other) const { return BPoint(x + other.x, y + other.y); }
	BPoint operator-(const BPoint& other) const { return BPoint(x - other.x, y - other.y); }
	BPoint& operator+=(const BPoint& other) { x += other.x; y += other.y; return *this; }
	BPoint& operator-=(const BPoint& other) { x -= other.x; y -= other.y; return *this; }
	bool operator==(const BPoint& other) const { return x == other.x && y == other.y; }
	bool operator!=(const BPoint& other) const { return !(*this == other); }
};

extern const BPoint B_ORIGIN;

#endif
