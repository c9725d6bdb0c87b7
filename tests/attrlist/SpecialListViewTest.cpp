#include <gtest/gtest.h>

#include <string>

#include <Application.h>
#include <InterfaceDefs.h>
#include <Message.h>
#include <ScrollBar.h>
#include <ScrollView.h>
#include <Window.h>
#include <WindowTester.h>

#include "AttrData.h"
#include "CMultiTextItem.h"
#include "SpecialListView.h"

using BPrivate::WindowTester;

namespace {

const uint32 kSelected = 'Selc';
const uint32 kDataCode = 'DATA';

// A window that counts the list's selection messages and the data messages
// passed on to it.
class CountingWindow : public BWindow {
public:
	CountingWindow()
		: BWindow(BRect(100, 100, 499, 299), "List", B_TITLED_WINDOW, 0)
	{
	}

	void MessageReceived(BMessage* message) override
	{
		if (message->what == kSelected)
			fSelections++;
		else if (message->what == kDataCode)
			fDrops++;
		else
			BWindow::MessageReceived(message);
	}

	int32 fSelections = 0;
	int32 fDrops = 0;
};

// A list of rows "row 0" ... inside a scroll view, focused.
SpecialListView*
AddList(BWindow* window, int32 rows)
{
	auto list = new SpecialListView(BRect(0, 0, 300, 150), "attrList",
		B_SINGLE_SELECTION_LIST, B_FOLLOW_ALL, B_WILL_DRAW | B_NAVIGABLE | B_FRAME_EVENTS);
	for (int32 i = 0; i < rows; i++) {
		auto row = new CMultiTextItem(CMultiTextItem::kAttributeRow, 0, true);
		std::string name = "row " + std::to_string(i);
		int32 value = i;
		AttrData data(name.c_str(), 'LONG', &value, 4);
		row->SetNode(&data);
		list->AddItem(row);
	}
	list->SetSelectionMessage(new BMessage(kSelected));
	list->SetTarget(window);
	window->AddChild(new BScrollView("ScrollList", list, B_FOLLOW_ALL, 0, false, true));
	list->MakeFocus(true);
	return list;
}

}	// namespace

TEST(SpecialListViewTest, EnterSendsTheSelectionAgain)
{
	WindowTester::RunHeadless([] {
		auto window = new CountingWindow;
		SpecialListView* list = AddList(window, 3);
		window->Show();
		WindowTester tester(window);
		ASSERT_TRUE(window->Lock());
		list->Select(1);
		window->Unlock();
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		int32 before = window->fSelections;
		window->Unlock();

		tester.TypeKey(B_ENTER);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		EXPECT_EQ(before + 1, window->fSelections);
		EXPECT_EQ(1, list->CurrentSelection());
		window->Unlock();
	});
}

TEST(SpecialListViewTest, PassesDataOnAndDropsWhatItDoesNotHandle)
{
	WindowTester::RunHeadless([] {
		auto window = new CountingWindow;
		SpecialListView* list = AddList(window, 100);
		window->Show();
		WindowTester tester(window);

		BMessage drop(kDataCode);
		window->PostMessage(&drop, list);
		// The wheel would scroll a plain list; this one drops the message.
		BMessage wheel(B_MOUSE_WHEEL_CHANGED);
		wheel.AddFloat("be:wheel_delta_y", 3);
		window->PostMessage(&wheel, list);
		ASSERT_EQ(B_OK, tester.WaitForIdle());

		ASSERT_TRUE(window->Lock());
		EXPECT_EQ(1, window->fDrops);
		EXPECT_EQ(0.0f, list->ScrollBar(B_VERTICAL)->Value());
		EXPECT_EQ(0.0f, list->Bounds().top);
		window->Unlock();

		BMessage scroll('ScrS');
		ASSERT_TRUE(window->Lock());
		list->Select(90);
		window->Unlock();
		window->PostMessage(&scroll, list);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		EXPECT_GT(list->Bounds().top, 0.0f);
		EXPECT_TRUE(list->Bounds().Intersects(list->ItemFrame(90)));
		window->Unlock();
	});
}
