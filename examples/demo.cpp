// A window of the interface kit's controls: a menu bar with an Edit menu for
// the focused text view, a box of radio buttons and buttons, a text control, a
// text view, a list of 10,000 rows, an alert and a file panel. With
// --screenshot FILE.png it renders the window headless to FILE.png and quits.

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <Alert.h>
#include <Application.h>
#include <Bitmap.h>
#include <Box.h>
#include <Button.h>
#include <FilePanel.h>
#include <Invoker.h>
#include <ListView.h>
#include <MenuBar.h>
#include <MenuItem.h>
#include <Node.h>
#include <NodeInfo.h>
#include <Path.h>
#include <RadioButton.h>
#include <ScrollView.h>
#include <StringView.h>
#include <TextControl.h>
#include <TextView.h>
#include <Window.h>
#include <WindowTester.h>

namespace {

const uint32 kSizeChosen = 'Size';
const uint32 kApply = 'Aply';
const uint32 kOpen = 'Open';
const uint32 kPathChosen = 'Path';
const uint32 kShowAlert = 'Alrt';
const uint32 kAlertAnswered = 'AlrA';
const int32 kRowCount = 10000;

// The icon of a node, as the file manager shows it.
class NodeIconView : public BView {
public:
	NodeIconView(BPoint where, const char* path)
		: BView(BRect(where, 31, 31), path, B_FOLLOW_RIGHT | B_FOLLOW_TOP, B_WILL_DRAW),
		fIcon(BRect(0, 0, 31, 31), B_CMAP8)
	{
		BNode node(path);
		BNodeInfo info(&node);
		fHasIcon = info.GetTrackerIcon(&fIcon, B_LARGE_ICON) == B_OK;
	}

	void AttachedToWindow() override
	{
		SetViewColor(Parent()->ViewColor());
		SetLowColor(ViewColor());
	}

	void Draw(BRect) override
	{
		if (!fHasIcon)
			return;
		SetDrawingMode(B_OP_OVER);
		DrawBitmap(&fIcon, BPoint(0, 0));
		SetDrawingMode(B_OP_COPY);
	}

private:
	BBitmap fIcon;
	bool fHasIcon;
};

class DemoWindow : public BWindow {
public:
	DemoWindow(BRect frame)
		: BWindow(frame, "Interface kit demo", B_TITLED_WINDOW, B_NOT_ZOOMABLE)
	{
		BMenuBar* bar = pvBuildMenuBar();
		AddChild(bar);
		BRect bounds = Bounds();
		BView* background = new BView(BRect(0, bar->Frame().bottom + 1, bounds.right,
			bounds.bottom), "Background", B_FOLLOW_ALL, B_WILL_DRAW);
		background->SetViewColor(ui_color(B_PANEL_BACKGROUND_COLOR));
		AddChild(background);

		BRect area = background->Bounds().InsetByCopy(10, 10);
		float middle = std::floor(area.left + area.Width() / 2);
		pvBuildPictureBox(background, BRect(area.left, area.top, middle - 5, area.top + 199));
		pvBuildTextViews(background,
			BRect(area.left, area.top + 209, middle - 5, area.bottom));
		pvBuildList(background, BRect(middle + 5, area.top, area.right, area.bottom));
	}

	~DemoWindow() override
	{
		delete fPanel;
	}

	void MessageReceived(BMessage* message) override
	{
		switch (message->what) {
			case kSizeChosen: {
				const char* names[] = {"Small", "Large", "Huge"};
				int32 size = 0;
				message->FindInt32("size", &size);
				fStatus->SetText((std::string(names[size % 3]) + " pictures are chosen.").c_str());
				break;
			}
			case kApply:
				fStatus->SetText("Applied.");
				break;
			case B_CUT:
			case B_COPY:
			case B_PASTE:
			case B_SELECT_ALL:
				pvEdit(message);
				break;
			case kOpen:
				pvShowPanel();
				break;
			case kPathChosen:
				pvTakePath(message);
				break;
			case kShowAlert:
				(new BAlert("Demo", "An alert with an icon, its text wrapped to the width "
					"of the window, and two buttons.", "Cancel", "OK", NULL,
					B_WIDTH_AS_USUAL, B_WARNING_ALERT))->Go(
					new BInvoker(new BMessage(kAlertAnswered), this));
				break;
			case kAlertAnswered: {
				int32 which = -1;
				message->FindInt32("which", &which);
				fStatus->SetText(which == 1 ? "The alert said OK." : "The alert was cancelled.");
				break;
			}
			default:
				BWindow::MessageReceived(message);
				break;
		}
	}

