#include <gtest/gtest.h>

#include <sys/inotify.h>
#include <unistd.h>

#include <string>
#include <vector>

#include <cstdlib>

#include <Node.h>
#include <OS.h>
#include <TextView.h>

#include "BrindleFile.h"
#include "GlintApplication.h"
#include "GlintView.h"
#include "InspectorTestSupport.h"
#include "app/SettingsFolder.h"
#include "platform/storage/TempFolder.h"

namespace {

const std::vector<const char*> kNodeCommands = {"Close", "Reveal in Tracker",
	"Add attribute.."};
const std::vector<const char*> kAlwaysThere = {"About Vellum...", "Quit"};
const std::vector<const char*> kEditItems = {"Undo", "Cut", "Copy", "Paste", "Clear",
	"Select All"};

// A window that stands for a data window of a node: it answers the question of
// closing with the given answer.
class StandInWindow : public BWindow {
public:
	StandInWindow(const char* name, const char* title, bool agrees)
		: BWindow(BRect(500, 100, 700, 200), title, B_TITLED_WINDOW, 0),
		fAgrees(agrees)
	{
		SetName(name);
	}

	bool QuitRequested() override
	{
		fAsked = true;
		return fAgrees;
	}

	std::atomic<bool> fAsked{false};

private:
	bool fAgrees;
};

// Closes the window with its close box and waits until it has answered.
void
CloseWithCloseBox(BWindow* window)
{
	WindowTester tester(window);
	tester.ClickCloseBox();
	tester.WaitForIdle();
}

bool
IsOpen(BWindow* window)
{
	for (int32 i = 0; BWindow* open = be_app->WindowAt(i); i++) {
		if (open == window)
			return true;
	}
	return false;
}

// Whether the window is gone, allowing its thread a moment to end.
bool
HasClosed(BWindow* window)
{
	for (int32 tries = 0; tries < 5000 && IsOpen(window); tries++)
		snooze(1000);
	return !IsOpen(window);
}

// The application launched without paths to open.
class PlainLaunch : public GlintApplication {
public:
	PlainLaunch()
	{
		const char* argv[] = {"vellum"};
		SetLaunchArguments(1, argv);
	}
};

}	// namespace

TEST(GlWindowTest, AnEmptyWindowOffersOnlyWhatNeedsNoNode)
{
	WindowTester::RunHeadless([] {
		GlWindow* window = ShowInspector();
		EXPECT_STREQ(window->Name(), "Vellum");
		EXPECT_STREQ(window->Title(), "Vellum");
		EXPECT_FALSE(window->Loaded());
		EXPECT_EQ(window->File(), nullptr);
		EXPECT_EQ(ItemsEnabled(window, kNodeCommands), std::vector<bool>(3, false));
		EXPECT_EQ(ItemsEnabled(window, kAlwaysThere), std::vector<bool>(2, true));
		EXPECT_EQ(ItemsEnabled(window, {"Select node..."}), std::vector<bool>{true});
		EXPECT_EQ(ItemsEnabled(window, kEditItems), std::vector<bool>(6, false));
	});
}

TEST(GlWindowTest, ALoadedWindowEnablesItsNodeCommandsAndEditing)
{
	TempFolder folder;
	std::string file = folder.File("notes", "some text");
	WindowTester::RunHeadless([&] {
		GlWindow* window = ShowInspector();
		DropOnInspector(window, {file});
		EXPECT_TRUE(window->Loaded());
		ASSERT_NE(window->File(), nullptr);
		EXPECT_STREQ(window->File()->Name(), "notes");
		EXPECT_STREQ(window->Title(), "Vellum: notes");
		EXPECT_EQ(ItemsEnabled(window, kNodeCommands), std::vector<bool>(3, true));
		// Undo follows the node although nothing undoes; Select All never does.
		EXPECT_EQ(ItemsEnabled(window, kEditItems),
			(std::vector<bool>{true, true, true, true, true, false}));
		EXPECT_EQ(ItemsEnabled(window, {"Open..."}), std::vector<bool>{true});
		ASSERT_TRUE(window->Lock());
		EXPECT_EQ(MenuItem(window, "Select node..."), nullptr);
		window->Unlock();
	});
}

