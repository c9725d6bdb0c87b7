#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>

#include <OS.h>

#include <Application.h>
#include <ListView.h>
#include <ScrollBar.h>
#include <ScrollView.h>
#include <TextControl.h>
#include <Window.h>
#include <WindowTester.h>

using BPrivate::WindowTester;

namespace {

// A row of a fixed height.
class FixedItem : public BListItem {
public:
	explicit FixedItem(float height) : fFixed(height) { SetHeight(height); }

	void DrawItem(BView*, BRect, bool) override {}
	void Update(BView* owner, const BFont*) override
	{
		SetWidth(owner->Bounds().Width());
		SetHeight(fFixed);
	}

private:
	float fFixed;
};

BWindow*
NewWindow()
{
	return new BWindow(BRect(100, 100, 499, 399), "Scroll", B_TITLED_WINDOW, 0);
}

// A list of count rows of 20 pixels in a scroll view with a vertical bar, at
// the window's top left; the list shows 10 rows.
BListView*
AddScrolledList(BWindow* window, int32 count)
{
	BListView* list = new BListView(BRect(2, 2, 201, 201), "list", B_SINGLE_SELECTION_LIST,
		B_FOLLOW_ALL);
	window->AddChild(new BScrollView("scroller", list, B_FOLLOW_ALL, 0, false, true));
	for (int32 i = 0; i < count; i++)
		list->AddItem(new FixedItem(20));
	return list;
}

// Runs body with a window that shows a list of count rows of 20 pixels (see
// AddScrolledList), and more views that extra adds.
template<typename Body>
void
WithScrolledList(int32 count, Body body, void (*extra)(BWindow*) = nullptr)
{
	WindowTester::RunHeadless([&] {
		BWindow* window = NewWindow();
		BListView* list = AddScrolledList(window, count);
		if (extra != nullptr)
			extra(window);
		window->Show();
		WindowTester tester(window);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		body(window, list, tester);
	});
}

// The window point at height y of the bar (from its bottom when negative),
// halfway across.
BPoint
BarPoint(BScrollBar* bar, float y)
{
	BRect bounds = bar->Bounds();
	BPoint point((bounds.left + bounds.right) / 2, y < 0 ? bounds.bottom + 1 + y : y);
	return bar->ConvertToParent(point) + bar->Parent()->Frame().LeftTop();
}

// How far the list is scrolled once the window is idle; -1 when its bar
// disagrees.
float
ScrolledTo(BWindow* window, WindowTester& tester, BListView* list)
{
	EXPECT_EQ(B_OK, tester.WaitForIdle());
	if (!window->Lock())
		return -2;
	float top = list->Bounds().top;
	float value = list->ScrollBar(B_VERTICAL)->Value();
	window->Unlock();
	return top == value ? top : -1;
}

// How long a held part repeats several times over (repeats come every 50 ms).
const bigtime_t kFewRepeats = 300000;

// A vertical bar over 0 to 1800 that tells every value it takes, so that a
// test can wait for the steps of a held part.
class RecordingBar : public BScrollBar {
public:
	RecordingBar(BRect frame, BView* target)
		: BScrollBar(frame, "bar", target, 0, 1800, B_VERTICAL)
	{
	}

	void ValueChanged(float value) override
	{
		BScrollBar::ValueChanged(value);
		std::lock_guard<std::mutex> guard(fLock);
		fValue = value;
		fChanges++;
		fChanged.notify_all();
	}

	// Whether the value came to satisfy done within timeout microseconds.
	bool WaitFor(const std::function<bool(float)>& done, bigtime_t timeout = 10000000)
	{
		std::unique_lock<std::mutex> guard(fLock);
		return fChanged.wait_for(guard, std::chrono::microseconds(timeout),
			[&] { return done(fValue); });
	}

	int32 Changes()
	{
		std::lock_guard<std::mutex> guard(fLock);
		return fChanges;
	}

private:
	std::mutex fLock;
	std::condition_variable fChanged;
	float fValue = 0;
	int32 fChanges = 0;
};

}	// namespace

