#include "FilePanelWindow.h"

#include <strings.h>
#include <sys/stat.h>

#include <cmath>
#include <cstring>
#include <filesystem>
#include <vector>

#include <Application.h>
#include <Button.h>
#include <Directory.h>
#include <ListView.h>
#include <Node.h>
#include <NodeInfo.h>
#include <Roster.h>
#include <ScrollView.h>
#include <TextControl.h>
#include <TextView.h>

#include "FilePanelItem.h"
#include "FilePanelList.h"

namespace BPrivate {

namespace {

const uint32 kUp = 'fpUp';
const uint32 kConfirm = 'fpOK';
const uint32 kCancel = 'fpCa';
const uint32 kSelected = 'fpSl';
const uint32 kInvoked = 'fpIv';
const uint32 kPathTyped = 'fpPt';
const uint32 kNameChanged = 'fpNm';

const bigtime_t kTypeAheadPause = 1000000;

const float kMargin = 8;
const float kSpacing = 10;

uint32
FlavorOf(std::filesystem::file_type type)
{
	if (type == std::filesystem::file_type::directory)
		return B_DIRECTORY_NODE;
	return type == std::filesystem::file_type::symlink ? B_SYMLINK_NODE : B_FILE_NODE;
}

// "<program>: Open", or the mode's word alone outside a program.
std::string
DefaultTitle(file_panel_mode mode)
{
	std::string title = mode == B_SAVE_PANEL ? "Save" : "Open";
	app_info info;
	if (be_app != nullptr && be_app->GetAppInfo(&info) == B_OK && info.ref.name != nullptr)
		title = std::string(info.ref.name) + ": " + title;
	return title;
}

// Where a panel without a start folder opens: the user's home folder.
std::string
StartPath()
{
	const char* home = getenv("HOME");
	return home != nullptr && home[0] == '/' ? std::string(home) : std::string("/");
}

std::string
ChildPath(const std::string& folder, const char* name)
{
	return folder == "/" ? folder + name : folder + "/" + name;
}

}	// namespace

FilePanelWindow::FilePanelWindow(BFilePanel* panel, file_panel_mode mode, uint32 nodeFlavors,
	bool multipleSelection, bool modal)
	: BWindow(BRect(120, 120, 619, 469), DefaultTitle(mode).c_str(), B_TITLED_WINDOW_LOOK,
		modal ? B_MODAL_APP_WINDOW_FEEL : B_NORMAL_WINDOW_FEEL, B_NOT_ZOOMABLE),
	fPanel(panel),
	fMode(mode),
	fFlavors(nodeFlavors != 0 ? nodeFlavors : uint32(B_FILE_NODE)),
	fPath(StartPath())
{
	SetSizeLimits(300, 32768, 200, 32768);
	pvBuildViews(multipleSelection);
}

FilePanelWindow::~FilePanelWindow()
{
	pvEmptyList();
}

void
FilePanelWindow::pvBuildViews(bool multipleSelection)
{
	BRect bounds = Bounds();
	BView* background = new BView(bounds, "background", B_FOLLOW_ALL, B_WILL_DRAW);
	background->SetViewColor(ui_color(B_PANEL_BACKGROUND_COLOR));
	AddChild(background);

	fUpButton = new BButton(BRect(kMargin, kMargin, kMargin + 50, kMargin + 20), "up", "Up",
		new BMessage(kUp));
	fUpButton->ResizeToPreferred();
	fUpButton->ResizeTo(50, fUpButton->Bounds().Height());
	background->AddChild(fUpButton);

	BRect up = fUpButton->Frame();
	fPathField = new BTextControl(BRect(up.right + kSpacing, up.top, bounds.right - kMargin,
		up.bottom), "path", NULL, fPath.c_str(), new BMessage(kPathTyped),
		B_FOLLOW_LEFT_RIGHT | B_FOLLOW_TOP);
	float height;
	fPathField->GetPreferredSize(NULL, &height);
	fPathField->ResizeTo(fPathField->Bounds().Width(), height);
	fPathField->MoveBy(0, std::floor((up.Height() - height) / 2));
	background->AddChild(fPathField);

	pvBuildButtons();
	if (fMode == B_SAVE_PANEL)
		pvBuildNameField();

	float top = up.bottom + kMargin + 2;
	float bottom = (fNameField != nullptr ? fNameField->Frame().top : fDefaultButton->Frame().top)
		- kMargin - 2;
	fList = new FilePanelList(BRect(kMargin + 2, top, bounds.right - kMargin - 2
		- B_V_SCROLL_BAR_WIDTH, bottom), "entries",
		multipleSelection ? B_MULTIPLE_SELECTION_LIST : B_SINGLE_SELECTION_LIST);
	fList->SetSelectionMessage(new BMessage(kSelected));
	fList->SetInvocationMessage(new BMessage(kInvoked));
	background->AddChild(new BScrollView("scroller", fList, B_FOLLOW_ALL, 0, false, true));

	// Tab goes down the window.
	if (fNameField != nullptr)
		background->AddChild(fNameField);
	background->AddChild(fCancelButton);
	background->AddChild(fDefaultButton);
	SetDefaultButton(fDefaultButton);
	if (fNameField != nullptr)
		fNameField->MakeFocus();
	else
		fList->MakeFocus();
}

// Cancel and the default button at the bottom right.
void
FilePanelWindow::pvBuildButtons()
{
	BRect bounds = Bounds();
	fDefaultButton = new BButton(BRect(0, 0, 80, 20), "default",
		fMode == B_SAVE_PANEL ? "Save" : "Open", new BMessage(kConfirm),
		B_FOLLOW_RIGHT | B_FOLLOW_BOTTOM);
	fDefaultButton->MakeDefault(true);
	fDefaultButton->ResizeToPreferred();
	BRect frame = fDefaultButton->Bounds();
	fDefaultButton->MoveTo(bounds.right - kMargin - frame.Width(),
		bounds.bottom - kMargin - frame.Height());

	fCancelButton = new BButton(BRect(0, 0, 80, 20), "cancel", "Cancel", new BMessage(kCancel),
		B_FOLLOW_RIGHT | B_FOLLOW_BOTTOM);
	fCancelButton->ResizeToPreferred();
	BRect cancel = fCancelButton->Bounds();
	BRect defaultFrame = fDefaultButton->Frame();
	fCancelButton->MoveTo(defaultFrame.left - kSpacing - cancel.Width(),
		std::floor(defaultFrame.top + (defaultFrame.Height() - cancel.Height()) / 2));
}

// The name to save under, in a row of its own above the buttons.
void
FilePanelWindow::pvBuildNameField()
{
	BRect bounds = Bounds();
	float bottom = fDefaultButton->Frame().top - kMargin;
	fNameField = new BTextControl(BRect(kMargin, bottom - 20, bounds.right - kMargin, bottom),
		"name", "Name:", "", NULL, B_FOLLOW_LEFT_RIGHT | B_FOLLOW_BOTTOM);
	fNameField->SetModificationMessage(new BMessage(kNameChanged));
	fNameField->SetDivider(fNameField->StringWidth("Name:") + 8);
	float height;
	fNameField->GetPreferredSize(NULL, &height);
	fNameField->ResizeTo(fNameField->Bounds().Width(), height);
	fNameField->MoveTo(kMargin, bottom - height);
}

// #pragma mark - hooks

void
FilePanelWindow::MessageReceived(BMessage* message)
{
	switch (message->what) {
		case kUp:
			pvUp();
			break;
		case kSelected:
			pvSelectionChanged();
			break;
		case kInvoked:
			pvInvoked();
			break;
		case kPathTyped:
			pvGoToTyped();
			break;
		case kNameChanged:
			pvUpdateButtons();
			break;
		case kConfirm:
			pvConfirm();
			break;
		case kCancel:
			pvCancel();
			break;
		default:
			BWindow::MessageReceived(message);
	}
}

void
FilePanelWindow::DispatchMessage(BMessage* message, BHandler* handler)
{
	const char* bytes;
	if (message->what == B_KEY_DOWN && message->FindString("bytes", &bytes) == B_OK
		&& bytes[0] != '\0' && bytes[1] == '\0') {
		if (bytes[0] == B_ESCAPE) {
			pvCancel();
			return;
		}
		if (bytes[0] == B_ENTER) {
			// The name's modification messages may still wait behind this key.
			pvUpdateButtons();
			if (pvEnterKey())
				return;
		}
	}
	if (message->what == B_KEY_DOWN && CurrentFocus() == fList && pvTypeAhead(message))
		return;
	// The close box and Command-W hide the panel; it lives until it is deleted.
	if (message->what == B_QUIT_REQUESTED && handler == this) {
		pvCancel();
		return;
	}
	BWindow::DispatchMessage(message, handler);
}

void
FilePanelWindow::Hide()
{
	bool wasShowing = !IsHidden();
	BWindow::Hide();
	if (wasShowing)
		fPanel->WasHidden();
}

// #pragma mark - settings

BMessenger
FilePanelWindow::Target() const
{
	return fTarget.IsValid() ? fTarget : be_app_messenger;
}

void
FilePanelWindow::SetMessage(const BMessage* message)
{
	fMessage.reset(message != nullptr ? new BMessage(*message) : nullptr);
}

void
FilePanelWindow::SetRefFilter(BRefFilter* filter)
{
	fFilter = filter;
	pvListIfShowing();
}

void
FilePanelWindow::SetSaveText(const char* text)
{
	if (fNameField != nullptr)
		fNameField->SetText(text);
}

void
FilePanelWindow::SetButtonLabel(file_panel_button button, const char* label)
{
	(button == B_CANCEL_BUTTON ? fCancelButton : fDefaultButton)->SetLabel(label);
}

status_t
FilePanelWindow::SetDirectory(const std::string& path)
{
	std::filesystem::path target(path);
	if (target.is_relative())
		target = std::filesystem::path(fPath) / target;
	std::string normal = target.lexically_normal().string();
	if (normal.size() > 1 && normal.back() == '/')
		normal.pop_back();
	BDirectory directory(normal.c_str());
	if (directory.InitCheck() != B_OK)
		return directory.InitCheck();
	fPath = normal;
	pvListIfShowing();
	return B_OK;
}

status_t
FilePanelWindow::GetDirectory(entry_ref* ref) const
{
	return get_ref_for_path(fPath.c_str(), ref);
}

void
FilePanelWindow::Refresh()
{
	pvFillList();
}

// #pragma mark - the list

// A hidden panel lists its folder when it is shown.
void
FilePanelWindow::pvListIfShowing()
{
	if (!IsHidden())
		pvFillList();
}

void
FilePanelWindow::pvFillList()
{
	pvEmptyList();
	BList items;
	entry_ref ref;
	bool folderKnown = false;
	std::error_code error;
	for (const std::filesystem::directory_entry& entry
			: std::filesystem::directory_iterator(fPath, error)) {
		// The first entry's ref makes the folder known to refs; the others
		// share its device and inode.
		if (!folderKnown && get_ref_for_path(entry.path().c_str(), &ref) != B_OK)
			continue;
		folderKnown = true;
		ref.set_name(entry.path().filename().c_str());
		if (FilePanelItem* item = pvMakeItem(entry, ref))
			items.AddItem(item);
	}
	items.SortItems(&FilePanelItem::Compare);
	fList->AddList(&items);
	fList->ScrollTo(0, 0);
	fPathField->SetText(fPath.c_str());
	fUpButton->SetEnabled(fPath != "/");
	pvUpdateButtons();
}

void
FilePanelWindow::pvEmptyList()
{
	// The list lets go of the rows before they are deleted.
	std::vector<const BListItem*> items(fList->Items(), fList->Items() + fList->CountItems());
	fList->MakeEmpty();
	for (const BListItem* item : items)
		delete item;
}

FilePanelItem*
FilePanelWindow::pvMakeItem(const std::filesystem::directory_entry& entry,
	const entry_ref& ref)
{
	// The listing tells most entries' kind; only links are looked up.
	std::error_code error;
	uint32 flavor = FlavorOf(entry.symlink_status(error).type());
	if (error)
		return nullptr;
	uint32 target = flavor;
	if (flavor == B_SYMLINK_NODE) {
		// A broken link is a node of its own, chosen as a file is.
		std::filesystem::file_status status = entry.status(error);
		target = error ? uint32(B_FILE_NODE) : FlavorOf(status.type());
		error.clear();
	}
	struct stat st;
	if (fFilter != nullptr
		&& (lstat(entry.path().c_str(), &st) != 0 || !pvPassesFilter(ref, &st))) {
		return nullptr;
	}
	FilePanelItem* item = new FilePanelItem(ref, flavor, target);
	item->SetEnabled(item->IsFolder() || pvAccepts(item));
	return item;
}

bool
FilePanelWindow::pvPassesFilter(const entry_ref& ref, struct stat* st)
{
	BNode node(&ref);
	char type[B_MIME_TYPE_LENGTH] = "";
	BNodeInfo info(&node);
	if (info.GetType(type) != B_OK)
		type[0] = '\0';
	return fFilter->Filter(&ref, &node, st, type);
}

bool
FilePanelWindow::pvAccepts(const FilePanelItem* item) const
{
	return (fFlavors & (item->Flavor() | item->TargetFlavor())) != 0;
}

bool
FilePanelWindow::pvChoosesFolders() const
{
	return (fFlavors & B_DIRECTORY_NODE) != 0 && (fFlavors & B_FILE_NODE) == 0;
}

FilePanelItem*
FilePanelWindow::pvItemAt(int32 index) const
{
	return static_cast<FilePanelItem*>(fList->ItemAt(index));
}

FilePanelItem*
FilePanelWindow::pvSelectedFolder() const
{
	if (fList->CurrentSelection(1) >= 0)
		return nullptr;
	FilePanelItem* item = pvItemAt(fList->CurrentSelection(0));
	return item != nullptr && item->IsFolder() ? item : nullptr;
}

void
FilePanelWindow::pvSelectName(const char* name)
{
	for (int32 i = 0; i < fList->CountItems(); i++) {
		if (strcmp(pvItemAt(i)->Ref().name, name) == 0) {
			fList->Select(i);
			fList->ScrollToSelection();
			return;
		}
	}
}

// Letters typed in the list select the first entry whose name starts with
// them; a pause starts a new name.
bool
FilePanelWindow::pvTypeAhead(BMessage* message)
{
	const char* bytes;
	int32 modifiers = 0;
	message->FindInt32("modifiers", &modifiers);
	if (message->FindString("bytes", &bytes) != B_OK || uchar(bytes[0]) < B_SPACE
		|| bytes[0] == B_DELETE || (modifiers & (B_COMMAND_KEY | B_CONTROL_KEY)) != 0) {
		return false;
	}
	bigtime_t now = system_time();
	if (now - fLastTyped > kTypeAheadPause)
		fTyped.clear();
	fLastTyped = now;
	fTyped += bytes;
	for (int32 i = 0; i < fList->CountItems(); i++) {
		FilePanelItem* item = pvItemAt(i);
		if (item->IsEnabled()
			&& strncasecmp(item->Ref().name, fTyped.c_str(), fTyped.size()) == 0) {
			fList->Select(i);
			fList->ScrollToSelection();
			break;
		}
	}
	return true;
}

// #pragma mark - actions

void
FilePanelWindow::pvEnter(const FilePanelItem* folder)
{
	if (SetDirectory(ChildPath(fPath, folder->Ref().name)) != B_OK)
		beep();
}

void
FilePanelWindow::pvUp()
{
	std::filesystem::path current(fPath);
	std::string leaf = current.filename().string();
	if (fPath == "/" || SetDirectory(current.parent_path().string()) != B_OK) {
		beep();
		return;
	}
	// Coming back up selects the folder that was open.
	pvSelectName(leaf.c_str());
}

// A folder's path opens it; any other path opens its folder and selects its
// entry there (a save panel takes it as the name). "~" is the home folder.
void
FilePanelWindow::pvGoToTyped()
{
	std::string typed = fPathField->Text();
	const char* home = getenv("HOME");
	if (home != nullptr && (typed == "~" || typed.rfind("~/", 0) == 0))
		typed = home + typed.substr(1);
	std::filesystem::path path(typed);
	if (path.is_relative())
		path = std::filesystem::path(fPath) / path;
	path = path.lexically_normal();
	if (path == std::filesystem::path(fPath))
		return;
	if (SetDirectory(path.string()) != B_OK) {
		std::string leaf = path.filename().string();
		if (leaf.empty() || SetDirectory(path.parent_path().string()) != B_OK) {
			// The typed path stays for the user to correct.
			beep();
			return;
		}
		pvSelectName(leaf.c_str());
		if (fNameField != nullptr)
			fNameField->SetText(leaf.c_str());
	}
	// Enter now answers: with the name typed, or what the list shows.
	if (fNameField != nullptr)
		fNameField->MakeFocus();
	else
		fList->MakeFocus();
}

void
FilePanelWindow::pvSelectionChanged()
{
	// A save panel offers the name of the file clicked.
	FilePanelItem* item = pvItemAt(fList->CurrentSelection());
	if (fNameField != nullptr && item != nullptr && !item->IsFolder())
		fNameField->SetText(item->Ref().name);
	pvUpdateButtons();
	fPanel->SelectionChanged();
}

void
FilePanelWindow::pvUpdateButtons()
{
	if (fNameField != nullptr) {
		fDefaultButton->SetEnabled(fNameField->Text()[0] != '\0' || pvSelectedFolder() != nullptr);
		return;
	}
	bool choosable = pvChoosesFolders();
	for (int32 i = 0, index; !choosable && (index = fList->CurrentSelection(i)) >= 0; i++)
		choosable = pvItemAt(index)->IsFolder() || pvAccepts(pvItemAt(index));
	fDefaultButton->SetEnabled(choosable);
}

void
FilePanelWindow::pvInvoked()
{
	if (const FilePanelItem* folder = pvSelectedFolder())
		pvEnter(folder);
	else
		pvConfirm();
}

bool
FilePanelWindow::pvEnterKey()
{
	// A path typed is gone to; the open folder's own path is confirmed.
	if (CurrentFocus() == fPathField->TextView() && fPath != fPathField->Text()) {
		pvGoToTyped();
		return true;
	}
	const FilePanelItem* folder = pvSelectedFolder();
	if (CurrentFocus() != fList || folder == nullptr)
		return false;
	pvEnter(folder);
	return true;
}

void
FilePanelWindow::pvConfirm()
{
	if (fMode == B_SAVE_PANEL) {
		pvSave();
		return;
	}
	// A folder that cannot be chosen is entered instead.
	const FilePanelItem* folder = pvSelectedFolder();
	if (folder != nullptr && !pvAccepts(folder)) {
		pvEnter(folder);
		return;
	}
	BMessage message(fMessage != nullptr ? *fMessage : BMessage(B_REFS_RECEIVED));
	for (int32 i = 0, index; (index = fList->CurrentSelection(i)) >= 0; i++) {
		if (pvAccepts(pvItemAt(index)))
			message.AddRef("refs", &pvItemAt(index)->Ref());
	}
	entry_ref open;
	if (!message.HasRef("refs") && pvChoosesFolders() && GetDirectory(&open) == B_OK)
		message.AddRef("refs", &open);
	if (!message.HasRef("refs")) {
		beep();
		return;
	}
	pvAnswer(&message);
}

void
FilePanelWindow::pvSave()
{
	// A selected folder is entered rather than saved into.
	if (const FilePanelItem* folder = pvSelectedFolder()) {
		pvEnter(folder);
		return;
	}
	const char* name = fNameField->Text();
	entry_ref directory;
	if (name[0] == '\0' || strchr(name, '/') != nullptr || GetDirectory(&directory) != B_OK) {
		beep();
		return;
	}
	BMessage message(fMessage != nullptr ? *fMessage : BMessage(B_SAVE_REQUESTED));
	message.AddRef("directory", &directory);
	message.AddString("name", name);
	pvAnswer(&message);
}

void
FilePanelWindow::pvAnswer(BMessage* message)
{
	BMessenger target = Target();
	fPanel->SendMessage(&target, message);
	if (fHideWhenDone)
		Hide();
}

void
FilePanelWindow::pvCancel()
{
	if (!IsHidden())
		Hide();
}

}
