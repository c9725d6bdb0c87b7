#include <gtest/gtest.h>

#include <string>

#include <Application.h>
#include <Box.h>
#include "../../../platform/link/DisplayServer.h"
#include <Font.h>
#include <OS.h>
#include <View.h>
#include <Window.h>
#include <WindowTester.h>

using BPrivate::WindowTester;

namespace {

// Logs its life in the tree, its frame events and its pulses.
class HookView : public BView {
public:
	HookView(BRect frame, const char* name, std::string* log,
		uint32 flags = B_FRAME_EVENTS | B_WILL_DRAW)
		: BView(frame, name, B_FOLLOW_ALL, flags), fLog(log)
	{
	}

	void AttachedToWindow() override { pvLog("attached"); }
	void AllAttached() override { pvLog("all-attached"); }
	void DetachedFromWindow() override { pvLog("detached"); }
	void AllDetached() override { pvLog("all-detached"); }
	void FrameMoved(BPoint where) override
	{
		pvLog("moved " + std::to_string(int(where.x)) + "," + std::to_string(int(where.y)));
	}
	void FrameResized(float width, float height) override
	{
		pvLog("resized " + std::to_string(int(width)) + "x" + std::to_string(int(height)));
	}
	void Draw(BRect) override { pvLog("draw"); }
	void WindowActivated(bool active) override { pvLog(active ? "active" : "inactive"); }

	void Pulse() override
	{
		if (pulses >= 0)
			release_sem(pulses);
	}

	void MouseDown(BPoint) override
	{
		// Follows the mouse until it is released, as tracking controls do.
		BPoint where;
		uint32 buttons = B_PRIMARY_MOUSE_BUTTON;
		while (buttons != 0) {
			GetMouse(&where, &buttons);
			pvLog("poll " + std::to_string(int(where.x)) + "," + std::to_string(buttons));
		}
	}

	sem_id pulses = -1;

private:
	void pvLog(const std::string& what) { *fLog += std::string(Name()) + " " + what + "|"; }

	std::string* fLog;
};

// Views log into this, which outlives the windows closed after each test.
std::string&
FreshLog()
{
	static std::string log;
	log.clear();
	return log;
}

int
CountDraws(const std::string& log)
{
	int count = 0;
	for (size_t at = log.find(" draw|"); at != std::string::npos; at = log.find(" draw|", at + 1))
		count++;
	return count;
}

std::string
TakeLog(BWindow* window, std::string* log)
{
	std::string copy;
	if (window->Lock()) {
		copy.swap(*log);
		window->Unlock();
	}
	return copy;
}

}	// namespace

TEST(ViewTest, HooksFollowTheTreeAndTheFrame)
{
	WindowTester::RunHeadless([] {
		std::string& log = FreshLog();
		BWindow* window = new BWindow(BRect(0, 0, 199, 199), "Hooks", B_TITLED_WINDOW, 0);
		HookView* parent = new HookView(BRect(0, 0, 99, 99), "parent", &log);
		parent->AddChild(new HookView(BRect(10, 10, 19, 19), "child", &log));
		window->AddChild(parent);
		EXPECT_EQ("parent attached|child attached|child all-attached|parent all-attached|",
			TakeLog(window, &log));

		parent->MoveTo(5, 6);
		parent->ResizeBy(10, 0);
		// The child follows all sides: it grows with its parent.
		EXPECT_EQ("parent moved 5,6|child resized 19x9|parent resized 109x99|",
			TakeLog(window, &log));
		EXPECT_EQ(BRect(10, 10, 29, 19), parent->ChildAt(0)->Frame());

		EXPECT_TRUE(parent->RemoveSelf());
		EXPECT_EQ("parent detached|child detached|child all-detached|parent all-detached|",
			TakeLog(window, &log));
		EXPECT_EQ(nullptr, parent->Window());
		EXPECT_EQ(0, window->CountChildren());
		delete parent;
		window->Quit();
	});
}

TEST(ViewTest, UpdatesWaitWhileDisabledAndHiddenViewsDoNotDraw)
{
	WindowTester::RunHeadless([] {
		std::string& log = FreshLog();
		BWindow* window = new BWindow(BRect(0, 0, 199, 199), "Updates", B_TITLED_WINDOW, 0);
		HookView* view = new HookView(BRect(0, 0, 49, 49), "view", &log);
		window->AddChild(view);
		window->Show();
		WindowTester tester(window);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_EQ(1, CountDraws(TakeLog(window, &log)));

		ASSERT_TRUE(window->Lock());
		window->DisableUpdates();
		view->Invalidate();
		window->Unlock();
		window->PostMessage('nop ');
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_EQ(0, CountDraws(TakeLog(window, &log)));
		ASSERT_TRUE(window->Lock());
		EXPECT_TRUE(window->NeedsUpdate());
		// Enabling draws what waited, at once.
		window->EnableUpdates();
		EXPECT_FALSE(window->NeedsUpdate());
		EXPECT_EQ(1, CountDraws(log));
		view->Hide();
		EXPECT_TRUE(view->IsHidden());
		window->Unlock();
		window->PostMessage('nop ');
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_EQ(1, CountDraws(TakeLog(window, &log)));
	});
}

