#include <View.h>

#include <algorithm>
#include <cstring>

#include <AppDefs.h>
#include <Message.h>
#include <MessageQueue.h>
#include <ScrollBar.h>
#include <Window.h>

#include "ViewState.h"

using BPrivate::Canvas;
using BPrivate::Paint;

BView::BView(BRect frame, const char* name, uint32 resizingMode, uint32 flags)
	: BHandler(name),
	fFrame(frame),
	fResizingMode(resizingMode & 0xffff),
	fFlags(flags & ~0xffffUL),
	fViewColor(make_color(255, 255, 255)),
	fState(std::make_unique<State>())
{
}

BView::~BView()
{
	for (BScrollBar* bar : {fVerticalBar, fHorizontalBar}) {
		if (bar != nullptr)
			bar->fTarget = nullptr;
	}
	RemoveSelf();
	for (BView* child : fChildren) {
		child->fParent = nullptr;
		delete child;
	}
}

// #pragma mark - hooks

void
BView::AttachedToWindow()
{
}

void
BView::AllAttached()
{
}

void
BView::DetachedFromWindow()
{
}

void
BView::AllDetached()
{
}

void
BView::MessageReceived(BMessage* message)
{
	if (message->what == B_MOUSE_WHEEL_CHANGED) {
		// A scrolled view turns the wheel into scrolling; others pass it up.
		if (fVerticalBar != nullptr || fHorizontalBar != nullptr) {
			float dx = 0, dy = 0;
			message->FindFloat("be:wheel_delta_x", &dx);
			message->FindFloat("be:wheel_delta_y", &dy);
			if (fHorizontalBar != nullptr)
				fHorizontalBar->pvScrollByWheel(dx);
			if (fVerticalBar != nullptr)
				fVerticalBar->pvScrollByWheel(dy);
			return;
		}
		if (fParent != nullptr) {
			fParent->MessageReceived(message);
			return;
		}
	}
	BHandler::MessageReceived(message);
}

void
BView::Draw(BRect)
{
}

void
BView::DrawAfterChildren(BRect)
{
}

void
BView::MouseDown(BPoint)
{
}

void
BView::MouseUp(BPoint)
{
}

void
BView::MouseMoved(BPoint, uint32, const BMessage*)
{
}

void
BView::KeyDown(const char* bytes, int32)
{
	// Tab moves the focus to the next navigable view, Shift-Tab to the previous.
	if (fWindow == nullptr || bytes[0] != B_TAB)
		return;
	// The modifiers of the key itself, not of whatever was typed since.
	int32 held = int32(modifiers());
	if (BMessage* message = fWindow->CurrentMessage())
		message->FindInt32("modifiers", &held);
	if ((held & (B_COMMAND_KEY | B_CONTROL_KEY | B_OPTION_KEY)) == 0)
		fWindow->pvNavigate(this, (held & B_SHIFT_KEY) == 0);
}

void
BView::KeyUp(const char*, int32)
{
}

void
BView::FrameMoved(BPoint)
{
}

void
BView::FrameResized(float, float)
{
}

void
BView::Pulse()
{
}

void
BView::WindowActivated(bool)
{
}

void
BView::MakeFocus(bool focus)
{
	if (fWindow == nullptr)
		return;
	if (focus) {
		if (fWindow->fFocus == this)
			return;
		BView* previous = fWindow->fFocus;
		fWindow->fFocus = this;
		// Keys and untargeted commands go to the focus view.
		fWindow->SetPreferredHandler(this);
		if (previous != nullptr)
			previous->MakeFocus(false);
	} else if (fWindow->fFocus == this) {
		fWindow->fFocus = nullptr;
		fWindow->SetPreferredHandler(nullptr);
	}
}

void
BView::GetPreferredSize(float* width, float* height)
{
	if (width != nullptr)
		*width = fFrame.Width();
	if (height != nullptr)
		*height = fFrame.Height();
}

void
BView::ResizeToPreferred()
{
	float width, height;
	GetPreferredSize(&width, &height);
	ResizeTo(width, height);
}

void
BView::SetFlags(uint32 flags)
{
	fFlags = flags & ~0xffffUL;
	if (fWindow != nullptr && (fFlags & B_PULSE_NEEDED) != 0)
		fWindow->pvPulseNeeded();
}

