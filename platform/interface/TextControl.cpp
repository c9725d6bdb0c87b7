#include <TextControl.h>

#include <algorithm>
#include <cmath>

#include <Message.h>
#include <Window.h>

#include "TextInput.h"

using BPrivate::TextInput;

namespace {

// The field's border and the margin inside it.
const float kFieldInset = 2;
// Space between the label and the divider.
const float kLabelGap = 3;

}	// namespace

BTextControl::BTextControl(BRect frame, const char* name, const char* label,
	const char* initialText, BMessage* message, uint32 resizingMode, uint32 flags)
	: BControl(frame, name, label, message, resizingMode,
		(flags & ~B_NAVIGABLE) | B_FRAME_EVENTS),
	fText(new TextInput(BRect(0, 0, 10, 10), B_WILL_DRAW | (flags & B_NAVIGABLE))),
	fDivider(label != nullptr ? std::ceil(StringWidth(label) + 2 * kLabelGap) : 0)
{
	AddChild(fText);
	fText->SetTextQuietly(initialText);
	pvLayoutField();
	pvFieldColors();
}

BTextControl::~BTextControl() = default;

// #pragma mark - text and settings

void
BTextControl::SetText(const char* text)
{
	fText->SetTextQuietly(text);
}

const char*
BTextControl::Text() const
{
	return fText->Text();
}

BTextView*
BTextControl::TextView() const
{
	return fText;
}

void
BTextControl::SetModificationMessage(BMessage* message)
{
	fModificationMessage.reset(message);
}

BMessage*
BTextControl::ModificationMessage() const
{
	return fModificationMessage.get();
}

void
BTextControl::SetAlignment(alignment label, alignment text)
{
	fLabelAlignment = label;
	fText->SetAlignment(text);
	Invalidate();
}

void
BTextControl::GetAlignment(alignment* label, alignment* text) const
{
	if (label != nullptr)
		*label = fLabelAlignment;
	if (text != nullptr)
		*text = fText->Alignment();
}

void
BTextControl::SetDivider(float dividingLine)
{
	fDivider = std::clamp(std::floor(dividingLine), 0.0f, Bounds().Width());
	pvLayoutField();
	Invalidate();
}

// #pragma mark - layout

float
BTextControl::pvFieldHeight() const
{
	// One line of text with its margin inside the border.
	font_height height;
	GetFontHeight(&height);
	return std::ceil(height.ascent + height.descent + height.leading) + 2 * kFieldInset + 2;
}

BRect
BTextControl::pvFieldFrame() const
{
	// Centred in the control's height.
	BRect bounds = Bounds();
	float fieldHeight = std::min(bounds.Height(), pvFieldHeight());
	float top = std::floor((bounds.Height() - fieldHeight) / 2);
	return BRect(bounds.left + fDivider, top, bounds.right, top + fieldHeight);
}

void
BTextControl::pvLayoutField()
{
	BRect field = pvFieldFrame().InsetByCopy(kFieldInset, kFieldInset);
	fText->MoveTo(field.LeftTop());
	fText->ResizeTo(std::max(field.Width(), 0.0f), std::max(field.Height(), 0.0f));
	fText->SetTextRect(BRect(1, 1, std::max(field.Width() - 1, 1.0f), field.Height() - 1));
}

void
BTextControl::pvFieldColors()
{
	// A disabled field is greyed and takes no typing.
	rgb_color background = IsEnabled() ? ui_color(B_DOCUMENT_BACKGROUND_COLOR)
		: tint_color(ui_color(B_PANEL_BACKGROUND_COLOR), B_LIGHTEN_1_TINT);
	rgb_color text = IsEnabled() ? ui_color(B_DOCUMENT_TEXT_COLOR)
		: tint_color(ui_color(B_PANEL_BACKGROUND_COLOR), B_DISABLED_LABEL_TINT);
	fText->SetViewColor(background);
	fText->SetLowColor(background);
	fText->SetFontAndColor(nullptr, 0, &text);
}

// #pragma mark - hooks

void
BTextControl::AttachedToWindow()
{
	BControl::AttachedToWindow();
	pvLayoutField();
}

void
BTextControl::Draw(BRect)
{
	BRect field = pvFieldFrame();
	bool focused = fText->IsFocus() && Window()->IsActive();
	SetHighColor(focused ? ui_color(B_KEYBOARD_NAVIGATION_COLOR)
		: tint_color(LowColor(), IsEnabled() ? B_DARKEN_2_TINT : B_DARKEN_1_TINT));
	StrokeRect(field);
	SetHighColor(focused ? ui_color(B_KEYBOARD_NAVIGATION_COLOR) : ViewColor());
	StrokeRect(field.InsetByCopy(1, 1));

	const char* label = Label();
	if (label == nullptr)
		return;
	float width = StringWidth(label);
	float x = kLabelGap;
	if (fLabelAlignment == B_ALIGN_RIGHT)
		x = fDivider - kLabelGap - width;
	else if (fLabelAlignment == B_ALIGN_CENTER)
		x = std::floor((fDivider - width) / 2);
	font_height height;
	GetFontHeight(&height);
	float baseline = field.top + kFieldInset + 1 + std::ceil(height.ascent);
	DrawLabel(BPoint(std::max(x, 0.0f), baseline));
}

void
BTextControl::MouseDown(BPoint)
{
	if (IsEnabled() && !fText->IsFocus())
		fText->MakeFocus(true);
}

void
BTextControl::MakeFocus(bool focus)
{
	// The field holds the focus for the control.
	fText->MakeFocus(focus);
}

void
BTextControl::SetEnabled(bool enabled)
{
	if (enabled == IsEnabled())
		return;
	if (!enabled && fText->IsFocus())
		fText->MakeFocus(false);
	BControl::SetEnabled(enabled);
	fText->MakeEditable(enabled);
	uint32 flags = fText->Flags();
	fText->SetFlags(enabled ? flags | B_NAVIGABLE : flags & ~B_NAVIGABLE);
	pvFieldColors();
}

void
BTextControl::FrameResized(float, float)
{
	pvLayoutField();
	Invalidate();
}

void
BTextControl::WindowActivated(bool)
{
	Invalidate(pvFieldFrame());
}

void
BTextControl::GetPreferredSize(float* width, float* height)
{
	if (width != nullptr) {
		float text = std::ceil(fText->LineWidth(0)) + 2 * kFieldInset + 4;
		*width = std::max(Bounds().Width(), fDivider + text);
	}
	if (height != nullptr)
		*height = pvFieldHeight();
}

void
BTextControl::ResizeToPreferred()
{
	BControl::ResizeToPreferred();
	pvLayoutField();
}

void
BTextControl::SetFlags(uint32 flags)
{
	BControl::SetFlags((flags & ~B_NAVIGABLE) | B_FRAME_EVENTS);
	uint32 field = fText->Flags();
	fText->SetFlags((flags & B_NAVIGABLE) != 0 ? field | B_NAVIGABLE : field & ~B_NAVIGABLE);
}
