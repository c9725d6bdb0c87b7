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
