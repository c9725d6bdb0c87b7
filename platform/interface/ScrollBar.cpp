#include <ScrollBar.h>

#include <algorithm>
#include <cmath>

#include <AppDefs.h>
#include <Message.h>
#include <OS.h>
#include <Window.h>

namespace {

// An arrow or the track held down steps again after a wait, then steadily.
const bigtime_t kRepeatDelay = 300000;
const bigtime_t kRepeatInterval = 50000;
const bigtime_t kMousePoll = 10000;

uint32
ResizingModeFor(orientation direction)
{
	return direction == B_VERTICAL ? B_FOLLOW_TOP_BOTTOM | B_FOLLOW_RIGHT
		: B_FOLLOW_LEFT_RIGHT | B_FOLLOW_BOTTOM;
}

}	// namespace

BScrollBar::BScrollBar(BRect frame, const char* name, BView* target, float min, float max,
	orientation direction)
	: BView(frame, name, ResizingModeFor(direction), B_WILL_DRAW | B_FRAME_EVENTS),
	fOrientation(direction),
	fMin(min),
	fMax(std::max(min, max))
{
	fValue = pvClamp(0);
	SetViewColor(ui_color(B_PANEL_BACKGROUND_COLOR));
	SetTarget(target);
}

BScrollBar::~BScrollBar()
{
	pvDetachTarget();
}

void
BScrollBar::AttachedToWindow()
{
	SetViewColor(ui_color(B_PANEL_BACKGROUND_COLOR));
	BView::AttachedToWindow();
}

void
BScrollBar::DetachedFromWindow()
{
	fDragging = false;
	fPressed = kNowhere;
	BView::DetachedFromWindow();
}

// #pragma mark - value

void
BScrollBar::ValueChanged(float newValue)
{
	if (fTarget == nullptr)
		return;
	BPoint where = fTarget->Bounds().LeftTop();
	if (fOrientation == B_VERTICAL)
		where.y = newValue;
	else
		where.x = newValue;
	fTarget->ScrollTo(where);
}

float
BScrollBar::pvClamp(float value) const
{
	return std::clamp(value, fMin, fMax);
}

void
BScrollBar::SetValue(float value)
{
	value = pvClamp(value);
	if (value == fValue)
		return;
	fValue = value;
	Invalidate();
	ValueChanged(fValue);
}

void
BScrollBar::SetProportion(float proportion)
{
	proportion = std::clamp(proportion, 0.0f, 1.0f);
	if (proportion == fProportion)
		return;
	fProportion = proportion;
	Invalidate();
}

void
BScrollBar::SetRange(float min, float max)
{
	max = std::max(min, max);
	if (min == fMin && max == fMax)
		return;
	fMin = min;
	fMax = max;
	Invalidate();
	SetValue(fValue);
}

void
BScrollBar::GetRange(float* min, float* max) const
{
	if (min != nullptr)
		*min = fMin;
	if (max != nullptr)
		*max = fMax;
}

void
BScrollBar::SetSteps(float smallStep, float largeStep)
{
	fSmallStep = smallStep;
	fLargeStep = largeStep;
}

void
BScrollBar::GetSteps(float* smallStep, float* largeStep) const
{
	if (smallStep != nullptr)
		*smallStep = fSmallStep;
	if (largeStep != nullptr)
		*largeStep = fLargeStep;
}

void
BScrollBar::pvScrollByWheel(float steps)
{
	if (steps == 0)
		return;
	bool fast = (modifiers() & B_SHIFT_KEY) != 0;
	SetValue(fValue + steps * (fast ? fLargeStep : fSmallStep * 3));
}

// #pragma mark - target

void
BScrollBar::SetTarget(BView* target)
{
	pvDetachTarget();
	fTarget = target;
	if (target == nullptr)
		return;
	BScrollBar*& slot = fOrientation == B_VERTICAL ? target->fVerticalBar
		: target->fHorizontalBar;
	if (slot != nullptr && slot != this)
		slot->fTarget = nullptr;
	slot = this;
}

void
BScrollBar::SetTarget(const char* targetName)
{
	if (Window() != nullptr)
		SetTarget(Window()->FindView(targetName));
}

