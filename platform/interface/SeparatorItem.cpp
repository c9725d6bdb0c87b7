#include <MenuItem.h>

#include <cmath>

#include <Menu.h>

BSeparatorItem::BSeparatorItem()
	: BMenuItem("", nullptr)
{
	BMenuItem::SetEnabled(false);
}

BSeparatorItem::~BSeparatorItem() = default;

void
BSeparatorItem::SetEnabled(bool)
{
}

void
BSeparatorItem::GetContentSize(float* width, float* height)
{
	if (width != nullptr)
		*width = 2;
	if (height != nullptr)
		*height = 4;
}

void
BSeparatorItem::Draw()
{
	BMenu* menu = Menu();
	BRect frame = Frame();
	rgb_color background = ui_color(B_MENU_BACKGROUND_COLOR);
	float middle = std::floor((frame.top + frame.bottom) / 2);
	menu->SetHighColor(tint_color(background, B_DARKEN_2_TINT));
	menu->StrokeLine(BPoint(frame.left + 1, middle), BPoint(frame.right - 1, middle));
	menu->SetHighColor(tint_color(background, B_LIGHTEN_2_TINT));
	menu->StrokeLine(BPoint(frame.left + 1, middle + 1), BPoint(frame.right - 1, middle + 1));
}
