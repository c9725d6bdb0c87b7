#include "AboutIconView.h"

#include <Window.h>

AboutIconView::AboutIconView(BRect frame, const char* name, uint32 resizingMode,
	uint32 flags)
	: IconView(frame, name, resizingMode, flags)
{
}

void
AboutIconView::MouseDown(BPoint)
{
	Window()->PostMessage(B_QUIT_REQUESTED);
}