TEST(GlWindowTest, RefsGoToTheWindowAsDropsOrOneByIndex)
{
	TempFolder folder;
	std::vector<std::string> files = {folder.File("first"), folder.File("second"),
		folder.File("third")};
	WindowTester::RunHeadless([&] {
		GlWindow* window = ShowInspector();
		// A file panel's answer shows its first entry.
		BMessage panelAnswer = RefsMessage(B_REFS_RECEIVED, {files[1], files[2]});
		window->PostMessage(&panelAnswer);
		WindowTester(window).WaitForIdle();
		EXPECT_EQ(FieldText(window, "Name"), "second");

		// The application hands a window one entry of a message by its index.
		BMessage drop = RefsMessage(B_SIMPLE_DATA, files);
		window->RefsReceived(&drop, 2);
		WindowTester(window).WaitForIdle();
		EXPECT_EQ(FieldText(window, "Name"), "third");
		EXPECT_STREQ(window->Title(), "Vellum: third");
	});
}

TEST(GlWindowTest, ADropAnywhereOnTheWindowShowsItsFirstFile)
{
	TempFolder folder;
	std::vector<std::string> files = {folder.File("first"), folder.File("second")};
	WindowTester::RunHeadless([&] {
		// The list and the attribute box pass drops on to the window, which
		// shows the first file; empty or loaded, within a second.
		for (const char* target : {"attrList", "Attributes", "NodeBox", "attrList"}) {
			GlWindow* window = ShowInspector();
			bigtime_t start = system_time();
			DropOnInspector(window, {files[0]}, target);
			EXPECT_EQ(FieldText(window, "Name"), "first") << target;
			DropOnInspector(window, {files[1], files[0]}, target);
			EXPECT_EQ(FieldText(window, "Name"), "second") << target;
			EXPECT_EQ(be_app->CountWindows(), 1) << "no other window opens";
			EXPECT_LT(system_time() - start, 1000000) << target;
			window->Lock();
			window->Quit();
		}
	});
}

TEST(GlWindowTest, ClearCutAndPasteActOnTheFocusedField)
{
	TempFolder folder;
	std::string file = folder.File("clipped");
	WindowTester::RunHeadless([&] {
		GlWindow* window = ShowInspector();
		DropOnInspector(window, {file});
		ASSERT_TRUE(window->Lock());
		BTextView* path = dynamic_cast<BTextControl*>(window->FindView("Path"))->TextView();
		path->MakeFocus(true);
		path->Select(0, 5);
		window->Unlock();
		window->PostMessage(127);
		WindowTester(window).WaitForIdle();
		EXPECT_EQ(FieldText(window, "Path"), file.substr(5));

		ASSERT_TRUE(window->Lock());
		path->SelectAll();
		window->Unlock();
		window->PostMessage(B_CUT);
		WindowTester(window).WaitForIdle();
		EXPECT_EQ(FieldText(window, "Path"), "");

		// What was cut comes back. (Leaving the edited field would ask
		// whether to move the node.)
		window->PostMessage(B_PASTE);
		WindowTester(window).WaitForIdle();
		EXPECT_EQ(FieldText(window, "Path"), file.substr(5));
	});
}

TEST(GlWindowTest, ClosingOneOfTwoInspectorsLeavesTheApplicationRunning)
{
	TempFolder folder;
	std::string file = folder.File("one");
	WindowTester::RunHeadless([&] {
		QuitCounter quits;
		GlWindow* first = ShowInspector();
		GlWindow* second = ShowInspector();
		DropOnInspector(second, {file});
		// Command-W does nothing in an empty window and closes a loaded one.
		WindowTester firstTester(first);
		firstTester.TypeKey('w', B_COMMAND_KEY);
		ASSERT_EQ(firstTester.WaitForIdle(), B_OK);
		EXPECT_TRUE(IsOpen(first));
		WindowTester(second).TypeKey('w', B_COMMAND_KEY);
		WindowTester(second).WaitForIdle();
		EXPECT_TRUE(HasClosed(second));
		EXPECT_EQ(quits.Count(), 0);

		// An empty window has no Close command, but its close box works; it was
		// the last inspector, so the application is asked to quit.
		CloseWithCloseBox(first);
		EXPECT_TRUE(HasClosed(first));
		EXPECT_EQ(quits.Count(), 1);
	});
}

