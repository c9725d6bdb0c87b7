#include "ItemView.h"

#include <ListItem.h>
#include <Window.h>

ItemView::ItemView(BRect frame, const char* name, uint32 resizingMode, uint32 flags)
	: BView(frame, name, resizingMode, flags)
{
}

void
ItemView::AddChild(BListItem* item)
{
	fItem = item;
}

void
ItemView::Draw(BRect)
{
	if (fItem == nullptr)
		return;
	BWindow* window = Window();
	bool locked = false;
	if (window != nullptr && !window->IsLocked()) {
		if (!window->Lock())
			return;
		locked = true;
	}
	fItem->DrawItem(this, Bounds(), false);
	if (locked)
		window->Unlock();
}
