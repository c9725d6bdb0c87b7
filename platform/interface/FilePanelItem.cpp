#include "FilePanelItem.h"

#include <strings.h>

#include <cmath>
#include <cstring>
#include <string>

#include <Node.h>
#include <NodeInfo.h>
#include <StorageDefs.h>
#include <View.h>

namespace BPrivate {

namespace {

const float kIconSize = B_MINI_ICON;
const float kIconLeft = 3;
// The room the icon takes before the text (which starts 4 further in).
const float kIconRoom = kIconLeft + kIconSize;
// The text's margins within its part of the row.
const float kTextMargins = 8;
const char kEllipsis[] = "\xE2\x80\xA6";

// name, or its longest beginning that fits width with an ellipsis after it;
// characters are not split.
std::string
Shortened(BView* owner, const std::string& name, float width)
{
	if (owner->StringWidth(name.c_str()) <= width)
		return name;
	size_t length = name.size();
	while (length > 0) {
		do
			length--;
		while (length > 0 && (uint8(name[length]) & 0xC0) == 0x80);
		std::string shown = name.substr(0, length) + kEllipsis;
		if (owner->StringWidth(shown.c_str()) <= width)
			return shown;
	}
	return kEllipsis;
}

}	// namespace

FilePanelItem::FilePanelItem(const entry_ref& ref, uint32 flavor, uint32 target)
	: BStringItem(ref.name),
	fRef(ref),
	fFlavor(flavor),
	fTarget(target)
{
}

FilePanelItem::~FilePanelItem() = default;

void
FilePanelItem::DrawItem(BView* owner, BRect frame, bool complete)
{
	if (!fIconLoaded)
		pvLoadIcon();
	BRect strip(frame.left, frame.top, frame.left + kIconRoom - 1, frame.bottom);
	if (IsSelected() || complete) {
		rgb_color background = owner->ViewColor() == B_TRANSPARENT_COLOR
			? owner->LowColor() : owner->ViewColor();
		rgb_color high = owner->HighColor();
		owner->SetHighColor(IsSelected()
			? tint_color(background, B_HIGHLIGHT_BACKGROUND_TINT) : background);
		owner->FillRect(strip);
		owner->SetHighColor(high);
	}
	if (fIcon != nullptr) {
		drawing_mode mode = owner->DrawingMode();
		owner->SetDrawingMode(B_OP_OVER);
		float top = std::floor(frame.top + (frame.Height() - kIconSize) / 2 + 1);
		owner->DrawBitmap(fIcon.get(), BPoint(frame.left + kIconLeft, top));
		owner->SetDrawingMode(mode);
	}
	// A name too long for the row ends with an ellipsis.
	BRect textFrame(strip.right + 1, frame.top, frame.right, frame.bottom);
	std::string name = Text() != nullptr ? Text() : "";
	std::string shown = Shortened(owner, name, textFrame.Width() - kTextMargins);
	if (shown != name)
		SetText(shown.c_str());
	BStringItem::DrawItem(owner, textFrame, complete);
	if (shown != name)
		SetText(name.c_str());
}

void
FilePanelItem::Update(BView* owner, const BFont* font)
{
	BStringItem::Update(owner, font);
	SetWidth(Width() + kIconRoom);
	SetHeight(std::max(Height(), kIconSize + 2));
}

int
FilePanelItem::Compare(const void* a, const void* b)
{
	auto first = *static_cast<const FilePanelItem* const*>(a);
	auto second = *static_cast<const FilePanelItem* const*>(b);
	if (first->IsFolder() != second->IsFolder())
		return first->IsFolder() ? -1 : 1;
	int order = strcasecmp(first->fRef.name, second->fRef.name);
	return order != 0 ? order : strcmp(first->fRef.name, second->fRef.name);
}

void
FilePanelItem::pvLoadIcon()
{
	fIconLoaded = true;
	auto icon = std::make_unique<BBitmap>(BRect(0, 0, kIconSize - 1, kIconSize - 1), B_RGBA32);
	BNode node(&fRef);
	BNodeInfo info(&node);
	if (icon->InitCheck() == B_OK && info.GetTrackerIcon(icon.get(), B_MINI_ICON) == B_OK)
		fIcon = std::move(icon);
}

}
