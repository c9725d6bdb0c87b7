#include <gtest/gtest.h>

#include <View.h>
#include <Window.h>
#include <WindowTester.h>

using BPrivate::WindowTester;

namespace {

// Counts how often it is attached to a window.
class CountingView : public BView {
public:
	CountingView(const char* name)
		: BView(BRect(0, 0, 9, 9), name, B_FOLLOW_NONE, 0)
	{
	}

	void AttachedToWindow() override { attached++; }

	int32 attached = 0;
};

// Builds its children when it joins a window, as panels do.
class BuildingView : public CountingView {
public:
	BuildingView() : CountingView("builder") {}

	void AttachedToWindow() override
	{
		CountingView::AttachedToWindow();
		built = new CountingView("built");
		AddChild(built);
		built->AddChild(grandchild = new CountingView("grandchild"));
	}

	CountingView* built = nullptr;
	CountingView* grandchild = nullptr;
};

}	// namespace

TEST(AttachTest, ChildrenAddedWhileAttachingAreAttachedOnce)
{
	WindowTester::RunHeadless([] {
		BWindow* window = new BWindow(BRect(0, 0, 99, 99), "Attach", B_TITLED_WINDOW, 0);
		auto builder = new BuildingView;
		auto early = new CountingView("early");
		builder->AddChild(early);
		ASSERT_TRUE(window->Lock());
		window->AddChild(builder);
		EXPECT_EQ(1, builder->attached);
		EXPECT_EQ(1, early->attached);
		ASSERT_NE(nullptr, builder->built);
		EXPECT_EQ(1, builder->built->attached);
		EXPECT_EQ(1, builder->grandchild->attached);
		EXPECT_EQ(window, builder->built->Window());
		window->Unlock();
		window->Quit();
	});
}
