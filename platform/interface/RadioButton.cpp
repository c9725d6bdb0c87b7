#include <RadioButton.h>

#include <cmath>

#include <Window.h>

namespace {

const float kMarkSize = 12;
const float kLabelGap = 6;

}	// namespace

BRadioButton::BRadioButton(BRect frame, const char* name, const char* label,
	BMessage* message, uint32 resizingMode, uint32 flags)
	: BControl(frame, name, label, message, resizingMode, flags)
{
}

BRadioButton::~BRadioButton() = default;

BRect
BRadioButton::pvMarkRect() const
{
	BRect bounds = Bounds();
	float top = std::floor(bounds.top + (bounds.Height() + 1 - kMarkSize) / 2);
	return BRect(bounds.left + 1, top, bounds.left + kMarkSize, top + kMarkSize - 1);
}

void
BRadioButton::Draw(BRect)
{
	BRect mark = pvMarkRect();
	rgb_color base = ui_color(B_CONTROL_BACKGROUND_COLOR);
	SetHighColor(IsEnabled() ? ui_color(B_DOCUMENT_BACKGROUND_COLOR)
		: tint_color(base, B_LIGHTEN_1_TINT));
	FillEllipse(mark);
	SetHighColor(tint_color(base, IsEnabled() ? B_DARKEN_4_TINT : B_DARKEN_2_TINT));
	StrokeEllipse(mark);
	if (Value() == B_CONTROL_ON) {
		SetHighColor(IsEnabled() ? ui_color(B_CONTROL_TEXT_COLOR)
			: tint_color(base, B_DARKEN_3_TINT));
		FillEllipse(mark.InsetByCopy(3, 3));
	}

	if (Label() != nullptr)
		DrawLabel(BPoint(mark.right + kLabelGap, CenteredBaseline(Bounds())));
}

void
BRadioButton::MouseDown(BPoint)
{
	StartTracking();
}

void
BRadioButton::MouseUp(BPoint where)
{
	if (StopTracking(where))
		pvSelect();
}

void
BRadioButton::KeyDown(const char* bytes, int32 numBytes)
{
	if (IsActivationKey(bytes)) {
		pvSelect();
		return;
	}
	BControl::KeyDown(bytes, numBytes);
}

void
BRadioButton::pvSelect()
{
	SetValue(B_CONTROL_ON);
	Invoke();
}

void
BRadioButton::SetValue(int32 value)
{
	if (value != B_CONTROL_OFF)
		value = B_CONTROL_ON;
	BControl::SetValue(value);
	if (value != B_CONTROL_ON)
		return;
	// The siblings form the group: only one of them is on.
	for (BView* view = PreviousSibling(); view != nullptr; view = view->PreviousSibling()) {
		if (auto radio = dynamic_cast<BRadioButton*>(view))
			radio->SetValue(B_CONTROL_OFF);
	}
	for (BView* view = NextSibling(); view != nullptr; view = view->NextSibling()) {
		if (auto radio = dynamic_cast<BRadioButton*>(view))
			radio->SetValue(B_CONTROL_OFF);
	}
}

void
BRadioButton::GetPreferredSize(float* width, float* height)
{
	font_height fontHeight;
	GetFontHeight(&fontHeight);
	if (width != nullptr) {
		float label = Label() != nullptr ? StringWidth(Label()) : 0;
		*width = std::ceil(kMarkSize + 1 + kLabelGap + label) + 2;
	}
	if (height != nullptr)
		*height = std::max(kMarkSize, std::ceil(fontHeight.ascent + fontHeight.descent)) + 2;
}