	bool QuitRequested() override
	{
		be_app->PostMessage(B_QUIT_REQUESTED);
		return true;
	}

private:
	BMenuBar* pvBuildMenuBar()
	{
		BMenuBar* bar = new BMenuBar(BRect(0, 0, Bounds().right, 10), "Menu bar");
		BMenu* file = new BMenu("File");
		file->AddItem(new BMenuItem("Open...", new BMessage(kOpen), 'O'));
		file->AddItem(new BMenuItem("Show alert...", new BMessage(kShowAlert)));
		file->AddSeparatorItem();
		BMenuItem* quit = new BMenuItem("Quit", new BMessage(B_QUIT_REQUESTED), 'Q');
		quit->SetTarget(be_app);
		file->AddItem(quit);
		bar->AddItem(file);

		// Without a target the items reach the window, which hands them to the
		// text view that has the focus.
		BMenu* edit = new BMenu("Edit");
		edit->AddItem(new BMenuItem("Cut", new BMessage(B_CUT), 'X'));
		edit->AddItem(new BMenuItem("Copy", new BMessage(B_COPY), 'C'));
		edit->AddItem(new BMenuItem("Paste", new BMessage(B_PASTE), 'V'));
		edit->AddSeparatorItem();
		edit->AddItem(new BMenuItem("Select all", new BMessage(B_SELECT_ALL), 'A'));
		bar->AddItem(edit);
		return bar;
	}

	void pvBuildPictureBox(BView* parent, BRect frame)
	{
		BBox* box = new BBox(frame, "Box");
		box->SetLabel("Picture size");
		parent->AddChild(box);

		BStringView* title = new BStringView(BRect(14, 22, 300, 38), "Title",
			"Choose the size of the picture:");
		box->AddChild(title);

		const char* sizes[] = {"Small (16 by 16)", "Large (32 by 32)", "Huge (64 by 64)"};
		float top = 44;
		for (int32 i = 0; i < 3; i++) {
			BMessage* message = new BMessage(kSizeChosen);
			message->AddInt32("size", i);
			BRadioButton* radio = new BRadioButton(BRect(20, top, 240, top + 19), sizes[i],
				sizes[i], message);
			box->AddChild(radio);
			if (i == 1)
				radio->SetValue(B_CONTROL_ON);
			top += 22;
		}

		fStatus = new BStringView(BRect(14, top + 8, frame.Width() - 14, top + 24), "Status",
			"Large pictures are chosen.");
		fStatus->SetHighColor(tint_color(ui_color(B_PANEL_BACKGROUND_COLOR),
			B_DARKEN_4_TINT));
		box->AddChild(fStatus);

		BRect interior = box->Bounds();
		// The program's own icon and its folder's.
		app_info info;
		BPath program;
		if (be_app->GetAppInfo(&info) == B_OK && program.SetTo(&info.ref) == B_OK)
			box->AddChild(new NodeIconView(BPoint(interior.right - 84, 22), program.Path()));
		box->AddChild(new NodeIconView(BPoint(interior.right - 46, 22), "."));
		BButton* apply = new BButton(BRect(0, 0, 79, 24), "Apply", "Apply",
			new BMessage(kApply), B_FOLLOW_RIGHT | B_FOLLOW_BOTTOM);
		apply->ResizeToPreferred();
		apply->MoveTo(interior.right - apply->Bounds().Width() - 12,
			interior.bottom - apply->Bounds().Height() - 12);
		box->AddChild(apply);
		apply->MakeDefault(true);

		BButton* cancel = new BButton(BRect(0, 0, 79, 24), "Cancel", "Cancel",
			new BMessage(B_QUIT_REQUESTED), B_FOLLOW_RIGHT | B_FOLLOW_BOTTOM);
		cancel->ResizeToPreferred();
		cancel->MoveTo(apply->Frame().left - cancel->Bounds().Width() - 10,
			interior.bottom - cancel->Bounds().Height() - 15);
		box->AddChild(cancel);
	}

