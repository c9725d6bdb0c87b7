#ifndef _FILE_PANEL_H
#define _FILE_PANEL_H

#include <sys/stat.h>

#include <Entry.h>
#include <Messenger.h>
#include <StorageDefs.h>

class BMessage;
class BNode;
class BWindow;

namespace BPrivate {
class FilePanelWindow;
}

enum file_panel_mode {
	B_OPEN_PANEL,
	B_SAVE_PANEL
};

enum file_panel_button {
	B_CANCEL_BUTTON,
	B_DEFAULT_BUTTON
};

// Decides which entries a file panel lists: Filter() returns false to leave one out.
class BRefFilter {
public:
	virtual ~BRefFilter() {}
	virtual bool Filter(const entry_ref* ref, BNode* node, struct stat* st,
		const char* mimeType) = 0;
};

// A window for choosing entries to open, or a folder and a name to save under.
// An open panel sends its message (B_REFS_RECEIVED unless set) with one "refs"
// per chosen entry; a save panel sends B_SAVE_REQUESTED (or its message) with
// the folder as "directory" and the typed "name". The answer goes to the target,
// or to the application when there is none. Cancelling sends nothing.
//
// nodeFlavors (B_FILE_NODE, B_DIRECTORY_NODE, B_SYMLINK_NODE; 0 is files) says
// which entries may be chosen; a link counts as what it points to as well.
// Folders can always be entered. A panel that chooses folders answers with the
// open folder when nothing is selected. The folder field above the list takes
// a typed path (from the open folder, or from the home folder with "~").
class BFilePanel {
public:
	BFilePanel(file_panel_mode mode = B_OPEN_PANEL, BMessenger* target = NULL,
		const entry_ref* startDirectory = NULL, uint32 nodeFlavors = 0,
		bool allowMultipleSelection = true, BMessage* message = NULL,
		BRefFilter* filter = NULL, bool modal = false, bool hideWhenDone = true);
	virtual ~BFilePanel();

	// Showing lists the folder anew.
	void Show();
	void Hide();
	bool IsShowing() const;

	// Hooks, called in the panel window's thread. SendMessage() delivers the
	// answer; WasHidden() follows every hiding by the user or by an answer.
	virtual void SendMessage(const BMessenger* target, BMessage* message);
	virtual void WasHidden();
	virtual void SelectionChanged();

	BWindow* Window() const;
	BMessenger Messenger() const;
	file_panel_mode PanelMode() const { return fMode; }
	BRefFilter* RefFilter() const;
	bool HidesWhenDone() const;
	void GetPanelDirectory(entry_ref* ref) const;

	void SetTarget(BMessenger target);
	// The panel copies the message; NULL restores the default one.
	void SetMessage(BMessage* message);
	void SetRefFilter(BRefFilter* filter);
	// The name a save panel offers.
	void SetSaveText(const char* text);
	void SetButtonLabel(file_panel_button button, const char* label);
	void SetHideWhenDone(bool hideWhenDone);
	void SetPanelDirectory(const entry_ref* ref);
	void SetPanelDirectory(const char* path);
	// Lists the folder anew.
	void Refresh();

	BFilePanel(const BFilePanel&) = delete;
	BFilePanel& operator=(const BFilePanel&) = delete;

private:
	// The window, locked; NULL when it is gone.
	BPrivate::FilePanelWindow* pvLock() const;

	file_panel_mode fMode;
	BPrivate::FilePanelWindow* fWindow;
	BMessenger fWindowMessenger;
};

#endif
