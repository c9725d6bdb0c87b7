#include "MenuTracker.h"

#include <MenuBar.h>
#include <MenuItem.h>
#include <Message.h>
#include <Window.h>

#include "MenuWindow.h"

namespace BPrivate {

namespace {

BPoint
ScreenPoint(const BMessage* message, const BWindow* window)
{
	BPoint where;
	if (message->FindPoint("screen_where", &where) == B_OK)
		return where;
	message->FindPoint("where", &where);
	return window->ConvertToScreen(where);
}

// F10 opens the key menu bar, as on most Linux desktops.
bool
IsMenuKey(const BMessage* message)
{
	const char* bytes;
	int32 key;
	return message->FindString("bytes", &bytes) == B_OK && bytes[0] == B_FUNCTION_KEY
		&& message->FindInt32("key", &key) == B_OK && key == B_F10_KEY;
}

}	// namespace

MenuTracker::MenuTracker(BMenuBar* bar)
	: BMessageFilter(B_ANY_DELIVERY, B_ANY_SOURCE),
	fBar(bar)
{
}

MenuTracker::~MenuTracker()
{
	pvCloseAbove(0);
}

filter_result
MenuTracker::Filter(BMessage* message, BHandler**)
{
	if (!fTracking) {
		if (message->what == B_KEY_DOWN && IsMenuKey(message)
			&& fBar->Window()->KeyMenuBar() == fBar && fBar->IsEnabled()
			&& !fBar->IsHidden()) {
			StartWithKeyboard();
			return fTracking ? B_SKIP_MESSAGE : B_DISPATCH_MESSAGE;
		}
		return B_DISPATCH_MESSAGE;
	}
	switch (message->what) {
		case B_MOUSE_MOVED:
			pvMouseMoved(ScreenPoint(message, fBar->Window()));
			return B_SKIP_MESSAGE;
		case B_MOUSE_DOWN:
			pvMouseDown(ScreenPoint(message, fBar->Window()));
			return B_SKIP_MESSAGE;
		case B_MOUSE_UP:
			pvMouseUp(ScreenPoint(message, fBar->Window()));
			return B_SKIP_MESSAGE;
		case B_KEY_DOWN:
			pvKeyDown(message);
			return B_SKIP_MESSAGE;
		case B_KEY_UP:
		case B_MOUSE_WHEEL_CHANGED:
			return B_SKIP_MESSAGE;
		case B_WINDOW_ACTIVATED: {
			// Another window took the focus: the menus close.
			bool active;
			if (message->FindBool("active", &active) == B_OK && !active)
				Stop();
			return B_DISPATCH_MESSAGE;
		}
		default:
			return B_DISPATCH_MESSAGE;
	}
}

// #pragma mark - starting and stopping

void
MenuTracker::pvStart()
{
	fTracking = true;
	fBar->Window()->MenusBeginning();
}

void
MenuTracker::StartWithMouse(BPoint where)
{
	size_t level;
	int32 index;
	if (fTracking || !pvHit(where, &level, &index) || index < 0)
		return;
	BMenuItem* item = fBar->ItemAt(index);
	if (!item->IsEnabled())
		return;
	pvStart();
	pvSelect(0, index, true);
}

void
MenuTracker::StartWithKeyboard()
{
	int32 index = fBar->pvNextSelectable(-1, 1);
	if (fTracking || index < 0)
		return;
	pvStart();
	pvSelect(0, index, true);
	pvSelectFirst(1);
}

void
MenuTracker::Stop()
{
	if (!fTracking)
		return;
	pvCloseAbove(0);
	fBar->pvSelect(nullptr);
	fTracking = false;
	fBar->Window()->MenusEnded();
}

// #pragma mark - levels

BMenu*
MenuTracker::pvMenuAt(size_t level) const
{
	return level == 0 ? fBar : fOpen[level - 1].menu;
}

bool
MenuTracker::pvHit(BPoint where, size_t* level, int32* index) const
{
	for (size_t i = fOpen.size(); i > 0; i--) {
		const Level& open = fOpen[i - 1];
		if (open.frame.Contains(where)) {
			*level = i;
			*index = open.menu->pvItemIndexAt(where - open.frame.LeftTop());
			return true;
		}
	}
	BPoint local = fBar->ConvertFromScreen(where);
	if (!fBar->Bounds().Contains(local))
		return false;
	*level = 0;
	*index = fBar->pvItemIndexAt(local);
	return true;
}

void
MenuTracker::pvSelect(size_t level, int32 index, bool openSubmenu)
{
	BMenu* menu = pvMenuAt(level);
	BMenuItem* item = menu->ItemAt(index);
	if (item != nullptr && !item->IsEnabled())
		item = nullptr;
	if (item == menu->pvSelected() && (item == nullptr || pvDeepest() > level))
		return;
	pvCloseAbove(level);
	menu->pvSelect(item);
	if (openSubmenu)
		pvOpenSubmenu(level);
}

bool
MenuTracker::pvOpenSubmenu(size_t level)
{
	BMenuItem* item = pvMenuAt(level)->pvSelected();
	if (item == nullptr || item->Submenu() == nullptr || !item->Submenu()->IsEnabled())
		return false;
	if (pvDeepest() > level)
		return true;
	BMenu* submenu = item->Submenu();
	submenu->pvSelect(nullptr);
	MenuWindow* window = new MenuWindow(fBar->Window(), submenu);
	fOpen.push_back(Level{submenu, window, window->OpenFrame()});
	window->Show();
	return true;
}

void
MenuTracker::pvSelectFirst(size_t level)
{
	if (pvDeepest() < level)
		return;
	pvSelect(level, pvMenuAt(level)->pvNextSelectable(-1, 1), false);
}

void
MenuTracker::pvCloseAbove(size_t level)
{
	while (fOpen.size() > level) {
		Level open = fOpen.back();
		fOpen.pop_back();
		open.window->Dismiss();
		open.menu->pvSelect(nullptr);
	}
}

void
MenuTracker::pvInvoke(BMenuItem* item)
{
	Stop();
	item->Invoke();
}

// #pragma mark - mouse

void
MenuTracker::pvMouseMoved(BPoint where)
{
	size_t level;
	int32 index;
	if (pvHit(where, &level, &index)) {
		// Over the bar, only another title changes the open menu.
		if (level > 0 || (index >= 0 && fBar->ItemAt(index) != fBar->pvSelected()))
			pvSelect(level, index, true);
		return;
	}
	// Outside every menu, the innermost one shows no selection unless its
	// selected item holds a submenu that is open.
	if (!fOpen.empty())
		pvSelect(pvDeepest(), -1, false);
}

void
MenuTracker::pvMouseDown(BPoint where)
{
	size_t level;
	int32 index;
	if (!pvHit(where, &level, &index)) {
		Stop();
		return;
	}
	// A click on the title of the open menu closes it.
	if (level == 0 && index >= 0 && fBar->ItemAt(index) == fBar->pvSelected()) {
		Stop();
		return;
	}
	pvSelect(level, index, true);
}

void
MenuTracker::pvMouseUp(BPoint where)
{
	size_t level;
	int32 index;
	if (!pvHit(where, &level, &index)) {
		// Released outside after dragging from the bar.
		Stop();
		return;
	}
	BMenuItem* item = pvMenuAt(level)->ItemAt(index);
	if (item != nullptr && item->Submenu() == nullptr && item->IsEnabled())
		pvInvoke(item);
}

// #pragma mark - keys

void
MenuTracker::pvKeyDown(const BMessage* message)
{
	const char* bytes;
	if (message->FindString("bytes", &bytes) != B_OK)
		return;
	switch (bytes[0]) {
		case B_ESCAPE:
			Stop();
			break;
		case B_FUNCTION_KEY:
			if (IsMenuKey(message))
				Stop();
			break;
		case B_UP_ARROW:
			pvStep(-1);
			break;
		case B_DOWN_ARROW:
			pvStep(1);
			break;
		case B_RIGHT_ARROW:
			if (pvDeepest() > 0 && pvOpenSubmenu(pvDeepest()))
				pvSelectFirst(pvDeepest());
			else
				pvMoveInBar(1);
			break;
		case B_LEFT_ARROW:
			if (pvDeepest() > 1)
				pvCloseAbove(pvDeepest() - 1);
			else
				pvMoveInBar(-1);
			break;
		case B_ENTER:
		case B_SPACE:
			pvEnter();
			break;
		default:
			break;
	}
}

void
MenuTracker::pvStep(int32 step)
{
	size_t level = pvDeepest();
	if (level == 0) {
		if (pvOpenSubmenu(0))
			pvSelectFirst(1);
		return;
	}
	BMenu* menu = pvMenuAt(level);
	int32 next = menu->pvNextSelectable(menu->IndexOf(menu->pvSelected()), step);
	if (next >= 0)
		pvSelect(level, next, false);
}

void
MenuTracker::pvMoveInBar(int32 step)
{
	int32 next = fBar->pvNextSelectable(fBar->IndexOf(fBar->pvSelected()), step);
	if (next < 0)
		return;
	pvSelect(0, next, true);
	pvSelectFirst(1);
}

void
MenuTracker::pvEnter()
{
	size_t level = pvDeepest();
	BMenuItem* item = pvMenuAt(level)->pvSelected();
	if (item == nullptr)
		return;
	if (item->Submenu() != nullptr) {
		if (pvOpenSubmenu(level))
			pvSelectFirst(level + 1);
		return;
	}
	pvInvoke(item);
}

}
