#include "MenuWindow.h"

#include <algorithm>

#include <Menu.h>
#include <Screen.h>

#include "../app/WindowList.h"
#include "../link/DisplayServer.h"
#include "WindowSink.h"

namespace BPrivate {

MenuWindow::MenuWindow(BWindow* owner, BMenu* menu)
	: BWindow(BRect(0, 0, 1, 1), "menu", B_NO_BORDER_WINDOW_LOOK, B_NORMAL_WINDOW_FEEL,
		B_NOT_CLOSABLE | B_NOT_MOVABLE | B_NOT_RESIZABLE | B_NOT_ZOOMABLE
			| B_NOT_MINIMIZABLE | B_AVOID_FOCUS),
	fMenu(menu)
{
	// Open menus are not among the application's windows.
	RemoveWindow(this);
	DisplayServer::Default().MakePopup(fServerId, owner->fServerId,
		std::make_shared<WindowSink>(BMessenger(owner), BMessenger(owner), BMessenger(owner)));

	BPoint where = menu->ScreenLocation();
	menu->MoveTo(0, 0);
	AddChild(menu);
	BRect bounds = menu->Bounds();
	ResizeTo(bounds.Width(), bounds.Height());

	// Kept on the screen.
	BRect screen = BScreen(this).Frame();
	where.x = std::max(screen.left, std::min(where.x, screen.right - bounds.Width()));
	where.y = std::max(screen.top, std::min(where.y, screen.bottom - bounds.Height()));
	MoveTo(where);
	fOpenFrame = Frame();
}

void
MenuWindow::Dismiss()
{
	if (!Lock())
		return;
	RemoveChild(fMenu);
	Quit();
}

}
