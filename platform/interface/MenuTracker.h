#ifndef _MENU_TRACKER_H
#define _MENU_TRACKER_H

#include <vector>

#include <MessageFilter.h>
#include <Rect.h>

class BMenu;
class BMenuBar;
class BMenuItem;

namespace BPrivate {

class MenuWindow;

// Opens and follows the menus of a menu bar. It sits in the filters of the
// bar's window: F10 opens the first menu; while a menu is open, every mouse
// message and key of the window and of its open menus comes here, by screen
// position, so that the window's own views see none of them.
class MenuTracker : public BMessageFilter {
public:
	explicit MenuTracker(BMenuBar* bar);
	~MenuTracker() override;

	filter_result Filter(BMessage* message, BHandler** target) override;

	// The bar was pressed at where, in screen coordinates.
	void StartWithMouse(BPoint where);
	void StartWithKeyboard();
	// Closes every open menu.
	void Stop();
	bool IsTracking() const { return fTracking; }

private:
	struct Level {
		BMenu* menu;
		MenuWindow* window;
		BRect frame;
	};

	void pvStart();
	void pvMouseMoved(BPoint where);
	void pvMouseDown(BPoint where);
	void pvMouseUp(BPoint where);
	void pvKeyDown(const BMessage* message);
	void pvStep(int32 step);
	void pvMoveInBar(int32 step);
	void pvEnter();
	// Level 0 is the bar, level n the n-th open menu; false when where is in none.
	bool pvHit(BPoint where, size_t* level, int32* index) const;
	BMenu* pvMenuAt(size_t level) const;
	size_t pvDeepest() const { return fOpen.size(); }
	// Selects the item at index of the menu of level (none when it is disabled)
	// and closes the menus above it, then opens the item's submenu if asked.
	void pvSelect(size_t level, int32 index, bool openSubmenu);
	// Opens the submenu of the item selected at level; true if it did.
	bool pvOpenSubmenu(size_t level);
	void pvSelectFirst(size_t level);
	void pvCloseAbove(size_t level);
	void pvInvoke(BMenuItem* item);

	BMenuBar* fBar;
	std::vector<Level> fOpen;
	bool fTracking = false;
};

}

#endif
