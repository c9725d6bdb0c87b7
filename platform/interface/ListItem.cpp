#include <ListItem.h>

#include <cmath>

#include <ListView.h>

BListItem::BListItem(uint32 outlineLevel, bool expanded)
	: fOutlineLevel(outlineLevel),
	fExpanded(expanded)
{
}

BListItem::~BListItem() = default;

void
BListItem::SetHeight(float height)
{
	if (height == fHeight)
		return;
	fHeight = height;
	if (fOwner != nullptr)
		fOwner->pvItemResized(this);
}

void
BListItem::Update(BView* owner, const BFont* font)
{
	font_height height;
	font->GetHeight(&height);
	SetWidth(owner->Bounds().Width());
	SetHeight(std::ceil(height.ascent + height.descent + height.leading));
}
