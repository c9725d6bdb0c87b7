#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <string>

#include <Application.h>
#include <Bitmap.h>
#include <Region.h>
#include <View.h>
#include <Window.h>
#include <WindowTester.h>

#include "../../../platform/link/DisplayServer.h"
#include "platform/storage/TempFolder.h"

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

		ASSERT_TRUE(window->Lock());
		EXPECT_EQ("parent.Draw child.Draw parent.After ", log);
		window->Unlock();
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

TEST(DrawingTest, TransparentViewsShowTheirParentAndInvalidationRedraws)
{
	WindowTester::RunHeadless([] {
		std::string log;
		BWindow* window = NewWindow();
		auto parent = new PaintView(BRect(0, 0, 99, 99), "parent", kRed, &log);
		parent->SetViewColor(kGreen);
		auto glass = new PaintView(BRect(20, 20, 59, 59), "glass", kBlue, &log);
		glass->SetViewColor(B_TRANSPARENT_COLOR);
		parent->AddChild(glass);
		window->AddChild(parent);
		window->AddChild(new PaintView(BRect(120, 0, 149, 29), "aside", kRed, &log));
		window->Show();
		WindowTester tester(window);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_EQ(kGreen, tester.PixelAt(BPoint(40, 40)));
		EXPECT_EQ(kBlue, tester.PixelAt(BPoint(21, 21)));

		// What is invalid is drawn again after the message that asked, from the
		// parent up (the glass shows it); views elsewhere are left alone.
		ASSERT_TRUE(window->Lock());
		log.clear();
		glass->Invalidate(BRect(30, 30, 35, 35));
		window->Unlock();
		window->PostMessage('nop ');
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		EXPECT_EQ("parent.Draw glass.Draw ", log);
		window->Unlock();
	});
}

TEST(DrawingTest, BitmapsInTheSystemColourMapDrawWithTransparency)
{
	WindowTester::RunHeadless([] {
		BBitmap icon(BRect(0, 0, 3, 3), B_CMAP8);
		ASSERT_EQ(B_OK, icon.InitCheck());
		EXPECT_EQ(4, icon.BytesPerRow());
		uint8 pixels[16];
		memset(pixels, B_TRANSPARENT_MAGIC_CMAP8, sizeof(pixels));
		uint8 red = index_for_color(kRed);
		pixels[0] = red;
		pixels[5] = index_for_color(kBlue);
		icon.SetBits(pixels, sizeof(pixels), 0, B_CMAP8);
		EXPECT_EQ(kRed, icon.ColorAt(0, 0));
		EXPECT_EQ(0, icon.ColorAt(3, 3).alpha);

		// Scaled by two, drawn over a green view.
		class IconView : public BView {
		public:
			IconView(const BBitmap* bitmap)
				: BView(BRect(0, 0, 49, 49), "icon", B_FOLLOW_NONE, B_WILL_DRAW),
				fBitmap(bitmap)
			{
				SetViewColor(kGreen);
			}

			void Draw(BRect) override
			{
				SetDrawingMode(B_OP_OVER);
				DrawBitmap(fBitmap, fBitmap->Bounds(), BRect(10, 10, 17, 17));
			}

		private:
			const BBitmap* fBitmap;
		};
		BWindow* window = NewWindow();
		window->AddChild(new IconView(&icon));
		window->Show();
		WindowTester tester(window);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_EQ(kRed, tester.PixelAt(BPoint(11, 11)));
		EXPECT_EQ(kBlue, tester.PixelAt(BPoint(12, 12)));
		EXPECT_EQ(kBlue, tester.PixelAt(BPoint(13, 13)));
		EXPECT_EQ(kGreen, tester.PixelAt(BPoint(16, 16)));
		EXPECT_EQ(kGreen, tester.PixelAt(BPoint(18, 18)));
	});
}

