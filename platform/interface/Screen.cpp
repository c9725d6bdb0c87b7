#include <Screen.h>

#include <Bitmap.h>
#include <InterfaceDefs.h>

#include "../link/DisplayServer.h"

const screen_id B_MAIN_SCREEN_ID = {0};

BScreen::BScreen(screen_id)
{
}

BScreen::BScreen(BWindow*)
{
}

BRect
BScreen::Frame() const
{
	return BPrivate::DisplayServer::Default().ScreenFrame();
}

rgb_color
BScreen::DesktopColor() const
{
	return ui_color(B_DESKTOP_COLOR);
}

uint8
BScreen::IndexForColor(rgb_color color) const
{
	return index_for_color(color);
}

rgb_color
BScreen::ColorForIndex(uint8 index) const
{
	return system_colors()->color_list[index];
}
