#include <gtest/gtest.h>

#include <string>

#include <Application.h>
#include <Message.h>
#include <TextControl.h>
#include <TextView.h>
#include <Window.h>
#include <WindowTester.h>

#include "platform/interface/ShownWindow.h"

using BPrivate::WindowTester;

namespace {

const uint32 kChanged = 'Chgd';
const uint32 kModified = 'Modf';

// Two labelled fields; logs their messages as "C name=text|" (committed) and
// "M name|" (modified), checking the fields BeOS adds.
class FieldWindow : public BWindow {
public:
	FieldWindow()
		: BWindow(BRect(100, 100, 399, 199), "Fields", B_TITLED_WINDOW, 0)
	{
		first = new BTextControl(BRect(10, 10, 289, 34), "first", "First:", "one",
			new BMessage(kChanged));
		second = new BTextControl(BRect(10, 50, 289, 74), "second", "Second:", "",
			new BMessage(kChanged));
		first->SetModificationMessage(new BMessage(kModified));
		AddChild(first);
		AddChild(second);
	}

	void MessageReceived(BMessage* message) override
	{
		if (message->what != kChanged && message->what != kModified) {
			BWindow::MessageReceived(message);
			return;
		}
		void* source = nullptr;
		int32 value;
		BTextControl* control = message->FindPointer("source", &source) == B_OK
			? static_cast<BTextControl*>(source) : nullptr;
		if ((control != first && control != second)
			|| message->FindInt32("be:value", &value) != B_OK || !message->HasInt64("when")) {
			log += "bad message|";
			return;
		}
		if (message->what == kModified)
			log += std::string("M ") + control->Name() + "|";
		else
			log += std::string("C ") + control->Name() + "=" + control->Text() + "|";
	}

	// A point inside a control's field.
	BPoint FieldPoint(BTextControl* control)
	{
		return control->Frame().LeftTop() + BPoint(control->Divider() + 20, 12);
	}

	BTextControl* first;
	BTextControl* second;
	std::string log;
};

}	// namespace

TEST(TextControlTest, LabelDividerAlignmentAndTextSettle)
{
	BTextControl control(BRect(0, 0, 199, 23), "control", "Label:", "initial", nullptr);
	BTextView* field = control.TextView();
	ASSERT_NE(nullptr, field);
	EXPECT_GT(control.Divider(), control.StringWidth("Label:"));
	EXPECT_GE(field->Frame().left, control.Divider());
	EXPECT_LE(field->Frame().right, 199);

	control.SetDivider(80);
	EXPECT_GE(field->Frame().left, 80);
	EXPECT_LT(field->Frame().left, 85);
	control.SetDivider(0);
	EXPECT_LT(field->Frame().left, 5);

	control.SetAlignment(B_ALIGN_RIGHT, B_ALIGN_CENTER);
	EXPECT_EQ(B_ALIGN_CENTER, field->Alignment());

	// The program's text stays as it is; inserted line feeds become spaces.
	control.SetText("new\ntext");
	EXPECT_STREQ("new\ntext", control.Text());
	field->SelectAll();
	field->Delete();
	field->Insert("pasted\nline");
	EXPECT_STREQ("pasted line", control.Text());
	EXPECT_EQ(1, field->CountLines());

	// Navigation belongs to the field.
	BTextControl navigable(BRect(0, 0, 99, 23), "nav", nullptr, nullptr, nullptr,
		B_FOLLOW_NONE, B_WILL_DRAW | B_NAVIGABLE);
	EXPECT_EQ(0u, navigable.Flags() & B_NAVIGABLE);
	EXPECT_NE(0u, navigable.TextView()->Flags() & B_NAVIGABLE);
	float width, height;
	navigable.GetPreferredSize(&width, &height);
	EXPECT_GT(height, navigable.TextView()->LineHeight(0));
}

