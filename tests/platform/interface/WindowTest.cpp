#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>

#include <Application.h>
#include <Screen.h>
#include <View.h>
#include <Window.h>
#include <WindowTester.h>

#include "../../../platform/kernel/Threads.h"

using BPrivate::WindowTester;

namespace {

// A window whose close box asks first: it closes only when allowed to.
class GuardedWindow : public BWindow {
public:
	GuardedWindow(std::atomic<bool>* allow, std::atomic<int>* asked)
		: BWindow(BRect(50, 50, 249, 149), "Guarded", B_TITLED_WINDOW, 0),
		fAllow(allow), fAsked(asked)
	{
	}

	bool QuitRequested() override
	{
		(*fAsked)++;
		return *fAllow;
	}

private:
	std::atomic<bool>* fAllow;
	std::atomic<int>* fAsked;
};

class ResizeWindow : public BWindow {
public:
	ResizeWindow()
		: BWindow(BRect(0, 0, 199, 99), "Resize", B_TITLED_WINDOW, 0)
	{
	}

	void FrameResized(float width, float height) override
	{
		lastWidth = width;
		lastHeight = height;
	}

	float lastWidth = -1, lastHeight = -1;
};

}	// namespace

TEST(WindowTest, ViewsFollowTheirResizingModesWhenTheWindowResizes)
{
	WindowTester::RunHeadless([] {
		ResizeWindow* window = new ResizeWindow;
		struct Case {
			const char* name;
			uint32 mode;
			BRect expected;
		} cases[] = {
			{"left top", B_FOLLOW_LEFT | B_FOLLOW_TOP, BRect(10, 10, 29, 29)},
			{"right bottom", B_FOLLOW_RIGHT | B_FOLLOW_BOTTOM, BRect(110, 60, 129, 79)},
			{"all", B_FOLLOW_ALL, BRect(10, 10, 129, 79)},
			{"centre", B_FOLLOW_H_CENTER | B_FOLLOW_V_CENTER, BRect(60, 35, 79, 54)},
			{"left right", B_FOLLOW_LEFT_RIGHT | B_FOLLOW_TOP_BOTTOM, BRect(10, 10, 129, 79)},
		};
		for (const Case& each : cases)
			window->AddChild(new BView(BRect(10, 10, 29, 29), each.name, each.mode, 0));
		window->SetSizeLimits(50, 400, 50, 300);
		window->Show();
		WindowTester tester(window);
		tester.UserResize(299, 149);
		ASSERT_EQ(B_OK, tester.WaitForIdle());

		ASSERT_TRUE(window->Lock());
		EXPECT_EQ(BRect(0, 0, 299, 149), window->Bounds());
		EXPECT_EQ(299, window->lastWidth);
		for (const Case& each : cases)
			EXPECT_EQ(each.expected, window->FindView(each.name)->Frame()) << each.name;
		// Programmatic resizing honours the size limits.
		window->ResizeTo(1000, 10);
		EXPECT_EQ(BRect(0, 0, 400, 50), window->Bounds());
		window->Unlock();
	});
}

TEST(WindowTest, TheCloseBoxClosesOnlyWhenQuitRequestedAgrees)
{
	WindowTester::RunHeadless([] {
		std::atomic<bool> allow{false};
		std::atomic<int> asked{0};
		GuardedWindow* window = new GuardedWindow(&allow, &asked);
		window->Show();
		WindowTester tester(window);
		tester.ClickCloseBox();
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_EQ(1, asked);
		EXPECT_EQ(1, be_app->CountWindows());

		allow = true;
		tester.ClickCloseBox();
		tester.WaitForIdle();
		// The window deletes itself when it quits.
		while (be_app->CountWindows() > 0)
			ASSERT_EQ(B_OK, BPrivate::WaitForLooperIdle(be_app, 1000000));
		EXPECT_EQ(2, asked);
	});
}

TEST(WindowTest, WindowsAreListedInCreationOrderAndViewsFoundDepthFirst)
{
	WindowTester::RunHeadless([] {
		BWindow* first = new BWindow(BRect(0, 0, 99, 99), "First", B_TITLED_WINDOW, 0);
		BWindow* second = new BWindow(BRect(0, 0, 99, 99), "Second", B_DOCUMENT_WINDOW, 0);
		ASSERT_EQ(2, be_app->CountWindows());
		EXPECT_EQ(first, be_app->WindowAt(0));
		EXPECT_EQ(second, be_app->WindowAt(1));
		EXPECT_EQ(nullptr, be_app->WindowAt(2));

		BView* outer = new BView(BRect(0, 0, 50, 50), "outer", B_FOLLOW_NONE, 0);
		BView* deep = new BView(BRect(0, 0, 10, 10), "twin", B_FOLLOW_NONE, 0);
		outer->AddChild(deep);
		first->AddChild(outer);
		BView* shallow = new BView(BRect(60, 0, 70, 10), "twin", B_FOLLOW_NONE, 0);
		first->AddChild(shallow);
		EXPECT_EQ(deep, first->FindView("twin"));
		EXPECT_EQ(nullptr, outer->Parent());
		EXPECT_EQ(outer, deep->Parent());
		EXPECT_EQ(shallow, outer->NextSibling());
		EXPECT_TRUE(first->IsHidden());
		// Constructed windows are locked by their creator until shown.
		first->Quit();
		second->Quit();
	});
}

