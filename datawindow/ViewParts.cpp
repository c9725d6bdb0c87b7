#include "ViewParts.h"

#include <algorithm>

#include <Box.h>
#include <Button.h>
#include <Font.h>
#include <Message.h>
#include <TextView.h>

#include "PanelColors.h"

namespace {

const float kBoxInset = 4.0f;
const float kHeaderFontSize = 12.0f;
const float kButtonSide = 16.0f;
const float kButtonGap = 4.0f;
const float kRuleHeight = 2.0f;
const uint32 kSwitchViews = 'swWv';

}	// namespace

BView*
MakeBoxedInterior(BView* view, float interiorInset)
{
	BRect boxFrame = view->Bounds().InsetByCopy(kBoxInset, kBoxInset);
	BBox* box = new BBox(boxFrame, "DecorativeBox", B_FOLLOW_ALL, B_WILL_DRAW, B_FANCY_BORDER);
	view->AddChild(box);

	BRect interiorFrame = box->Bounds().InsetByCopy(interiorInset, interiorInset);
	BView* interior = new BView(interiorFrame, "BoxInterior", B_FOLLOW_ALL, B_WILL_DRAW);
	interior->SetViewColor(WhiteColor);
	box->AddChild(interior);
	return interior;
}

float
MakeViewHeader(BRect frame, BView* parent)
{
	BFont font(be_plain_font);
	font.SetSize(kHeaderFontSize);
	BRect textFrame = frame;
	textFrame.right -= kButtonSide + kButtonGap;
	textFrame.bottom = textFrame.top + kButtonSide;
	BRect textRect = textFrame.OffsetToCopy(0, 0);
	BTextView* header = new BTextView(textFrame, "Header", textRect, &font, nullptr,
		B_FOLLOW_LEFT_RIGHT | B_FOLLOW_TOP, B_WILL_DRAW);
	header->MakeEditable(false);
	header->MakeSelectable(false);
	header->SetAlignment(B_ALIGN_CENTER);
	header->SetViewColor(parent->ViewColor());
	parent->AddChild(header);
	header->ResizeTo(textFrame.Width(), header->LineHeight() - 1);

	float height = std::max(header->Bounds().Height(), kButtonSide);
	BRect buttonFrame(frame.right - kButtonSide, frame.top, frame.right,
		frame.top + kButtonSide);
	parent->AddChild(new BButton(buttonFrame, "SwitchButton", "", new BMessage(kSwitchViews),
		B_FOLLOW_RIGHT | B_FOLLOW_TOP));

	BRect ruleFrame(frame.left, frame.top + height + kButtonGap, frame.right,
		frame.top + height + kButtonGap + kRuleHeight);
	parent->AddChild(new BBox(ruleFrame, nullptr, B_FOLLOW_LEFT_RIGHT | B_FOLLOW_TOP));
	return ruleFrame.bottom - frame.top;
}
