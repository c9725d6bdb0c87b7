#ifndef SPECIAL_ICON_VIEW_H
#define SPECIAL_ICON_VIEW_H

#include <OS.h>
#include <Point.h>

#include "IconView.h"

// The icon well of the node info panel: a double click on it reveals the node
// in the file manager.
class SpecialIconView : public IconView {
public:
	SpecialIconView(BRect frame, const char* name, uint32 resizingMode, uint32 flags);

	virtual void MouseDown(BPoint where);

	// Whether a click at where, now, completes a double click: within 5 pixels
	// in both directions of the last click and less than half a second after it.
	// Every click becomes the last click.
	bool IsDoubleClick(BPoint where);
	bool IsDoubleClick(BPoint where, bigtime_t when);

private:
	BPoint fLastPoint;
	bigtime_t fLastTime = 0;
};

#endif
