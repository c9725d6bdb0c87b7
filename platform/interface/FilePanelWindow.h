#ifndef _FILE_PANEL_WINDOW_H
#define _FILE_PANEL_WINDOW_H

#include <filesystem>
#include <memory>
#include <string>

#include <FilePanel.h>
#include <Window.h>

class BButton;
class BListView;
class BTextControl;

namespace BPrivate {

class FilePanelItem;

// The window of a BFilePanel: an Up button and the open folder's path above
// the list of its entries (folders first), the name to save under (in a save
// panel), Cancel and the default button below.
// Escape, Cancel and the close box hide it without an answer. Its settings are
// read and changed with the window locked.
class FilePanelWindow : public BWindow {
public:
	FilePanelWindow(BFilePanel* panel, file_panel_mode mode, uint32 nodeFlavors,
		bool multipleSelection, bool modal);
	virtual ~FilePanelWindow();

	virtual void MessageReceived(BMessage* message);
	virtual void DispatchMessage(BMessage* message, BHandler* handler);
	virtual void Hide();

	// The answer's address: the target, else the application.
	BMessenger Target() const;
	void SetTarget(const BMessenger& target) { fTarget = target; }
	// NULL restores the mode's own message.
	void SetMessage(const BMessage* message);
	BRefFilter* RefFilter() const { return fFilter; }
	void SetRefFilter(BRefFilter* filter);
	bool HidesWhenDone() const { return fHideWhenDone; }
	void SetHideWhenDone(bool hide) { fHideWhenDone = hide; }
	void SetButtonLabel(file_panel_button button, const char* label);
	void SetSaveText(const char* text);

	// Opens the folder at path (relative to the open folder); a path that is
	// not a readable folder leaves everything as it was and gives its error.
	status_t SetDirectory(const std::string& path);
	const std::string& Directory() const { return fPath; }
	status_t GetDirectory(entry_ref* ref) const;
	// Lists the open folder anew; a hidden panel does when it is shown.
	void Refresh();

	BListView* List() const { return fList; }

private:
	void pvBuildViews(bool multipleSelection);
	void pvBuildButtons();
	void pvBuildNameField();
	void pvListIfShowing();
	void pvFillList();
	void pvEmptyList();
	FilePanelItem* pvMakeItem(const std::filesystem::directory_entry& entry,
		const entry_ref& ref);
	bool pvPassesFilter(const entry_ref& ref, struct stat* st);
	bool pvAccepts(const FilePanelItem* item) const;
	bool pvChoosesFolders() const;
	FilePanelItem* pvItemAt(int32 index) const;
	FilePanelItem* pvSelectedFolder() const;
	void pvSelectName(const char* name);
	void pvEnter(const FilePanelItem* folder);
	void pvUp();
	void pvGoToTyped();
	void pvSelectionChanged();
	void pvUpdateButtons();
	void pvInvoked();
	void pvConfirm();
	void pvSave();
	void pvAnswer(BMessage* message);
	void pvCancel();
	bool pvEnterKey();
	bool pvTypeAhead(BMessage* message);

	BFilePanel* fPanel;
	file_panel_mode fMode;
	uint32 fFlavors;
	BMessenger fTarget;
	std::unique_ptr<BMessage> fMessage;
	BRefFilter* fFilter = nullptr;
	bool fHideWhenDone = true;
	std::string fPath;
	// What was typed in the list to find an entry, and when.
	std::string fTyped;
	bigtime_t fLastTyped = 0;

	BButton* fUpButton = nullptr;
	BTextControl* fPathField = nullptr;
	BListView* fList = nullptr;
	BTextControl* fNameField = nullptr;
	BButton* fCancelButton = nullptr;
	BButton* fDefaultButton = nullptr;
};

}

#endif
