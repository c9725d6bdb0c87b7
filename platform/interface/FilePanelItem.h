#ifndef _FILE_PANEL_ITEM_H
#define _FILE_PANEL_ITEM_H

#include <memory>

#include <Bitmap.h>
#include <Entry.h>
#include <ListItem.h>
#include <StorageDefs.h>

namespace BPrivate {

// A row of a file panel: an entry's small icon, loaded the first time the row
// is drawn, and its name.
class FilePanelItem : public BStringItem {
public:
	// flavor is what the entry is (B_FILE_NODE, B_DIRECTORY_NODE or
	// B_SYMLINK_NODE); target is what it leads to, the same unless a link.
	FilePanelItem(const entry_ref& ref, uint32 flavor, uint32 target);
	virtual ~FilePanelItem();

	virtual void DrawItem(BView* owner, BRect frame, bool complete = false);
	virtual void Update(BView* owner, const BFont* font);

	const entry_ref& Ref() const { return fRef; }
	uint32 Flavor() const { return fFlavor; }
	uint32 TargetFlavor() const { return fTarget; }
	// A folder, or a link to one: the panel enters it.
	bool IsFolder() const { return fTarget == B_DIRECTORY_NODE; }
	bool HasIcon() const { return fIcon != nullptr; }

	// For SortItems(): folders first, then names ignoring case.
	static int Compare(const void* a, const void* b);

private:
	void pvLoadIcon();

	entry_ref fRef;
	uint32 fFlavor;
	uint32 fTarget;
	std::unique_ptr<BBitmap> fIcon;
	bool fIconLoaded = false;
};

}

#endif
