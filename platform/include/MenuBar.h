#ifndef _MENU_BAR_H
#define _MENU_BAR_H

#include <memory>

#include <Menu.h>

enum menu_bar_border {
	B_BORDER_FRAME,
	B_BORDER_CONTENTS,
	B_BORDER_EACH_ITEM
};

// The bar of menus at the top of a window. A click on one of its items opens
// that item's menu; F10 opens the first menu from the keyboard. The first bar
// added to a window becomes its key menu bar, whose items' shortcuts the window
// answers.
class BMenuBar : public BMenu {
public:
	BMenuBar(BRect frame, const char* title,
		uint32 resizingMode = B_FOLLOW_LEFT_RIGHT | B_FOLLOW_TOP,
		menu_layout layout = B_ITEMS_IN_ROW, bool resizeToFit = true);
	virtual ~BMenuBar();

	virtual void SetBorder(menu_bar_border border);
	menu_bar_border Border() const;

	virtual void AttachedToWindow();
	virtual void DetachedFromWindow();
	virtual void Draw(BRect updateRect);
	virtual void MouseDown(BPoint where);

private:
	friend class BPrivate::MenuTracker;

	menu_bar_border fBorder = B_BORDER_FRAME;
	// Installed in the window's filters while the bar is attached.
	BPrivate::MenuTracker* fTracker = nullptr;
};

#endif
