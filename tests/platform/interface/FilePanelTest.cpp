#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <vector>

#include <Application.h>
#include <Button.h>
#include <Entry.h>
#include <FilePanel.h>
#include <ListView.h>
#include <Looper.h>
#include <MessageFilter.h>
#include <Node.h>
#include <Path.h>
#include <TextControl.h>
#include <Window.h>
#include <WindowTester.h>

#include "platform/storage/TempFolder.h"

using BPrivate::WindowTester;

namespace {

const uint32 kSync = 'Sync';

// The messages a panel's answers arrived as.
class Recorder {
public:
	void Add(const BMessage& message)
	{
		std::lock_guard<std::mutex> lock(fLock);
		fMessages.push_back(message);
		fChanged.notify_all();
	}

	// Waits for count messages; false when they do not come.
	bool WaitFor(size_t count)
	{
		std::unique_lock<std::mutex> lock(fLock);
		return fChanged.wait_for(lock, std::chrono::seconds(10),
			[&] { return fMessages.size() >= count; });
	}

	std::vector<BMessage> Messages()
	{
		std::lock_guard<std::mutex> lock(fLock);
		return fMessages;
	}

private:
	std::mutex fLock;
	std::condition_variable fChanged;
	std::vector<BMessage> fMessages;
};

// A target that records everything but the round trips that flush it.
class TargetLooper : public BLooper {
public:
	explicit TargetLooper(Recorder* recorder)
		: BLooper("target"), fRecorder(recorder)
	{
	}

	void MessageReceived(BMessage* message) override
	{
		if (message->what != kSync)
			fRecorder->Add(*message);
	}

private:
	Recorder* fRecorder;
};

// Takes the application's B_REFS_RECEIVED away from it into a recorder.
class RefsFilter : public BMessageFilter {
public:
	explicit RefsFilter(Recorder* recorder)
		: BMessageFilter(B_REFS_RECEIVED), fRecorder(recorder)
	{
	}

	filter_result Filter(BMessage* message, BHandler**) override
	{
		fRecorder->Add(*message);
		return B_SKIP_MESSAGE;
	}

private:
	Recorder* fRecorder;
};

// Counts its hook calls.
class CountingPanel : public BFilePanel {
public:
	CountingPanel(file_panel_mode mode, BMessenger* target, uint32 flavors, bool multiple,
		BMessage* message = nullptr, bool hideWhenDone = true)
		: BFilePanel(mode, target, nullptr, flavors, multiple, message, nullptr, false,
			hideWhenDone)
	{
	}

	void WasHidden() override { hidden++; }
	void SelectionChanged() override { selections++; }

