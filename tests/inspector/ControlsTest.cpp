#include <gtest/gtest.h>

#include <unistd.h>

#include <string>

#include <AppDefs.h>
#include <Application.h>
#include <Bitmap.h>
#include <Entry.h>
#include <InterfaceDefs.h>
#include <Message.h>
#include <Path.h>
#include <ScrollBar.h>
#include <Window.h>
#include <WindowTester.h>

#include "Character.h"
#include "IconView.h"
#include "NewScroller.h"
#include "SpecialIconView.h"
#include "platform/storage/TempFolder.h"

using BPrivate::WindowTester;

namespace {

const rgb_color kRed = {255, 0, 0, 255};
const rgb_color kGrey = {216, 216, 216, 255};

BWindow*
NewWindow()
{
	return new BWindow(BRect(50, 50, 349, 249), "Controls", B_TITLED_WINDOW, 0);
}

BMessage
KeyMessage(uint32 what, int8 byte)
{
	BMessage message(what);
	message.AddInt8("byte", byte);
	return message;
}

}	// namespace

TEST(ControlsTest, CharacterIsTheByteOfAKeyDownOnly)
{
	BMessage key = KeyMessage(B_KEY_DOWN, 'q');
	EXPECT_EQ(Character(&key), 'q');
	BMessage up = KeyMessage(B_KEY_UP, 'q');
	EXPECT_EQ(Character(&up), 0);
	BMessage bare(B_KEY_DOWN);
	EXPECT_EQ(Character(&bare), 0);
	EXPECT_EQ(Character(nullptr), 0);
}

TEST(ControlsTest, DoubleClicksAreCloseInPlaceAndUnderHalfASecondApart)
{
	SpecialIconView icon(BRect(0, 0, 31, 31), "icon", B_FOLLOW_NONE, B_WILL_DRAW);
	const bigtime_t start = 10000000;
	EXPECT_FALSE(icon.IsDoubleClick(BPoint(10, 10), start));
	EXPECT_TRUE(icon.IsDoubleClick(BPoint(15, 5), start + 499999));
	// Every click is the last click: a third quick one is a double click again.
	EXPECT_TRUE(icon.IsDoubleClick(BPoint(15, 5), start + 600000));
	EXPECT_FALSE(icon.IsDoubleClick(BPoint(15, 5), start + 1100000));
	EXPECT_FALSE(icon.IsDoubleClick(BPoint(20.01f, 5), start + 1200000));
	EXPECT_FALSE(icon.IsDoubleClick(BPoint(20.01f, 10.01f), start + 1300000));
	EXPECT_TRUE(icon.IsDoubleClick(BPoint(15.01f, 15.01f), start + 1400000));
	// The untimed form uses the clock: two calls in a row are a double click.
	SpecialIconView clocked(BRect(0, 0, 31, 31), "clocked", B_FOLLOW_NONE, B_WILL_DRAW);
	EXPECT_FALSE(clocked.IsDoubleClick(BPoint(1, 1)));
	EXPECT_TRUE(clocked.IsDoubleClick(BPoint(1, 1)));
}

TEST(ControlsTest, IconWellsAreFramedExceptOnWhite)
{
	WindowTester::RunHeadless([] {
		BWindow* window = NewWindow();
		// A well takes the colour of the view it is put in.
		BView* white = new BView(BRect(0, 0, 99, 99), "white", B_FOLLOW_NONE, 0);
		white->SetViewColor(255, 255, 255);
		BView* grey = new BView(BRect(100, 0, 199, 99), "grey", B_FOLLOW_NONE, 0);
		grey->SetViewColor(kGrey);
		IconView* onWhite = new IconView(BRect(10, 10, 41, 41), "onWhite", B_FOLLOW_NONE,
			B_WILL_DRAW);
		IconView* onGrey = new IconView(BRect(10, 10, 41, 41), "onGrey", B_FOLLOW_NONE,
			B_WILL_DRAW);
		white->AddChild(onWhite);
		grey->AddChild(onGrey);
		window->AddChild(white);
		window->AddChild(grey);
		ASSERT_TRUE(window->Lock());
		EXPECT_EQ(onWhite->Border(), B_NO_BORDER);
		EXPECT_EQ(onWhite->Frame(), BRect(10, 10, 41, 41));
		EXPECT_EQ(onGrey->Border(), B_FANCY_BORDER);
		EXPECT_EQ(onGrey->Frame(), BRect(8, 8, 43, 43));
		window->Unlock();
	});
}