TEST(ViewTest, PollingTheMouseSeesMovesAndTheReleaseThatArriveMeanwhile)
{
	WindowTester::RunHeadless([] {
		std::string& log = FreshLog();
		BWindow* window = new BWindow(BRect(0, 0, 199, 199), "Poll", B_TITLED_WINDOW, 0);
		window->AddChild(new HookView(BRect(0, 0, 99, 99), "view", &log, 0));
		window->Show();
		WindowTester tester(window);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		TakeLog(window, &log);
		// Everything is queued before the window sees the press.
		ASSERT_TRUE(window->Lock());
		tester.MouseDown(BPoint(10, 10));
		tester.MouseMove(BPoint(20, 10), B_PRIMARY_MOUSE_BUTTON);
		tester.MouseUp(BPoint(30, 10));
		ASSERT_EQ(B_OK, BPrivate::DisplayServer::Default().Sync());
		window->Unlock();
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_EQ("view poll 20,1|view poll 30,0|", TakeLog(window, &log));
	});
}

TEST(ViewTest, PulsesReachViewsThatNeedThem)
{
	WindowTester::RunHeadless([] {
		std::string& log = FreshLog();
		BWindow* window = new BWindow(BRect(0, 0, 199, 199), "Pulse", B_TITLED_WINDOW, 0);
		HookView* view = new HookView(BRect(0, 0, 49, 49), "view", &log,
			B_WILL_DRAW | B_PULSE_NEEDED);
		view->pulses = create_sem(0, "pulses");
		window->SetPulseRate(1000);
		window->AddChild(view);
		window->Show();
		EXPECT_EQ(B_OK, acquire_sem_etc(view->pulses, 3, B_RELATIVE_TIMEOUT, 10000000));
		ASSERT_TRUE(window->Lock());
		window->SetPulseRate(0);
		delete_sem(view->pulses);
		view->pulses = -1;
		window->Unlock();
	});
}

TEST(ViewTest, FontsMeasureTextByFamilyStyleAndSize)
{
	WindowTester::RunHeadless([] {
		// The plain font has Helvetica's metrics at 10 pixels.
		BFont plain(be_plain_font);
		float width = plain.StringWidth("Attributes");
		EXPECT_NEAR(42.2, width, 1) << "Helvetica's advance widths at 10 pixels";
		EXPECT_LT(plain.StringWidth("Attr"), width);
		EXPECT_EQ(plain.StringWidth("Attributes", 4), plain.StringWidth("Attr"));
		EXPECT_GT(be_bold_font->StringWidth("Attributes"), width);
		BFont large(plain);
		large.SetSize(plain.Size() * 2);
		EXPECT_NEAR(large.StringWidth("Attributes"), 2 * width, width * 0.15);
		font_height height;
		plain.GetHeight(&height);
		EXPECT_GT(height.ascent, height.descent);
		EXPECT_GT(height.descent, 0);
		// Every character of the fixed font is as wide as any other.
		EXPECT_FLOAT_EQ(be_fixed_font->StringWidth("iiii"), be_fixed_font->StringWidth("MMMM"));
		EXPECT_EQ(B_NAME_NOT_FOUND, plain.SetFamilyAndStyle("No Such Family", "Roman"));
	});
}

TEST(ViewTest, ControlAndFormatCharactersTakeRoomOfTheirOwn)
{
	WindowTester::RunHeadless([] {
		BFont plain(be_plain_font);
		float bare = plain.StringWidth("abcdef");
		// A control character and a direction override show as marks: a name
		// cannot pass for another that lacks them.
		EXPECT_GT(plain.StringWidth("abc\x1b" "def"), bare);
		EXPECT_GT(plain.StringWidth("abc\xe2\x80\xae" "def"), bare);
		EXPECT_GT(plain.StringWidth("abc\n"), plain.StringWidth("abc"));
		// Text in a script written right to left is measured as it is drawn, one
		// character after the other in logical order.
		const char* hebrew = "\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d";
		float whole = plain.StringWidth(hebrew);
		float parts = 0;
		for (int32 i = 0; i < 8; i += 2)
			parts += plain.StringWidth(hebrew + i, 2);
		EXPECT_FLOAT_EQ(parts, whole);
	});
}
