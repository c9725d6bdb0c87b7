#include <ListItem.h>

#include <cmath>

#include <View.h>

BStringItem::BStringItem(const char* text, uint32 outlineLevel, bool expanded)
	: BListItem(outlineLevel, expanded),
	fText(text != nullptr ? text : ""),
	fHasText(text != nullptr)
{
}

BStringItem::~BStringItem() = default;

void
BStringItem::DrawItem(BView* owner, BRect frame, bool complete)
{
	rgb_color high = owner->HighColor();
	rgb_color low = owner->LowColor();
	// On a transparent list the low colour stands for the background.
	rgb_color background = owner->ViewColor() == B_TRANSPARENT_COLOR ? low : owner->ViewColor();
	if (IsSelected() || complete) {
		rgb_color fill = IsSelected()
			? tint_color(background, B_HIGHLIGHT_BACKGROUND_TINT) : background;
		owner->SetLowColor(fill);
		owner->FillRect(frame, B_SOLID_LOW);
	} else
		owner->SetLowColor(background);
	if (fHasText) {
		owner->SetHighColor(IsEnabled() ? ui_color(B_DOCUMENT_TEXT_COLOR)
			: tint_color(background, B_DISABLED_LABEL_TINT));
		owner->DrawString(fText.c_str(),
			BPoint(frame.left + 4 + OutlineLevel() * 10, frame.top + fBaselineOffset));
	}
	owner->SetHighColor(high);
	owner->SetLowColor(low);
}

void
BStringItem::SetText(const char* text)
{
	fText = text != nullptr ? text : "";
	fHasText = text != nullptr;
}

const char*
BStringItem::Text() const
{
	return fHasText ? fText.c_str() : nullptr;
}

void
BStringItem::Update(BView*, const BFont* font)
{
	font_height height;
	font->GetHeight(&height);
	SetWidth(font->StringWidth(fText.c_str()));
	fBaselineOffset = 2 + std::ceil(height.ascent + height.leading / 2);
	SetHeight(std::ceil(height.ascent) + std::ceil(height.descent) + std::ceil(height.leading)
		+ 4);
}