TEST(ControlsTest, ALinkShowsItsTargetUnlessTheTargetIsMissing)
{
	TempFolder folder;
	std::string file = folder.File("file");
	ASSERT_EQ(symlink(file.c_str(), folder.Path("good").c_str()), 0);
	ASSERT_EQ(symlink(folder.Path("gone").c_str(), folder.Path("dead").c_str()), 0);
	IconView icon(BRect(0, 0, 31, 31), "icon", B_FOLLOW_NONE, B_WILL_DRAW);
	EXPECT_EQ(icon.BitmapSize(), 0u);

	icon.SetNode(new BEntry(folder.Path("good").c_str()));
	BPath shown;
	ASSERT_EQ(icon.Entry()->GetPath(&shown), B_OK);
	EXPECT_STREQ(shown.Path(), file.c_str());
	EXPECT_EQ(icon.BitmapSize(), 32u);

	icon.SetNode(new BEntry(folder.Path("dead").c_str()));
	ASSERT_EQ(icon.Entry()->GetPath(&shown), B_OK);
	EXPECT_EQ(std::string(shown.Path()), folder.Path("dead"));
	EXPECT_TRUE(icon.Entry()->IsSymLink());
}

TEST(ControlsTest, AnExplicitBitmapIsDrawnScaledOverTheWell)
{
	WindowTester::RunHeadless([] {
		BWindow* window = NewWindow();
		IconView* icon = new IconView(BRect(10, 10, 73, 73), "icon", B_FOLLOW_NONE,
			B_WILL_DRAW);
		BBitmap bitmap(BRect(0, 0, 15, 15), B_RGBA32);
		for (int32 y = 0; y < 16; y++) {
			for (int32 x = 0; x < 16; x++) {
				uint8* pixel = static_cast<uint8*>(bitmap.Bits()) + y * bitmap.BytesPerRow()
					+ x * 4;
				pixel[0] = 0;
				pixel[1] = 0;
				pixel[2] = 255;
				pixel[3] = 255;
			}
		}
		icon->SetBitmap(&bitmap, 16);
		window->AddChild(icon);
		window->Show();
		WindowTester tester(window);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_EQ(kRed, tester.PixelAt(BPoint(11, 11)));
		EXPECT_EQ(kRed, tester.PixelAt(BPoint(72, 72)));
		ASSERT_TRUE(window->Lock());
		icon->SetBitmap(nullptr, 16);
		window->Unlock();
	});
}

TEST(ControlsTest, ANodesIconIsDrawnAndAnEmptyWellShowsOnlyItsBackground)
{
	TempFolder folder;
	WindowTester::RunHeadless([&folder] {
		BWindow* window = NewWindow();
		IconView* empty = new IconView(BRect(10, 10, 41, 41), "empty", B_FOLLOW_NONE,
			B_WILL_DRAW);
		IconView* node = new IconView(BRect(60, 10, 91, 41), "node", B_FOLLOW_NONE,
			B_WILL_DRAW);
		node->SetNode(new BEntry(folder.Root().c_str()));
		window->AddChild(empty);
		window->AddChild(node);
		window->Show();
		WindowTester tester(window);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		rgb_color background = empty->ViewColor();
		BRect emptyWell = empty->Frame().InsetByCopy(3, 3);
		BRect nodeWell = node->Frame().InsetByCopy(3, 3);
		window->Unlock();
		int32 emptyMarks = 0;
		int32 iconMarks = 0;
		for (float y = 0; y <= emptyWell.Height(); y++) {
			for (float x = 0; x <= emptyWell.Width(); x++) {
				emptyMarks += !(tester.PixelAt(emptyWell.LeftTop() + BPoint(x, y)) == background);
				iconMarks += !(tester.PixelAt(nodeWell.LeftTop() + BPoint(x, y)) == background);
			}
		}
		EXPECT_EQ(emptyMarks, 0);
		EXPECT_GT(iconMarks, 100);
	});
}

TEST(ControlsTest, TheScrollBarRangesOverWhatDoesNotFit)
{
	WindowTester::RunHeadless([] {
		BWindow* window = NewWindow();
		BView* content = new BView(BRect(0, 0, 179, 99), "content", B_FOLLOW_NONE, 0);
		NewScroller* scroller = new NewScroller("scroller", content, B_FOLLOW_NONE, 0,
			false, true, B_NO_BORDER);
		window->AddChild(scroller);
		window->Show();
		WindowTester tester(window);
		ASSERT_TRUE(window->Lock());
		BScrollBar* bar = scroller->ScrollBar(B_VERTICAL);
		bar->SetSteps(3, 30);
		bar->SetRange(0, 1000);
		// Shorter than the scroll view: nothing to scroll.
		scroller->ResizeTo(scroller->Bounds().Width(), 150);
		window->Unlock();
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		float min, max;
		bar->GetRange(&min, &max);
		EXPECT_EQ(min, 0);
		EXPECT_EQ(max, 0);
		content->ResizeTo(179, 400.7f);
		scroller->Sync();
		bar->GetRange(&min, &max);
		EXPECT_EQ(max, 250);
		float small, large;
		bar->GetSteps(&small, &large);
		EXPECT_EQ(small, 3);
		EXPECT_EQ(large, 30);
		window->Unlock();
	});
}
