#include "GlWindow.h"

#include <new>
#include <vector>

#include <Application.h>
#include <Autolock.h>
#include <Box.h>
#include <FilePanel.h>
#include <ListView.h>
#include <MenuBar.h>
#include <MenuItem.h>
#include <Messenger.h>
#include <Shelf.h>
#include <String.h>
#include <TextView.h>

#include "BrindleFile.h"
#include "DataWindow.h"
#include "EditMenu.h"
#include "GlAboutWindow.h"
#include "GlintView.h"
#include "PanelColors.h"
#include "StatusError.h"
#include "Utils.h"

namespace {

const char* kInspectorName = "Vellum";
const char* kFileMenu = "File";
const char* kSelectNodeLabel = "Select node...";

const uint32 kClearCommand = 127;
const uint32 kOpenPanel = 'Glan';
const uint32 kCloseWindow = 'Glcw';
const uint32 kNodeLoaded = 'Init';
const uint32 kSavePrefs = 'SvPr';

const float kMenuBarHeight = 14;
const float kMinWidth = 370, kMaxWidth = 1000;
const float kMinHeight = 150, kMaxHeight = 1000;
const float kAboutWidth = 360, kAboutHeight = 280;

struct FileItem {
	const char* label;
	uint32 command;
	char shortcut;
};

// Null labels are separators.
const FileItem kFileItems[] = {
	{"About Vellum...", B_ABOUT_REQUESTED, 0},
	{nullptr, 0, 0},
	{kSelectNodeLabel, kOpenPanel, 'O'},
	{"Close", kCloseWindow, 'W'},
	{nullptr, 0, 0},
	{"Reveal in Tracker", 'RvlT', 'R'},
	{"Add attribute..", 'AddA', 0},
	{nullptr, 0, 0},
	{"Quit", B_QUIT_REQUESTED, 'Q'}
};

// The File menu commands that need a node.
const char* kNodeItems[] = {"Close", "Reveal in Tracker", "Add attribute.."};

}	// namespace

GlWindow::GlWindow(BRect frame)
	: BWindow(frame, kInspectorName, B_TITLED_WINDOW, B_NOT_ZOOMABLE, B_CURRENT_WORKSPACE)
{
	SetName(kInspectorName);
	Lock();
	SetupMenu();
	pvBuildViews();
	Unlock();
	SetSizeLimits(kMinWidth, kMaxWidth, kMinHeight, kMaxHeight);
	AdjustMenus();
}

GlWindow::~GlWindow() = default;

void
GlWindow::SetupMenu()
{
	BRect frame = Bounds();
	frame.bottom = frame.top + kMenuBarHeight;
	BMenuBar* bar = new BMenuBar(frame, "main menu", B_FOLLOW_LEFT_RIGHT | B_FOLLOW_TOP,
		B_ITEMS_IN_ROW, true);
	BMenu* fileMenu = new BMenu(kFileMenu);
	for (const FileItem& item : kFileItems) {
		if (item.label == nullptr)
			fileMenu->AddSeparatorItem();
		else
			fileMenu->AddItem(new BMenuItem(item.label, new BMessage(item.command), item.shortcut));
	}
	// Quit asks the application, which asks every window in turn.
	if (BMenuItem* quit = fileMenu->FindItem(B_QUIT_REQUESTED))
		quit->SetTarget(be_app);
	bar->AddItem(fileMenu);
	bar->AddItem(new EditMenu());
	AddChild(bar);
}

// The main view in the node colour (a shelf for replicants), a decorative box,
// its white interior and in it the info panel. The main view starts below the
// menu bar so that the bar stays the topmost view where it is.
void
GlWindow::pvBuildViews()
{
	BRect barFrame = ChildAt(0)->Frame();
	BRect mainFrame = Bounds();
	mainFrame.top = barFrame.bottom + 1;
	BView* mainView = new BView(mainFrame, "MainView", B_FOLLOW_ALL, B_WILL_DRAW);
	mainView->SetViewColor(NodeColor);
	AddChild(mainView);
	fShelf = std::make_unique<BShelf>(mainView);

	BRect boxFrame = mainView->Bounds();
	boxFrame.top += 4;
	boxFrame.InsetBy(4, 4);
	BBox* box = new BBox(boxFrame, "DecorativeBox", B_FOLLOW_ALL, B_WILL_DRAW, B_FANCY_BORDER);
	mainView->AddChild(box);

	BRect interiorFrame = box->Bounds();
	interiorFrame.InsetBy(3, 3);
	BView* interior = new BView(interiorFrame, "BoxInterior", B_FOLLOW_ALL, B_WILL_DRAW);
	interior->SetViewColor(WhiteColor);
	box->AddChild(interior);

	BRect panelFrame = interior->Bounds();
	panelFrame.InsetBy(14, 0);
	panelFrame.top += 4;
	fGlintView = new(std::nothrow) GlintView(panelFrame);
	if (fGlintView == nullptr) {
		ErrorQuit(B_NO_MEMORY);
		return;
	}
	fGlintView->SetViewColor(WhiteColor);
	interior->AddChild(fGlintView);
}

void
GlWindow::SetMenuItem(const char* menuLabel, const char* itemLabel, const char* newLabel)
{
	if (BMenuItem* item = MenuFromWin(this, menuLabel)->FindItem(itemLabel))
		item->SetLabel(newLabel);
}

