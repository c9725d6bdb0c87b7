#ifndef _MENU_H
#define _MENU_H

#include <vector>

#include <List.h>
#include <Messenger.h>
#include <View.h>

class BMenuItem;

namespace BPrivate {
class MenuTracker;
class MenuWindow;
}

enum menu_layout {
	B_ITEMS_IN_ROW = 0,
	B_ITEMS_IN_COLUMN,
	B_ITEMS_IN_MATRIX
};

// A list of menu items shown in a row (a menu bar) or a column (a menu that
// opens from a menu bar or from another menu). The menu owns its items; an item
// that holds a submenu owns the submenu.
class BMenu : public BView {
public:
	BMenu(const char* title, menu_layout layout = B_ITEMS_IN_COLUMN);
	virtual ~BMenu();

	// Hooks. A menu that opens is attached to the window that shows it.
	virtual void AttachedToWindow();
	virtual void DetachedFromWindow();
	virtual void Draw(BRect updateRect);
	virtual void GetPreferredSize(float* width, float* height);
	virtual void ResizeToPreferred();

	bool AddItem(BMenuItem* item);
	virtual bool AddItem(BMenuItem* item, int32 index);
	bool AddItem(BMenu* menu);
	bool AddItem(BMenu* menu, int32 index);
	bool AddList(BList* list, int32 index);
	bool AddSeparatorItem();
	// The item leaves the menu; the caller owns it.
	bool RemoveItem(BMenuItem* item);
	BMenuItem* RemoveItem(int32 index);
	bool RemoveItems(int32 index, int32 count, bool deleteItems = false);
	// The submenu's item is removed and deleted; the caller owns the submenu.
	bool RemoveItem(BMenu* menu);

	BMenuItem* ItemAt(int32 index) const;
	BMenu* SubmenuAt(int32 index) const;
	int32 CountItems() const;
	int32 IndexOf(BMenuItem* item) const;
	int32 IndexOf(BMenu* menu) const;
	// Search this menu and its submenus.
	BMenuItem* FindItem(uint32 command) const;
	BMenuItem* FindItem(const char* label) const;

	virtual status_t SetTargetForItems(BHandler* target);
	virtual status_t SetTargetForItems(BMessenger messenger);
	virtual void SetEnabled(bool enabled);
	virtual void SetRadioMode(bool on);
	virtual void SetTriggersEnabled(bool enabled);
	virtual void SetMaxContentWidth(float maxWidth);

	void SetLabelFromMarked(bool on);
	bool IsLabelFromMarked();
	// False also when the item that opens the menu or a menu above is disabled.
	bool IsEnabled() const;
	bool IsRadioMode() const;
	bool AreTriggersEnabled() const;
	float MaxContentWidth() const;

	BMenuItem* FindMarked();

	BMenu* Supermenu() const;
	BMenuItem* Superitem() const;

protected:
	BMenu(BRect frame, const char* name, uint32 resizingMode, uint32 flags,
		menu_layout layout, bool resizeToFit);

	// Where the menu opens on the screen.
	virtual BPoint ScreenLocation();
	void SetItemMargins(float left, float top, float right, float bottom);
	void GetItemMargins(float* left, float* top, float* right, float* bottom) const;
	menu_layout Layout() const;

private:
	friend class BMenuItem;
	friend class BMenuBar;
	friend class BPrivate::MenuTracker;
	friend class BPrivate::MenuWindow;

	void pvLayoutItems();
	void pvResizeToFit();
	void pvInvalidateLayout();
	// The enabled item nearest to index in direction step (1 or -1), or -1.
	int32 pvNextSelectable(int32 index, int32 step) const;
	int32 pvItemIndexAt(BPoint where) const;
	void pvSelect(BMenuItem* item);
	BMenuItem* pvSelected() const { return fSelected; }
	void pvItemMarked(BMenuItem* item);
	// The window whose shortcuts and default target the items get: the window of
	// the menu bar at the root, or none.
	BWindow* pvInstallWindow() const;
	void pvInstall(BWindow* window);
	void pvUninstall();
	void pvSetSuper(BMenu* supermenu, BMenuItem* superitem);
	bool pvInsert(BMenuItem* item, int32 index);
	void pvDetachItem(BMenuItem* item);

	std::vector<BMenuItem*> fItems;
	BMenu* fSuper = nullptr;
	BMenuItem* fSuperitem = nullptr;
	BMenuItem* fSelected = nullptr;
	menu_layout fLayout;
	bool fResizeToFit = true;
	bool fEnabled = true;
	bool fRadioMode = false;
	bool fLabelFromMarked = false;
	bool fTriggersEnabled = true;
	bool fLayoutValid = false;
	float fMaxContentWidth = 0;
	float fPadLeft, fPadTop, fPadRight, fPadBottom;
	float fContentWidth = 0;
	float fContentHeight = 0;
};

#endif