void
BView::SetResizingMode(uint32 mode)
{
	fResizingMode = mode & 0xffff;
}

// #pragma mark - the tree

void
BView::AddChild(BView* child, BView* before)
{
	if (child == nullptr || child->fParent != nullptr || child == this)
		return;
	auto position = std::find(fChildren.begin(), fChildren.end(), before);
	fChildren.insert(position, child);
	child->fParent = this;
	if (fWindow != nullptr) {
		child->pvAttach(fWindow);
		child->pvCallAllAttached();
		child->Invalidate();
	}
}

bool
BView::RemoveChild(BView* child)
{
	if (child == nullptr || child->fParent != this)
		return false;
	if (fWindow != nullptr) {
		child->Invalidate();
		child->pvDetach();
	}
	fChildren.erase(std::find(fChildren.begin(), fChildren.end(), child));
	child->fParent = nullptr;
	return true;
}

bool
BView::RemoveSelf()
{
	if (fParent == nullptr)
		return false;
	return fParent->RemoveChild(this);
}

BView*
BView::ChildAt(int32 index) const
{
	if (index < 0 || index >= CountChildren())
		return nullptr;
	return fChildren[index];
}

BView*
BView::NextSibling() const
{
	if (fParent == nullptr)
		return nullptr;
	auto& siblings = fParent->fChildren;
	auto self = std::find(siblings.begin(), siblings.end(), this);
	return self + 1 < siblings.end() ? *(self + 1) : nullptr;
}

BView*
BView::PreviousSibling() const
{
	if (fParent == nullptr)
		return nullptr;
	auto& siblings = fParent->fChildren;
	auto self = std::find(siblings.begin(), siblings.end(), this);
	return self != siblings.begin() ? *(self - 1) : nullptr;
}

BView*
BView::Parent() const
{
	// The window's own top view is not a parent that callers see.
	if (fWindow != nullptr && fParent == fWindow->fTopView)
		return nullptr;
	return fParent;
}

BView*
BView::FindView(const char* name) const
{
	if (name == nullptr)
		return nullptr;
	for (BView* child : fChildren) {
		if (child->Name() != nullptr && strcmp(child->Name(), name) == 0)
			return child;
		if (BView* found = child->FindView(name))
			return found;
	}
	return nullptr;
}

void
BView::pvAttach(BWindow* window)
{
	fWindow = window;
	window->AddHandler(this);
	SetNextHandler(fParent != nullptr && fParent != window->fTopView
		? static_cast<BHandler*>(fParent) : static_cast<BHandler*>(window));
	if ((fFlags & B_PULSE_NEEDED) != 0)
		window->pvPulseNeeded();
	AttachedToWindow();
	// Children that AttachedToWindow added are attached already.
	for (BView* child : fChildren) {
		if (child->fWindow != window)
			child->pvAttach(window);
	}
}

void
BView::pvCallAllAttached()
{
	for (BView* child : fChildren)
		child->pvCallAllAttached();
	AllAttached();
}

void
BView::pvDetach()
{
	DetachedFromWindow();
	for (BView* child : fChildren)
		child->pvDetach();
	AllDetached();
	fWindow->pvViewRemoved(this);
	fWindow->RemoveHandler(this);
	fWindow = nullptr;
}

// #pragma mark - geometry

BRect
BView::Bounds() const
{
	return BRect(fBoundsOrigin, fFrame.Width(), fFrame.Height());
}

void
BView::MoveBy(float dx, float dy)
{
	MoveTo(BPoint(fFrame.left + dx, fFrame.top + dy));
}

void
BView::MoveTo(BPoint where)
{
	pvSetFrame(fFrame.OffsetToCopy(where));
}

void
BView::ResizeBy(float dx, float dy)
{
	ResizeTo(fFrame.Width() + dx, fFrame.Height() + dy);
}

void
BView::ResizeTo(float width, float height)
{
	pvSetFrame(BRect(fFrame.LeftTop(), std::max(width, -1.0f), std::max(height, -1.0f)));
}

