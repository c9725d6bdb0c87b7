#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <string>
#include <vector>

#include <Application.h>
#include <ListView.h>
#include <ScrollBar.h>
#include <ScrollView.h>
#include <Window.h>
#include <WindowTester.h>

#include "TimeLimits.h"
#include "platform/interface/ShownWindow.h"

using BPrivate::WindowTester;

namespace {

const uint32 kSelected = 'Selc';
const uint32 kInvoked = 'Invk';

// A row of a fixed height that counts the times it is drawn, with the row
// numbers it was drawn as.
class CountingItem : public BStringItem {
public:
	CountingItem(const char* text, float height, std::vector<std::string>* drawn)
		: BStringItem(text), fFixed(height), fDrawn(drawn)
	{
		SetHeight(height);
	}

	void DrawItem(BView* owner, BRect frame, bool complete) override
	{
		if (fDrawn != nullptr)
			fDrawn->push_back(Text());
		BStringItem::DrawItem(owner, frame, complete);
	}

	void Update(BView* owner, const BFont* font) override
	{
		BStringItem::Update(owner, font);
		SetHeight(fFixed);
	}

private:
	float fFixed;
	std::vector<std::string>* fDrawn;
};

std::string
Name(int32 i)
{
	return "row " + std::to_string(i);
}

void
Fill(BListView* list, int32 count, float height = 20,
	std::vector<std::string>* drawn = nullptr)
{
	for (int32 i = 0; i < count; i++)
		list->AddItem(new CountingItem(Name(i).c_str(), height, drawn));
}

// Items belong to whoever added them: out of the list first, then deleted.
void
EmptyAndDelete(BListView* list)
{
	BList items;
	for (int32 i = 0; i < list->CountItems(); i++)
		items.AddItem(list->ItemAt(i));
	list->MakeEmpty();
	for (int32 i = 0; i < items.CountItems(); i++)
		delete static_cast<BListItem*>(items.ItemAt(i));
}

std::string
Texts(const BListView& list)
{
	std::string texts;
	for (int32 i = 0; i < list.CountItems(); i++)
		texts += std::string(static_cast<BStringItem*>(list.ItemAt(i))->Text()) + "|";
	return texts;
}

// Logs the list's messages as code, the indices and whether the list is the
// source and the time is there: "S0|", "I1,3|".
class ListWindow : public BWindow {
public:
	ListWindow()
		: BWindow(BRect(100, 100, 399, 399), "List", B_TITLED_WINDOW, 0)
	{
		list = new BListView(BRect(0, 0, 199, 199), "list");
		list->SetSelectionMessage(new BMessage(kSelected));
		list->SetInvocationMessage(new BMessage(kInvoked));
		AddChild(list);
		Fill(list, 20);
	}

	void MessageReceived(BMessage* message) override
	{
		if (message->what != kSelected && message->what != kInvoked) {
			BWindow::MessageReceived(message);
			return;
		}
		void* source = nullptr;
		int64 when = 0;
		if (message->FindPointer("source", &source) != B_OK || source != list
			|| message->FindInt64("when", &when) != B_OK || when <= 0) {
			log += "bad message|";
			return;
		}
		log += message->what == kSelected ? "S" : "I";
		int32 index;
		for (int32 i = 0; message->FindInt32("index", i, &index) == B_OK; i++)
			log += (i > 0 ? "," : "") + std::to_string(index);
		log += "|";
	}

	// Row i's centre in the window.
	BPoint RowPoint(int32 i) { return BPoint(50, i * 20 + 10); }

	// How far the list is scrolled once the window is idle.
	float ScrolledTo(WindowTester& tester)
	{
		EXPECT_EQ(B_OK, tester.WaitForIdle());
		if (!Lock())
			return -1;
		float top = list->Bounds().top;
		Unlock();
		return top;
	}

	BListView* list;
	std::string log;
};

}	// namespace

