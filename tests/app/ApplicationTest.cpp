// The application: the about box of the launch, nodes routed to inspector
// windows, command-line paths, window corners, and the settings file read at
// launch and written when the last inspector window closes.

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <Entry.h>
#include <InterfaceDefs.h>
#include <Message.h>
#include <Window.h>
#include <WindowTester.h>

#include "../../platform/kernel/Threads.h"
#include "AppTestSupport.h"
#include "BrindleFile.h"
#include "GlWindow.h"
#include "GlintApplication.h"
#include "ScreenshotApplication.h"
#include "SettingsFolder.h"
#include "Utils.h"

using BPrivate::AlertInfo;
using BPrivate::WindowTester;

namespace {

const BRect kDefaultInspectorFrame(60, 60, 460, 330);
const char kDefaultSettings[] = "0\n60 60 460 330\n100 100 228 228\n100 100 616 280\n"
	"100 100 616 280\n100 100 616 280\n";

// The application as launched with the given command line.
class LaunchedApp : public GlintApplication {
public:
	LaunchedApp(const std::vector<std::string>& arguments)
	{
		std::vector<const char*> argv;
		for (const std::string& argument : arguments)
			argv.push_back(argument.c_str());
		SetLaunchArguments(int32(argv.size()), argv.data());
	}
};

// Fails in a hook of its own.
class FailingApp : public GlintApplication {
public:
	void MessageReceived(BMessage* msg) override
	{
		if (msg->what == 'fail')
			throw std::runtime_error("a hook failed");
		GlintApplication::MessageReceived(msg);
	}
};

std::vector<GlWindow*>
InspectorWindows()
{
	std::vector<GlWindow*> windows;
	for (BWindow* window = FindFrontWindow("Vellum", nullptr); window != nullptr;
			window = FindNextWindow(window, "Vellum", nullptr)) {
		if (GlWindow* inspector = dynamic_cast<GlWindow*>(window))
			windows.push_back(inspector);
	}
	return windows;
}

// Waits until the application and its inspector windows have handled what
// they sent each other (the application loads a window, which reports back).
void
Settle()
{
	for (int round = 0; round < 3; round++) {
		ASSERT_EQ(B_OK, BPrivate::WaitForLooperIdle(be_app, 10000000));
		for (GlWindow* window : InspectorWindows())
			WindowTester(window).WaitForIdle();
	}
}

// The leaf names the inspector windows show, in window order ("-" for empty).
std::string
ShownNodes()
{
	std::string shown;
	for (GlWindow* window : InspectorWindows()) {
		if (!shown.empty())
			shown += " ";
		shown += window->File() != nullptr ? window->File()->Name() : "-";
	}
	return shown;
}

BWindow*
AboutWindow()
{
	return FindFrontWindow(nullptr, "About Vellum");
}

class ApplicationTest : public testing::Test {
protected:
	void SetUp() override
	{
		std::string pattern = (std::filesystem::temp_directory_path() / "vellum-app-")
			.string() + std::string(6, 'X');
		ASSERT_NE(nullptr, mkdtemp(pattern.data()));
		fFolder = pattern;
		ASSERT_FALSE(fSettings.Root().empty());
		for (const char* name : {"a.txt", "b.txt", "c.txt", "d.txt"})
			std::ofstream(Node(name)) << name;
		WindowTester::SetAlertResponder([this](const AlertInfo& alert) {
			fAlerts.push_back(alert.text);
			return 0;
		});
	}

	void TearDown() override
	{
		WindowTester::SetAlertResponder({});
		WindowTester::HoldModifiers(0);
		std::filesystem::remove_all(fFolder);
		EXPECT_TRUE(fAlerts.empty()) << fAlerts.front();
	}

	std::string Node(const char* name) const { return fFolder + "/" + name; }
	// Runs body while the application, launched with arguments, runs headless.
	void RunVellum(const std::vector<std::string>& arguments,
		const std::function<void(GlintApplication*)>& body)
	{
		GlintApplication* app = nullptr;
		WindowTester::RunApplicationHeadless(
			[&app, &arguments] { return app = new LaunchedApp(arguments); },
			[&app, &body] {
				Settle();
				body(app);
			});
	}

