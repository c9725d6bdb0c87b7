#ifndef _VIEW_H
#define _VIEW_H

#include <memory>
#include <vector>

#include <Font.h>
#include <GraphicsDefs.h>
#include <Handler.h>
#include <InterfaceDefs.h>
#include <Rect.h>
#include <Region.h>

class BBitmap;
class BMessage;
class BScrollBar;
class BWindow;

namespace BPrivate {
class Canvas;
struct Paint;
}

// Resizing modes: how a view's edges follow its parent's when the parent resizes.
#define _VIEW_TOP_ 1UL
#define _VIEW_LEFT_ 2UL
#define _VIEW_BOTTOM_ 3UL
#define _VIEW_RIGHT_ 4UL
#define _VIEW_CENTER_ 5UL
#define _rule_(top, left, bottom, right) \
	(((top) << 12) | ((left) << 8) | ((bottom) << 4) | (right))

#define B_FOLLOW_NONE 0
#define B_FOLLOW_ALL_SIDES _rule_(_VIEW_TOP_, _VIEW_LEFT_, _VIEW_BOTTOM_, _VIEW_RIGHT_)
#define B_FOLLOW_ALL B_FOLLOW_ALL_SIDES
#define B_FOLLOW_LEFT _rule_(0, _VIEW_LEFT_, 0, _VIEW_LEFT_)
#define B_FOLLOW_RIGHT _rule_(0, _VIEW_RIGHT_, 0, _VIEW_RIGHT_)
#define B_FOLLOW_LEFT_RIGHT _rule_(0, _VIEW_LEFT_, 0, _VIEW_RIGHT_)
#define B_FOLLOW_H_CENTER _rule_(0, _VIEW_CENTER_, 0, _VIEW_CENTER_)
#define B_FOLLOW_TOP _rule_(_VIEW_TOP_, 0, _VIEW_TOP_, 0)
#define B_FOLLOW_BOTTOM _rule_(_VIEW_BOTTOM_, 0, _VIEW_BOTTOM_, 0)
#define B_FOLLOW_TOP_BOTTOM _rule_(_VIEW_TOP_, 0, _VIEW_BOTTOM_, 0)
#define B_FOLLOW_V_CENTER _rule_(_VIEW_CENTER_, 0, _VIEW_CENTER_, 0)

// View flags.
const uint32 B_FULL_UPDATE_ON_RESIZE = 0x80000000UL;
const uint32 B_WILL_DRAW = 0x20000000UL;
const uint32 B_PULSE_NEEDED = 0x10000000UL;
const uint32 B_NAVIGABLE_JUMP = 0x08000000UL;
const uint32 B_FRAME_EVENTS = 0x04000000UL;
const uint32 B_NAVIGABLE = 0x02000000UL;
const uint32 B_SUBPIXEL_PRECISE = 0x01000000UL;
const uint32 B_DRAW_ON_CHILDREN = 0x00800000UL;
const uint32 B_INPUT_METHOD_AWARE = 0x00400000UL;

// Transit codes of MouseMoved().
enum {
	B_ENTERED_VIEW = 0,
	B_INSIDE_VIEW,
	B_EXITED_VIEW,
	B_OUTSIDE_VIEW
};

// SetMouseEventMask() and SetEventMask().
enum {
	B_POINTER_EVENTS = 0x00000001,
	B_KEYBOARD_EVENTS = 0x00000002
};

enum {
	B_LOCK_WINDOW_FOCUS = 0x00000001,
	B_SUSPEND_VIEW_FOCUS = 0x00000002,
	B_NO_POINTER_HISTORY = 0x00000004
};

// A rectangle of a window that draws itself and receives input. Views form a
// tree; each has a frame in its parent's coordinates and bounds in its own
// (scrolled by the bounds origin). Drawing goes to the window's frame and is
// clipped to the view's visible area.
class BView : public BHandler {
public:
	BView(BRect frame, const char* name, uint32 resizingMode, uint32 flags);
	virtual ~BView();

