#ifndef _SCROLL_BAR_H
#define _SCROLL_BAR_H

#include <View.h>

// The width of a vertical scroll bar and the height of a horizontal one.
const float B_V_SCROLL_BAR_WIDTH = 14.0f;
const float B_H_SCROLL_BAR_HEIGHT = 14.0f;

// A bar with an arrow at each end and a thumb between them that stands for a
// value in a range. Moving the value scrolls the target view; scrolling the
// target by other means moves the value.
class BScrollBar : public BView {
public:
	BScrollBar(BRect frame, const char* name, BView* target, float min, float max,
		orientation direction);
	virtual ~BScrollBar();

	virtual void AttachedToWindow();
	virtual void DetachedFromWindow();
	virtual void Draw(BRect updateRect);
	virtual void FrameResized(float newWidth, float newHeight);
	virtual void MessageReceived(BMessage* message);
	virtual void MouseDown(BPoint where);
	virtual void MouseUp(BPoint where);
	virtual void MouseMoved(BPoint where, uint32 transit, const BMessage* dragMessage);

	// Called whenever the value changes; scrolls the target to it.
	virtual void ValueChanged(float newValue);

	// The value is kept within the range.
	void SetValue(float value);
	float Value() const { return fValue; }
	// The part of the whole that the target shows, 0 to 1: the thumb's length.
	void SetProportion(float proportion);
	float Proportion() const { return fProportion; }
	void SetRange(float min, float max);
	void GetRange(float* min, float* max) const;
	// An arrow moves the value by the small step, a click on the track by the large one.
	void SetSteps(float smallStep, float largeStep);
	void GetSteps(float* smallStep, float* largeStep) const;

	void SetTarget(BView* target);
	void SetTarget(const char* targetName);
	BView* Target() const { return fTarget; }
	orientation Orientation() const { return fOrientation; }

private:
	friend class BView;

	enum Part {
		kNowhere,
		kDecrementArrow,
		kIncrementArrow,
		kTrackBefore,
		kTrackAfter,
		kThumb
	};

	float pvLength() const;
	float pvThickness() const;
	float pvArrowLength() const;
	float pvAlong(BPoint point) const;
	BRect pvSpan(float from, float to) const;
	BRect pvDecrementArrow() const;
	BRect pvIncrementArrow() const;
	BRect pvThumb() const;
	float pvThumbLength() const;
	float pvTrackLength() const;
	Part pvPartAt(BPoint where) const;
	void pvDrawArrow(BRect frame, bool increment);
	void pvStep(Part part);
	void pvRepeatWhileHeld(Part part);
	void pvDetachTarget();
	float pvClamp(float value) const;
	// Scrolls by wheel steps: three small steps each, a large one with Shift.
	void pvScrollByWheel(float steps);

	BView* fTarget = nullptr;
	orientation fOrientation;
	float fMin;
	float fMax;
	float fValue = 0;
	float fProportion = 0;
	float fSmallStep = 1;
	float fLargeStep = 10;
	bool fDragging = false;
	float fGrabOffset = 0;
	Part fPressed = kNowhere;
};

#endif