	std::atomic<int32> hidden = 0;
	std::atomic<int32> selections = 0;
};

// Alpha/ (inner.txt), beta/ (deep/), a.txt, b.txt, C.txt and links to Alpha and a.txt.
void
MakeEntries(const TempFolder& folder)
{
	ASSERT_EQ(0, mkdir(folder.Path("Alpha").c_str(), 0755));
	ASSERT_EQ(0, mkdir(folder.Path("beta").c_str(), 0755));
	ASSERT_EQ(0, mkdir(folder.Path("beta/deep").c_str(), 0755));
	folder.File("Alpha/inner.txt");
	folder.File("a.txt", "a");
	folder.File("b.txt", "b");
	folder.File("C.txt", "c");
	ASSERT_EQ(0, symlink("Alpha", folder.Path("link-to-alpha").c_str()));
	ASSERT_EQ(0, symlink("a.txt", folder.Path("link-to-file").c_str()));
}

BListView*
EntryList(BWindow* window)
{
	return dynamic_cast<BListView*>(window->FindView("entries"));
}

// The rows as "name|", with "-" before the rows that cannot be chosen.
std::string
Rows(BWindow* window)
{
	if (!window->Lock())
		return "not locked";
	std::string rows;
	BListView* list = EntryList(window);
	for (int32 i = 0; i < list->CountItems(); i++) {
		auto item = static_cast<BStringItem*>(list->ItemAt(i));
		rows += std::string(item->IsEnabled() ? "" : "-") + item->Text() + "|";
	}
	window->Unlock();
	return rows;
}

// The names of the selected rows, as "name|".
std::string
Selection(BWindow* window)
{
	if (!window->Lock())
		return "not locked";
	std::string names;
	BListView* list = EntryList(window);
	for (int32 i = 0, index; (index = list->CurrentSelection(i)) >= 0; i++)
		names += std::string(static_cast<BStringItem*>(list->ItemAt(index))->Text()) + "|";
	window->Unlock();
	return names;
}

// The middle of the row named name, in the window's coordinates.
BPoint
RowPoint(BWindow* window, const char* name)
{
	BPoint point(-1, -1);
	if (!window->Lock())
		return point;
	BListView* list = EntryList(window);
	for (int32 i = 0; i < list->CountItems(); i++) {
		if (std::string(static_cast<BStringItem*>(list->ItemAt(i))->Text()) == name) {
			BRect frame = list->ItemFrame(i);
			point = window->ConvertFromScreen(list->ConvertToScreen(
				BPoint(frame.left + 40, (frame.top + frame.bottom) / 2)));
		}
	}
	window->Unlock();
	return point;
}

// The middle of the view named name, in the window's coordinates.
BPoint
ViewPoint(BWindow* window, const char* name)
{
	BPoint point(-1, -1);
	if (window->Lock()) {
		BView* view = window->FindView(name);
		BRect bounds = view->Bounds();
		point = window->ConvertFromScreen(view->ConvertToScreen(
			BPoint((bounds.left + bounds.right) / 2, (bounds.top + bounds.bottom) / 2)));
		window->Unlock();
	}
	return point;
}

// Replaces the text of the text control named name by text, and presses Enter.
void
TypeInto(WindowTester& tester, BWindow* window, const char* name, const std::string& text)
{
	tester.Click(ViewPoint(window, name));
	tester.TypeKey('a', B_COMMAND_KEY);
	if (text.empty())
		tester.TypeKey(B_BACKSPACE);
	else
		tester.TypeText(text.c_str());
	tester.TypeKey(B_ENTER);
}

std::string
FieldText(BWindow* window, const char* name)
{
	if (!window->Lock())
		return "not locked";
	std::string text = dynamic_cast<BTextControl*>(window->FindView(name))->Text();
	window->Unlock();
	return text;
}

void
DoubleClick(WindowTester& tester, BPoint where)
{
	tester.Click(where);
	tester.Click(where);
}

std::string
PathOf(const entry_ref& ref)
{
	BPath path(&ref);
	return path.InitCheck() == B_OK ? path.Path() : "no path";
}

// The "refs" of a message as their paths, "path|".
std::string
RefPaths(const BMessage& message)
{
	std::string paths;
	entry_ref ref;
	for (int32 i = 0; message.FindRef("refs", i, &ref) == B_OK; i++)
		paths += PathOf(ref) + "|";
	return paths;
}

// Waits until a looper has handled everything sent to it so far.
void
Flush(BLooper* looper)
{
	BMessage reply;
	BMessenger(looper).SendMessage(kSync, &reply);
}

// Runs body headless with the entries made in a temporary folder, a target
// looper and a panel shown on that folder.
template<typename Body>
void
WithPanel(uint32 flavors, bool multiple, Body body)
{
	WindowTester::RunHeadless([&] {
		TempFolder folder;
		MakeEntries(folder);
		Recorder recorder;
		TargetLooper* target = new TargetLooper(&recorder);
		target->Run();
		{
			BMessenger messenger(target);
			CountingPanel panel(B_OPEN_PANEL, &messenger, flavors, multiple);
			panel.SetPanelDirectory(folder.Root().c_str());
			panel.Show();
			WindowTester tester(panel.Window());
			ASSERT_EQ(B_OK, tester.WaitForIdle());
			body(folder, panel, tester, recorder, target);
			// The window calls the panel's hooks: it must be done before the panel goes.
			EXPECT_EQ(B_OK, tester.WaitForIdle());
		}
		target->Lock();
		target->Quit();
	});
}

}	// namespace