TEST(WindowTest, ViewCoordinatesConvertThroughParentsScrollingAndWindow)
{
	WindowTester::RunHeadless([] {
		BWindow* window = new BWindow(BRect(100, 200, 299, 399), "Coordinates",
			B_TITLED_WINDOW, 0);
		BView* parent = new BView(BRect(10, 20, 109, 119), "parent", B_FOLLOW_NONE, 0);
		BView* child = new BView(BRect(5, 5, 24, 24), "child", B_FOLLOW_NONE, 0);
		parent->AddChild(child);
		window->AddChild(parent);
		parent->ScrollTo(0, 3);
		EXPECT_EQ(BRect(0, 3, 99, 102), parent->Bounds());
		EXPECT_EQ(BPoint(15, 22), parent->ConvertToParent(child->ConvertToParent(BPoint(0, 0))));
		EXPECT_EQ(BPoint(115, 222), child->ConvertToScreen(BPoint(0, 0)));
		EXPECT_EQ(BPoint(0, 0), child->ConvertFromScreen(BPoint(115, 222)));
		EXPECT_EQ(BRect(5, 8, 24, 27), parent->ConvertFromParent(BRect(15, 25, 34, 44)));
		window->Quit();
	});
}

namespace {

// The threads of the process, as the system lists them.
size_t
CountProcessThreads()
{
	size_t count = 0;
	for (const auto& entry : std::filesystem::directory_iterator("/proc/self/task")) {
		(void)entry;
		count++;
	}
	return count;
}

}	// namespace

TEST(WindowTest, ClosedWindowsLeaveNoThreadNorRecordBehind)
{
	auto openAndClose = [](int32 count) {
		for (int32 i = 0; i < count; i++) {
			BWindow* window = new BWindow(BRect(10, 10, 109, 59), "Passing", B_TITLED_WINDOW,
				0);
			window->Show();
			ASSERT_TRUE(window->Lock());
			window->Quit();
		}
		BPrivate::JoinFinishedThreads();
	};
	WindowTester::RunHeadless([&] {
		// The first window wakes what stays for the whole run (the display).
		openAndClose(1);
		size_t known = BPrivate::CountKnownThreads();
		size_t running = CountProcessThreads();
		openAndClose(1000);
		EXPECT_EQ(known, BPrivate::CountKnownThreads());
		EXPECT_EQ(running, CountProcessThreads());
	});
}

TEST(WindowTest, AWindowPlacedOffTheScreenIsShownOnIt)
{
	WindowTester::RunHeadless([] {
		BRect screen = BScreen().Frame();
		BWindow* lost = new BWindow(BRect(0, 0, 199, 99).OffsetByCopy(screen.right + 500,
			screen.bottom + 500), "Lost", B_TITLED_WINDOW, 0);
		BWindow* above = new BWindow(BRect(50, -300, 249, -201), "Above", B_TITLED_WINDOW, 0);
		BWindow* placed = new BWindow(BRect(20, 30, 219, 129), "Placed", B_TITLED_WINDOW, 0);
		for (BWindow* window : {lost, above, placed})
			window->Show();
		for (BWindow* window : {lost, above}) {
			ASSERT_TRUE(window->Lock());
			EXPECT_TRUE(screen.Contains(window->Frame())) << window->Title();
			window->Unlock();
		}
		ASSERT_TRUE(placed->Lock());
		EXPECT_EQ(BRect(20, 30, 219, 129), placed->Frame()) << "a window on the screen stays";
		placed->Unlock();
	});
}

TEST(WindowTest, AFrameLargerThanTheScreenIsCutToItWhenTheWindowIsBuilt)
{
	WindowTester::RunHeadless([] {
		BRect screen = BScreen().Frame();
		BWindow* huge = new BWindow(BRect(10, 20, 60009, 60019), "Huge", B_TITLED_WINDOW, 0);
		BRect frame = huge->Frame();
		EXPECT_EQ(BPoint(10, 20), frame.LeftTop());
		EXPECT_EQ(screen.Width(), frame.Width());
		EXPECT_EQ(screen.Height(), frame.Height());
		EXPECT_EQ(frame.Width(), huge->Bounds().Width());
	});
}