	static void PostRefs(uint32 what, const std::vector<std::string>& paths)
	{
		BMessage message(what);
		for (const std::string& path : paths) {
			entry_ref ref;
			ASSERT_EQ(B_OK, get_ref_for_path(path.c_str(), &ref));
			message.AddRef("refs", &ref);
		}
		be_app->PostMessage(&message);
		Settle();
	}

	std::string fFolder;
	SettingsFolder fSettings;
	std::vector<std::string> fAlerts;
};

}	// namespace

TEST_F(ApplicationTest, APlainLaunchShowsTheAboutBoxOverTheEmptyWindowUntilThePulse)
{
	RunVellum({"vellum"}, [](GlintApplication* app) {
		EXPECT_EQ("-", ShownNodes());
		ASSERT_TRUE(WaitUntil([] { return AboutWindow() != nullptr; }));
		EXPECT_FALSE(app->RefsWereReceived());
		// A 360 by 280 box centred on the 400 by 270 inspector window.
		EXPECT_EQ(kDefaultInspectorFrame, InspectorWindows()[0]->Frame());
		EXPECT_EQ(BRect(80, 55, 440, 335), AboutWindow()->Frame());

		BMessenger about(AboutWindow());
		be_app->PostMessage(B_PULSE);
		EXPECT_TRUE(WaitUntilGone(about));
		EXPECT_EQ(1u, InspectorWindows().size());
	});
}

TEST_F(ApplicationTest, WithoutWindowsTheAboutBoxHasAPlaceOfItsOwn)
{
	WindowTester::HoldModifiers(B_SHIFT_KEY);
	RunVellum({"vellum"}, [](GlintApplication*) {
		// Gone without asking, so that the application keeps running.
		GlWindow* inspector = InspectorWindows()[0];
		ASSERT_TRUE(inspector->Lock());
		inspector->Quit();
		be_app->PostMessage(B_ABOUT_REQUESTED);
		ASSERT_TRUE(WaitUntil([] { return AboutWindow() != nullptr; }));
		EXPECT_EQ(BRect(200, 200, 500, 420), AboutWindow()->Frame());
	});
}

TEST_F(ApplicationTest, ShiftAtLaunchShowsNoAboutBox)
{
	WindowTester::HoldModifiers(B_SHIFT_KEY);
	RunVellum({"vellum"}, [](GlintApplication* app) {
		EXPECT_EQ(nullptr, AboutWindow());
		EXPECT_FALSE(app->RefsWereReceived());
	});
}

TEST_F(ApplicationTest, ALaunchWithANodeShowsItInTheFirstWindowAndNoAboutBox)
{
	RunVellum({"vellum", "--refs", Node("a.txt")}, [](GlintApplication* app) {
		EXPECT_EQ("a.txt", ShownNodes());
		EXPECT_TRUE(app->RefsWereReceived());
		EXPECT_EQ(nullptr, AboutWindow());
	});
}

TEST_F(ApplicationTest, NodesGoToEmptyOrSameNodeWindowsElseToNewWindowsAtTheFirstSlot)
{
	fSettings.WriteSettings("0\n30 40 430 310\n");
	WindowTester::HoldModifiers(B_SHIFT_KEY);
	RunVellum({"vellum"}, [this](GlintApplication* app) {
		EXPECT_FALSE(app->RefsWereReceived());
		PostRefs(B_REFS_RECEIVED, {Node("a.txt"), Node("b.txt"), Node("c.txt")});
		EXPECT_EQ("a.txt b.txt c.txt", ShownNodes());
		EXPECT_TRUE(app->RefsWereReceived());
		for (GlWindow* window : InspectorWindows())
			EXPECT_EQ(BRect(30, 40, 430, 310), window->Frame());

		// A node already shown is loaded again in its own window.
		PostRefs(B_REFS_RECEIVED, {Node("b.txt")});
		EXPECT_EQ("a.txt b.txt c.txt", ShownNodes());

		// A drop on the application works the same way.
		PostRefs('DATA', {Node("c.txt"), Node("d.txt")});
		EXPECT_EQ("a.txt b.txt c.txt d.txt", ShownNodes());
	});
}