TEST(ScrollTest, TheBarKeepsItsValueInRangeAndScrollsItsTarget)
{
	BView target(BRect(0, 0, 99, 99), "target", B_FOLLOW_NONE, 0);
	BScrollBar bar(BRect(0, 0, B_V_SCROLL_BAR_WIDTH, 99), "bar", &target, 0, 500, B_VERTICAL);
	EXPECT_EQ(&bar, target.ScrollBar(B_VERTICAL));
	EXPECT_EQ(nullptr, target.ScrollBar(B_HORIZONTAL));

	bar.SetValue(120);
	EXPECT_EQ(120, bar.Value());
	EXPECT_EQ(120, target.Bounds().top);
	bar.SetValue(900);
	EXPECT_EQ(500, bar.Value());
	bar.SetValue(-3);
	EXPECT_EQ(0, bar.Value());

	// The target scrolled by other means takes the bar along, within its range.
	target.ScrollTo(7, 300);
	EXPECT_EQ(300, bar.Value());
	EXPECT_EQ(BPoint(7, 300), target.Bounds().LeftTop());
	target.ScrollBy(0, 1000);
	EXPECT_EQ(500, bar.Value());
	EXPECT_EQ(500, target.Bounds().top);

	// A narrower range pulls the value and the target back.
	bar.SetRange(0, 200);
	float min, max;
	bar.GetRange(&min, &max);
	EXPECT_EQ(0, min);
	EXPECT_EQ(200, max);
	EXPECT_EQ(200, bar.Value());
	EXPECT_EQ(200, target.Bounds().top);

	bar.SetProportion(1.5f);
	EXPECT_EQ(1.0f, bar.Proportion());
	bar.SetProportion(0.25f);
	EXPECT_EQ(0.25f, bar.Proportion());

	// Another target: the old one is let go.
	BView other(BRect(0, 0, 99, 99), "other", B_FOLLOW_NONE, 0);
	bar.SetTarget(&other);
	EXPECT_EQ(&other, bar.Target());
	EXPECT_EQ(nullptr, target.ScrollBar(B_VERTICAL));
	EXPECT_EQ(&bar, other.ScrollBar(B_VERTICAL));
}

TEST(ScrollTest, BarsFollowTheListAndResizeWithTheWindow)
{
	WithScrolledList(100, [](BWindow* window, BListView* list, WindowTester& tester) {
		ASSERT_TRUE(window->Lock());
		BScrollBar* bar = list->ScrollBar(B_VERTICAL);
		ASSERT_NE(nullptr, bar);
		float min, max;
		bar->GetRange(&min, &max);
		// 100 rows of 20 pixels, 200 of them shown.
		EXPECT_EQ(0, min);
		EXPECT_EQ(1800, max);
		EXPECT_FLOAT_EQ(0.1f, bar->Proportion());
		list->ScrollTo(0, 400);
		EXPECT_EQ(400, bar->Value());
		list->RemoveItems(20, 80);
		bar->GetRange(&min, &max);
		EXPECT_EQ(200, max);
		EXPECT_EQ(200, bar->Value());
		EXPECT_EQ(200, list->Bounds().top);
		window->Unlock();

		// The window grows by 100 pixels each way: the list shows 5 more rows.
		tester.UserResize(499, 399);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		EXPECT_EQ(BRect(2, 2, 301, 301), list->Frame());
		EXPECT_EQ(BRect(302, 2, 316, 301), bar->Frame());
		bar->GetRange(&min, &max);
		EXPECT_EQ(100, max);
		EXPECT_FLOAT_EQ(0.75f, bar->Proportion());
		window->Unlock();
	});
}

TEST(ScrollTest, TheBorderShowsWhetherTheListHasTheFocus)
{
	auto addField = [](BWindow* window) {
		window->AddChild(new BTextControl(BRect(250, 10, 390, 30), "field", "Name", "",
			nullptr));
	};
	WithScrolledList(30, [](BWindow* window, BListView* list, WindowTester& tester) {
		ASSERT_TRUE(window->Lock());
		auto scroller = dynamic_cast<BScrollView*>(list->Parent());
		ASSERT_NE(nullptr, scroller);
		// The frame line inside the sunken edge, halfway down the left side.
		BPoint border(scroller->Frame().left + 1, 100);
		window->Unlock();
		const rgb_color focus = ui_color(B_KEYBOARD_NAVIGATION_COLOR);
		tester.Activate();
		auto expectHighlighted = [&](bool highlighted) {
			ASSERT_EQ(B_OK, tester.WaitForIdle());
			ASSERT_TRUE(window->Lock());
			EXPECT_EQ(highlighted, list->IsFocus());
			EXPECT_EQ(highlighted, scroller->IsBorderHighlighted());
			window->Unlock();
			EXPECT_EQ(highlighted, tester.PixelAt(border) == focus);
		};

		tester.Click(BPoint(50, 50));
		expectHighlighted(true);
		tester.TypeKey(B_TAB);
		expectHighlighted(false);
		tester.Click(BPoint(50, 50));
		expectHighlighted(true);
		tester.Click(BPoint(350, 20));
		expectHighlighted(false);
	}, addField);
}

