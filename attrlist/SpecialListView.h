#ifndef SPECIAL_LIST_VIEW_H
#define SPECIAL_LIST_VIEW_H

#include <ListView.h>

// Asks whether to delete the attribute name; true for "OK".
bool OKToDelete(const char* name);

// The list of attribute rows. It leaves the background to its rows, frames
// itself while it has the focus, re-sends its selection on Enter, copies,
// cuts, pastes and deletes the selected attribute, and answers the requests
// to select a row by name and to scroll to the selection. Messages it does
// not handle are dropped.
class SpecialListView : public BListView {
public:
	SpecialListView(BRect frame, const char* name, list_view_type type,
		uint32 resizingMode, uint32 flags);

	virtual void AttachedToWindow();
	virtual void MessageReceived(BMessage* message);
	virtual void KeyDown(const char* bytes, int32 numBytes);
	virtual void Draw(BRect updateRect);
	virtual void ScrollTo(BPoint where);
	virtual void MakeFocus(bool focus = true);

	// Selects the first row whose name is name, ignoring case; row 0 when no
	// row has that name.
	void SelectByName(const char* name);

	// Puts the attribute of row index on the clipboard: "text", the row's
	// columns joined by tabs, and "VellumAttr", the flattened AttrPackage.
	void CopyToClipboard(long index);
	// Adds the clipboard's attribute to the panel's list and writes it to
	// the node, replacing one of the same name. A clipboard without a valid
	// "VellumAttr" pastes nothing.
	void CopyFromClipboard();

private:
	// Removes the selected attribute from the node after confirmation, cut
	// first putting it on the clipboard; one alert for every failure.
	void pvDeleteSelection(bool cut);

	// The focus frame's colour: blue with the focus, else the low colour,
	// which erases the frame.
	rgb_color pvFrameColor() const;
	void pvStrokeFrame(rgb_color color);
};

#endif