TEST(TextControlTest, EnterAndLeavingTheFieldCommitAChangedText)
{
	WithShownWindow<FieldWindow>([](FieldWindow* window, WindowTester& tester) {
		tester.Click(window->FieldPoint(window->first));
		tester.TypeKey(B_END);
		tester.TypeText("s");
		EXPECT_EQ("M first|", TakeLog(window, tester));
		tester.TypeKey(B_ENTER);
		EXPECT_EQ("C first=ones|", TakeLog(window, tester));
		// Enter selects the text; without a change it commits nothing.
		tester.TypeKey(B_ENTER);
		tester.TypeText("two");
		EXPECT_EQ("M first|M first|M first|M first|", TakeLog(window, tester))
			<< "replacing the selection deletes, then inserts";
		ASSERT_TRUE(window->Lock());
		window->first->SetModificationMessage(nullptr);
		window->Unlock();
		tester.Click(window->FieldPoint(window->second));
		EXPECT_EQ("C first=two|", TakeLog(window, tester));
		ASSERT_TRUE(window->Lock());
		EXPECT_TRUE(window->second->TextView()->IsFocus());
		window->Unlock();

		// The program's own text is no edit.
		ASSERT_TRUE(window->Lock());
		window->first->SetText("set");
		window->Unlock();
		tester.Click(window->FieldPoint(window->first));
		tester.Click(window->FieldPoint(window->second));
		tester.TypeKey(B_ENTER);
		EXPECT_EQ("", TakeLog(window, tester));
	});
}

TEST(TextControlTest, HomeAndEndReachTheEndsOfATextWiderThanTheField)
{
	WithShownWindow<FieldWindow>([](FieldWindow* window, WindowTester& tester) {
		std::string longText(400, 'x');
		ASSERT_TRUE(window->Lock());
		window->first->SetText(longText.c_str());
		window->Unlock();
		tester.Click(window->FieldPoint(window->first));
		tester.TypeKey(B_HOME);
		tester.TypeKey(B_END);
		tester.TypeText("!");
		tester.TypeKey(B_HOME);
		tester.TypeText("^");
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		EXPECT_EQ("^" + longText + "!", window->first->Text());
		window->Unlock();
	});
}

TEST(TextControlTest, TabSelectsTheNextFieldAndADisabledFieldRefusesEdits)
{
	WithShownWindow<FieldWindow>([](FieldWindow* window, WindowTester& tester) {
		ASSERT_TRUE(window->Lock());
		window->first->SetFlags(window->first->Flags() | B_NAVIGABLE);
		window->second->SetFlags(window->second->Flags() | B_NAVIGABLE);
		window->first->MakeFocus(true);
		window->Unlock();
		tester.TypeKey(B_TAB);
		tester.TypeKey(B_TAB);
		tester.TypeText("x");
		EXPECT_EQ("M first|M first|", TakeLog(window, tester));
		ASSERT_TRUE(window->Lock());
		EXPECT_STREQ("x", window->first->Text()) << "tabbing in selects all";
		window->first->SetEnabled(false);
		EXPECT_FALSE(window->first->TextView()->IsFocus());
		EXPECT_FALSE(window->first->TextView()->IsEditable());
		EXPECT_EQ(0u, window->first->TextView()->Flags() & B_NAVIGABLE);
		window->Unlock();
		EXPECT_EQ("C first=x|", TakeLog(window, tester)) << "disabling takes the focus away";

		tester.Click(window->FieldPoint(window->first));
		tester.TypeText("y");
		tester.TypeKey(B_TAB);
		tester.TypeText("z");
		EXPECT_EQ("", TakeLog(window, tester));
		ASSERT_TRUE(window->Lock());
		EXPECT_STREQ("x", window->first->Text());
		EXPECT_STREQ("z", window->second->Text());
		window->first->SetEnabled(true);
		EXPECT_TRUE(window->first->TextView()->IsEditable());
		window->Unlock();
	});
}
