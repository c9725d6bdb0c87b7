#include "SpecialListView.h"

#include <strings.h>

#include <Message.h>
#include <Window.h>

#include "CMultiTextItem.h"
#include "ListColors.h"

namespace {

const uint32 kSelectByName = 'SelI';
const uint32 kScrollToSelection = 'ScrS';
const uint32 kDataMessage = 'DATA';

}	// namespace

SpecialListView::SpecialListView(BRect frame, const char* name, list_view_type type,
	uint32 resizingMode, uint32 flags)
	:
	BListView(frame, name, type, resizingMode, flags)
{
}

void
SpecialListView::AttachedToWindow()
{
	BListView::AttachedToWindow();
	SetViewColor(B_TRANSPARENT_32_BIT);
}

void
SpecialListView::MessageReceived(BMessage* message)
{
	switch (message->what) {
		case kDataMessage:
			if (Window() != nullptr)
				Window()->PostMessage(message);
			break;
		case kSelectByName:
		{
			const char* name;
			if (message->FindString("attrName", &name) == B_OK)
				SelectByName(name);
			break;
		}
		case kScrollToSelection:
			ScrollToSelection();
			break;
	}
}

void
SpecialListView::KeyDown(const char* bytes, int32 numBytes)
{
	if (numBytes > 0 && bytes[0] == B_ENTER)
		Select(CurrentSelection(0));
	BListView::KeyDown(bytes, numBytes);
}

void
SpecialListView::Draw(BRect updateRect)
{
	rgb_color high = HighColor();
	if (!IsFocus())
		SetHighColor(LowColor());
	BListView::Draw(updateRect);
	pvStrokeFrame(pvFrameColor());
	SetHighColor(high);
}

void
SpecialListView::ScrollTo(BPoint where)
{
	if (!IsFocus())
		pvStrokeFrame(LowColor());
	BListView::ScrollTo(where);
	Invalidate();
}

void
SpecialListView::MakeFocus(bool focus)
{
	BListView::MakeFocus(focus);
	Invalidate();
}

void
SpecialListView::SelectByName(const char* name)
{
	int32 count = CountItems();
	for (int32 index = 0; index < count; index++) {
		auto row = dynamic_cast<CMultiTextItem*>(ItemAt(index));
		if (row != nullptr
			&& strcasecmp(row->GetString(CMultiTextItem::kNameColumn), name) == 0) {
			Select(index, false);
			return;
		}
	}
	Select(0, false);
}

rgb_color
SpecialListView::pvFrameColor() const
{
	return IsFocus() ? BlueColor : LowColor();
}

void
SpecialListView::pvStrokeFrame(rgb_color color)
{
	rgb_color high = HighColor();
	SetHighColor(color);
	StrokeRect(Bounds(), B_SOLID_HIGH);
	SetHighColor(high);
}
