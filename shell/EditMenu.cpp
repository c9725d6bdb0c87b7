#include "EditMenu.h"

#include <MenuBar.h>
#include <MenuItem.h>
#include <Window.h>

#include "StatusError.h"

namespace {

const uint32 kClearCommand = 127;

struct EditItem {
	const char* label;
	uint32 command;
	char shortcut;
};

// Null labels are separators.
const EditItem kEditItems[] = {
	{"Undo", 'UNDO', 'Z'},
	{nullptr, 0, 0},
	{"Cut", 'CCUT', 'X'},
	{"Copy", 'COPY', 'C'},
	{"Paste", 'PSTE', 'V'},
	{"Clear", kClearCommand, 0},
	{nullptr, 0, 0},
	{"Select All", 'SALL', 'A'}
};

BMenuBar*
MenuBarOf(BWindow* window)
{
	BMenuBar* bar = dynamic_cast<BMenuBar*>(window->ChildAt(0));
	if (bar == nullptr)
		bar = dynamic_cast<BMenuBar*>(window->FindView("WinMenu"));
	return bar;
}

}	// namespace

EditMenu::EditMenu()
	: BMenu("Edit", B_ITEMS_IN_COLUMN)
{
	Initialize();
}

void
EditMenu::Initialize()
{
	for (const EditItem& item : kEditItems) {
		if (item.label == nullptr)
			AddSeparatorItem();
		else
			AddItem(new BMenuItem(item.label, new BMessage(item.command), item.shortcut));
	}
	EnableAll(true, true, true);
	EnableItem(kUndoItem, false);
	EnableItem(kSelectAllItem, false);
}

void
EditMenu::EnableAll(bool enable, bool includeCopy, bool includeSelectAll)
{
	for (int32 i = 0; BMenuItem* item = ItemAt(i); i++) {
		char shortcut = item->Shortcut();
		if ((shortcut == 'C' && !includeCopy) || (shortcut == 'A' && !includeSelectAll))
			continue;
		item->SetEnabled(enable);
	}
}

void
EditMenu::EnableItem(int32 index, bool enable)
{
	BMenuItem* item = ItemAt(index);
	if (item == nullptr)
		throw StatusError(B_BAD_INDEX, "Edit menu item out of range");
	item->SetEnabled(enable);
}

EditMenu*
EditMenu::RecoverEditMenu(BWindow* window)
{
	BMenuBar* bar = window != nullptr ? MenuBarOf(window) : nullptr;
	if (bar == nullptr)
		throw StatusError(B_NAME_NOT_FOUND, "window without a menu bar");
	BMenuItem* item = bar->FindItem("Edit");
	EditMenu* menu = item != nullptr ? dynamic_cast<EditMenu*>(item->Submenu()) : nullptr;
	if (menu == nullptr)
		throw StatusError(B_NAME_NOT_FOUND, "menu bar without the Edit menu");
	return menu;
}