TEST(ListViewTest, ItemsAreAddedFoundMovedAndRemoved)
{
	BListView list(BRect(0, 0, 99, 99), "list");
	EXPECT_TRUE(list.IsEmpty());
	EXPECT_EQ(nullptr, list.FirstItem());
	Fill(&list, 3);
	BListItem* inserted = new CountingItem("new", 10, nullptr);
	EXPECT_TRUE(list.AddItem(inserted, 1));
	EXPECT_FALSE(list.AddItem(new CountingItem("far", 10, nullptr), 9)
		&& "an index past the end is refused");
	EXPECT_FALSE(list.AddItem(nullptr));
	EXPECT_EQ("row 0|new|row 1|row 2|", Texts(list));
	EXPECT_EQ(1, list.IndexOf(inserted));
	EXPECT_EQ(nullptr, list.ItemAt(4));

	// Tops follow the heights: 20, 10, 20, 20.
	EXPECT_EQ(BRect(0, 20, 99, 29), list.ItemFrame(1));
	EXPECT_EQ(BRect(0, 50, 99, 69), list.ItemFrame(3));
	EXPECT_FALSE(list.ItemFrame(4).IsValid());
	EXPECT_EQ(1, list.IndexOf(BPoint(5, 29)));
	EXPECT_EQ(2, list.IndexOf(BPoint(5, 30)));
	EXPECT_EQ(-1, list.IndexOf(BPoint(5, 70)));
	inserted->SetHeight(30);
	EXPECT_EQ(BRect(0, 70, 99, 89), list.ItemFrame(3));

	EXPECT_TRUE(list.SwapItems(0, 3));
	EXPECT_TRUE(list.MoveItem(0, 2));
	EXPECT_EQ("new|row 1|row 2|row 0|", Texts(list));
	list.SortItems([](const void* a, const void* b) {
		return strcmp((*static_cast<BStringItem* const*>(a))->Text(),
			(*static_cast<BStringItem* const*>(b))->Text());
	});
	EXPECT_EQ("new|row 0|row 1|row 2|", Texts(list));
	EXPECT_EQ(BRect(0, 30, 99, 49), list.ItemFrame(1));

	// Removed items are the caller's again.
	EXPECT_TRUE(list.RemoveItem(inserted));
	delete inserted;
	delete list.RemoveItem(int32(0));
	EXPECT_EQ(nullptr, list.RemoveItem(int32(5)));
	EXPECT_FALSE(list.RemoveItems(1, 5));
	EXPECT_EQ(BRect(0, 20, 99, 39), list.ItemFrame(1));

	BList more;
	more.AddItem(new CountingItem("a", 10, nullptr));
	more.AddItem(new CountingItem("b", 10, nullptr));
	EXPECT_TRUE(list.AddList(&more, 1));
	EXPECT_EQ("row 1|a|b|row 2|", Texts(list));
	EXPECT_EQ(BRect(0, 40, 99, 59), list.ItemFrame(3));
	EmptyAndDelete(&list);
	EXPECT_TRUE(list.IsEmpty());
}

TEST(ListViewTest, SelectionFollowsTheListType)
{
	BListView list(BRect(0, 0, 99, 99), "list", B_MULTIPLE_SELECTION_LIST);
	Fill(&list, 10);
	list.Select(2, 4);
	list.Select(7, true);
	EXPECT_EQ(2, list.CurrentSelection(0));
	EXPECT_EQ(4, list.CurrentSelection(2));
	EXPECT_EQ(7, list.CurrentSelection(3));
	EXPECT_EQ(-1, list.CurrentSelection(4));
	EXPECT_TRUE(list.ItemAt(3)->IsSelected());
	EXPECT_FALSE(list.IsItemSelected(5));
	list.Deselect(3);
	EXPECT_EQ(4, list.CurrentSelection(1));
	list.DeselectExcept(4, 9);
	EXPECT_EQ(4, list.CurrentSelection(0));
	EXPECT_EQ(7, list.CurrentSelection(1));
	// Removing rows shifts the selection with them.
	delete list.RemoveItem(int32(0));
	EXPECT_EQ(3, list.CurrentSelection(0));
	list.Select(1, false);
	EXPECT_EQ(1, list.CurrentSelection(0));
	EXPECT_EQ(-1, list.CurrentSelection(1));

	// A single-selection list keeps one.
	list.Select(5, 6, true);
	list.SetListType(B_SINGLE_SELECTION_LIST);
	EXPECT_EQ(1, list.CurrentSelection(0));
	EXPECT_EQ(-1, list.CurrentSelection(1));
	list.Select(2, 4, true);
	EXPECT_EQ(2, list.CurrentSelection(0));
	EXPECT_EQ(-1, list.CurrentSelection(1));
	list.Select(42);
	EXPECT_EQ(2, list.CurrentSelection(0));
	list.DeselectAll();
	EXPECT_EQ(-1, list.CurrentSelection(0));
	EmptyAndDelete(&list);
}

TEST(ListViewTest, ClicksSelectAndDoubleClicksInvokeWithTheirFields)
{
	WithShownWindow<ListWindow>([](ListWindow* window, WindowTester& tester) {
		tester.Click(window->RowPoint(2));
		EXPECT_EQ("S2|", TakeLog(window, tester));
		// A second click close by is a double click: the row is invoked.
		tester.Click(window->RowPoint(2));
		EXPECT_EQ("I2|", TakeLog(window, tester));
		tester.Click(window->RowPoint(5));
		tester.Click(BPoint(50, 300));
		EXPECT_EQ("S5|", TakeLog(window, tester));
		ASSERT_TRUE(window->Lock());
		EXPECT_TRUE(window->list->IsFocus());
		// A disabled row cannot be clicked.
		window->list->ItemAt(7)->SetEnabled(false);
		window->Unlock();
		tester.Click(window->RowPoint(7));
		tester.TypeKey(B_ENTER);
		EXPECT_EQ("I5|", TakeLog(window, tester));
	});
}