TEST_F(ApplicationTest, CommandLinePathsAreReadFromTheProgramsOwnPathOn)
{
	// The program's path is the first one converted; the last path is never read.
	RunVellum({Node("a.txt"), Node("b.txt"), Node("c.txt")}, [](GlintApplication* app) {
		EXPECT_EQ("a.txt b.txt", ShownNodes());
		EXPECT_TRUE(app->RefsWereReceived());
		EXPECT_EQ(nullptr, AboutWindow());
	});
	RunVellum({Node("a.txt"), Node("missing.txt"), Node("b.txt")}, [](GlintApplication*) {
		EXPECT_EQ("a.txt", ShownNodes()) << "a path of no entry is skipped";
	});
	RunVellum({"/nonexistent/vellum", Node("a.txt")}, [](GlintApplication* app) {
		EXPECT_EQ("-", ShownNodes());
		EXPECT_FALSE(app->RefsWereReceived());
		EXPECT_TRUE(WaitUntil([] { return AboutWindow() != nullptr; }));
	});
}

TEST_F(ApplicationTest, WindowCornersAndTheNumberOfDataWindowSlots)
{
	WindowTester::HoldModifiers(B_SHIFT_KEY);
	RunVellum({"vellum"}, [](GlintApplication* app) {
		EXPECT_EQ(BPoint(60, 60), app->WindowCorner(0));
		for (int slot = 1; slot <= 4; slot++)
			EXPECT_EQ(BPoint(100, 100), app->WindowCorner(slot)) << slot;
		for (int slot : {5, 15, 27})
			EXPECT_EQ(BPoint(0, 0), app->WindowCorner(slot)) << slot;
		EXPECT_EQ(16, app->NumDataWins());
		EXPECT_EQ(BRect(0, 0, -1, -1), app->WindowRect(12));
		EXPECT_EQ(1, app->CountSubsidiaryWindows("Vellum", nullptr));
		EXPECT_EQ(app, theApp);
	});
}

TEST_F(ApplicationTest, TheSettingsPlaceTheFirstWindow)
{
	fSettings.WriteSettings("0\n30 40 430 310\n5 6 70 80\n");
	WindowTester::HoldModifiers(B_SHIFT_KEY);
	RunVellum({"vellum"}, [](GlintApplication* app) {
		EXPECT_EQ(BRect(30, 40, 430, 310), InspectorWindows()[0]->Frame());
		EXPECT_EQ(BRect(5, 6, 70, 80), app->WindowRect(1));
		EXPECT_EQ(BRect(100, 100, 616, 280), app->WindowRect(2));
	});
}

TEST_F(ApplicationTest, ADamagedSettingsFileNeverStopsTheLaunch)
{
	fSettings.WriteSettings(std::string("\0\xff\x12\n\n-", 6));
	WindowTester::HoldModifiers(B_SHIFT_KEY);
	RunVellum({"vellum"}, [](GlintApplication*) {
		ASSERT_EQ(1u, InspectorWindows().size());
		EXPECT_EQ(kDefaultInspectorFrame, InspectorWindows()[0]->Frame());
	});
}

TEST_F(ApplicationTest, OptionSkipsTheFileAndOnlyTheLastCloseWritesIt)
{
	fSettings.WriteSettings("0\n30 40 430 310\n");
	WindowTester::HoldModifiers(B_OPTION_KEY | B_SHIFT_KEY);
	RunVellum({"vellum"}, [this](GlintApplication* app) {
		EXPECT_EQ(kDefaultInspectorFrame, app->WindowRect(0));
		PostRefs(B_REFS_RECEIVED, {Node("a.txt"), Node("b.txt")});
		std::vector<GlWindow*> windows = InspectorWindows();
		ASSERT_EQ(2u, windows.size());

		windows[1]->PostMessage(B_QUIT_REQUESTED);
		// The last window is the one left in the window list.
		ASSERT_TRUE(WaitUntil([] { return CountSubsidiaryWindows("Vellum", nullptr) == 1; }));
		EXPECT_EQ("0\n30 40 430 310\n", fSettings.Settings()) << "another window is still open";

		windows[0]->PostMessage(B_QUIT_REQUESTED);
		EXPECT_TRUE(WaitUntilGone(be_app_messenger)) << "the last close quits";
		EXPECT_EQ(kDefaultSettings, fSettings.Settings());
	});
}

