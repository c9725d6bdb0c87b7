#ifndef ICON_WINDOW_H
#define ICON_WINDOW_H

#include <memory>

#include <Window.h>

class BBitmap;

// A window that shows one icon attribute four times magnified, titled with
// the attribute's name. It keeps the bitmap that its "Icon" view draws.
class IconWindow : public BWindow {
public:
	// The bitmap is side x side colour-mapped pixels made from data.
	IconWindow(BRect frame, const char* title, const void* data, int32 size, int32 side);
	virtual ~IconWindow();

	static const int32 kMagnification = 4;

private:
	std::unique_ptr<BBitmap> fBitmap;
};

#endif