	// Hooks.
	virtual void AttachedToWindow();
	virtual void AllAttached();
	virtual void DetachedFromWindow();
	virtual void AllDetached();
	virtual void MessageReceived(BMessage* message);
	virtual void Draw(BRect updateRect);
	virtual void DrawAfterChildren(BRect updateRect);
	virtual void MouseDown(BPoint where);
	virtual void MouseUp(BPoint where);
	virtual void MouseMoved(BPoint where, uint32 transit, const BMessage* dragMessage);
	virtual void KeyDown(const char* bytes, int32 numBytes);
	virtual void KeyUp(const char* bytes, int32 numBytes);
	virtual void FrameMoved(BPoint newPosition);
	virtual void FrameResized(float newWidth, float newHeight);
	virtual void Pulse();
	virtual void WindowActivated(bool active);
	virtual void MakeFocus(bool focus = true);
	virtual void GetPreferredSize(float* width, float* height);
	virtual void ResizeToPreferred();
	virtual void SetFlags(uint32 flags);
	virtual void SetResizingMode(uint32 mode);
	virtual void Show();
	virtual void Hide();
	virtual void SetFont(const BFont* font, uint32 mask = B_FONT_ALL);
	virtual void SetViewColor(rgb_color color);
	virtual void SetHighColor(rgb_color color);
	virtual void SetLowColor(rgb_color color);
	virtual void SetDrawingMode(drawing_mode mode);
	virtual void ScrollTo(BPoint where);

	// The tree.
	void AddChild(BView* child, BView* before = NULL);
	bool RemoveChild(BView* child);
	bool RemoveSelf();
	int32 CountChildren() const { return static_cast<int32>(fChildren.size()); }
	BView* ChildAt(int32 index) const;
	BView* NextSibling() const;
	BView* PreviousSibling() const;
	BView* Parent() const;
	BWindow* Window() const { return fWindow; }
	BView* FindView(const char* name) const;

	// Geometry.
	BRect Frame() const { return fFrame; }
	BRect Bounds() const;
	void MoveBy(float dx, float dy);
	void MoveTo(BPoint where);
	void MoveTo(float x, float y) { MoveTo(BPoint(x, y)); }
	void ResizeBy(float dx, float dy);
	void ResizeTo(float width, float height);
	void ScrollBy(float dx, float dy);
	void ScrollTo(float x, float y) { ScrollTo(BPoint(x, y)); }
	void ConvertToParent(BPoint* point) const;
	BPoint ConvertToParent(BPoint point) const;
	void ConvertFromParent(BPoint* point) const;
	BPoint ConvertFromParent(BPoint point) const;
	void ConvertToParent(BRect* rect) const;
	BRect ConvertToParent(BRect rect) const;
	void ConvertFromParent(BRect* rect) const;
	BRect ConvertFromParent(BRect rect) const;
	void ConvertToScreen(BPoint* point) const;
	BPoint ConvertToScreen(BPoint point) const;
	void ConvertFromScreen(BPoint* point) const;
	BPoint ConvertFromScreen(BPoint point) const;
	void ConvertToScreen(BRect* rect) const;
	BRect ConvertToScreen(BRect rect) const;
	void ConvertFromScreen(BRect* rect) const;
	BRect ConvertFromScreen(BRect rect) const;

	uint32 Flags() const { return fFlags; }
	uint32 ResizingMode() const { return fResizingMode; }
	bool IsHidden() const;
	bool IsHidden(const BView* lookingFrom) const;
	bool IsFocus() const;
	// The scroll bar of that orientation whose target this view is, or NULL.
	BScrollBar* ScrollBar(orientation direction) const;

	// Input.
	void GetMouse(BPoint* location, uint32* buttons, bool checkMessageQueue = true);
	status_t SetMouseEventMask(uint32 mask, uint32 options = 0);
	status_t SetEventMask(uint32 mask, uint32 options = 0);
	uint32 EventMask() const { return fEventMask; }

	// Updating.
	void Invalidate();
	void Invalidate(BRect rect);
	void Invalidate(const BRegion* region);
	void Sync() const;
	void Flush() const;

