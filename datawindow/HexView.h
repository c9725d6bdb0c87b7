#ifndef HEX_VIEW_H
#define HEX_VIEW_H

#include <View.h>

class HexEditView;

// The data window's view of a value as a hex dump: the hex editor in a
// scroller, under a header that names the attribute and captions the
// columns. It starts read-only; the editor writes its own changes.
class HexView : public BView {
public:
	HexView(BRect frame, const char* name, uint32 resizingMode, uint32 flags);

	virtual void AttachedToWindow();
	virtual void MessageReceived(BMessage* message);
	// The focus goes on to the editor's active column.
	virtual void MakeFocus(bool focus = true);

	void SetHeader(const char* text);
	// The header carries name and type.
	void SetTitleAndType(const char* name, uint32 type, long size);
	// A negative size is the length of the text at data.
	void Insert(const char* data, long size);
	// Replaces the shown value.
	void SetText(const char* data, long size);
	bool IsEditable() const;
	void MakeEditable(bool on);

private:
	void pvRefreshHeader(BMessage* message);

	HexEditView* fEditor;
};

#endif