TEST(ListViewTest, KeysMoveTheSelectionAndScrollToIt)
{
	WithShownWindow<ListWindow>([](ListWindow* window, WindowTester& tester) {
		ASSERT_TRUE(window->Lock());
		window->list->MakeFocus(true);
		window->Unlock();
		tester.TypeKey(B_DOWN_ARROW);
		tester.TypeKey(B_DOWN_ARROW);
		tester.TypeKey(B_UP_ARROW);
		tester.TypeKey(B_UP_ARROW);
		tester.TypeKey(B_UP_ARROW);
		EXPECT_EQ("S0|S1|S0|", TakeLog(window, tester));
		// End shows the last row at the bottom; Home goes back to the top.
		tester.TypeKey(B_END);
		EXPECT_EQ("S19|", TakeLog(window, tester));
		EXPECT_EQ(200, window->ScrolledTo(tester));
		tester.TypeKey(B_HOME);
		tester.TypeKey(B_ENTER);
		EXPECT_EQ("S0|I0|", TakeLog(window, tester));
		EXPECT_EQ(0, window->ScrolledTo(tester));
		ASSERT_TRUE(window->Lock());
		window->list->SetListType(B_MULTIPLE_SELECTION_LIST);
		window->Unlock();

		// Page keys scroll by a page and leave the selection alone.
		tester.TypeKey(B_PAGE_DOWN);
		EXPECT_EQ(200, window->ScrolledTo(tester));
		tester.TypeKey(B_PAGE_UP);
		// Shift with the arrows extends a multiple selection.
		tester.TypeKey(B_DOWN_ARROW, B_SHIFT_KEY);
		tester.TypeKey(B_DOWN_ARROW, B_SHIFT_KEY);
		tester.TypeKey(B_SPACE);
		EXPECT_EQ("S0,1|S0,1,2|I0,1,2|", TakeLog(window, tester));
		EXPECT_EQ(0, window->ScrolledTo(tester));
	});
}

TEST(ListViewTest, TenThousandRowsDrawOnlyWhatShows)
{
	WindowTester::RunHeadless([] {
		BWindow* window = new BWindow(BRect(100, 100, 399, 399), "Long", B_TITLED_WINDOW, 0);
		BListView* list = new BListView(BRect(2, 2, 201, 201), "list",
			B_SINGLE_SELECTION_LIST, B_FOLLOW_ALL);
		window->AddChild(new BScrollView("scroller", list, B_FOLLOW_ALL, 0, false, true));
		window->Show();
		WindowTester tester(window);
		std::vector<std::string> drawn;

		ASSERT_TRUE(window->Lock());
		auto start = std::chrono::steady_clock::now();
		Fill(list, 10000, 20, &drawn);
		auto added = std::chrono::steady_clock::now() - start;
		EXPECT_LT(added, TimeLimit(500));
		window->Unlock();
		ASSERT_EQ(B_OK, tester.WaitForIdle());

		// Ten rows show: only they draw.
		ASSERT_TRUE(window->Lock());
		drawn.clear();
		list->Invalidate();
		window->UpdateIfNeeded();
		ASSERT_EQ(10u, drawn.size());
		EXPECT_EQ(Name(0), drawn.front());
		EXPECT_EQ(Name(9), drawn.back());

		// To the end, through the bar: the last ten rows, quickly.
		drawn.clear();
		start = std::chrono::steady_clock::now();
		list->ScrollBar(B_VERTICAL)->SetValue(1000000);
		window->UpdateIfNeeded();
		EXPECT_LT(std::chrono::steady_clock::now() - start, TimeLimit(100));
		EXPECT_EQ(199800, list->Bounds().top);
		ASSERT_EQ(10u, drawn.size());
		EXPECT_EQ(Name(9990), drawn.front());
		EXPECT_EQ(Name(9999), drawn.back());
		EXPECT_EQ(9999, list->IndexOf(BPoint(5, list->Bounds().bottom)));
		EXPECT_EQ(BRect(0, 199980, 199, 199999), list->ItemFrame(9999));

		// A row invalidated alone draws alone.
		drawn.clear();
		list->InvalidateItem(9995);
		window->UpdateIfNeeded();
		ASSERT_EQ(1u, drawn.size());
		EXPECT_EQ(Name(9995), drawn[0]);
		window->Unlock();

		tester.Click(BPoint(50, 195));
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		EXPECT_EQ(9999, list->CurrentSelection());
		// Emptied, the list scrolls back to the top.
		EmptyAndDelete(list);
		EXPECT_EQ(0, list->Bounds().top);
		window->Unlock();
	});
}