	// Drawing state.
	rgb_color ViewColor() const { return fViewColor; }
	// Takes the parent's view colour as view and low colour (the panel colour
	// without a parent view).
	void AdoptParentColors();
	void SetViewColor(uchar red, uchar green, uchar blue, uchar alpha = 255);
	rgb_color HighColor() const;
	void SetHighColor(uchar red, uchar green, uchar blue, uchar alpha = 255);
	rgb_color LowColor() const;
	void SetLowColor(uchar red, uchar green, uchar blue, uchar alpha = 255);
	drawing_mode DrawingMode() const;
	void SetBlendingMode(source_alpha srcAlpha, alpha_function alphaFunc);
	void MovePenTo(BPoint point);
	void MovePenTo(float x, float y) { MovePenTo(BPoint(x, y)); }
	void MovePenBy(float x, float y);
	BPoint PenLocation() const;
	void SetPenSize(float size);
	float PenSize() const;
	void GetFont(BFont* font) const;
	void SetFontSize(float size);
	void GetFontHeight(font_height* height) const;
	float StringWidth(const char* string) const;
	float StringWidth(const char* string, int32 length) const;
	void ConstrainClippingRegion(BRegion* region);
	void GetClippingRegion(BRegion* region) const;
	void PushState();
	void PopState();

	// Drawing, in the view's coordinates.
	void StrokeLine(BPoint end, pattern p = B_SOLID_HIGH);
	void StrokeLine(BPoint start, BPoint end, pattern p = B_SOLID_HIGH);
	void StrokeRect(BRect rect, pattern p = B_SOLID_HIGH);
	void FillRect(BRect rect, pattern p = B_SOLID_HIGH);
	void FillRegion(BRegion* region, pattern p = B_SOLID_HIGH);
	void StrokeRoundRect(BRect rect, float xRadius, float yRadius, pattern p = B_SOLID_HIGH);
	void FillRoundRect(BRect rect, float xRadius, float yRadius, pattern p = B_SOLID_HIGH);
	void StrokeEllipse(BPoint center, float xRadius, float yRadius, pattern p = B_SOLID_HIGH);
	void StrokeEllipse(BRect rect, pattern p = B_SOLID_HIGH);
	void FillEllipse(BPoint center, float xRadius, float yRadius, pattern p = B_SOLID_HIGH);
	void FillEllipse(BRect rect, pattern p = B_SOLID_HIGH);
	void StrokeArc(BRect rect, float startAngle, float arcAngle, pattern p = B_SOLID_HIGH);
	void FillArc(BRect rect, float startAngle, float arcAngle, pattern p = B_SOLID_HIGH);
	void StrokePolygon(const BPoint* points, int32 count, bool closed = true,
		pattern p = B_SOLID_HIGH);
	void FillPolygon(const BPoint* points, int32 count, pattern p = B_SOLID_HIGH);
	void StrokeTriangle(BPoint p1, BPoint p2, BPoint p3, pattern p = B_SOLID_HIGH);
	void FillTriangle(BPoint p1, BPoint p2, BPoint p3, pattern p = B_SOLID_HIGH);
	void DrawString(const char* string);
	void DrawString(const char* string, int32 length);
	void DrawString(const char* string, BPoint location);
	void DrawString(const char* string, int32 length, BPoint location);
	void DrawChar(char c);
	void DrawChar(char c, BPoint location);
	void DrawBitmap(const BBitmap* bitmap);
	void DrawBitmap(const BBitmap* bitmap, BPoint where);
	void DrawBitmap(const BBitmap* bitmap, BRect destination);
	void DrawBitmap(const BBitmap* bitmap, BRect source, BRect destination);
	void InvertRect(BRect rect);

	BView(const BView&) = delete;
	BView& operator=(const BView&) = delete;

private:
	friend class BWindow;
	friend class BScrollBar;

	struct State;

	void pvAttach(BWindow* window);
	void pvDetach();
	void pvCallAllAttached();
	void pvParentResized(float dx, float dy);
	void pvSetFrame(BRect frame);
	BPrivate::Paint pvPaint(const pattern& stipple) const;
	BPrivate::Canvas* pvCanvas();
	BPoint pvOriginInWindow() const;
	BRect pvVisibleInWindow() const;
	BView* pvViewAt(BPoint windowPoint);

	BRect fFrame;
	BPoint fBoundsOrigin;
	uint32 fResizingMode;
	uint32 fFlags;
	int32 fHiddenLevel = 0;
	BView* fParent = nullptr;
	BWindow* fWindow = nullptr;
	std::vector<BView*> fChildren;
	rgb_color fViewColor;
	std::unique_ptr<State> fState;
	std::vector<std::unique_ptr<State>> fStateStack;
	uint32 fEventMask = 0;
	uint32 fEventOptions = 0;
	BScrollBar* fVerticalBar = nullptr;
	BScrollBar* fHorizontalBar = nullptr;
};

#endif
