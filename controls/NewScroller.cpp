#include "NewScroller.h"

#include <ScrollBar.h>

NewScroller::NewScroller(const char* name, BView* target, uint32 resizingMode, uint32 flags,
	bool horizontal, bool vertical, border_style border)
	: BScrollView(name, target, resizingMode, flags | B_FRAME_EVENTS, horizontal, vertical,
		border)
{
}

void
NewScroller::FrameResized(float width, float height)
{
	BScrollView::FrameResized(width, height);
	Sync();
}

void
NewScroller::MessageReceived(BMessage* message)
{
	BScrollView::MessageReceived(message);
}

void
NewScroller::Sync()
{
	SyncScrollBarsWithContent();
}

void
NewScroller::SyncScrollBarsWithContent()
{
	BView* content = ChildAt(0);
	if (content == nullptr)
		return;
	BScrollBar* bar = ScrollBar(B_VERTICAL);
	if (bar == nullptr)
		return;
	// The bar's steps stay as they are.
	int32 contentHeight = int32(content->Frame().Height());
	int32 viewHeight = int32(Bounds().Height());
	int32 range = contentHeight - viewHeight;
	if (range < 0)
		range = 0;
	bar->SetRange(0, float(range));
}
