#ifndef ABOUT_ICON_VIEW_H
#define ABOUT_ICON_VIEW_H

#include "IconView.h"

// The about window's icon; a click closes the window.
class AboutIconView : public IconView {
public:
	AboutIconView(BRect frame, const char* name, uint32 resizingMode, uint32 flags);

	virtual void MouseDown(BPoint where);
};

#endif
