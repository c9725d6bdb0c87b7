#ifndef GLINT_VIEW_H
#define GLINT_VIEW_H

#include <memory>

#include <View.h>

#include "FileHost.h"

class BPath;
class BrindleFile;
class NewTextControl;
struct entry_ref;

// The content of an inspector window: a box with the node's icon and its
// fields ("Name", "Size", "Date", "Path" and, for a link, "Target Path" with
// its "Set..." button), an instruction line and the attribute panel
// "Attributes". It owns the inspected node and routes the panel's messages.
class GlintView : public BView, public FileHost {
public:
	GlintView(BRect frame);
	virtual ~GlintView();

	virtual void MessageReceived(BMessage* msg);
	virtual void AttachedToWindow();
	virtual void Draw(BRect updateRect);
	// Keys of more than one byte beep; single bytes are ignored.
	virtual void KeyDown(const char* bytes, int32 numBytes);
	virtual void FrameResized(float width, float height);
	// Whether the attribute panel lets the window close.
	virtual bool QuitRequested();
	// Loads the index-th "refs" entry of msg, then tells the window.
	virtual void RefsReceived(BMessage* msg, int32 index);

	virtual BrindleFile* File() const { return fFile.get(); }
	bool Loaded() const { return fFile != nullptr; }

	// Shows the index-th "refs" entry of msg; without one the current node
	// stays and the fields are shown again.
	void SetEntry(BMessage* msg, int32 index);
	// Reloads the panel for ref after an edit; path and target, when given,
	// are the texts of "Path" and "Target Path".
	void SetEntry(entry_ref* ref, BPath* path, BPath* target);
	// Sets the text of the field viewName; a missing field throws.
	void SetEntry(const char* viewName, const char* text);

	void ShowView(const char* name);
	void HideView(const char* name);

	// A field of the panel: label and view name are name, sending 'Chgd'.
	NewTextControl* MakeNewTextView(BRect& frame, const char* name, uint32 resizingMode,
		uint32 flags);

	// Edits of the node itself, confirmed with the user.
	void TextChanged(BMessage* msg);
	void FixName(const char* text);
	void FixSize(const char* text);
	void FixDate(const char* text);
	void FixPath(const char* text);
	void FixTargetPath(BMessage* msg);
	void FindSymLink(BMessage* msg);
	void AddAttr(BMessage* msg);

private:
	struct Layout;

	Layout pvLayout() const;
	float pvMinAttributesHeight() const;
	void pvPlaceViews();
	void pvBuildNodeBox(const Layout& layout);
	void pvBuildInfoPanel(const Layout& layout);
	void pvBuildAttributes(const Layout& layout);
	NewTextControl* pvAddField(BView* panel, BRect& frame, const char* name);
	NewTextControl* pvField(const char* name) const;
	void pvSetNode(const entry_ref& ref);
	void pvCloseDataWindowsOf(const char* leafName);
	void pvShowNode(BPath* path, BPath* target);
	void pvShowLinkTarget(BPath* target);

	std::unique_ptr<BrindleFile> fFile;
};

#endif
