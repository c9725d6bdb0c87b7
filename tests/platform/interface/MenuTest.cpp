#include <gtest/gtest.h>

#include <string>

#include <Application.h>
#include <Menu.h>
#include <MenuBar.h>
#include <MenuItem.h>
#include <Message.h>
#include <Window.h>
#include <WindowTester.h>

#include "platform/interface/ShownWindow.h"

using BPrivate::WindowTester;

namespace {

const uint32 kOpen = 'Open';
const uint32 kSave = 'Save';
const uint32 kUndo = 'Undo';
const uint32 kCopy = 'Copy';
const uint32 kRed = 'Red ';
const uint32 kBlue = 'Blue';

std::string
Code(uint32 what)
{
	std::string code;
	for (int shift = 24; shift >= 0; shift -= 8)
		code += char((what >> shift) & 0xff);
	return code;
}

// A window with a menu bar: "File" (Open, Save Ctrl+S, a separator, Recent with
// a submenu of two colours) and "Edit" (Undo Ctrl+Z disabled, Copy Ctrl+Shift+C).
// It logs the item messages it receives and the menu hooks.
class MenuLogWindow : public BWindow {
public:
	MenuLogWindow()
		: BWindow(BRect(50, 50, 349, 249), "Menus", B_TITLED_WINDOW, 0)
	{
		bar = new BMenuBar(BRect(0, 0, 299, 10), "bar");
		file = new BMenu("File");
		file->AddItem(new BMenuItem("Open", new BMessage(kOpen)));
		file->AddItem(new BMenuItem("Save", new BMessage(kSave), 'S'));
		file->AddSeparatorItem();
		recent = new BMenu("Recent");
		recent->AddItem(new BMenuItem("Red", new BMessage(kRed)));
		recent->AddItem(new BMenuItem("Blue", new BMessage(kBlue)));
		file->AddItem(recent);
		edit = new BMenu("Edit");
		edit->AddItem(new BMenuItem("Undo", new BMessage(kUndo), 'Z'));
		edit->AddItem(new BMenuItem("Copy", new BMessage(kCopy), 'C', B_SHIFT_KEY));
		edit->FindItem(kUndo)->SetEnabled(false);
		bar->AddItem(file);
		bar->AddItem(edit);
		AddChild(bar);
	}

	void MessageReceived(BMessage* message) override
	{
		BMenuItem* source = nullptr;
		int32 index = -1;
		int64 when = 0;
		if (message->FindPointer("source", reinterpret_cast<void**>(&source)) != B_OK
			|| message->FindInt32("index", &index) != B_OK
			|| message->FindInt64("when", &when) != B_OK || when <= 0) {
			BWindow::MessageReceived(message);
			return;
		}
		log += Code(message->what) + " " + source->Label() + " " + std::to_string(index) + "|";
	}

	void MenusBeginning() override
	{
		// The menus are not open yet: an item enabled here can be chosen.
		log += file->Window() == nullptr && edit->Window() == nullptr ? "begin|" : "late|";
		if (enableUndo)
			edit->FindItem(kUndo)->SetEnabled(true);
	}

	void MenusEnded() override { log += "end|"; }

	bool QuitRequested() override
	{
		log += "quit|";
		return allowQuit;
	}

	BMenuBar* bar;
	BMenu* file;
	BMenu* edit;
	BMenu* recent;
	bool enableUndo = false;
	bool allowQuit = true;
	std::string log;
};

BPoint
Center(BRect frame)
{
	return BPoint((frame.left + frame.right) / 2, (frame.top + frame.bottom) / 2);
}

// The point of the item at index of an open menu, in that menu's window.
BPoint
ItemPoint(BMenu* menu, int32 index)
{
	return Center(menu->ItemAt(index)->Frame());
}

// Whether menu is open (attached to a window of its own).
bool
IsOpen(MenuLogWindow* window, BMenu* menu)
{
	if (!window->Lock())
		return false;
	bool open = menu->Window() != nullptr;
	window->Unlock();
	return open;
}

// Clicks the bar's item at index and waits until its menu is open.
void
OpenFromBar(MenuLogWindow* window, WindowTester& tester, int32 index)
{
	ASSERT_TRUE(window->Lock());
	BPoint where = ItemPoint(window->bar, index);
	window->Unlock();
	tester.Click(where);
	ASSERT_EQ(B_OK, tester.WaitForIdle());
}

// Clicks the item at index of menu, which must be open.
void
ClickItem(MenuLogWindow* window, WindowTester& tester, BMenu* menu, int32 index)
{
	ASSERT_TRUE(window->Lock());
	ASSERT_NE(nullptr, menu->Window());
	WindowTester menuTester(menu->Window());
	BPoint where = ItemPoint(menu, index);
	window->Unlock();
	menuTester.Click(where);
	ASSERT_EQ(B_OK, tester.WaitForIdle());
}

}	// namespace