	// A one-line field for a path above a text view of several lines.
	void pvBuildTextViews(BView* parent, BRect frame)
	{
		fPathField = new BTextControl(BRect(frame.left, frame.top, frame.right, frame.top + 20),
			"Path", "Path:", "", NULL, B_FOLLOW_LEFT | B_FOLLOW_TOP);
		fPathField->SetDivider(fPathField->StringWidth("Path:") + 8);
		parent->AddChild(fPathField);
		fPathField->MakeFocus(true);

		BRect textFrame(frame.left + 2, fPathField->Frame().bottom + 12,
			frame.right - 2 - B_V_SCROLL_BAR_WIDTH, frame.bottom - 2);
		BRect textRect = textFrame.OffsetToCopy(0, 0).InsetByCopy(4, 4);
		BTextView* text = new BTextView(textFrame, "Notes", textRect, B_FOLLOW_TOP_BOTTOM);
		text->SetWordWrap(true);
		text->SetText("Select text here or in the path field and use the Edit menu: Cut, "
			"Copy, Paste and Select all work on the text view that has the focus.\n\n"
			"File > Open... chooses a file with the file panel and puts its "
			"path into the field above.");
		parent->AddChild(new BScrollView("Notes scroller", text, B_FOLLOW_TOP_BOTTOM, 0,
			false, true));
	}

	void pvBuildList(BView* parent, BRect frame)
	{
		BListView* list = new BListView(BRect(frame.left + 2, frame.top + 2,
			frame.right - 2 - B_V_SCROLL_BAR_WIDTH, frame.bottom - 2), "Rows",
			B_MULTIPLE_SELECTION_LIST, B_FOLLOW_ALL);
		BList rows;
		for (int32 i = 1; i <= kRowCount; i++)
			rows.AddItem(new BStringItem(("Row " + std::to_string(i)).c_str()));
		list->AddList(&rows);
		parent->AddChild(new BScrollView("Rows scroller", list, B_FOLLOW_ALL, 0, false, true));
	}

	// The focused text view edits itself.
	void pvEdit(BMessage* message)
	{
		if (BTextView* text = dynamic_cast<BTextView*>(CurrentFocus()))
			text->MessageReceived(message);
	}

	void pvShowPanel()
	{
		if (fPanel == nullptr) {
			BMessenger self(this);
			BMessage message(kPathChosen);
			fPanel = new BFilePanel(B_OPEN_PANEL, &self, NULL, B_FILE_NODE | B_DIRECTORY_NODE,
				false, &message);
		}
		fPanel->Show();
	}

	void pvTakePath(BMessage* message)
	{
		entry_ref ref;
		BPath path;
		if (message->FindRef("refs", &ref) == B_OK && path.SetTo(&ref) == B_OK)
			fPathField->SetText(path.Path());
	}

	BStringView* fStatus;
	BTextControl* fPathField;
	BFilePanel* fPanel = nullptr;
};

class DemoApp : public BApplication {
public:
	DemoApp(const char* screenshot)
		: BApplication("application/x-vnd.Vellum-Demo"),
		fScreenshot(screenshot != nullptr ? screenshot : "")
	{
	}

	void ReadyToRun() override
	{
		DemoWindow* window = new DemoWindow(BRect(100, 100, 779, 579));
		window->Show();
		if (!fScreenshot.empty()) {
			thread_id thread = spawn_thread(&DemoApp::pvSaveScreenshot, "screenshot",
				B_NORMAL_PRIORITY, this);
			resume_thread(thread);
		}
	}

private:
	static status_t pvSaveScreenshot(void* data)
	{
		DemoApp* app = static_cast<DemoApp*>(data);
		BPrivate::WindowTester tester(app->WindowAt(0));
		status_t status = tester.WaitForIdle();
		if (status == B_OK)
			status = tester.SaveFrame(app->fScreenshot.c_str());
		if (status != B_OK)
			fprintf(stderr, "demo: could not write %s\n", app->fScreenshot.c_str());
		app->PostMessage(B_QUIT_REQUESTED);
		return status;
	}

	std::string fScreenshot;
};

}	// namespace

int
main(int argc, char** argv)
{
	const char* screenshot = nullptr;
	for (int i = 1; i + 1 < argc; i++) {
		if (strcmp(argv[i], "--screenshot") == 0)
			screenshot = argv[i + 1];
	}
	if (screenshot != nullptr)
		setenv("QT_QPA_PLATFORM", "offscreen", 1);
	DemoApp app(screenshot);
	app.Run();
	return 0;
}
