#include <InterfaceDefs.h>

#include <algorithm>

#include <Looper.h>
#include <OS.h>
#include <Window.h>

#include "../link/DisplayServer.h"

rgb_color
ui_color(color_which which)
{
	switch (which) {
		case B_PANEL_BACKGROUND_COLOR:
		case B_MENU_BACKGROUND_COLOR:
		case B_CONTROL_BACKGROUND_COLOR:
			return make_color(216, 216, 216);
		case B_WINDOW_TAB_COLOR:
			return make_color(255, 203, 0);
		case B_KEYBOARD_NAVIGATION_COLOR:
		case B_NAVIGATION_PULSE_COLOR:
		case B_CONTROL_HIGHLIGHT_COLOR:
			return make_color(0, 0, 229);
		case B_DESKTOP_COLOR:
			return make_color(51, 102, 152);
		case B_MENU_SELECTION_BACKGROUND_COLOR:
			return make_color(115, 120, 184);
		case B_MENU_SELECTED_ITEM_TEXT_COLOR:
			return make_color(255, 255, 255);
		case B_DOCUMENT_BACKGROUND_COLOR:
		case B_SHINE_COLOR:
			return make_color(255, 255, 255);
		case B_CONTROL_BORDER_COLOR:
			return make_color(96, 96, 96);
		case B_MENU_ITEM_TEXT_COLOR:
		case B_PANEL_TEXT_COLOR:
		case B_DOCUMENT_TEXT_COLOR:
		case B_CONTROL_TEXT_COLOR:
		case B_SHADOW_COLOR:
		default:
			return make_color(0, 0, 0);
	}
}

rgb_color
tint_color(rgb_color color, float tint)
{
	// Below 1 moves each component towards white, above 1 towards black.
	auto tinted = [tint](uint8 value) {
		float result = tint < 1.0f ? 255.0f - (255.0f - value) * tint
			: value * (2.0f - tint);
		return uint8(std::clamp(result + 0.5f, 0.0f, 255.0f));
	};
	return make_color(tinted(color.red), tinted(color.green), tinted(color.blue), color.alpha);
}

uint32
modifiers()
{
	return BPrivate::DisplayServer::Default().Modifiers();
}

status_t
beep()
{
	// The bell, and a flash of the window that refused something, if any:
	// most desktops keep the bell silent.
	auto window = dynamic_cast<BWindow*>(BLooper::LooperForThread(find_thread(NULL)));
	BPrivate::DisplayServer::Default().Beep(window != nullptr ? window->fServerId : -1);
	return B_OK;
}

int32
count_workspaces()
{
	return 1;
}

int32
current_workspace()
{
	return 0;
}

void
activate_workspace(int32)
{
}