TEST(GlWindowTest, ClosingAnInspectorClosesItsNodesDataWindowsUnlessOneRefuses)
{
	TempFolder folder;
	std::string file = folder.File("data");
	WindowTester::RunHeadless([&] {
		QuitCounter quits;
		GlWindow* window = ShowInspector();
		DropOnInspector(window, {file});
		StandInWindow* refusing = new StandInWindow("DataWindow", "data: a", false);
		refusing->Show();
		StandInWindow* other = new StandInWindow("DataWindow", "another: a", true);
		other->Show();

		CloseWithCloseBox(window);
		EXPECT_TRUE(refusing->fAsked);
		EXPECT_TRUE(IsOpen(window));
		EXPECT_EQ(quits.Count(), 0);

		// Two agreeing data windows of the node both close with it.
		StandInWindow* firstData = new StandInWindow("DataWindow", "data: b", true);
		firstData->Show();
		StandInWindow* secondData = new StandInWindow("DataWindow", "DATA: c", true);
		secondData->Show();
		ASSERT_TRUE(refusing->Lock());
		refusing->Quit();
		CloseWithCloseBox(window);
		EXPECT_TRUE(HasClosed(window));
		EXPECT_TRUE(HasClosed(firstData));
		EXPECT_TRUE(HasClosed(secondData));
		EXPECT_TRUE(IsOpen(other));
		EXPECT_FALSE(other->fAsked);
		EXPECT_EQ(quits.Count(), 1);
	});
}

TEST(GlWindowTest, SelectNodeOpensAFilePanelAndAboutOpensCentredOnTheWindow)
{
	WindowTester::RunHeadless([] {
		GlWindow* window = ShowInspector();
		window->PostMessage('Glan');
		WindowTester(window).WaitForIdle();
		ASSERT_EQ(be_app->CountWindows(), 2);
		BWindow* panel = be_app->WindowAt(1);
		WindowTester(panel).WaitForIdle();
		std::string title = panel->Title();
		EXPECT_EQ(title.substr(title.size() - 4), "Open");
		EXPECT_FALSE(panel->IsHidden());

		window->PostMessage(B_ABOUT_REQUESTED);
		WindowTester(window).WaitForIdle();
		BWindow* about = nullptr;
		for (int32 i = 0; BWindow* open = be_app->WindowAt(i); i++) {
			if (std::string(open->Title()) == "About Vellum")
				about = open;
		}
		ASSERT_NE(about, nullptr);
		BRect frame = window->Frame();
		BRect aboutFrame = about->Frame();
		EXPECT_FLOAT_EQ((aboutFrame.left + aboutFrame.right) / 2,
			(frame.left + frame.right) / 2);
		EXPECT_FLOAT_EQ((aboutFrame.top + aboutFrame.bottom) / 2,
			(frame.top + frame.bottom) / 2);
	});
}

namespace {

// Counts the times a file in a folder is written and closed.
class WriteCounter {
public:
	explicit WriteCounter(const std::string& folder)
		: fDescriptor(inotify_init1(IN_NONBLOCK))
	{
		inotify_add_watch(fDescriptor, folder.c_str(), IN_CLOSE_WRITE);
	}

	~WriteCounter() { close(fDescriptor); }

	int32 Count(const char* leaf)
	{
		alignas(inotify_event) char buffer[4096];
		ssize_t length;
		while ((length = read(fDescriptor, buffer, sizeof(buffer))) > 0) {
			for (char* at = buffer; at < buffer + length;) {
				auto event = reinterpret_cast<inotify_event*>(at);
				if (event->len > 0 && strcmp(event->name, leaf) == 0)
					fCount++;
				at += sizeof(inotify_event) + event->len;
			}
		}
		return fCount;
	}

private:
	int fDescriptor;
	int32 fCount = 0;
};

}	// namespace

TEST(GlWindowTest, QuitAsksEveryWindowAndWritesTheSettingsOnce)
{
	SettingsFolder settings;
	WriteCounter writes(settings.Root());
	WindowTester::RunApplicationHeadless([] { return new PlainLaunch(); }, [&] {
		// The application's first inspector and two more.
		ShowInspector();
		GlWindow* third = ShowInspector();
		WindowTester(third).TypeKey('q', B_COMMAND_KEY);
		for (int32 tries = 0; tries < 5000 && be_app->CountWindows() > 0; tries++)
			snooze(1000);
		EXPECT_EQ(be_app->CountWindows(), 0);
	});
	EXPECT_EQ(writes.Count("Vellum_Settings"), 1);
	EXPECT_EQ(settings.Settings().substr(0, 2), "0\n");
}

