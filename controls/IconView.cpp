#include "IconView.h"

#include <memory>

#include <Application.h>
#include <Bitmap.h>
#include <Entry.h>
#include <Node.h>
#include <NodeInfo.h>
#include <Roster.h>

namespace {

const rgb_color kWhite = {255, 255, 255, 255};

bool
IsSymLink(const BEntry& entry)
{
	BNode node(&entry);
	return node.InitCheck() == B_OK && node.IsSymLink();
}

}	// namespace

IconView::IconView(BRect frame, const char* name, uint32 resizingMode, uint32 flags)
	: BBox(frame, name, resizingMode, flags, B_NO_BORDER)
{
}

IconView::~IconView()
{
	delete fEntry;
}

void
IconView::AttachedToWindow()
{
	BBox::AttachedToWindow();
	rgb_color color = ViewColor();
	if (color.red != kWhite.red || color.green != kWhite.green || color.blue != kWhite.blue
		|| color.alpha != kWhite.alpha)
		SetBorder(B_FANCY_BORDER);
}

void
IconView::SetBorder(border_style style)
{
	BBox::SetBorder(style);
	if (style != B_NO_BORDER) {
		ResizeBy(4, 4);
		MoveBy(-2, -2);
	}
}

void
IconView::SetNode(BEntry* entry)
{
	delete fEntry;
	fEntry = entry;
	if (fEntry != nullptr && IsSymLink(*fEntry)) {
		entry_ref ref;
		if (fEntry->GetRef(&ref) == B_OK) {
			auto target = std::make_unique<BEntry>(&ref, true);
			if (target->Exists()) {
				delete fEntry;
				fEntry = target.release();
			}
		}
	}
	Invalidate();
	fBitmapSize = 32;
}

void
IconView::SetNode(BApplication* app)
{
	app_info info;
	if (app != nullptr && app->GetAppInfo(&info) == B_OK)
		SetNode(new BEntry(&info.ref, false));
}

void
IconView::SetBitmap(BBitmap* bitmap, uint32 size)
{
	fBitmap = bitmap;
	fBitmapSize = size;
}

void
IconView::SetBitmapSize(uint32 size)
{
	fBitmapSize = size;
}

BRect
IconView::pvIconFrame() const
{
	BRect frame = Bounds();
	if (Border() != B_NO_BORDER)
		frame.InsetBy(2, 2);
	return frame;
}

void
IconView::Draw(BRect updateRect)
{
	rgb_color high = HighColor();
	SetHighColor(ViewColor());
	FillRect(updateRect, B_SOLID_HIGH);
	SetHighColor(high);
	BBox::Draw(updateRect);

	BRect destination = pvIconFrame();
	BRect source(0, 0, float(fBitmapSize) - 1, float(fBitmapSize) - 1);
	if (fBitmap != nullptr)
		DrawBitmap(fBitmap, source, destination);
	else if (fEntry != nullptr)
		pvDrawNodeIcon(source, destination);
}

void
IconView::pvDrawNodeIcon(BRect source, BRect destination)
{
	BBitmap icon(source, B_CMAP8);
	BNode node(fEntry);
	BNodeInfo info(&node);
	if (icon.InitCheck() == B_OK && info.GetTrackerIcon(&icon, B_LARGE_ICON) == B_OK) {
		SetDrawingMode(B_OP_OVER);
		DrawBitmap(&icon, source, destination);
		SetDrawingMode(B_OP_COPY);
	} else
		FillRect(destination, B_SOLID_HIGH);
}
