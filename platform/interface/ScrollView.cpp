#include <ScrollView.h>

#include <Window.h>

namespace {

const float kVerticalBarRoom = B_V_SCROLL_BAR_WIDTH + 1;
const float kHorizontalBarRoom = B_H_SCROLL_BAR_HEIGHT + 1;

// The scroll view's frame: the target's, grown by the border and the bars.
BRect
FrameAround(BView* target, bool horizontal, bool vertical, float border)
{
	BRect frame = target != nullptr ? target->Frame() : BRect(0, 0, 0, 0);
	frame.InsetBy(-border, -border);
	if (vertical)
		frame.right += kVerticalBarRoom;
	if (horizontal)
		frame.bottom += kHorizontalBarRoom;
	return frame;
}

}	// namespace

BScrollView::BScrollView(const char* name, BView* target, uint32 resizingMode, uint32 flags,
	bool horizontal, bool vertical, border_style border)
	: BView(FrameAround(target, horizontal, vertical, pvBorderSize(border)), name,
		resizingMode, flags | B_WILL_DRAW | B_FRAME_EVENTS),
	fTarget(target),
	fBorder(border)
{
	SetViewColor(ui_color(B_PANEL_BACKGROUND_COLOR));
	// The target comes first among the children, then the bars.
	if (target != nullptr)
		AddChild(target);
	if (vertical) {
		fVertical = new BScrollBar(BRect(0, 0, B_V_SCROLL_BAR_WIDTH, 100), "_VSB_", target,
			0, 1000, B_VERTICAL);
		AddChild(fVertical);
	}
	if (horizontal) {
		fHorizontal = new BScrollBar(BRect(0, 0, 100, B_H_SCROLL_BAR_HEIGHT), "_HSB_",
			target, 0, 1000, B_HORIZONTAL);
		AddChild(fHorizontal);
	}
	pvLayout();
}

BScrollView::~BScrollView() = default;

float
BScrollView::pvBorderSize(border_style border)
{
	switch (border) {
		case B_FANCY_BORDER:
			return 2;
		case B_PLAIN_BORDER:
			return 1;
		case B_NO_BORDER:
			break;
	}
	return 0;
}

void
BScrollView::pvLayout()
{
	// The bars run along the right and bottom edges inside the border; the
	// target fills the rest.
	BRect inner = Bounds().InsetByCopy(pvBorderSize(fBorder), pvBorderSize(fBorder));
	BRect content = inner;
	if (fVertical != nullptr)
		content.right -= kVerticalBarRoom;
	if (fHorizontal != nullptr)
		content.bottom -= kHorizontalBarRoom;
	if (fVertical != nullptr) {
		fVertical->MoveTo(content.right + 1, inner.top);
		fVertical->ResizeTo(B_V_SCROLL_BAR_WIDTH, content.Height());
	}
	if (fHorizontal != nullptr) {
		fHorizontal->MoveTo(inner.left, content.bottom + 1);
		fHorizontal->ResizeTo(content.Width(), B_H_SCROLL_BAR_HEIGHT);
	}
	if (fTarget != nullptr) {
		fTarget->MoveTo(content.LeftTop());
		fTarget->ResizeTo(content.Width(), content.Height());
	}
}

void
BScrollView::AttachedToWindow()
{
	SetViewColor(ui_color(B_PANEL_BACKGROUND_COLOR));
	BView::AttachedToWindow();
}

void
BScrollView::Draw(BRect)
{
	BRect bounds = Bounds();
	rgb_color panel = ViewColor();
	rgb_color shadow = tint_color(panel, B_DARKEN_2_TINT);
	rgb_color light = tint_color(panel, B_LIGHTEN_MAX_TINT);
	rgb_color frame = fHighlighted && Window() != nullptr && Window()->IsActive()
		? ui_color(B_KEYBOARD_NAVIGATION_COLOR) : tint_color(panel, B_DARKEN_4_TINT);
	switch (fBorder) {
		case B_FANCY_BORDER:
			// Sunken: shadow above and left, light below and right, then the frame.
			SetHighColor(shadow);
			StrokeLine(bounds.LeftBottom(), bounds.LeftTop());
			StrokeLine(bounds.RightTop());
			SetHighColor(light);
			StrokeLine(BPoint(bounds.right, bounds.top + 1), bounds.RightBottom());
			StrokeLine(BPoint(bounds.left + 1, bounds.bottom));
			SetHighColor(frame);
			StrokeRect(bounds.InsetByCopy(1, 1));
			break;
		case B_PLAIN_BORDER:
			SetHighColor(frame);
			StrokeRect(bounds);
			break;
		case B_NO_BORDER:
			break;
	}
}

void
BScrollView::FrameResized(float, float)
{
	// The border runs along the edges, so all of it moves.
	Invalidate();
}

void
BScrollView::WindowActivated(bool)
{
	if (fHighlighted)
		Invalidate();
}

BScrollBar*
BScrollView::ScrollBar(orientation direction) const
{
	return direction == B_VERTICAL ? fVertical : fHorizontal;
}

void
BScrollView::SetBorder(border_style border)
{
	if (border == fBorder)
		return;
	// The view keeps its frame; what is inside the border grows or shrinks.
	fBorder = border;
	pvLayout();
	Invalidate();
}

status_t
BScrollView::SetBorderHighlighted(bool highlighted)
{
	if (fBorder == B_NO_BORDER)
		return B_ERROR;
	if (highlighted != fHighlighted) {
		fHighlighted = highlighted;
		Invalidate();
	}
	return B_OK;
}

void
BScrollView::SetTarget(BView* target)
{
	if (target == fTarget)
		return;
	if (fTarget != nullptr)
		RemoveChild(fTarget);
	fTarget = target;
	if (target != nullptr)
		AddChild(target, ChildAt(0));
	for (BScrollBar* bar : {fVertical, fHorizontal}) {
		if (bar != nullptr)
			bar->SetTarget(target);
	}
	pvLayout();
}