void
BScrollBar::pvDetachTarget()
{
	if (fTarget == nullptr)
		return;
	BScrollBar*& slot = fOrientation == B_VERTICAL ? fTarget->fVerticalBar
		: fTarget->fHorizontalBar;
	if (slot == this)
		slot = nullptr;
	fTarget = nullptr;
}

// #pragma mark - geometry

// Positions along the bar count pixels from its top (or left) edge.

float
BScrollBar::pvLength() const
{
	BRect bounds = Bounds();
	return (fOrientation == B_VERTICAL ? bounds.Height() : bounds.Width()) + 1;
}

float
BScrollBar::pvAlong(BPoint point) const
{
	BPoint offset = point - Bounds().LeftTop();
	return fOrientation == B_VERTICAL ? offset.y : offset.x;
}

BRect
BScrollBar::pvSpan(float from, float to) const
{
	BRect bounds = Bounds();
	if (fOrientation == B_VERTICAL)
		return BRect(bounds.left, bounds.top + from, bounds.right, bounds.top + to - 1);
	return BRect(bounds.left + from, bounds.top, bounds.left + to - 1, bounds.bottom);
}

float
BScrollBar::pvThickness() const
{
	BRect bounds = Bounds();
	return (fOrientation == B_VERTICAL ? bounds.Width() : bounds.Height()) + 1;
}

float
BScrollBar::pvArrowLength() const
{
	// Square arrows, squeezed when the bar is too short for two of them.
	return std::min(pvThickness(), std::floor(pvLength() / 2));
}

BRect
BScrollBar::pvDecrementArrow() const
{
	return pvSpan(0, pvArrowLength());
}

BRect
BScrollBar::pvIncrementArrow() const
{
	return pvSpan(pvLength() - pvArrowLength(), pvLength());
}

float
BScrollBar::pvTrackLength() const
{
	return pvLength() - 2 * pvArrowLength();
}

float
BScrollBar::pvThumbLength() const
{
	float track = pvTrackLength();
	float wanted = fProportion > 0 ? std::round(fProportion * track) : pvThickness();
	return std::clamp(wanted, std::min(pvThickness(), track), track);
}

BRect
BScrollBar::pvThumb() const
{
	// Without a range to scroll through there is no thumb.
	if (fMax <= fMin || pvTrackLength() <= 0)
		return BRect();
	float track = pvTrackLength();
	float thumb = pvThumbLength();
	float start = pvArrowLength()
		+ std::round((fValue - fMin) / (fMax - fMin) * (track - thumb));
	return pvSpan(start, start + thumb);
}

BScrollBar::Part
BScrollBar::pvPartAt(BPoint where) const
{
	if (!Bounds().Contains(where))
		return kNowhere;
	if (pvDecrementArrow().Contains(where))
		return kDecrementArrow;
	if (pvIncrementArrow().Contains(where))
		return kIncrementArrow;
	BRect thumb = pvThumb();
	if (!thumb.IsValid())
		return kNowhere;
	if (thumb.Contains(where))
		return kThumb;
	return pvAlong(where) < pvAlong(thumb.LeftTop()) ? kTrackBefore : kTrackAfter;
}

// #pragma mark - drawing

void
BScrollBar::Draw(BRect)
{
	BRect bounds = Bounds();
	rgb_color panel = ViewColor();
	rgb_color shadow = tint_color(panel, B_DARKEN_2_TINT);
	SetHighColor(tint_color(panel, B_DARKEN_1_TINT));
	FillRect(bounds);
	pvDrawArrow(pvDecrementArrow(), false);
	pvDrawArrow(pvIncrementArrow(), true);
	BRect thumb = pvThumb();
	if (thumb.IsValid()) {
		SetHighColor(fDragging ? tint_color(panel, B_DARKEN_1_TINT) : panel);
		FillRect(thumb);
		SetHighColor(shadow);
		StrokeRect(thumb);
		// A raised edge inside the outline.
		BRect inner = thumb.InsetByCopy(1, 1);
		SetHighColor(tint_color(panel, B_LIGHTEN_MAX_TINT));
		StrokeLine(inner.LeftBottom(), inner.LeftTop());
		StrokeLine(inner.RightTop());
	}
	SetHighColor(shadow);
	StrokeRect(bounds);
}

