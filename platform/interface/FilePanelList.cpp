#include "FilePanelList.h"

#include <algorithm>

#include <Window.h>

namespace BPrivate {

FilePanelList::FilePanelList(BRect frame, const char* name, list_view_type type)
	: BListView(frame, name, type, B_FOLLOW_ALL)
{
}

void
FilePanelList::MouseDown(BPoint where)
{
	int32 modifiers = 0;
	if (BMessage* message = Window()->CurrentMessage())
		message->FindInt32("modifiers", &modifiers);
	int32 index = IndexOf(where);
	bool range = (modifiers & B_SHIFT_KEY) != 0 && fAnchor >= 0;
	bool toggle = (modifiers & B_COMMAND_KEY) != 0;
	if (ListType() != B_MULTIPLE_SELECTION_LIST || index < 0
		|| !ItemAt(index)->IsEnabled() || (!range && !toggle)) {
		BListView::MouseDown(where);
		fAnchor = index;
		return;
	}
	if (!IsFocus())
		MakeFocus(true);
	if (range)
		Select(std::min(fAnchor, index), std::max(fAnchor, index), toggle);
	else {
		if (IsItemSelected(index))
			Deselect(index);
		else
			Select(index, true);
		fAnchor = index;
	}
}

}