void
GlWindow::AdjustMenus()
{
	BAutolock lock(this);
	if (!lock.IsLocked())
		return;
	bool loaded = Loaded();
	BMenu* fileMenu = MenuFromWin(this, kFileMenu);
	for (const char* label : kNodeItems) {
		if (BMenuItem* item = fileMenu->FindItem(label))
			item->SetEnabled(loaded);
	}
	EditMenu* editMenu = EditMenu::RecoverEditMenu(this);
	editMenu->EnableAll(loaded, true, true);
	editMenu->EnableItem(EditMenu::kSelectAllItem, false);
}

void
GlWindow::MessageReceived(BMessage* msg)
{
	switch (msg->what) {
		case kClearCommand:
		case B_CUT:
		case B_COPY:
		case B_PASTE:
			pvEditCommand(msg);
			break;
		case 'AddA':
		case 'ScrS':
		case 'SelI':
		case 'RvlT':
			PassToGlView(msg);
			break;
		case B_SIMPLE_DATA:
		case B_REFS_RECEIVED:
			RefsReceived(msg, 0);
			break;
		case kOpenPanel:
			pvOpenFilePanel();
			break;
		case kCloseWindow:
			PostMessage(B_QUIT_REQUESTED);
			break;
		case 'Glon':
			break;
		case kNodeLoaded:
			SetMenuItem(kFileMenu, kSelectNodeLabel, "Open...");
			be_app->PostMessage(kNodeLoaded);
			break;
		case B_ABOUT_REQUESTED:
			DoAbout();
			break;
		default:
			BWindow::MessageReceived(msg);
			break;
	}
	AdjustMenus();
}

// Clear, Cut, Copy and Paste act on the focused text field, or are the
// attribute list's own business.
void
GlWindow::pvEditCommand(BMessage* msg)
{
	BView* focus = CurrentFocus();
	if (BTextView* text = dynamic_cast<BTextView*>(focus)) {
		if (msg->what == kClearCommand)
			text->Clear();
		else
			text->MessageReceived(msg);
	} else if (BListView* list = dynamic_cast<BListView*>(focus))
		list->MessageReceived(msg);
}

// The chosen nodes go to the application, which finds them windows. One panel
// serves every inspector window for the life of the program, so that it opens
// where the user left it; it shows the folder of this window's node, if any.
void
GlWindow::pvOpenFilePanel()
{
	static BFilePanel* panel = [] {
		BMessage message(B_REFS_RECEIVED);
		return new BFilePanel(B_OPEN_PANEL, nullptr, nullptr,
			B_FILE_NODE | B_DIRECTORY_NODE, true, &message, nullptr, false, true);
	}();
	BEntry folder;
	entry_ref folderRef;
	if (File() != nullptr && File()->GetParent(&folder) == B_OK
		&& folder.GetRef(&folderRef) == B_OK)
		panel->SetPanelDirectory(&folderRef);
	panel->Show();
}

void
GlWindow::DoAbout()
{
	BRect frame = Frame();
	BRect rect(0, 0, kAboutWidth, kAboutHeight);
	rect.OffsetTo(frame.LeftTop());
	rect.OffsetBy((frame.Width() - rect.Width()) / 2, (frame.Height() - rect.Height()) / 2);
	if (GlAboutWindow* about = new(std::nothrow) GlAboutWindow(rect))
		about->Show();
}

void
GlWindow::PassToGlView(BMessage* msg)
{
	if (fGlintView != nullptr)
		fGlintView->MessageReceived(msg);
}

void
GlWindow::RefsReceived(BMessage* msg, int32 index)
{
	if (fGlintView != nullptr)
		fGlintView->RefsReceived(msg, index);
	PostMessage(kNodeLoaded);
	AdjustMenus();
}

BrindleFile*
GlWindow::File() const
{
	return fGlintView != nullptr ? fGlintView->File() : nullptr;
}

bool
GlWindow::Loaded() const
{
	return fGlintView != nullptr && fGlintView->Loaded();
}

bool
GlWindow::QuitRequested()
{
	if (fGlintView != nullptr && !fGlintView->QuitRequested())
		return false;
	if (!pvCloseDataWindows())
		return false;
	if (pvOtherInspectorsOpen())
		return true;
	// The application writes the settings on its own thread, from this
	// window's frame and node; while it asks its windows to quit, it is the
	// caller and takes the request at once.
	BMessage closing(kSavePrefs);
	closing.AddRect("frame", Frame());
	if (File() != nullptr)
		closing.AddString("name", File()->Name());
	if (be_app->IsLocked())
		be_app->MessageReceived(&closing);
	else
		be_app->PostMessage(&closing);
	be_app->PostMessage(B_QUIT_REQUESTED);
	return true;
}

// Asks every data window of the node to close and closes it; false as soon as
// one refuses.
bool
GlWindow::pvCloseDataWindows()
{
	BrindleFile* file = File();
	if (file == nullptr)
		return true;
	std::vector<BMessenger> windows;
	for (BWindow* window = DataWindow::FindNextOfNode(nullptr, file->Name());
			window != nullptr; window = DataWindow::FindNextOfNode(window, file->Name()))
		windows.push_back(BMessenger(window));
	for (const BMessenger& messenger : windows) {
		BLooper* looper;
		BWindow* window = dynamic_cast<BWindow*>(messenger.Target(&looper));
		if (window == nullptr || !messenger.LockTarget())
			continue;
		if (!window->QuitRequested()) {
			window->Unlock();
			return false;
		}
		window->Close();
	}
	return true;
}

bool
GlWindow::pvOtherInspectorsOpen()
{
	for (BWindow* window = FindFrontWindow(kInspectorName, nullptr); window != nullptr;
			window = FindNextWindow(window, kInspectorName, nullptr)) {
		if (window != this)
			return true;
	}
	return false;
}
