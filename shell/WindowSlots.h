#ifndef WINDOW_SLOTS_H
#define WINDOW_SLOTS_H

#include <Point.h>

// Where the application places new icon and data windows: the remembered
// rectangle slots. The application implements it, so the views that open
// those windows need nothing above them; they ask be_app for it.
class WindowSlots {
public:
	virtual ~WindowSlots() = default;

	// The top-left corner of rectangle slot i.
	virtual BPoint WindowCorner(int i) const = 0;
	// How many slots new data windows cycle through.
	virtual int NumDataWins() const = 0;
};

#endif