TEST(FilePanelTest, ListsFoldersFirstByNameAndGreysWhatCannotBeChosen)
{
	WithPanel(0, true, [](const TempFolder&, CountingPanel& panel, WindowTester& tester,
		Recorder&, BLooper*) {
		BWindow* window = panel.Window();
		EXPECT_EQ("Alpha|beta|link-to-alpha|a.txt|b.txt|C.txt|link-to-file|", Rows(window));
		EXPECT_TRUE(panel.IsShowing());
		EXPECT_EQ(std::string("test_platform_interface: Open"), window->Title());

		// Each row has its icon drawn left of the name.
		BPoint row = RowPoint(window, "a.txt");
		int32 painted = 0;
		for (float x = row.x - 36; x < row.x - 22; x++) {
			if (tester.PixelAt(BPoint(x, row.y)) != make_color(255, 255, 255))
				painted++;
		}
		EXPECT_GT(painted, 0);
	});
	WithPanel(B_DIRECTORY_NODE, true, [](const TempFolder&, CountingPanel& panel,
		WindowTester&, Recorder&, BLooper*) {
		EXPECT_EQ("Alpha|beta|link-to-alpha|-a.txt|-b.txt|-C.txt|-link-to-file|",
			Rows(panel.Window()));
	});
	WithPanel(B_SYMLINK_NODE, true, [](const TempFolder&, CountingPanel& panel,
		WindowTester&, Recorder&, BLooper*) {
		EXPECT_EQ("Alpha|beta|link-to-alpha|-a.txt|-b.txt|-C.txt|link-to-file|",
			Rows(panel.Window()));
	});
}

TEST(FilePanelTest, ABrokenLinkCanBeChosenAndAPanelWithoutAFolderOpensAtHome)
{
	TempFolder home;
	home.File("at-home");
	symlink("nowhere", home.Path("broken").c_str());
	std::string previous = getenv("HOME") != nullptr ? getenv("HOME") : "";
	setenv("HOME", home.Root().c_str(), 1);
	WindowTester::RunHeadless([] {
		CountingPanel panel(B_OPEN_PANEL, nullptr, B_FILE_NODE | B_DIRECTORY_NODE, true);
		panel.Show();
		WindowTester tester(panel.Window());
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		// A link to nothing is a node too: it can be chosen, to be re-linked.
		EXPECT_EQ("at-home|broken|", Rows(panel.Window()));
	});
	setenv("HOME", previous.c_str(), 1);
}

TEST(FilePanelTest, EntersFoldersByDoubleClickOrEnterAndGoesUp)
{
	WithPanel(0, true, [](const TempFolder& folder, CountingPanel& panel,
		WindowTester& tester, Recorder& recorder, BLooper* target) {
		BWindow* window = panel.Window();
		DoubleClick(tester, RowPoint(window, "beta"));
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_EQ("deep|", Rows(window));
		entry_ref open;
		panel.GetPanelDirectory(&open);
		EXPECT_EQ(folder.Path("beta"), PathOf(open));

		// Up comes back with the folder it came from selected.
		tester.Click(ViewPoint(window, "up"));
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_EQ("beta|", Selection(window));
		panel.GetPanelDirectory(&open);
		EXPECT_EQ(folder.Root(), PathOf(open));

		// Enter on a selected folder enters it, through a link too.
		tester.Click(RowPoint(window, "link-to-alpha"));
		tester.TypeKey(B_ENTER);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_EQ("inner.txt|", Rows(window));
		Flush(target);
		EXPECT_TRUE(recorder.Messages().empty());
		EXPECT_TRUE(panel.IsShowing());
	});
}

