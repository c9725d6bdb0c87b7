#include "IconWindow.h"

#include <Bitmap.h>

#include "IconView.h"

namespace {

const char* const kIconWindowName = "IconWindow";
const char* const kIconViewName = "Icon";

}	// namespace

IconWindow::IconWindow(BRect frame, const char* title, const void* data, int32 size,
	int32 side)
	:
	BWindow(frame, title, B_DOCUMENT_WINDOW, 0),
	fBitmap(std::make_unique<BBitmap>(BRect(0, 0, side - 1, side - 1), B_CMAP8))
{
	SetName(kIconWindowName);
	fBitmap->SetBits(data, size, 0, B_CMAP8);

	float magnified = side * kMagnification;
	BRect bounds = Bounds();
	BRect iconFrame(0, 0, magnified - 1, magnified - 1);
	iconFrame.OffsetTo((bounds.Width() - iconFrame.Width()) / 2,
		(bounds.Height() - iconFrame.Height()) / 2);
	auto icon = new IconView(iconFrame, kIconViewName,
		B_FOLLOW_H_CENTER | B_FOLLOW_V_CENTER, B_WILL_DRAW);
	icon->SetBitmap(fBitmap.get(), side);
	AddChild(icon);
}

IconWindow::~IconWindow()
{
	// The view goes before the bitmap that it draws.
	if (BView* icon = FindView(kIconViewName)) {
		icon->RemoveSelf();
		delete icon;
	}
}
