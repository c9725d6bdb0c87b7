#include <gtest/gtest.h>

#include <string>
#include <utility>

#include <Application.h>
#include <InterfaceDefs.h>
#include <Message.h>
#include <ScrollBar.h>
#include <ScrollView.h>
#include <Window.h>
#include <WindowTester.h>

#include "AttrData.h"
#include "CMultiTextItem.h"
#include "ListColors.h"
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

// A shown window with a focused list of rows "row 0" ... in a scroll view.
struct ListWindow {
	explicit ListWindow(int32 rows)
		:
		window(new CountingWindow),
		list(new SpecialListView(BRect(0, 0, 300, 150), "attrList",
			B_SINGLE_SELECTION_LIST, B_FOLLOW_ALL,
			B_WILL_DRAW | B_NAVIGABLE | B_FRAME_EVENTS)),
		tester(window)
	{
		for (int32 i = 0; i < rows; i++) {
			auto row = new CMultiTextItem(CMultiTextItem::kAttributeRow, 0, true);
			std::string name = "row " + std::to_string(i);
			AttrData data(name.c_str(), 'LONG', &i, 4);
			row->SetNode(&data);
			list->AddItem(row);
		}
		list->SetSelectionMessage(new BMessage(kSelected));
		list->SetTarget(window);
		window->AddChild(new BScrollView("ScrollList", list, B_FOLLOW_ALL, 0, false, true));
		list->MakeFocus(true);
		window->Show();
	}

	// Posts the message to the list and waits until it has been handled.
	void Post(BMessage* message)
	{
		window->PostMessage(message, list);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
	}

	CountingWindow* window;
	SpecialListView* list;
	WindowTester tester;
};

}	// namespace

TEST(SpecialListViewTest, EnterSendsTheSelectionAgain)
{
	WindowTester::RunHeadless([] {
		ListWindow w(3);
		ASSERT_TRUE(w.window->Lock());
		w.list->Select(1);
		w.window->Unlock();
		ASSERT_EQ(B_OK, w.tester.WaitForIdle());
		ASSERT_TRUE(w.window->Lock());
		int32 before = w.window->fSelections;
		w.window->Unlock();

		w.tester.TypeKey(B_ENTER);
		ASSERT_EQ(B_OK, w.tester.WaitForIdle());
		ASSERT_TRUE(w.window->Lock());
		EXPECT_EQ(before + 1, w.window->fSelections);
		EXPECT_EQ(1, w.list->CurrentSelection());
		w.window->Unlock();
	});
}

TEST(SpecialListViewTest, PassesDataOnAndDropsWhatItDoesNotHandle)
{
	WindowTester::RunHeadless([] {
		ListWindow w(100);
		BMessage drop(kDataCode);
		w.Post(&drop);
		// The wheel would scroll a plain list; this one drops the message.
		BMessage wheel(B_MOUSE_WHEEL_CHANGED);
		wheel.AddFloat("be:wheel_delta_y", 3);
		w.Post(&wheel);

		ASSERT_TRUE(w.window->Lock());
		EXPECT_EQ(1, w.window->fDrops);
		EXPECT_EQ(0.0f, w.list->ScrollBar(B_VERTICAL)->Value());
		EXPECT_EQ(0.0f, w.list->Bounds().top);
		w.list->Select(90);
		w.window->Unlock();

		BMessage scroll('ScrS');
		w.Post(&scroll);
		ASSERT_TRUE(w.window->Lock());
		EXPECT_GT(w.list->Bounds().top, 0.0f);
		EXPECT_TRUE(w.list->Bounds().Intersects(w.list->ItemFrame(90)));
		w.window->Unlock();
	});
}

TEST(SpecialListViewTest, SelectsTheRowOfANameIgnoringCaseElseTheFirstRow)
{
	WindowTester::RunHeadless([] {
		ListWindow w(3);
		for (auto [name, index] : {std::pair("ROW 2", 2), std::pair("row 1", 1),
				std::pair("gamma", 0)}) {
			BMessage select('SelI');
			select.AddString("attrName", name);
			w.Post(&select);
			ASSERT_TRUE(w.window->Lock());
			EXPECT_EQ(index, w.list->CurrentSelection()) << name;
			w.window->Unlock();
		}
	});
}

TEST(SpecialListViewTest, FramesItselfInBlueWhileItHasTheFocus)
{
	WindowTester::RunHeadless([] {
		ListWindow w(3);
		ASSERT_EQ(B_OK, w.tester.WaitForIdle());
		ASSERT_TRUE(w.window->Lock());
		BPoint corner = w.list->ConvertToScreen(w.list->Bounds().LeftBottom())
			- w.window->Frame().LeftTop();
		rgb_color low = w.list->LowColor();
		EXPECT_TRUE(w.list->IsFocus());
		w.window->Unlock();
		EXPECT_EQ(BlueColor, w.tester.PixelAt(corner));

		ASSERT_TRUE(w.window->Lock());
		w.list->MakeFocus(false);
		w.window->Unlock();
		ASSERT_EQ(B_OK, w.tester.WaitForIdle());
		EXPECT_EQ(low, w.tester.PixelAt(corner));

		// The frame comes back with the focus.
		ASSERT_TRUE(w.window->Lock());
		w.list->MakeFocus(true);
		w.window->Unlock();
		ASSERT_EQ(B_OK, w.tester.WaitForIdle());
		EXPECT_EQ(BlueColor, w.tester.PixelAt(corner));
	});
}
