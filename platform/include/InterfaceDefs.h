#ifndef _INTERFACE_DEFS_H
#define _INTERFACE_DEFS_H

#include <GraphicsDefs.h>
#include <Rect.h>

// Keys, modifiers, mouse buttons, alignment, borders and the user interface colours.

enum {
	B_BACKSPACE = 0x08,
	B_RETURN = 0x0a,
	B_ENTER = 0x0a,
	B_SPACE = 0x20,
	B_TAB = 0x09,
	B_ESCAPE = 0x1b,
	B_SUBSTITUTE = 0x1a,
	B_LEFT_ARROW = 0x1c,
	B_RIGHT_ARROW = 0x1d,
	B_UP_ARROW = 0x1e,
	B_DOWN_ARROW = 0x1f,
	B_INSERT = 0x05,
	B_DELETE = 0x7f,
	B_HOME = 0x01,
	B_END = 0x04,
	B_PAGE_UP = 0x0b,
	B_PAGE_DOWN = 0x0c,
	B_FUNCTION_KEY = 0x10
};

enum {
	B_F1_KEY = 0x02,
	B_F2_KEY = 0x03,
	B_F3_KEY = 0x04,
	B_F4_KEY = 0x05,
	B_F5_KEY = 0x06,
	B_F6_KEY = 0x07,
	B_F7_KEY = 0x08,
	B_F8_KEY = 0x09,
	B_F9_KEY = 0x0a,
	B_F10_KEY = 0x0b,
	B_F11_KEY = 0x0c,
	B_F12_KEY = 0x0d
};

// Command is the Ctrl key, Option is Alt, Control is the Super (Meta) key.
enum {
	B_SHIFT_KEY = 0x00000001,
	B_COMMAND_KEY = 0x00000002,
	B_CONTROL_KEY = 0x00000004,
	B_CAPS_LOCK = 0x00000008,
	B_SCROLL_LOCK = 0x00000010,
	B_NUM_LOCK = 0x00000020,
	B_OPTION_KEY = 0x00000040,
	B_MENU_KEY = 0x00000080,
	B_LEFT_SHIFT_KEY = 0x00000100,
	B_RIGHT_SHIFT_KEY = 0x00000200,
	B_LEFT_COMMAND_KEY = 0x00000400,
	B_RIGHT_COMMAND_KEY = 0x00000800,
	B_LEFT_CONTROL_KEY = 0x00001000,
	B_RIGHT_CONTROL_KEY = 0x00002000,
	B_LEFT_OPTION_KEY = 0x00004000,
	B_RIGHT_OPTION_KEY = 0x00008000
};

enum {
	B_PRIMARY_MOUSE_BUTTON = 0x01,
	B_SECONDARY_MOUSE_BUTTON = 0x02,
	B_TERTIARY_MOUSE_BUTTON = 0x04
};

// How wide the buttons of an alert are.
enum button_width {
	B_WIDTH_AS_USUAL,
	B_WIDTH_FROM_WIDEST,
	B_WIDTH_FROM_LABEL
};

enum border_style {
	B_PLAIN_BORDER,
	B_FANCY_BORDER,
	B_NO_BORDER
};

enum orientation {
	B_HORIZONTAL,
	B_VERTICAL
};

enum alignment {
	B_ALIGN_LEFT,
	B_ALIGN_RIGHT,
	B_ALIGN_CENTER
};

enum vertical_alignment {
	B_ALIGN_TOP = 0x10L,
	B_ALIGN_MIDDLE = 0x20,
	B_ALIGN_BOTTOM = 0x30
};

enum color_which {
	B_PANEL_BACKGROUND_COLOR = 1,
	B_MENU_BACKGROUND_COLOR = 2,
	B_WINDOW_TAB_COLOR = 3,
	B_KEYBOARD_NAVIGATION_COLOR = 4,
	B_DESKTOP_COLOR = 5,
	B_MENU_SELECTION_BACKGROUND_COLOR = 6,
	B_MENU_ITEM_TEXT_COLOR = 7,
	B_MENU_SELECTED_ITEM_TEXT_COLOR = 8,
	B_PANEL_TEXT_COLOR = 10,
	B_DOCUMENT_BACKGROUND_COLOR = 11,
	B_DOCUMENT_TEXT_COLOR = 12,
	B_CONTROL_BACKGROUND_COLOR = 13,
	B_CONTROL_TEXT_COLOR = 14,
	B_CONTROL_BORDER_COLOR = 15,
	B_CONTROL_HIGHLIGHT_COLOR = 16,
	B_NAVIGATION_PULSE_COLOR = 17,
	B_SHINE_COLOR = 18,
	B_SHADOW_COLOR = 19
};

// Tints for tint_color(): above 1 darkens, below 1 lightens.
const float B_LIGHTEN_MAX_TINT = 0.0f;
const float B_LIGHTEN_2_TINT = 0.385f;
const float B_LIGHTEN_1_TINT = 0.590f;
const float B_NO_TINT = 1.0f;
const float B_DARKEN_1_TINT = 1.147f;
const float B_DARKEN_2_TINT = 1.295f;
const float B_DARKEN_3_TINT = 1.407f;
const float B_DARKEN_4_TINT = 1.555f;
const float B_DARKEN_MAX_TINT = 2.0f;
const float B_DISABLED_LABEL_TINT = B_DARKEN_3_TINT;
const float B_HIGHLIGHT_BACKGROUND_TINT = B_DARKEN_2_TINT;
const float B_DISABLED_MARK_TINT = B_LIGHTEN_2_TINT;

#define B_CURRENT_WORKSPACE 0
#define B_ALL_WORKSPACES 0xffffffff

rgb_color ui_color(color_which which);
rgb_color tint_color(rgb_color color, float tint);

// The modifier keys held now (B_SHIFT_KEY, B_COMMAND_KEY ...).
uint32 modifiers();
// Sounds the display's bell.
status_t beep();

int32 count_workspaces();
int32 current_workspace();
void activate_workspace(int32 workspace);

#endif
