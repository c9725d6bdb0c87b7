#ifndef _MENU_WINDOW_H
#define _MENU_WINDOW_H

#include <Window.h>

class BMenu;

namespace BPrivate {

// The borderless popup that shows one open menu above the window of its menu
// bar. Its mouse and keys go to that window, whose menu tracking handles them;
// the popup's own thread only draws the menu.
class MenuWindow : public BWindow {
public:
	// Constructed, shown and dismissed by the thread of owner.
	MenuWindow(BWindow* owner, BMenu* menu);

	// The screen frame it was opened at.
	BRect OpenFrame() const { return fOpenFrame; }
	// Gives the menu back and closes the window (which deletes itself).
	void Dismiss();

private:
	BMenu* fMenu;
	BRect fOpenFrame;
};

}

#endif