TEST(FilePanelTest, OpenSendsTheChosenRefsToTheTargetAndHides)
{
	WithPanel(0, true, [](const TempFolder& folder, CountingPanel& panel,
		WindowTester& tester, Recorder& recorder, BLooper*) {
		BWindow* window = panel.Window();
		// Shift+click chooses a range, Ctrl+click adds or takes away one entry.
		tester.Click(RowPoint(window, "a.txt"));
		tester.Click(RowPoint(window, "C.txt"), B_SHIFT_KEY);
		tester.Click(RowPoint(window, "b.txt"), B_COMMAND_KEY);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_GT(panel.selections, 0);
		tester.Click(ViewPoint(window, "default"));
		ASSERT_TRUE(recorder.WaitFor(1));
		BMessage answer = recorder.Messages()[0];
		EXPECT_EQ(uint32(B_REFS_RECEIVED), answer.what);
		EXPECT_EQ(folder.Path("a.txt") + "|" + folder.Path("C.txt") + "|", RefPaths(answer))
			<< "in the list's order";
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_FALSE(panel.IsShowing());
		EXPECT_EQ(1, panel.hidden);

		// Shown again, a double click on a file answers with it, and a link is
		// sent as the link itself.
		BMessage pick('Pick');
		panel.SetMessage(&pick);
		panel.Show();
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		DoubleClick(tester, RowPoint(window, "link-to-file"));
		ASSERT_TRUE(recorder.WaitFor(2));
		answer = recorder.Messages()[1];
		EXPECT_EQ(uint32('Pick'), answer.what);
		EXPECT_EQ(folder.Path("link-to-file") + "|", RefPaths(answer));
	});
}

TEST(FilePanelTest, WithoutATargetTheApplicationGetsTheRefs)
{
	WindowTester::RunHeadless([] {
		TempFolder folder;
		MakeEntries(folder);
		Recorder recorder;
		be_app->Lock();
		be_app->AddCommonFilter(new RefsFilter(&recorder));
		be_app->Unlock();

		BFilePanel panel(B_OPEN_PANEL, nullptr, nullptr, B_FILE_NODE | B_DIRECTORY_NODE);
		panel.SetPanelDirectory(folder.Root().c_str());
		panel.Show();
		WindowTester tester(panel.Window());
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_EQ(be_app_messenger, panel.Messenger());
		tester.Click(RowPoint(panel.Window(), "beta"));
		tester.Click(RowPoint(panel.Window(), "b.txt"), B_COMMAND_KEY);
		tester.TypeKey(B_ENTER);
		ASSERT_TRUE(recorder.WaitFor(1));
		EXPECT_EQ(folder.Path("beta") + "|" + folder.Path("b.txt") + "|",
			RefPaths(recorder.Messages()[0]));
		EXPECT_FALSE(panel.IsShowing());
		be_app->Lock();
		be_app->SetCommonFilterList(nullptr);
		be_app->Unlock();
	});
}

TEST(FilePanelTest, CancelEscapeAndTheCloseBoxHideWithoutAnswer)
{
	WithPanel(0, true, [](const TempFolder&, CountingPanel& panel, WindowTester& tester,
		Recorder& recorder, BLooper* target) {
		BWindow* window = panel.Window();
		tester.Click(RowPoint(window, "a.txt"));
		tester.Click(ViewPoint(window, "cancel"));
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_FALSE(panel.IsShowing());

		panel.Show();
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		tester.Click(RowPoint(window, "a.txt"));
		tester.TypeKey(B_ESCAPE);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_FALSE(panel.IsShowing());

		panel.Show();
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		tester.ClickCloseBox();
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_FALSE(panel.IsShowing());
		EXPECT_EQ(3, panel.hidden);

		Flush(target);
		EXPECT_TRUE(recorder.Messages().empty());
		// The window outlives its hiding.
		EXPECT_TRUE(window->Lock());
		window->Unlock();
	});
}