TEST(MenuTest, ItemsAreFoundByLabelAndCommandAndCountedWithSeparators)
{
	BMenu menu("Menu");
	BMenu* sub = new BMenu("Sub");
	BMenuItem* deep = new BMenuItem("Deep", new BMessage('Deep'));
	sub->AddItem(deep);
	BMenuItem* first = new BMenuItem("First", new BMessage('Frst'));
	EXPECT_TRUE(menu.AddItem(first));
	EXPECT_TRUE(menu.AddSeparatorItem());
	EXPECT_TRUE(menu.AddItem(sub));
	BMenuItem* zero = new BMenuItem("Zero", nullptr);
	EXPECT_TRUE(menu.AddItem(zero, 0));
	BMenuItem far("Far", nullptr);
	EXPECT_FALSE(menu.AddItem(&far, 9));
	// An item belongs to one menu at a time.
	EXPECT_FALSE(menu.AddItem(first));

	EXPECT_EQ(4, menu.CountItems());
	EXPECT_EQ(1, menu.IndexOf(first));
	EXPECT_EQ(sub, menu.SubmenuAt(3));
	// Lookups descend into submenus.
	EXPECT_EQ(deep, menu.FindItem("Deep"));
	EXPECT_EQ(deep, menu.FindItem('Deep'));
	EXPECT_EQ(nullptr, menu.FindItem("Missing"));
	EXPECT_STREQ("Sub", sub->Superitem()->Label());
	EXPECT_FALSE(menu.ItemAt(2)->IsEnabled());

	EXPECT_TRUE(menu.RemoveItem(first));
	EXPECT_FALSE(menu.RemoveItem(first));
	delete first;
	EXPECT_TRUE(menu.RemoveItem(sub));
	EXPECT_EQ(nullptr, sub->Superitem());
	EXPECT_EQ(nullptr, menu.FindItem("Deep"));
	delete sub;
	EXPECT_EQ(2, menu.CountItems());
	delete menu.RemoveItem(int32(0));
	EXPECT_EQ(1, menu.CountItems());
}

TEST(MenuTest, ShortcutsEnablingAndTheSubmenusEnabledState)
{
	BMenuItem plain("Plain", nullptr);
	uint32 modifiers = 99;
	EXPECT_EQ(0, plain.Shortcut(&modifiers));
	EXPECT_EQ(0u, modifiers);
	BMenuItem copy("Copy", nullptr, 'C', B_SHIFT_KEY);
	EXPECT_EQ('C', copy.Shortcut(&modifiers));
	// Command is always part of a shortcut.
	EXPECT_EQ(uint32(B_COMMAND_KEY | B_SHIFT_KEY), modifiers);
	copy.SetShortcut('K', B_OPTION_KEY);
	EXPECT_EQ('K', copy.Shortcut(&modifiers));
	EXPECT_EQ(uint32(B_COMMAND_KEY | B_OPTION_KEY), modifiers);

	BMenu top("Top");
	BMenu* sub = new BMenu("Sub");
	BMenuItem* inner = new BMenuItem("Inner", new BMessage('Innr'));
	sub->AddItem(inner);
	top.AddItem(sub);
	sub->SetEnabled(false);
	EXPECT_FALSE(sub->Superitem()->IsEnabled());
	sub->Superitem()->SetEnabled(true);
	EXPECT_TRUE(sub->IsEnabled());
	top.SetEnabled(false);
	// A disabled menu above disables everything below; nothing is sent.
	EXPECT_FALSE(sub->IsEnabled());
	EXPECT_EQ(B_ERROR, inner->Invoke());
}

TEST(MenuTest, AClickOpensTheMenuAndAClickOnAnItemSendsItsMessage)
{
	WithShownWindow<MenuLogWindow>([](MenuLogWindow* window, WindowTester& tester) {
		OpenFromBar(window, tester, 0);
		ASSERT_TRUE(window->Lock());
		EXPECT_EQ("begin|", window->log);
		ASSERT_NE(nullptr, window->file->Window());
		EXPECT_NE(window, window->file->Window());
		// The menu opens below its title.
		BRect title = window->ConvertToScreen(window->bar->ItemAt(0)->Frame());
		BRect menu = window->file->Window()->Frame();
		EXPECT_EQ(title.left, menu.left);
		EXPECT_EQ(title.bottom + 1, menu.top);
		window->log.clear();
		window->Unlock();

		ClickItem(window, tester, window->file, 1);
		EXPECT_EQ("end|Save Save 1|", TakeLog(window, tester));
		EXPECT_FALSE(IsOpen(window, window->file));
	});
}

