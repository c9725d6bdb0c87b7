// The shared Edit menu: its items, enabling them, finding it in a window.

#include <gtest/gtest.h>

#include <MenuBar.h>
#include <MenuItem.h>
#include <Window.h>
#include <WindowTester.h>

#include "EditMenu.h"
#include "StatusError.h"

namespace {

// Which items are enabled, in menu order; separators show as '|'.
std::string
EnabledItems(EditMenu& menu)
{
	std::string states;
	for (int32 i = 0; BMenuItem* item = menu.ItemAt(i); i++) {
		if (dynamic_cast<BSeparatorItem*>(item) != nullptr)
			states += '|';
		else
			states += item->IsEnabled() ? '+' : '-';
	}
	return states;
}

}	// namespace

TEST(EditMenuTest, EnablingFollowsShortcutsAndIndexes)
{
	EditMenu menu;
	EXPECT_EQ("-|++++|-", EnabledItems(menu));
	// Copy (C) and Select All (A) are left alone unless included.
	menu.EnableAll(false, false, false);
	EXPECT_EQ("-|-+--|-", EnabledItems(menu));
	menu.EnableAll(true, false, true);
	EXPECT_EQ("+|++++|+", EnabledItems(menu));
	menu.EnableAll(false, true, false);
	EXPECT_EQ("-|----|+", EnabledItems(menu));
	menu.EnableItem(EditMenu::kSelectAllItem, false);
	menu.EnableItem(EditMenu::kPasteItem, true);
	EXPECT_EQ("-|--+-|-", EnabledItems(menu));
	EXPECT_THROW(menu.EnableItem(8, true), StatusError);
	EXPECT_THROW(menu.EnableItem(-1, true), StatusError);
}

TEST(EditMenuTest, RecoveredFromTheWindowsMenuBar)
{
	BPrivate::WindowTester::RunHeadless([] {
		BWindow* window = new BWindow(BRect(10, 10, 209, 109), "Menus", B_TITLED_WINDOW, 0);
		BMenuBar* bar = new BMenuBar(BRect(0, 0, 199, 14), "main menu");
		bar->AddItem(new BMenu("File"));
		EditMenu* edit = new EditMenu;
		bar->AddItem(edit);
		window->AddChild(bar);
		EXPECT_EQ(edit, EditMenu::RecoverEditMenu(window));

		// A bar that is not the first child is found by the name "WinMenu".
		BWindow* other = new BWindow(BRect(10, 10, 209, 109), "Other", B_TITLED_WINDOW, 0);
		other->AddChild(new BView(BRect(0, 20, 9, 29), "first", 0, 0));
		BMenuBar* named = new BMenuBar(BRect(0, 0, 199, 14), "WinMenu");
		other->AddChild(named);
		EXPECT_THROW(EditMenu::RecoverEditMenu(other), StatusError);
		named->AddItem(new BMenu("Edit"));
		EXPECT_THROW(EditMenu::RecoverEditMenu(other), StatusError);
		EditMenu* found = new EditMenu;
		named->AddItem(found);
		EXPECT_THROW(EditMenu::RecoverEditMenu(other), StatusError);
		delete named->RemoveItem(int32(0));
		EXPECT_EQ(found, EditMenu::RecoverEditMenu(other));

		BWindow* bare = new BWindow(BRect(10, 10, 209, 109), "Bare", B_TITLED_WINDOW, 0);
		EXPECT_THROW(EditMenu::RecoverEditMenu(bare), StatusError);
	});
}