void
BView::pvSetFrame(BRect frame)
{
	if (frame == fFrame)
		return;
	if (fWindow != nullptr)
		Invalidate();
	BRect old = fFrame;
	fFrame = frame;
	if (fWindow != nullptr) {
		fWindow->pvContextChanged();
		Invalidate();
	}
	float dx = frame.Width() - old.Width();
	float dy = frame.Height() - old.Height();
	if (dx != 0 || dy != 0) {
		for (BView* child : std::vector<BView*>(fChildren))
			child->pvParentResized(dx, dy);
	}
	if (fWindow == nullptr || (fFlags & B_FRAME_EVENTS) == 0)
		return;
	if (old.LeftTop() != frame.LeftTop())
		FrameMoved(frame.LeftTop());
	if (dx != 0 || dy != 0)
		FrameResized(frame.Width(), frame.Height());
}

void
BView::pvParentResized(float dx, float dy)
{
	// Each edge follows the parent's near edge (no change), far edge (the whole
	// change) or centre (half of it).
	auto shift = [](uint32 rule, uint32 farEdge, float delta) {
		if (rule == farEdge)
			return delta;
		if (rule == _VIEW_CENTER_)
			return delta / 2;
		return 0.0f;
	};
	uint32 mode = fResizingMode;
	BRect frame = fFrame;
	frame.left += shift((mode >> 8) & 0xf, _VIEW_RIGHT_, dx);
	frame.right += shift(mode & 0xf, _VIEW_RIGHT_, dx);
	frame.top += shift((mode >> 12) & 0xf, _VIEW_BOTTOM_, dy);
	frame.bottom += shift((mode >> 4) & 0xf, _VIEW_BOTTOM_, dy);
	pvSetFrame(frame);
}

void
BView::ScrollBy(float dx, float dy)
{
	ScrollTo(BPoint(fBoundsOrigin.x + dx, fBoundsOrigin.y + dy));
}

void
BView::ScrollTo(BPoint where)
{
	// Scroll bars that target this view keep it within their range and follow it.
	if (fHorizontalBar != nullptr)
		where.x = fHorizontalBar->pvClamp(where.x);
	if (fVerticalBar != nullptr)
		where.y = fVerticalBar->pvClamp(where.y);
	if (where == fBoundsOrigin)
		return;
	fBoundsOrigin = where;
	if (fWindow != nullptr) {
		fWindow->pvContextChanged();
		Invalidate();
	}
	if (fHorizontalBar != nullptr)
		fHorizontalBar->SetValue(where.x);
	if (fVerticalBar != nullptr)
		fVerticalBar->SetValue(where.y);
}

BPoint
BView::pvOriginInWindow() const
{
	BPoint origin;
	for (const BView* view = this; view != nullptr; view = view->fParent)
		origin += view->fFrame.LeftTop() - view->fBoundsOrigin;
	return origin;
}

BRect
BView::pvVisibleInWindow() const
{
	// The origin already counts each view's scrolling, bounds included.
	BRect visible = Bounds().OffsetByCopy(pvOriginInWindow());
	for (const BView* view = fParent; view != nullptr; view = view->fParent)
		visible = visible & view->Bounds().OffsetByCopy(view->pvOriginInWindow());
	return visible;
}

void
BView::ConvertToParent(BPoint* point) const
{
	*point += fFrame.LeftTop() - fBoundsOrigin;
}

BPoint
BView::ConvertToParent(BPoint point) const
{
	ConvertToParent(&point);
	return point;
}

void
BView::ConvertFromParent(BPoint* point) const
{
	*point -= fFrame.LeftTop() - fBoundsOrigin;
}

BPoint
BView::ConvertFromParent(BPoint point) const
{
	ConvertFromParent(&point);
	return point;
}

void
BView::ConvertToParent(BRect* rect) const
{
	rect->OffsetBy(fFrame.LeftTop() - fBoundsOrigin);
}

BRect
BView::ConvertToParent(BRect rect) const
{
	ConvertToParent(&rect);
	return rect;
}

void
BView::ConvertFromParent(BRect* rect) const
{
	rect->OffsetBy(fBoundsOrigin - fFrame.LeftTop());
}

BRect
BView::ConvertFromParent(BRect rect) const
{
	ConvertFromParent(&rect);
	return rect;
}

void
BView::ConvertToScreen(BPoint* point) const
{
	*point += pvOriginInWindow();
	if (fWindow != nullptr)
		fWindow->ConvertToScreen(point);
}

BPoint
BView::ConvertToScreen(BPoint point) const
{
	ConvertToScreen(&point);
	return point;
}

