// The hex view's own behaviour inside the data window.

#include "HexEditTestSupport.h"

#include <MenuItem.h>

#include "EditMenu.h"

TEST(HexViewTest, InsertWithANegativeSizeTakesTheTextUpToItsFirstZero)
{
	WindowTester::RunHeadless([] {
		HexWindow w("raw", 'RAWT', "xy");
		ASSERT_TRUE(w.window->Lock());
		auto view = dynamic_cast<HexView*>(w.window->FindView("HexView"));
		view->SetText("abc\0def", 7);
		EXPECT_EQ(7, w.Editor()->Size());
		view->SetText("abc\0def", -1);
		EXPECT_EQ(3, w.Editor()->Size());
		EXPECT_EQ(0, memcmp(w.Editor()->Data(), "abc", 3));
		w.window->Unlock();
	});
}

TEST(HexViewTest, SetTextBeforeAttachmentDoesNothing)
{
	HexView view(BRect(0, 0, 300, 200), "HexView", B_FOLLOW_ALL, B_WILL_DRAW);
	view.SetText("abc", 3);
	view.Insert("abc", -1);
	EXPECT_EQ(nullptr, view.FindView("HexEditView"));
	EXPECT_FALSE(view.IsEditable());
}

TEST(HexViewTest, SaveDoesNothingAndTheEditMenuFollowsEditing)
{
	WindowTester::RunHeadless([] {
		HexWindow w("raw", 'RAWT', "xy");
		w.Command('Chgd');
		EXPECT_EQ(Hex("xy"), w.FileHex());
		EXPECT_EQ(0, w.parent->fRereads);
		auto enabled = [&w](const char* label) {
			w.window->Lock();
			bool on = EditMenu::RecoverEditMenu(w.window)->FindItem(label)->IsEnabled();
			w.window->Unlock();
			return on;
		};
		EXPECT_FALSE(enabled("Paste"));
		EXPECT_TRUE(enabled("Copy"));
		w.Key(B_RETURN);
		EXPECT_TRUE(enabled("Paste"));
		EXPECT_TRUE(enabled("Cut"));
		// Double-clicking a cell starts editing too.
		w.Key(B_ESCAPE);
		EXPECT_FALSE(enabled("Cut"));
		BPoint cell = w.CellPoint("HexText", 0, 1);
		w.tester->Click(cell);
		w.tester->Click(cell);
		w.Settle();
		EXPECT_TRUE(w.Editor()->IsEditable());
		EXPECT_EQ(1, w.Caret());
	});
}

TEST(HexViewTest, AHeaderRefreshWithoutANameUsesTheWindowsName)
{
	WindowTester::RunHeadless([] {
		HexWindow w("raw", 'RAWT', "xy");
		EXPECT_NE(std::string::npos, w.Header().find("ASCII"));
		BMessage refresh('RfsH');
		refresh.AddInt32("type", 'RAWT');
		refresh.AddInt32("size", 12);
		w.window->PostMessage(&refresh, w.window->FindView("HexView"));
		w.Settle();
		EXPECT_NE(std::string::npos, w.Header().find("\"raw\""));
		EXPECT_NE(std::string::npos, w.Header().find("12 bytes"));
		EXPECT_EQ(std::string::npos, w.Header().find("ASCII"));
	});
}