TEST(ScrollTest, ArrowsTrackClicksHeldOrNotAndTheThumbMoveTheValue)
{
	WithScrolledList(100, [](BWindow* window, BListView* list, WindowTester& tester) {
		ASSERT_TRUE(window->Lock());
		BScrollBar* bar = list->ScrollBar(B_VERTICAL);
		bar->SetSteps(20, 180);
		BPoint bottomArrow = BarPoint(bar, -3);
		BPoint topArrow = BarPoint(bar, 2);
		BPoint lowTrack = BarPoint(bar, -23);
		window->Unlock();

		tester.Click(bottomArrow);
		EXPECT_EQ(20, ScrolledTo(window, tester, list));
		// A page below the thumb, then back up by an arrow step.
		tester.Click(lowTrack);
		tester.Click(topArrow);
		EXPECT_EQ(180, ScrolledTo(window, tester, list));
		ASSERT_TRUE(window->Lock());
		bar->SetValue(0);
		window->Unlock();

		// The thumb dragged far down ends at the bottom of the range, and dragged
		// back by the same distance at the top; the pointer may leave the bar.
		BPoint thumb = topArrow + BPoint(0, 20);
		tester.MouseDown(thumb);
		tester.MouseMove(thumb + BPoint(40, 1000), B_PRIMARY_MOUSE_BUTTON);
		EXPECT_EQ(1800, ScrolledTo(window, tester, list));
		tester.MouseMove(thumb + BPoint(0, 50), B_PRIMARY_MOUSE_BUTTON);
		float halfway = ScrolledTo(window, tester, list);
		EXPECT_GT(halfway, 0);
		EXPECT_LT(halfway, 1800);
		tester.MouseMove(thumb, B_PRIMARY_MOUSE_BUTTON);
		tester.MouseUp(thumb);
		// Released: moving on does nothing.
		tester.MouseMove(thumb + BPoint(0, 80));
		EXPECT_EQ(0, ScrolledTo(window, tester, list));
	});
}

TEST(ScrollTest, HeldArrowsRepeatAndAHeldTrackPagesUpToThePointer)
{
	WindowTester::RunHeadless([] {
		BWindow* window = NewWindow();
		BView* target = new BView(BRect(0, 0, 199, 199), "target", B_FOLLOW_NONE, 0);
		auto bar = new RecordingBar(BRect(200, 0, 200 + B_V_SCROLL_BAR_WIDTH, 199), target);
		bar->SetSteps(20, 180);
		window->AddChild(target);
		window->AddChild(bar);
		window->Show();
		WindowTester tester(window);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		// The bar stands in the window itself, so its frame is in window coordinates.
		BPoint bottomArrow(202, 196);
		BPoint middle(202, 100);

		// Held down, an arrow steps on: released once it has repeated.
		tester.MouseDown(bottomArrow);
		EXPECT_TRUE(bar->WaitFor([](float value) { return value > 40; }));
		tester.MouseUp(bottomArrow);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		EXPECT_GT(bar->Value(), 40);
		EXPECT_EQ(bar->Value(), target->Bounds().top);
		bar->SetValue(0);
		window->Unlock();

		// The track pages until the thumb lies under the pointer, then stops:
		// the repeats after that leave the value where it is.
		tester.MouseDown(middle);
		EXPECT_TRUE(bar->WaitFor([](float value) { return value >= 900; }));
		int32 changes = bar->Changes();
		EXPECT_FALSE(bar->WaitFor([](float value) { return value > 900; }, kFewRepeats));
		tester.MouseUp(middle);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		EXPECT_EQ(900, bar->Value());
		window->Unlock();
		EXPECT_EQ(changes, bar->Changes());
	});
}

TEST(ScrollTest, TheWheelScrollsTheViewUnderThePointer)
{
	WithScrolledList(100, [](BWindow* window, BListView* list, WindowTester& tester) {
		ASSERT_TRUE(window->Lock());
		BView* plain = window->FindView("plain");
		window->Unlock();
		// Three rows a step, down and then up again.
		tester.Wheel(BPoint(50, 50), 0, 2);
		EXPECT_EQ(120, ScrolledTo(window, tester, list));
		tester.Wheel(BPoint(50, 50), 0, -1);
		// Over the bar itself.
		tester.Wheel(BPoint(210, 100), 0, 3);
		EXPECT_EQ(240, ScrolledTo(window, tester, list));
		// A view without scroll bars passes the wheel on and nothing scrolls.
		tester.Wheel(BPoint(300, 50), 0, 5);
		EXPECT_EQ(240, ScrolledTo(window, tester, list));
		ASSERT_TRUE(window->Lock());
		EXPECT_EQ(0, plain->Bounds().top);
		window->Unlock();
	}, [](BWindow* window) {
		window->AddChild(new BView(BRect(250, 10, 349, 109), "plain", B_FOLLOW_NONE, 0));
	});
}
