#ifndef ABOUT_TEXT_VIEW_H
#define ABOUT_TEXT_VIEW_H

#include <TextView.h>

// The about window's text; a click closes the window.
class AboutTextView : public BTextView {
public:
	AboutTextView(BRect frame, const char* name, BRect textRect, uint32 resizingMode,
		uint32 flags);

	virtual void MouseDown(BPoint where);
};

#endif