void
BView::ConvertFromScreen(BPoint* point) const
{
	if (fWindow != nullptr)
		fWindow->ConvertFromScreen(point);
	*point -= pvOriginInWindow();
}

BPoint
BView::ConvertFromScreen(BPoint point) const
{
	ConvertFromScreen(&point);
	return point;
}

void
BView::ConvertToScreen(BRect* rect) const
{
	BPoint offset = ConvertToScreen(BPoint(0, 0));
	rect->OffsetBy(offset);
}

BRect
BView::ConvertToScreen(BRect rect) const
{
	ConvertToScreen(&rect);
	return rect;
}

void
BView::ConvertFromScreen(BRect* rect) const
{
	BPoint offset = ConvertFromScreen(BPoint(0, 0));
	rect->OffsetBy(offset);
}

BRect
BView::ConvertFromScreen(BRect rect) const
{
	ConvertFromScreen(&rect);
	return rect;
}

BView*
BView::pvViewAt(BPoint point)
{
	// point is in this view's coordinates; the topmost child under it wins.
	for (auto child = fChildren.rbegin(); child != fChildren.rend(); ++child) {
		BView* view = *child;
		if (view->fHiddenLevel > 0 || !view->fFrame.Contains(point))
			continue;
		return view->pvViewAt(view->ConvertFromParent(point));
	}
	return this;
}

// #pragma mark - visibility and focus

void
BView::Show()
{
	if (fHiddenLevel == 0)
		return;
	if (--fHiddenLevel == 0 && fWindow != nullptr)
		Invalidate();
}

void
BView::Hide()
{
	if (fHiddenLevel++ == 0 && fWindow != nullptr) {
		Invalidate();
		fWindow->pvViewHidden(this);
	}
}

bool
BView::IsHidden() const
{
	return IsHidden(nullptr);
}

bool
BView::IsHidden(const BView* lookingFrom) const
{
	for (const BView* view = this; view != nullptr && view != lookingFrom;
			view = view->fParent) {
		if (view->fHiddenLevel > 0)
			return true;
	}
	return lookingFrom == nullptr && fWindow != nullptr && fWindow->IsHidden();
}

BScrollBar*
BView::ScrollBar(orientation direction) const
{
	return direction == B_VERTICAL ? fVerticalBar : fHorizontalBar;
}

bool
BView::IsFocus() const
{
	return fWindow != nullptr && fWindow->fFocus == this;
}

// #pragma mark - input

void
BView::GetMouse(BPoint* location, uint32* buttons, bool checkMessageQueue)
{
	if (fWindow == nullptr) {
		if (location != nullptr)
			*location = BPoint(0, 0);
		if (buttons != nullptr)
			*buttons = 0;
		return;
	}
	if (checkMessageQueue)
		fWindow->pvTakeQueuedMouse();
	if (location != nullptr)
		*location = fWindow->fMousePoint - pvOriginInWindow();
	if (buttons != nullptr)
		*buttons = fWindow->fButtons;
}

status_t
BView::SetMouseEventMask(uint32 mask, uint32 options)
{
	// Lasts until the mouse button is released: the view holds the mouse.
	if (fWindow == nullptr)
		return B_ERROR;
	if ((mask & B_POINTER_EVENTS) != 0)
		fWindow->fMouseHolder = this;
	fEventOptions = options;
	return B_OK;
}

status_t
BView::SetEventMask(uint32 mask, uint32 options)
{
	fEventMask = mask;
	fEventOptions = options;
	return B_OK;
}

// #pragma mark - updating

void
BView::Invalidate()
{
	Invalidate(Bounds());
}

void
BView::Invalidate(BRect rect)
{
	if (fWindow == nullptr)
		return;
	BRect visible = pvVisibleInWindow() & rect.OffsetByCopy(pvOriginInWindow());
	if (visible.IsValid())
		fWindow->pvInvalidate(visible);
}

void
BView::Invalidate(const BRegion* region)
{
	if (region == nullptr)
		return;
	for (int32 i = 0; i < region->CountRects(); i++)
		Invalidate(region->RectAt(i));
}

void
BView::Sync() const
{
	if (fWindow != nullptr)
		fWindow->Sync();
}

void
BView::Flush() const
{
	if (fWindow != nullptr)
		fWindow->Flush();
}
