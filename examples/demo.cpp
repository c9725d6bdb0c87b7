// A window of the interface kit's simple controls: a box, string views,
// buttons and radio buttons. With --screenshot FILE.png it renders the window
// headless to FILE.png and quits.

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <Application.h>
#include <Bitmap.h>
#include <Box.h>
#include <Button.h>
#include <Node.h>
#include <Path.h>
#include <NodeInfo.h>
#include <RadioButton.h>
#include <StringView.h>
#include <Window.h>
#include <WindowTester.h>

namespace {

const uint32 kSizeChosen = 'Size';
const uint32 kApply = 'Aply';

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
		BView* background = new BView(Bounds(), "Background", B_FOLLOW_ALL, B_WILL_DRAW);
		background->SetViewColor(ui_color(B_PANEL_BACKGROUND_COLOR));
		AddChild(background);

		BBox* box = new BBox(Bounds().InsetByCopy(10, 10), "Box", B_FOLLOW_ALL);
		box->SetLabel("Picture size");
		background->AddChild(box);

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

		fStatus = new BStringView(BRect(14, top + 8, 300, top + 24), "Status",
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
		cancel->MakeFocus(true);
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
	BStringView* fStatus;
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
		DemoWindow* window = new DemoWindow(BRect(100, 100, 439, 309));
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
