#ifndef ATTR_VIEW_H
#define ATTR_VIEW_H

#include <memory>

#include <Box.h>

#include "AttrData.h"

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

	// The node of the hosting FileHost, or null when the panel has none.
	BrindleFile* File() const;

	// Hands an Edit command to the list.
	void DoEditMenu(BMessage* message);

	// Whether the window may close: an open row editor offers its changes
	// first, and a cancelled save keeps the window open.
	bool QuitRequested();

private:
	SpecialListView* pvList() const;
	void pvBuildViews();
	void pvEmptyList();
	int32 pvReadAttributes(BrindleFile& file);

	// The row of column titles that "Headers" shows; the header view only
	// points at it.
	std::unique_ptr<CMultiTextItem> fHeaderRow;
};

#endif
