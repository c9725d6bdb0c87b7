#include <gtest/gtest.h>

#include <string>

#include <Application.h>
#include <Message.h>
#include <View.h>
#include <Window.h>
#include <WindowTester.h>

using BPrivate::WindowTester;

namespace {

// Writes every hook it hears of to a shared log.
class LogView : public BView {
public:
	LogView(BRect frame, const char* name, std::string* log, uint32 flags = 0)
		: BView(frame, name, B_FOLLOW_NONE, flags), fLog(log)
	{
	}

	void MouseDown(BPoint where) override
	{
		pvLog("down", where);
		if (holdMouse)
			SetMouseEventMask(B_POINTER_EVENTS);
	}

	void MouseUp(BPoint where) override { pvLog("up", where); }

	void MouseMoved(BPoint where, uint32 transit, const BMessage*) override
	{
		const char* names[] = {"entered", "inside", "exited", "outside"};
		pvLog(names[transit], where);
	}

	void KeyDown(const char* bytes, int32 numBytes) override
	{
		*fLog += std::string(Name()) + " key " + std::string(bytes, numBytes) + "|";
		BView::KeyDown(bytes, numBytes);
	}

	bool holdMouse = false;

private:
	void pvLog(const char* what, BPoint where)
	{
		*fLog += std::string(Name()) + " " + what + " " + std::to_string(int(where.x)) + ","
			+ std::to_string(int(where.y)) + "|";
	}

	std::string* fLog;
};

class ShortcutWindow : public BWindow {
public:
	ShortcutWindow(std::string* log)
		: BWindow(BRect(0, 0, 199, 199), "Input", B_TITLED_WINDOW, 0), fLog(log)
	{
	}

	void MessageReceived(BMessage* message) override
	{
		if (message->what == 'Opn ')
			*fLog += "open|";
		else
			BWindow::MessageReceived(message);
	}

private:
	std::string* fLog;
};

}	// namespace

TEST(InputTest, MouseGoesToTheViewUnderThePointerOrToTheOneHoldingIt)
{
	WindowTester::RunHeadless([] {
		std::string log;
		BWindow* window = new BWindow(BRect(0, 0, 199, 199), "Mouse", B_TITLED_WINDOW, 0);
		LogView* left = new LogView(BRect(0, 0, 99, 99), "left", &log);
		LogView* right = new LogView(BRect(100, 0, 199, 99), "right", &log);
		LogView* inner = new LogView(BRect(10, 10, 29, 29), "inner", &log);
		right->AddChild(inner);
		window->AddChild(left);
		window->AddChild(right);
		left->holdMouse = true;
		window->Show();
		WindowTester tester(window);

		tester.Click(BPoint(115, 15));
		tester.MouseMove(BPoint(50, 50));
		tester.MouseMove(BPoint(150, 50));
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		// The log belongs to the window's thread: read it with the window locked.
		ASSERT_TRUE(window->Lock());
		EXPECT_EQ("inner down 5,5|inner up 5,5|left entered 50,50|left exited 150,50|"
			"right entered 50,50|", log);

		// A view that asked for the pointer hears the moves and the release
		// outside itself.
		log.clear();
		window->Unlock();
		tester.MouseDown(BPoint(20, 20));
		tester.MouseMove(BPoint(150, 20), B_PRIMARY_MOUSE_BUTTON);
		tester.MouseUp(BPoint(150, 20));
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		EXPECT_EQ("left down 20,20|left outside 150,20|left up 150,20|", log);
		window->Unlock();
	});
}

TEST(InputTest, KeysGoToTheFocusAndTabMovesAmongNavigableViews)
{
	WindowTester::RunHeadless([] {
		std::string log;
		ShortcutWindow* window = new ShortcutWindow(&log);
		LogView* first = new LogView(BRect(0, 0, 9, 9), "first", &log, B_NAVIGABLE);
		LogView* plain = new LogView(BRect(20, 0, 29, 9), "plain", &log);
		LogView* second = new LogView(BRect(40, 0, 49, 9), "second", &log, B_NAVIGABLE);
		LogView* hidden = new LogView(BRect(60, 0, 69, 9), "hidden", &log, B_NAVIGABLE);
		window->AddChild(first);
		window->AddChild(plain);
		window->AddChild(second);
		window->AddChild(hidden);
		hidden->Hide();
		window->AddShortcut('O', 0, new BMessage('Opn '));
		window->Show();
		WindowTester tester(window);

		tester.TypeKey(B_TAB);
		tester.TypeKey('a');
		tester.TypeKey(B_TAB);
		tester.TypeKey('b');
		tester.TypeKey(B_TAB);
		tester.TypeKey(B_TAB, B_SHIFT_KEY);
		tester.TypeKey('o', B_COMMAND_KEY);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		EXPECT_EQ("first key a|first key \t|second key b|second key \t|first key \t|open|", log);
		EXPECT_EQ(second, window->CurrentFocus());
		EXPECT_TRUE(second->IsFocus());
		window->Unlock();
	});
}
