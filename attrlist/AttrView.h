#ifndef ATTR_VIEW_H
#define ATTR_VIEW_H

#include <memory>

#include <Box.h>

#include "AttrData.h"

class BListItem;
class BrindleFile;
class CMultiTextItem;
class SpecialListView;
struct entry_ref;

// The boxed panel that lists the attributes of the inspected node, titled with
// their count. Its parts are child views found by name: "AttrContainer" (all
// of the panel inside its border), in it "Headers" (the column titles) and
// "ScrollList" (the scroll view around "attrList", the rows). The node belongs
// to the hosting view, a FileHost.
class AttrView : public BBox {
public:
	AttrView(BRect frame, const char* name, uint32 resizingMode, uint32 flags,
		border_style border = B_FANCY_BORDER);
	virtual ~AttrView();

	virtual void AttachedToWindow();
	virtual void MessageReceived(BMessage* message);
	virtual void MakeFocus(bool focus = true);

	// Lists every attribute of the node, in the node's order; a node that
	// cannot be read leaves the list empty.
	void AddAttrInfo(entry_ref* ref);
	// Appends the row of one attribute.
	void AddNewAttribute(AttrData& data);
	// Writes an attribute to the node, replacing any of the same name; type 0
	// with no data removes it. The bytes written, or an error.
	ssize_t WriteAttribute(const char* name, uint32 type, void* data, long size);
	// "Attributes (count)"; a negative count counts the node's attributes now.
	void UpdateTitle(long count);

	void ShowView(const char* name);
	void HideView(const char* name);

	// The panel that view belongs to: the nearest view named "Attributes",
	// view itself or an ancestor; null when that is no panel or there is none.
	static AttrView* Enclosing(BView* view);

	// The node of the hosting FileHost, or null when the panel has none.
	BrindleFile* File() const;

	// Hands an Edit command to the list.
	void DoEditMenu(BMessage* message);

	// Whether the window may close: an open row editor offers its changes
	// first, and a cancelled save keeps the window open.
	bool QuitRequested();

	// Opens the window of a row (the pointer "listRef"): an icon window for
	// the icon types, else a data window. Nothing for a row without data.
	void OpenWindow(BMessage* message);
	void OpenWindow(BListItem* item);
	// One window per attribute name, showing the icon four times magnified;
	// a second request brings it to the front.
	void OpenIconWindow(uint32 type, void* data, long size, char* name);
	void OpenDataWindow(uint32 type, void* data, uint32 size, char* name);

private:
	// A click on a row ('Selc' or 'Invk'): edit it in place, or with Option
	// (or a value too large to edit) only select it, and on a double click
	// open its window.
	void pvClick(BMessage* message);
	// Closes the row editor after offering its changes; false, keeping the
	// editor, when the user cancelled.
	bool pvDeleteItemEditor();
	SpecialListView* pvList() const;
	void pvBuildViews();
	void pvEmptyList();
	int32 pvReadAttributes(BrindleFile& file);

	// The row of column titles that "Headers" shows; the header view only
	// points at it.
	std::unique_ptr<CMultiTextItem> fHeaderRow;
};

#endif
