#include "SpecialIconView.h"

#include "RevealInTracker.h"

namespace {

const bigtime_t kDoubleClickTime = 500000;
const float kNearDistance = 5.0f;

bool
PtIsNear(BPoint a, BPoint b)
{
	float dx = a.x - b.x;
	float dy = a.y - b.y;
	return dx >= -kNearDistance && dx <= kNearDistance && dy >= -kNearDistance
		&& dy <= kNearDistance;
}

}	// namespace

SpecialIconView::SpecialIconView(BRect frame, const char* name, uint32 resizingMode,
	uint32 flags)
	: IconView(frame, name, resizingMode, flags)
{
}

void
SpecialIconView::MouseDown(BPoint where)
{
	if (IsDoubleClick(where))
		RevealInTracker(Entry());
}

bool
SpecialIconView::IsDoubleClick(BPoint where)
{
	return IsDoubleClick(where, system_time());
}

bool
SpecialIconView::IsDoubleClick(BPoint where, bigtime_t when)
{
	bool isDouble = PtIsNear(where, fLastPoint) && when - fLastTime < kDoubleClickTime;
	fLastPoint = where;
	fLastTime = when;
	return isDouble;
}
