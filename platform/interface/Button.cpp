#include <Button.h>

#include <cmath>

#include <Window.h>

namespace {

const float kDefaultIndent = 3;

}	// namespace

BButton::BButton(BRect frame, const char* name, const char* label, BMessage* message,
	uint32 resizingMode, uint32 flags)
	: BControl(frame, name, label, message, resizingMode, flags)
{
}

BButton::~BButton() = default;

void
BButton::AttachedToWindow()
{
	BControl::AttachedToWindow();
	if (fDefault)
		Window()->SetDefaultButton(this);
}

void
BButton::Draw(BRect)
{
	BRect frame = Bounds();
	rgb_color base = ui_color(B_CONTROL_BACKGROUND_COLOR);
	rgb_color border = tint_color(base, B_DARKEN_4_TINT);
	if (fDefault) {
		// The default button wears a second, heavier frame.
		SetHighColor(border);
		StrokeRoundRect(frame, 3, 3);
		frame.InsetBy(1, 1);
		StrokeRoundRect(frame, 3, 3);
		frame.InsetBy(kDefaultIndent - 1, kDefaultIndent - 1);
	}
	bool pressed = Value() == B_CONTROL_ON;
	SetHighColor(pressed ? tint_color(base, B_DARKEN_2_TINT) : tint_color(base, B_LIGHTEN_1_TINT));
	FillRect(frame.InsetByCopy(1, 1));
	SetHighColor(pressed ? tint_color(base, B_DARKEN_3_TINT) : ui_color(B_SHINE_COLOR));
	StrokeLine(BPoint(frame.left + 1, frame.bottom - 1), BPoint(frame.left + 1, frame.top + 1));
	StrokeLine(BPoint(frame.right - 1, frame.top + 1));
	SetHighColor(pressed ? ui_color(B_SHINE_COLOR) : tint_color(base, B_DARKEN_1_TINT));
	StrokeLine(BPoint(frame.right - 1, frame.top + 2), BPoint(frame.right - 1, frame.bottom - 1));
	StrokeLine(BPoint(frame.left + 2, frame.bottom - 1));
	SetHighColor(IsEnabled() ? border : tint_color(base, B_DARKEN_2_TINT));
	StrokeRoundRect(frame, 2, 2);

	if (Label() == nullptr)
		return;
	float x = std::floor(frame.left + (frame.Width() + 1 - StringWidth(Label())) / 2);
	DrawLabel(BPoint(x, CenteredBaseline(frame)));
}

void
BButton::MouseDown(BPoint)
{
	if (StartTracking())
		SetValue(B_CONTROL_ON);
}

void
BButton::MouseMoved(BPoint where, uint32, const BMessage*)
{
	if (IsTracking())
		SetValue(Bounds().Contains(where) ? B_CONTROL_ON : B_CONTROL_OFF);
}

void
BButton::MouseUp(BPoint where)
{
	bool inside = StopTracking(where);
	SetValue(B_CONTROL_OFF);
	if (inside)
		Invoke();
}

void
BButton::KeyDown(const char* bytes, int32 numBytes)
{
	if (IsActivationKey(bytes)) {
		Invoke();
		return;
	}
	BControl::KeyDown(bytes, numBytes);
}

void
BButton::GetPreferredSize(float* width, float* height)
{
	font_height fontHeight;
	GetFontHeight(&fontHeight);
	float indent = fDefault ? 2 * kDefaultIndent : 0;
	if (width != nullptr) {
		float label = Label() != nullptr ? StringWidth(Label()) : 0;
		*width = std::max(75.0f, std::ceil(label) + 20) + indent;
	}
	if (height != nullptr)
		*height = std::ceil(fontHeight.ascent + fontHeight.descent) + 11 + indent;
}

void
BButton::MakeDefault(bool flag)
{
	if (flag == fDefault)
		return;
	fDefault = flag;
	if (BWindow* window = Window()) {
		if (flag && window->DefaultButton() != this)
			window->SetDefaultButton(this);
		else if (!flag && window->DefaultButton() == this)
			window->SetDefaultButton(nullptr);
	}
	Invalidate();
}