TEST_F(ApplicationTest, TheScreenshotIsTheNodesWindowAndLeavesTheSettingsAlone)
{
	std::string picture = fFolder + "/window.png";
	status_t result = B_ERROR;
	ScreenshotApplication* app = nullptr;
	WindowTester::RunApplicationHeadless(
		[&] { return app = new ScreenshotApplication(picture.c_str(), Node("a.txt").c_str()); },
		[&] {
			// It quits by itself once the picture is written.
			ASSERT_TRUE(WaitUntilGone(be_app_messenger));
			result = app->Result();
		});
	EXPECT_EQ(B_OK, result);
	std::ifstream file(picture, std::ios::binary);
	unsigned char header[24] = {};
	file.read(reinterpret_cast<char*>(header), sizeof(header));
	EXPECT_EQ(0, memcmp(header, "\x89PNG", 4));
	// The inspector window widened to 601 pixels for the values, and as tall as
	// its default (the node has no attributes to make room for), big-endian.
	EXPECT_EQ(601, header[18] * 256 + header[19]);
	EXPECT_EQ(271, header[22] * 256 + header[23]);
	EXPECT_FALSE(std::filesystem::exists(fSettings.SettingsPath()));
}

TEST_F(ApplicationTest, AnExceptionInAHookEndsTheRunAndLeavesRun)
{
	setenv("QT_QPA_PLATFORM", "offscreen", 1);
	WindowTester::HoldModifiers(B_SHIFT_KEY);
	find_thread(nullptr);
	size_t known = BPrivate::CountKnownThreads();
	{
		FailingApp app;
		app.PostMessage('fail');
		EXPECT_THROW(app.Run(), std::runtime_error);
	}
	// The inspector window the application had opened ended with it.
	BPrivate::JoinFinishedThreads();
	EXPECT_EQ(known, BPrivate::CountKnownThreads());
	EXPECT_EQ(nullptr, theApp);
}

TEST_F(ApplicationTest, SavingTakesTheFramesOfTheFrontWindowsOfTheirKinds)
{
	fSettings.WriteSettings("0\n60 60 460 330\n7 8 90 100\n");
	WindowTester::HoldModifiers(B_SHIFT_KEY);
	RunVellum({"vellum", "--refs", Node("a.txt")}, [this](GlintApplication* app) {
		auto named = [](const char* name, const char* title, BRect frame) {
			BWindow* window = new BWindow(frame, title, B_TITLED_WINDOW, 0);
			window->SetName(name);
			return window;
		};
		// No icon window: its slot keeps what was read.
		BWindow* first = named("DataWindow", "a.txt: one", BRect(10, 20, 300, 200));
		BWindow* second = named("DataWindow", "a.txt: two", BRect(30, 40, 330, 220));
		named("DataWindow", "b.txt: one", BRect(50, 60, 350, 240));
		app->SavePrefs();
		EXPECT_EQ("0\n60 60 460 330\n7 8 90 100\n10 20 300 200\n30 40 330 220\n"
			"100 100 616 280\n", fSettings.Settings()) << "a missing third window keeps its slot";

		BWindow* icon = named("IconWindow", "one", BRect(1, 2, 129, 130));
		for (BWindow* window : {first, second, icon}) {
			window->Lock();
			window->Quit();
		}
		icon = named("IconWindow", "one", BRect(3, 4, 131, 132));
		app->SavePrefs();
		EXPECT_EQ("0\n60 60 460 330\n3 4 131 132\n10 20 300 200\n30 40 330 220\n"
			"100 100 616 280\n", fSettings.Settings()) << "closed data windows keep their slots";
	});
}
