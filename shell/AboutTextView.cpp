#include "AboutTextView.h"

#include <Window.h>

AboutTextView::AboutTextView(BRect frame, const char* name, BRect textRect,
	uint32 resizingMode, uint32 flags)
	: BTextView(frame, name, textRect, resizingMode, flags)
{
}

void
AboutTextView::MouseDown(BPoint)
{
	Window()->PostMessage(B_QUIT_REQUESTED);
}