TEST(GlWindowTest, ThePanelKeepsItsLayoutThroughEverySizeBetweenTheLimits)
{
	TempFolder folder;
	std::string file = folder.File("sized", "x");
	WindowTester::RunHeadless([&] {
		GlWindow* window = ShowInspector();
		DropOnInspector(window, {file});
		WindowTester tester(window);
		// The list ends above the "New" button, and the panel's views stay in it.
		auto expectLaidOut = [&](const char* when) {
			ASSERT_EQ(B_OK, tester.WaitForIdle());
			ASSERT_TRUE(window->Lock());
			BView* list = window->FindView("ScrollList");
			BView* button = window->FindView("NewAttr");
			BView* panel = window->FindView("Attributes");
			ASSERT_TRUE(list != nullptr && button != nullptr && panel != nullptr);
			BRect listFrame = list->ConvertToScreen(list->Bounds());
			BRect buttonFrame = button->ConvertToScreen(button->Bounds());
			BRect panelFrame = panel->ConvertToScreen(panel->Bounds());
			EXPECT_LT(listFrame.bottom, buttonFrame.top) << when;
			EXPECT_TRUE(panelFrame.Contains(listFrame)) << when;
			EXPECT_TRUE(panelFrame.Contains(buttonFrame)) << when;
			EXPECT_GT(listFrame.Height(), 0) << when;
			window->Unlock();
		};
		expectLaidOut("at first");
		ASSERT_TRUE(window->Lock());
		BRect before = window->FindView("ScrollList")->Frame();
		BPoint first(window->Bounds().Width(), window->Bounds().Height());
		window->Unlock();
		for (BPoint size : {BPoint(370, 150), BPoint(1000, 1000), BPoint(370, 1000),
				BPoint(1000, 150), first}) {
			tester.UserResize(size.x, size.y);
			expectLaidOut(("at " + std::to_string(int(size.x)) + " by "
				+ std::to_string(int(size.y))).c_str());
		}
		ASSERT_TRUE(window->Lock());
		EXPECT_EQ(before, window->FindView("ScrollList")->Frame()) << "back at the first size";
		window->Unlock();
	});
}

TEST(GlWindowTest, TheDefaultWindowShowsTheTitlesSizesAndTypesWhole)
{
	TempFolder folder;
	std::string file = folder.File("wide");
	BNode node(file.c_str());
	std::vector<char> large(60000, 'x');
	ASSERT_EQ(60000, node.WriteAttr("large", 'RAWT', 0, large.data(), large.size()));
	int32 number = 7;
	ASSERT_EQ(4, node.WriteAttr("odd", 0x0000001F, 0, &number, sizeof(number)));
	ASSERT_EQ(4, node.WriteAttr("high", 0xC8A1B2FF, 0, &number, sizeof(number)));
	WindowTester::RunHeadless([&] {
		GlWindow* window = ShowInspector();
		DropOnInspector(window, {file});
		WindowTester tester(window);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		// The type column ends at 160, where the size column begins: text cut
		// by either edge would leave ink on it.
		auto inkAtColumnEdge = [&](const char* viewName) {
			EXPECT_TRUE(window->Lock());
			BView* view = window->FindView(viewName);
			BRect bounds = view != nullptr ? view->Bounds() : BRect();
			BPoint origin = view != nullptr
				? window->ConvertFromScreen(view->ConvertToScreen(bounds.LeftTop()))
				: BPoint();
			window->Unlock();
			std::vector<BPoint> inked;
			const rgb_color white = make_color(255, 255, 255);
			for (float y = 1; y < bounds.Height(); y++) {
				for (float x : {159.0f, 160.0f}) {
					if (tester.PixelAt(origin + BPoint(x, y)) != white)
						inked.push_back(BPoint(x, y));
				}
			}
			return inked.size();
		};
		EXPECT_EQ(0u, inkAtColumnEdge("Headers"));
		EXPECT_EQ(0u, inkAtColumnEdge("attrList"));
		tester.SaveFrame((folder.Path("default-window.png")).c_str());
	});
}