TEST(FilePanelTest, AFolderPanelChoosesTheSelectedOrTheOpenFolder)
{
	WithPanel(B_DIRECTORY_NODE, false, [](const TempFolder& folder, CountingPanel& panel,
		WindowTester& tester, Recorder& recorder, BLooper*) {
		BWindow* window = panel.Window();
		panel.SetHideWhenDone(false);
		tester.Click(RowPoint(window, "beta"));
		tester.Click(ViewPoint(window, "default"));
		ASSERT_TRUE(recorder.WaitFor(1));
		EXPECT_EQ(folder.Path("beta") + "|", RefPaths(recorder.Messages()[0]));
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_TRUE(panel.IsShowing());

		// One row at a time, and a file is not selected at all.
		tester.Click(RowPoint(window, "Alpha"), B_COMMAND_KEY);
		tester.Click(RowPoint(window, "a.txt"));
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_EQ("Alpha|", Selection(window));

		// With nothing selected the open folder is the answer.
		DoubleClick(tester, RowPoint(window, "beta"));
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_EQ("deep|", Rows(window));
		EXPECT_EQ("", Selection(window));
		tester.Click(ViewPoint(window, "default"));
		ASSERT_TRUE(recorder.WaitFor(2));
		EXPECT_EQ(folder.Path("beta") + "|", RefPaths(recorder.Messages()[1]));
	});
}

TEST(FilePanelTest, TheFolderFieldShowsTheFolderAndTakesATypedPath)
{
	WithPanel(0, true, [](const TempFolder& folder, CountingPanel& panel,
		WindowTester& tester, Recorder& recorder, BLooper* target) {
		BWindow* window = panel.Window();
		EXPECT_EQ(folder.Root(), FieldText(window, "path"));
		TypeInto(tester, window, "path", "beta");
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_EQ("deep|", Rows(window));
		EXPECT_EQ(folder.Path("beta"), FieldText(window, "path"));

		// A file's path opens its folder with the file selected.
		TypeInto(tester, window, "path", folder.Path("b.txt"));
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_EQ(folder.Root(), FieldText(window, "path"));
		EXPECT_EQ("b.txt|", Selection(window));

		// A path that leads nowhere beeps and stays to be corrected.
		int32 beeps = WindowTester::CountBeeps();
		TypeInto(tester, window, "path", "/no/such/folder");
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_EQ(beeps + 1, WindowTester::CountBeeps());
		EXPECT_EQ("/no/such/folder", FieldText(window, "path"));
		EXPECT_EQ("Alpha|beta|link-to-alpha|a.txt|b.txt|C.txt|link-to-file|", Rows(window));

		const char* home = getenv("HOME");
		if (home != nullptr && BEntry(home).IsDirectory()) {
			TypeInto(tester, window, "path", "~");
			ASSERT_EQ(B_OK, tester.WaitForIdle());
			EXPECT_EQ(BPath(home).Path(), FieldText(window, "path"));
		}
		Flush(target);
		EXPECT_TRUE(recorder.Messages().empty());
		EXPECT_TRUE(panel.IsShowing());

		// A second Enter opens the file the path led to.
		TypeInto(tester, window, "path", folder.Path("C.txt"));
		tester.TypeKey(B_ENTER);
		ASSERT_TRUE(recorder.WaitFor(1));
		EXPECT_EQ(folder.Path("C.txt") + "|", RefPaths(recorder.Messages()[0]));
	});
}

namespace {

// Leaves out the names ending in ".txt", and notes whether each entry came
// with its node and the link's own status.
class NoTextFiles : public BRefFilter {
public:
	bool Filter(const entry_ref* ref, BNode* node, struct stat* st, const char*) override
	{
		std::string name = ref->name;
		if (node->InitCheck() != B_OK)
			problems += "no node for " + name + "|";
		if (name.rfind("link-", 0) == 0 && !S_ISLNK(st->st_mode))
			problems += "followed " + name + "|";
		return name.size() < 4 || name.substr(name.size() - 4) != ".txt";
	}

	std::string problems;
};

}	// namespace

TEST(FilePanelTest, ARefFilterLeavesEntriesOut)
{
	WithPanel(0, true, [](const TempFolder&, CountingPanel& panel, WindowTester& tester,
		Recorder&, BLooper*) {
		NoTextFiles filter;
		panel.SetRefFilter(&filter);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_EQ("Alpha|beta|link-to-alpha|link-to-file|", Rows(panel.Window()));
		EXPECT_EQ("", filter.problems);
		panel.SetRefFilter(nullptr);
		EXPECT_EQ("Alpha|beta|link-to-alpha|a.txt|b.txt|C.txt|link-to-file|",
			Rows(panel.Window()));
	});
}
