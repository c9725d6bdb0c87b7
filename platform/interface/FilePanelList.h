#ifndef _FILE_PANEL_LIST_H
#define _FILE_PANEL_LIST_H

#include <ListView.h>

namespace BPrivate {

// The entries of a file panel, chosen as on the desktop: a click chooses one
// entry, Shift+click the range from the last clicked one, Ctrl+click (Command)
// adds or takes away one.
class FilePanelList : public BListView {
public:
	FilePanelList(BRect frame, const char* name, list_view_type type);

	void MouseDown(BPoint where) override;

private:
	int32 fAnchor = -1;
};

}

#endif