TEST(DrawingTest, ShapesCoverTheirInclusiveEdgesAndClippingLimitsThem)
{
	WindowTester::RunHeadless([] {
		class ShapeView : public BView {
		public:
			ShapeView()
				: BView(BRect(0, 0, 99, 99), "shapes", B_FOLLOW_NONE, B_WILL_DRAW)
			{
			}

			void Draw(BRect) override
			{
				SetHighColor(kRed);
				StrokeRect(BRect(10, 10, 19, 19));
				PushState();
				BRegion clip(BRect(30, 30, 34, 34));
				ConstrainClippingRegion(&clip);
				SetHighColor(kBlue);
				FillRect(BRect(30, 30, 39, 39));
				PopState();
				SetLowColor(kGreen);
				FillRect(BRect(50, 50, 51, 51), B_SOLID_LOW);
				MovePenTo(60, 60);
				StrokeLine(BPoint(69, 60));
			}
		};
		BWindow* window = NewWindow();
		window->AddChild(new ShapeView);
		window->Show();
		WindowTester tester(window);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_EQ(kRed, tester.PixelAt(BPoint(10, 10)));
		EXPECT_EQ(kRed, tester.PixelAt(BPoint(19, 19)));
		EXPECT_EQ(kWhite, tester.PixelAt(BPoint(15, 15)));
		EXPECT_EQ(kWhite, tester.PixelAt(BPoint(20, 20)));
		EXPECT_EQ(kBlue, tester.PixelAt(BPoint(34, 34)));
		EXPECT_EQ(kWhite, tester.PixelAt(BPoint(35, 35)));
		EXPECT_EQ(kGreen, tester.PixelAt(BPoint(51, 51)));
		EXPECT_EQ(kRed, tester.PixelAt(BPoint(60, 60)));
		EXPECT_EQ(kRed, tester.PixelAt(BPoint(69, 60)));
		EXPECT_EQ(kWhite, tester.PixelAt(BPoint(70, 60)));
	});
}

namespace {

// The width and height that a PNG file's header gives.
BPoint
PictureSize(const std::string& path)
{
	std::ifstream file(path, std::ios::binary);
	unsigned char header[24] = {};
	file.read(reinterpret_cast<char*>(header), sizeof(header));
	auto word = [&](int at) {
		return float(uint32(header[at]) << 24 | uint32(header[at + 1]) << 16
			| uint32(header[at + 2]) << 8 | header[at + 3]);
	};
	return BPoint(word(16), word(20));
}

}	// namespace

TEST(DrawingTest, OnADenseScreenWindowsAreDrawnAtTwiceThePixels)
{
	// The density is the desktop's from its start: this test needs a process
	// of its own, as CTest gives it.
	setenv("QT_SCALE_FACTOR", "2", 1);
	WindowTester::RunHeadless([] {
		if (BPrivate::DisplayServer::Default().ScaleFactor() != 2)
			GTEST_SKIP() << "the display started at another density";
		// A view with a black line one unit thick along y = 20.
		class Lined : public BView {
		public:
			Lined(BRect frame) : BView(frame, "lined", B_FOLLOW_ALL, B_WILL_DRAW) {}

			void Draw(BRect) override
			{
				SetHighColor(make_color(0, 0, 0));
				StrokeLine(BPoint(10, 20), BPoint(150, 20));
			}
		};
		BWindow* window = new BWindow(BRect(100, 100, 299, 199), "Dense", B_TITLED_WINDOW, 0);
		BView* view = new Lined(window->Bounds());
		view->SetViewColor(make_color(255, 255, 255));
		window->AddChild(view);
		window->Show();
		WindowTester tester(window);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		// The kits keep their coordinates; the picture has four pixels for one.
		EXPECT_EQ(make_color(0, 0, 0), tester.PixelAt(BPoint(50, 20)));
		EXPECT_EQ(make_color(255, 255, 255), tester.PixelAt(BPoint(50, 21)));
		EXPECT_EQ(BPoint(200, 100), tester.ShownSize());
		TempFolder folder;
		std::string picture = folder.Path("dense.png");
		ASSERT_EQ(B_OK, tester.SaveFrame(picture.c_str()));
		EXPECT_EQ(BPoint(400, 200), PictureSize(picture));
	});
	unsetenv("QT_SCALE_FACTOR");
}
