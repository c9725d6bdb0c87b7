#include "BoolView.h"

#include <RadioButton.h>
#include <TextView.h>

#include "StatusError.h"

namespace {

const float kLabelWidth = 60.0f;
const float kButtonWidth = 80.0f;
const float kGap = 4.0f;

}	// namespace

BoolView::BoolView(BRect frame, const char* name, uint32 resizingMode, uint32 flags)
	:
	StringAttrView(frame, name, resizingMode, flags)
{
}

void
BoolView::MessageReceived(BMessage* message)
{
	StringAttrView::MessageReceived(message);
}

// Only a one-byte value sets the buttons.
void
BoolView::Insert(const char* data, long size)
{
	if (size != 1)
		return;
	SetRadioButton(data != nullptr && data[0] != 0 ? "TrueBtn" : "FalseBtn");
}

bool
BoolView::IsDataDirty()
{
	return DataDiffers<uint8>();
}

void
BoolView::MakeDataPanel(BRect frame, BView* parent)
{
	BRect labelFrame(frame.left, frame.top, frame.left + kLabelWidth, frame.bottom);
	auto label = new BTextView(labelFrame, "Label", labelFrame.OffsetToCopy(0, 0),
		B_FOLLOW_LEFT | B_FOLLOW_TOP, B_WILL_DRAW);
	label->SetText("Value");
	label->MakeEditable(false);
	label->MakeSelectable(false);
	parent->AddChild(label);

	BRect setFrame(labelFrame.right + kGap, frame.top, frame.right, frame.bottom);
	auto radioSet = new BView(setFrame, "RadioSet", B_FOLLOW_ALL, B_WILL_DRAW);
	radioSet->SetViewColor(parent->ViewColor());
	parent->AddChild(radioSet);
	BRect buttonFrame(0, 0, kButtonWidth, frame.Height());
	radioSet->AddChild(new BRadioButton(buttonFrame, "TrueBtn", "True", nullptr));
	buttonFrame.OffsetBy(kButtonWidth + kGap, 0);
	radioSet->AddChild(new BRadioButton(buttonFrame, "FalseBtn", "False", nullptr));
}

char*
BoolView::ExtractDataValue(long* size)
{
	auto on = dynamic_cast<BRadioButton*>(FindView("TrueBtn"));
	if (on == nullptr)
		throw StatusError(B_NAME_NOT_FOUND, "a boolean view without its buttons");
	return NewValueBuffer(static_cast<uint8>(on->Value() != 0 ? 1 : 0), size);
}

String
BoolView::ExtractDataTextString(const void*)
{
	long size = 0;
	std::unique_ptr<char[]> value(ExtractDataValue(&size));
	return String(value[0] != 0 ? "true" : "false");
}

void
BoolView::SetRadioButton(const char* name)
{
	auto button = dynamic_cast<BRadioButton*>(FindView(name));
	if (button == nullptr)
		throw StatusError(B_NAME_NOT_FOUND, "a boolean view without its buttons");
	button->SetValue(1);
}
