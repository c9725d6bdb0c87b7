#include <gtest/gtest.h>

#include <Application.h>
#include <Bitmap.h>
#include <View.h>
#include <Window.h>
#include <WindowTester.h>

using BPrivate::WindowTester;

namespace {

const rgb_color kRed = {255, 0, 0, 255};
const rgb_color kBlue = {0, 0, 255, 255};
const rgb_color kGreen = {0, 255, 0, 255};
const rgb_color kWhite = {255, 255, 255, 255};

// Records the order of its hooks and fills itself with its colour.
class PaintView : public BView {
public:
	PaintView(BRect frame, const char* name, rgb_color color, std::string* log,
		uint32 flags = B_WILL_DRAW)
		: BView(frame, name, B_FOLLOW_NONE, flags), fColor(color), fLog(log)
	{
	}

	void Draw(BRect) override
	{
		*fLog += std::string(Name()) + ".Draw ";
		SetHighColor(fColor);
		FillRect(BRect(0, 0, 4, 4));
	}

	void DrawAfterChildren(BRect) override
	{
		*fLog += std::string(Name()) + ".After ";
		SetHighColor(fColor);
		FillRect(BRect(10, 10, 12, 12));
	}

private:
	rgb_color fColor;
	std::string* fLog;
};

BWindow*
NewWindow(BRect frame = BRect(100, 100, 299, 199))
{
	return new BWindow(frame, "Test", B_TITLED_WINDOW, 0);
}

}	// namespace

TEST(DrawingTest, ChildrenDrawOverParentsAndAfterChildrenOverThem)
{
	WindowTester::RunHeadless([] {
		std::string log;
		BWindow* window = NewWindow();
		auto parent = new PaintView(BRect(0, 0, 99, 99), "parent", kRed, &log,
			B_WILL_DRAW | B_DRAW_ON_CHILDREN);
		auto child = new PaintView(BRect(2, 2, 49, 49), "child", kBlue, &log);
		parent->AddChild(child);
		parent->SetViewColor(kGreen);
		window->AddChild(parent);
		window->Show();
		WindowTester tester(window);
		ASSERT_EQ(B_OK, tester.WaitForIdle());

		EXPECT_EQ("parent.Draw child.Draw parent.After ", log);
		EXPECT_EQ(kRed, tester.PixelAt(BPoint(1, 1)));
		// The child (at 2, 2) drew its corner over the parent's.
		EXPECT_EQ(kBlue, tester.PixelAt(BPoint(3, 3)));
		EXPECT_EQ(kBlue, tester.PixelAt(BPoint(6, 6)));
		EXPECT_EQ(kRed, tester.PixelAt(BPoint(11, 11)));
		// Background in the view colour, outside the views the window's white.
		EXPECT_EQ(kGreen, tester.PixelAt(BPoint(60, 60)));
		EXPECT_EQ(kWhite, tester.PixelAt(BPoint(150, 50)));
	});
}