TEST(MenuTest, DraggingFromTheBarToAnItemAndReleasingChoosesIt)
{
	WithShownWindow<MenuLogWindow>([](MenuLogWindow* window, WindowTester& tester) {
		ASSERT_TRUE(window->Lock());
		BPoint title = ItemPoint(window->bar, 0);
		window->Unlock();
		tester.MouseDown(title);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		// The open menu lies over the window: the release there reaches it.
		BPoint item = window->ConvertFromScreen(window->file->Window()->ConvertToScreen(
			ItemPoint(window->file, 0)));
		window->Unlock();
		tester.MouseMove(item, B_PRIMARY_MOUSE_BUTTON);
		tester.MouseUp(item);
		EXPECT_EQ("begin|end|Open Open 0|", TakeLog(window, tester));
	});
}

TEST(MenuTest, DisabledItemsRefuseClicksAndShortcuts)
{
	WithShownWindow<MenuLogWindow>([](MenuLogWindow* window, WindowTester& tester) {
		tester.TypeKey('z', B_COMMAND_KEY);
		OpenFromBar(window, tester, 1);
		ClickItem(window, tester, window->edit, 0);
		// The menu stays open after a click on a disabled item.
		EXPECT_TRUE(IsOpen(window, window->edit));
		EXPECT_EQ("begin|end|begin|", TakeLog(window, tester));

		tester.TypeKey(B_ESCAPE);
		EXPECT_EQ("end|", TakeLog(window, tester));
		EXPECT_FALSE(IsOpen(window, window->edit));
		ASSERT_TRUE(window->Lock());
		window->enableUndo = true;
		window->Unlock();

		// Enabled in MenusBeginning, before the shortcut looks at it.
		tester.TypeKey('z', B_COMMAND_KEY);
		EXPECT_EQ("begin|end|Undo Undo 0|", TakeLog(window, tester));
	});
}

TEST(MenuTest, ShortcutsInvokeTheirItemsWithTheirModifiers)
{
	WithShownWindow<MenuLogWindow>([](MenuLogWindow* window, WindowTester& tester) {
		for (uint32 modifiers : {0u, uint32(B_SHIFT_KEY)}) {
			tester.TypeKey(modifiers != 0 ? 'S' : 's', B_COMMAND_KEY | modifiers);
			tester.TypeKey(modifiers != 0 ? 'C' : 'c', B_COMMAND_KEY | modifiers);
			ASSERT_EQ(B_OK, tester.WaitForIdle());
		}
		ASSERT_TRUE(window->Lock());
		// Ctrl+C is not the item's Ctrl+Shift+C, nor Ctrl+Shift+S the item's Ctrl+S.
		EXPECT_EQ("begin|end|Save Save 1|begin|end|Copy Copy 1|", window->log);
		// Items added later get their shortcuts too, and a removed item loses its own.
		window->file->AddItem(new BMenuItem("Print", new BMessage('Prnt'), 'P'), 0);
		delete window->file->RemoveItem(window->file->IndexOf(window->file->FindItem(kSave)));
		window->log.clear();
		window->Unlock();
		tester.TypeKey('p', B_COMMAND_KEY);
		tester.TypeKey('s', B_COMMAND_KEY);
		EXPECT_EQ("begin|end|Prnt Print 0|", TakeLog(window, tester));
	});
}

TEST(MenuTest, ItemsSendToTheTargetsSetForThem)
{
	WindowTester::RunHeadless([] {
		MenuLogWindow* window = new MenuLogWindow;
		MenuLogWindow* other = new MenuLogWindow;
		window->Show();
		other->Show();
		ASSERT_TRUE(window->Lock());
		EXPECT_EQ(B_OK, window->file->SetTargetForItems(other));
		window->Unlock();
		WindowTester tester(window);
		tester.TypeKey('s', B_COMMAND_KEY);
		tester.TypeKey('C', B_COMMAND_KEY | B_SHIFT_KEY);
		EXPECT_EQ("begin|end|begin|end|Copy Copy 1|", TakeLog(window, tester));
		WindowTester otherTester(other);
		EXPECT_EQ("Save Save 1|", TakeLog(other, otherTester));
	});
}

