#ifndef _SCROLL_VIEW_H
#define _SCROLL_VIEW_H

#include <ScrollBar.h>

// A frame around a target view with a scroll bar beside it, below it, or both.
// Built around the target's frame: the scroll view takes the target's place,
// grown by its border and its bars, and the target moves inside it.
class BScrollView : public BView {
public:
	BScrollView(const char* name, BView* target,
		uint32 resizingMode = B_FOLLOW_LEFT | B_FOLLOW_TOP, uint32 flags = 0,
		bool horizontal = false, bool vertical = false,
		border_style border = B_FANCY_BORDER);
	virtual ~BScrollView();

	virtual void AttachedToWindow();
	virtual void Draw(BRect updateRect);
	virtual void FrameResized(float newWidth, float newHeight);
	virtual void WindowActivated(bool active);

	BScrollBar* ScrollBar(orientation direction) const;

	virtual void SetBorder(border_style border);
	border_style Border() const { return fBorder; }
	// Draws the border in the keyboard navigation colour: the target has the focus.
	virtual status_t SetBorderHighlighted(bool highlighted);
	bool IsBorderHighlighted() const { return fHighlighted; }

	// Replaces the target (which is removed, not deleted) and lays out the new one.
	void SetTarget(BView* target);
	BView* Target() const { return fTarget; }

private:
	static float pvBorderSize(border_style border);
	void pvLayout();

	BView* fTarget;
	BScrollBar* fHorizontal = nullptr;
	BScrollBar* fVertical = nullptr;
	border_style fBorder;
	bool fHighlighted = false;
};

#endif
