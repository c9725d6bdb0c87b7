#ifndef _SCREEN_H
#define _SCREEN_H

#include <GraphicsDefs.h>
#include <Rect.h>

class BWindow;

typedef struct {
	int32 id;
} screen_id;

extern const screen_id B_MAIN_SCREEN_ID;

// The screen a window is on; there is one, the desktop's primary screen.
class BScreen {
public:
	BScreen(screen_id id = B_MAIN_SCREEN_ID);
	BScreen(BWindow* window);

	bool IsValid() const { return true; }
	status_t SetToNext() { return B_ERROR; }
	BRect Frame() const;
	color_space ColorSpace() const { return B_RGB32; }
	screen_id ID() const { return B_MAIN_SCREEN_ID; }
	rgb_color DesktopColor() const;
	const color_map* ColorMap() const { return system_colors(); }
	uint8 IndexForColor(rgb_color color) const;
	rgb_color ColorForIndex(uint8 index) const;
};

#endif
