#ifndef NEW_SCROLLER_H
#define NEW_SCROLLER_H

#include <ScrollView.h>

// A scroll view whose vertical scroll bar ranges over the part of its target
// that does not fit, kept in step whenever the scroll view is resized.
class NewScroller : public BScrollView {
public:
	NewScroller(const char* name, BView* target, uint32 resizingMode, uint32 flags,
		bool horizontal, bool vertical, border_style border = B_FANCY_BORDER);

	virtual void FrameResized(float width, float height);
	virtual void MessageReceived(BMessage* message);
	virtual void Sync();

	void SyncScrollBarsWithContent();
};

#endif