void
BScrollBar::pvDrawArrow(BRect frame, bool increment)
{
	if (!frame.IsValid())
		return;
	rgb_color panel = ViewColor();
	bool pressed = fPressed == (increment ? kIncrementArrow : kDecrementArrow);
	SetHighColor(pressed ? tint_color(panel, B_DARKEN_2_TINT) : panel);
	FillRect(frame);
	SetHighColor(tint_color(panel, B_DARKEN_2_TINT));
	StrokeRect(frame);
	// A triangle pointing the way the arrow scrolls; grey without a range.
	BRect inner = frame.InsetByCopy(std::floor(frame.Width() / 4) + 1,
		std::floor(frame.Height() / 4) + 1);
	BPoint center((inner.left + inner.right) / 2, (inner.top + inner.bottom) / 2);
	BPoint tip, a, b;
	if (fOrientation == B_VERTICAL) {
		tip = BPoint(center.x, increment ? inner.bottom : inner.top);
		float base = increment ? inner.top : inner.bottom;
		a = BPoint(inner.left, base);
		b = BPoint(inner.right, base);
	} else {
		tip = BPoint(increment ? inner.right : inner.left, center.y);
		float base = increment ? inner.left : inner.right;
		a = BPoint(base, inner.top);
		b = BPoint(base, inner.bottom);
	}
	SetHighColor(fMax > fMin ? ui_color(B_CONTROL_TEXT_COLOR)
		: tint_color(panel, B_DISABLED_LABEL_TINT));
	FillTriangle(tip, a, b);
}

void
BScrollBar::FrameResized(float, float)
{
	Invalidate();
}

// #pragma mark - input

void
BScrollBar::MessageReceived(BMessage* message)
{
	if (message->what == B_MOUSE_WHEEL_CHANGED) {
		// The bar itself has no scroll bars: it scrolls by the wheel directly,
		// taking a sideways wheel for its own direction too.
		float dx = 0, dy = 0;
		message->FindFloat("be:wheel_delta_x", &dx);
		message->FindFloat("be:wheel_delta_y", &dy);
		pvScrollByWheel(dy != 0 ? dy : dx);
		return;
	}
	BView::MessageReceived(message);
}

void
BScrollBar::MouseDown(BPoint where)
{
	fPressed = pvPartAt(where);
	if (fPressed == kNowhere)
		return;
	SetMouseEventMask(B_POINTER_EVENTS);
	Invalidate();
	if (fPressed == kThumb) {
		fDragging = true;
		fGrabOffset = pvAlong(where) - pvAlong(pvThumb().LeftTop());
		return;
	}
	pvStep(fPressed);
	pvRepeatWhileHeld(fPressed);
}

void
BScrollBar::pvStep(Part part)
{
	switch (part) {
		case kDecrementArrow:
			SetValue(fValue - fSmallStep);
			break;
		case kIncrementArrow:
			SetValue(fValue + fSmallStep);
			break;
		case kTrackBefore:
			SetValue(fValue - fLargeStep);
			break;
		case kTrackAfter:
			SetValue(fValue + fLargeStep);
			break;
		case kThumb:
		case kNowhere:
			break;
	}
}

void
BScrollBar::pvRepeatWhileHeld(Part part)
{
	// Steps only while the pointer stays on the part: a page click stops when
	// the thumb reaches the pointer.
	bigtime_t next = system_time() + kRepeatDelay;
	for (;;) {
		BPoint where;
		uint32 buttons;
		GetMouse(&where, &buttons);
		if (buttons == 0 || Window() == nullptr)
			return;
		if (system_time() >= next) {
			if (pvPartAt(where) == part)
				pvStep(part);
			next += kRepeatInterval;
			Window()->UpdateIfNeeded();
		}
		snooze(kMousePoll);
	}
}

void
BScrollBar::MouseMoved(BPoint where, uint32, const BMessage*)
{
	if (!fDragging)
		return;
	// The thumb keeps the point where it was grabbed under the pointer.
	float track = pvTrackLength();
	float room = track - pvThumbLength();
	if (room <= 0)
		return;
	float start = pvAlong(where) - fGrabOffset - pvArrowLength();
	SetValue(fMin + start / room * (fMax - fMin));
}

void
BScrollBar::MouseUp(BPoint)
{
	if (fPressed == kNowhere && !fDragging)
		return;
	fPressed = kNowhere;
	fDragging = false;
	Invalidate();
}
