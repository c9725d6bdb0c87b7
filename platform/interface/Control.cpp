#include <Control.h>

#include <cmath>

#include <Message.h>
#include <Window.h>

BControl::BControl(BRect frame, const char* name, const char* label, BMessage* message,
	uint32 resizingMode, uint32 flags)
	: BView(frame, name, resizingMode, flags),
	BInvoker(message, nullptr, nullptr),
	fLabel(label != nullptr ? label : ""),
	fHasLabel(label != nullptr)
{
	AdoptParentColors();
}

BControl::~BControl() = default;

void
BControl::AttachedToWindow()
{
	// Controls sit on their parent's background and talk to their window.
	AdoptParentColors();
	if (!Messenger().IsValid())
		SetTarget(Window());
	BView::AttachedToWindow();
}

void
BControl::MakeFocus(bool focus)
{
	// Losing the focus is told after the window moved it on; a disabled
	// control takes none.
	if (focus && (IsFocus() || !fEnabled))
		return;
	fFocusChanging = true;
	BView::MakeFocus(focus);
	Invalidate();
	fFocusChanging = false;
}

void
BControl::WindowActivated(bool)
{
	// The focus mark shows only while the window is active.
	if (IsFocus())
		Invalidate();
}

void
BControl::KeyDown(const char* bytes, int32 numBytes)
{
	if (IsActivationKey(bytes)) {
		SetValue(fValue == B_CONTROL_OFF ? B_CONTROL_ON : B_CONTROL_OFF);
		Invoke();
		return;
	}
	BView::KeyDown(bytes, numBytes);
}

void
BControl::SetLabel(const char* label)
{
	std::string text = label != nullptr ? label : "";
	if (text == fLabel && fHasLabel == (label != nullptr))
		return;
	fLabel = text;
	fHasLabel = label != nullptr;
	Invalidate();
}

const char*
BControl::Label() const
{
	return fHasLabel ? fLabel.c_str() : nullptr;
}

void
BControl::SetValue(int32 value)
{
	if (value == fValue)
		return;
	fValue = value;
	Invalidate();
}

void
BControl::SetEnabled(bool enabled)
{
	if (enabled == fEnabled)
		return;
	fEnabled = enabled;
	// Keyboard navigation passes over a disabled control.
	if (!enabled) {
		fNavigableWhenEnabled = (Flags() & B_NAVIGABLE) != 0;
		SetFlags(Flags() & ~B_NAVIGABLE);
	} else if (fNavigableWhenEnabled)
		SetFlags(Flags() | B_NAVIGABLE);
	if (!enabled && IsFocus())
		MakeFocus(false);
	Invalidate();
}

status_t
BControl::Invoke(BMessage* message)
{
	// "source" is the control itself, as receivers cast it.
	return InvokeWith(message, static_cast<BControl*>(this), [this](BMessage& copy) {
		copy.AddInt32("be:value", fValue);
	});
}

bool
BControl::StartTracking()
{
	if (!fEnabled)
		return false;
	fTracking = true;
	SetMouseEventMask(B_POINTER_EVENTS);
	return true;
}

bool
BControl::StopTracking(BPoint where)
{
	if (!fTracking)
		return false;
	fTracking = false;
	return Bounds().Contains(where);
}

bool
BControl::IsActivationKey(const char* bytes) const
{
	return (bytes[0] == B_ENTER || bytes[0] == B_SPACE) && fEnabled && !fTracking;
}

void
BControl::DrawLabel(BPoint baseline)
{
	const char* label = Label();
	if (label == nullptr)
		return;
	SetHighColor(LabelColor());
	SetDrawingMode(B_OP_OVER);
	DrawString(label, baseline);
	SetDrawingMode(B_OP_COPY);
	// The keyboard focus underlines the label.
	if (IsFocus() && Window()->IsActive()) {
		SetHighColor(ui_color(B_KEYBOARD_NAVIGATION_COLOR));
		StrokeLine(BPoint(baseline.x, baseline.y + 2),
			BPoint(baseline.x + StringWidth(label) - 1, baseline.y + 2));
	}
}

rgb_color
BControl::LabelColor() const
{
	return fEnabled ? ui_color(B_CONTROL_TEXT_COLOR)
		: tint_color(LowColor(), B_DISABLED_LABEL_TINT);
}

float
BControl::CenteredBaseline(BRect rect) const
{
	font_height height;
	GetFontHeight(&height);
	float text = std::ceil(height.ascent) + std::ceil(height.descent);
	return std::floor(rect.top + (rect.Height() + 1 - text) / 2 + std::ceil(height.ascent));
}
