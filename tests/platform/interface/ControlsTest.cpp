#include <gtest/gtest.h>

#include <string>

#include <Application.h>
#include <Box.h>
#include <Button.h>
#include <RadioButton.h>
#include <StringView.h>
#include <Window.h>
#include <WindowTester.h>

using BPrivate::WindowTester;

namespace {

// Collects the commands its controls send, with the control's name.
class ControlWindow : public BWindow {
public:
	ControlWindow()
		: BWindow(BRect(0, 0, 299, 199), "Controls", B_TITLED_WINDOW, 0)
	{
	}

	void MessageReceived(BMessage* message) override
	{
		BControl* source;
		if (message->FindPointer("source", reinterpret_cast<void**>(&source)) == B_OK) {
			int32 value = -1;
			message->FindInt32("be:value", &value);
			log += std::string(source->Name()) + "=" + std::to_string(value) + "|";
			return;
		}
		BWindow::MessageReceived(message);
	}

	std::string log;
};

// Whether any pixel of the window's frame inside rect has the given colour.
bool
Shows(WindowTester& tester, BRect rect, rgb_color color)
{
	for (float y = rect.top; y <= rect.bottom; y++) {
		for (float x = rect.left; x <= rect.right; x++) {
			if (tester.PixelAt(BPoint(x, y)) == color)
				return true;
		}
	}
	return false;
}

// Adds a button to the window as the column'th of a row along its top.
BButton*
AddButton(BWindow* window, int32 column, const char* name, const char* label)
{
	float left = 10 + column * 90;
	BButton* button = new BButton(BRect(left, 10, left + 79, 34), name, label,
		new BMessage('Bttn'));
	window->AddChild(button);
	return button;
}

}	// namespace

TEST(ControlsTest, ButtonsInvokeByClickAndEnterAndTheDefaultTakesEnter)
{
	WindowTester::RunHeadless([] {
		ControlWindow* window = new ControlWindow;
		BButton* ok = AddButton(window, 0, "ok", "OK");
		BButton* other = AddButton(window, 1, "other", "Other");
		BButton* off = AddButton(window, 2, "off", "Off");
		off->SetEnabled(false);
		window->Show();
		WindowTester tester(window);

		tester.Click(BPoint(20, 20));
		tester.Click(BPoint(200, 20));
		// Pressed inside but released outside: no click.
		tester.MouseDown(BPoint(110, 20));
		tester.MouseUp(BPoint(110, 150));
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		EXPECT_EQ("ok=0|", window->log);
		other->MakeFocus(true);
		window->Unlock();
		tester.TypeKey(B_SPACE);
		tester.TypeKey(B_ENTER);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		ok->MakeDefault(true);
		window->Unlock();
		tester.TypeKey(B_ENTER);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		EXPECT_EQ("ok=0|other=0|other=0|ok=0|", window->log);
		EXPECT_EQ(ok, window->DefaultButton());
		EXPECT_TRUE(ok->IsDefault());
		window->Unlock();
	});
}

TEST(ControlsTest, OnlyTheFocusedButtonShowsTheFocusMark)
{
	WindowTester::RunHeadless([] {
		ControlWindow* window = new ControlWindow;
		BButton* ok = AddButton(window, 0, "ok", "OK");
		BButton* other = AddButton(window, 1, "other", "Other");
		window->Show();
		WindowTester tester(window);
		tester.Activate();
		ASSERT_TRUE(window->Lock());
		ok->MakeFocus(true);
		window->Unlock();
		const rgb_color mark = ui_color(B_KEYBOARD_NAVIGATION_COLOR);

		for (BButton* focused : {ok, other, ok}) {
			ASSERT_EQ(B_OK, tester.WaitForIdle());
			ASSERT_TRUE(window->Lock());
			BRect okFrame = ok->Frame(), otherFrame = other->Frame();
			EXPECT_TRUE(focused->IsFocus());
			window->Unlock();
			EXPECT_EQ(focused == ok, Shows(tester, okFrame, mark)) << focused->Name();
			EXPECT_EQ(focused == other, Shows(tester, otherFrame, mark)) << focused->Name();
			tester.TypeKey(B_TAB);
		}
	});
}

TEST(ControlsTest, TurningOneRadioButtonOnTurnsItsSiblingsOff)
{
	WindowTester::RunHeadless([] {
		ControlWindow* window = new ControlWindow;
		BBox* group = new BBox(BRect(0, 0, 149, 99), "group");
		BRadioButton* radios[3];
		const char* names[] = {"a", "b", "c"};
		for (int i = 0; i < 3; i++) {
			radios[i] = new BRadioButton(BRect(5, 5 + i * 25, 140, 24 + i * 25), names[i],
				names[i], new BMessage('Rdio'));
			group->AddChild(radios[i]);
		}
		// A radio button in another parent is another group.
		BRadioButton* elsewhere = new BRadioButton(BRect(160, 5, 290, 24), "elsewhere",
			"elsewhere", new BMessage('Rdio'));
		window->AddChild(group);
		window->AddChild(elsewhere);
		elsewhere->SetValue(B_CONTROL_ON);
		radios[0]->SetValue(B_CONTROL_ON);
		window->Show();
		WindowTester tester(window);

		tester.Click(BPoint(20, 40));
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		EXPECT_EQ(B_CONTROL_OFF, radios[0]->Value());
		EXPECT_EQ(B_CONTROL_ON, radios[1]->Value());
		EXPECT_EQ(B_CONTROL_OFF, radios[2]->Value());
		EXPECT_EQ(B_CONTROL_ON, elsewhere->Value());
		radios[2]->MakeFocus(true);
		window->Unlock();

		tester.TypeKey(B_SPACE);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		EXPECT_EQ(B_CONTROL_OFF, radios[1]->Value());
		EXPECT_EQ(B_CONTROL_ON, radios[2]->Value());
		EXPECT_EQ("b=1|c=1|", window->log);
		window->Unlock();
	});
}

TEST(ControlsTest, ControlsTakeTheirParentsColourAndSizeToTheirLabels)
{
	WindowTester::RunHeadless([] {
		ControlWindow* window = new ControlWindow;
		BView* panel = new BView(window->Bounds(), "panel", B_FOLLOW_ALL, B_WILL_DRAW);
		const rgb_color yellow = {255, 255, 232, 255};
		panel->SetViewColor(yellow);
		window->AddChild(panel);
		BStringView* text = new BStringView(BRect(10, 10, 20, 20), "text", "A longer label");
		BButton* button = new BButton(BRect(10, 40, 20, 50), "button", "Go", nullptr);
		panel->AddChild(text);
		panel->AddChild(button);
		EXPECT_EQ(yellow, text->ViewColor());
		EXPECT_EQ(yellow, button->ViewColor());
		text->ResizeToPreferred();
		button->ResizeToPreferred();
		EXPECT_GT(text->Bounds().Width(), text->StringWidth("A longer"));
		EXPECT_GE(button->Bounds().Width(), 75);
		EXPECT_GT(button->Bounds().Height(), 15);
		window->Show();
		WindowTester tester(window);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		// The string view's background is its parent's colour.
		EXPECT_EQ(yellow, tester.PixelAt(BPoint(11, 11)));
	});
}