TEST(MenuTest, SubmenusOpenFromTheirItemsAndTheirItemsAreChosen)
{
	WithShownWindow<MenuLogWindow>([](MenuLogWindow* window, WindowTester& tester) {
		ASSERT_TRUE(window->Lock());
		window->recent->SetLabelFromMarked(true);
		window->Unlock();
		OpenFromBar(window, tester, 0);
		ASSERT_TRUE(window->Lock());
		WindowTester fileTester(window->file->Window());
		BPoint recent = ItemPoint(window->file, 3);
		window->Unlock();
		fileTester.MouseMove(recent);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		ASSERT_NE(nullptr, window->recent->Window());
		// The submenu opens beside its item.
		BRect item = window->file->Window()->ConvertToScreen(window->file->ItemAt(3)->Frame());
		EXPECT_EQ(item.right + 1, window->recent->Window()->Frame().left);
		window->Unlock();

		ClickItem(window, tester, window->recent, 1);
		ASSERT_TRUE(window->Lock());
		EXPECT_EQ("begin|end|Blue Blue 1|", window->log);
		EXPECT_EQ(nullptr, window->recent->Window());
		EXPECT_EQ(nullptr, window->file->Window());
		// Chosen in radio mode, the item is marked and names its menu.
		EXPECT_EQ(window->recent->ItemAt(1), window->recent->FindMarked());
		EXPECT_STREQ("Blue", window->recent->Superitem()->Label());
		window->Unlock();
	});
}

TEST(MenuTest, EscapeAndAClickElsewhereCloseTheMenus)
{
	WithShownWindow<MenuLogWindow>([](MenuLogWindow* window, WindowTester& tester) {
		OpenFromBar(window, tester, 0);
		tester.TypeKey(B_ESCAPE);
		EXPECT_EQ("begin|end|", TakeLog(window, tester));
		EXPECT_FALSE(IsOpen(window, window->file));

		OpenFromBar(window, tester, 1);
		// Moving along the bar switches to the other menu.
		ASSERT_TRUE(window->Lock());
		BPoint file = ItemPoint(window->bar, 0);
		window->Unlock();
		tester.MouseMove(file);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_FALSE(IsOpen(window, window->edit));
		EXPECT_TRUE(IsOpen(window, window->file));
		tester.Click(BPoint(280, 180));
		EXPECT_EQ("begin|end|", TakeLog(window, tester));
		EXPECT_FALSE(IsOpen(window, window->file));

		// The window losing the focus closes them too.
		OpenFromBar(window, tester, 0);
		BMessage deactivated(B_WINDOW_ACTIVATED);
		deactivated.AddBool("active", false);
		window->PostMessage(&deactivated);
		EXPECT_EQ("begin|end|", TakeLog(window, tester));
		EXPECT_FALSE(IsOpen(window, window->file));
	});
}

TEST(MenuTest, F10AndTheArrowKeysWorkTheMenusFromTheKeyboard)
{
	WithShownWindow<MenuLogWindow>([](MenuLogWindow* window, WindowTester& tester) {
		tester.TypeFunctionKey(10);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(IsOpen(window, window->file));
		// Down from Open skips the separator to Recent; Right opens it.
		tester.TypeKey(B_DOWN_ARROW);
		tester.TypeKey(B_DOWN_ARROW);
		tester.TypeKey(B_RIGHT_ARROW);
		tester.TypeKey(B_DOWN_ARROW);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_TRUE(IsOpen(window, window->recent));
		tester.TypeKey(B_ENTER);
		EXPECT_EQ("begin|end|Blue Blue 1|", TakeLog(window, tester));

		// Right on an item without a submenu goes on to the next menu.
		tester.TypeFunctionKey(10);
		tester.TypeKey(B_RIGHT_ARROW);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_FALSE(IsOpen(window, window->file));
		EXPECT_TRUE(IsOpen(window, window->edit));
		tester.TypeKey(B_ENTER);
		// Undo is disabled: the first item that can be chosen is Copy.
		EXPECT_EQ("begin|end|Copy Copy 1|", TakeLog(window, tester));
	});
}

TEST(MenuTest, MenuShortcutsReplaceTheWindowsQuitAndCloseKeys)
{
	WindowTester::RunHeadless([] {
		MenuLogWindow* window = new MenuLogWindow;
		ASSERT_TRUE(window->Lock());
		window->file->AddItem(new BMenuItem("Close", new BMessage('Clos'), 'W'));
		window->Unlock();
		MenuLogWindow* plain = new MenuLogWindow;
		plain->allowQuit = false;
		window->Show();
		plain->Show();
		WindowTester tester(window);
		WindowTester plainTester(plain);
		tester.TypeKey('w', B_COMMAND_KEY);
		plainTester.TypeKey('w', B_COMMAND_KEY);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_EQ(B_OK, plainTester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		EXPECT_EQ("begin|end|Clos Close 4|", window->log);
		window->Unlock();
		// Without such an item, Ctrl+W asks the window to close.
		ASSERT_TRUE(plain->Lock());
		EXPECT_EQ("quit|", plain->log);
		plain->Unlock();
	});
}
