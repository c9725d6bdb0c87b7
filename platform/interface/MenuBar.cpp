#include <MenuBar.h>

#include <MenuItem.h>
#include <Window.h>

#include "MenuTracker.h"

BMenuBar::BMenuBar(BRect frame, const char* title, uint32 resizingMode, menu_layout layout,
	bool resizeToFit)
	: BMenu(frame, title, resizingMode, B_WILL_DRAW | B_FRAME_EVENTS, layout, resizeToFit)
{
}

BMenuBar::~BMenuBar() = default;

void
BMenuBar::SetBorder(menu_bar_border border)
{
	fBorder = border;
	Invalidate();
}

menu_bar_border
BMenuBar::Border() const
{
	return fBorder;
}

void
BMenuBar::AttachedToWindow()
{
	BMenu::AttachedToWindow();
	BWindow* window = Window();
	if (window->KeyMenuBar() == nullptr)
		window->SetKeyMenuBar(this);
	if (window->KeyMenuBar() == this)
		pvInstall(window);
	fTracker = new BPrivate::MenuTracker(this);
	window->AddCommonFilter(fTracker);
}

void
BMenuBar::DetachedFromWindow()
{
	BWindow* window = Window();
	fTracker->Stop();
	window->RemoveCommonFilter(fTracker);
	delete fTracker;
	fTracker = nullptr;
	pvUninstall();
	if (window->KeyMenuBar() == this)
		window->SetKeyMenuBar(nullptr);
	BMenu::DetachedFromWindow();
}

void
BMenuBar::Draw(BRect updateRect)
{
	BMenu::Draw(updateRect);
	BRect bounds = Bounds();
	SetHighColor(tint_color(ui_color(B_MENU_BACKGROUND_COLOR), B_DARKEN_2_TINT));
	StrokeLine(bounds.LeftBottom(), bounds.RightBottom());
	if (fBorder != B_BORDER_EACH_ITEM)
		return;
	for (int32 i = 0; i < CountItems(); i++) {
		BRect frame = ItemAt(i)->Frame();
		StrokeLine(frame.RightTop(), frame.RightBottom());
	}
}

void
BMenuBar::MouseDown(BPoint where)
{
	if (fTracker != nullptr && IsEnabled())
		fTracker->StartWithMouse(ConvertToScreen(where));
}
