#ifndef _BOX_H
#define _BOX_H

#include <string>

#include <View.h>

// A frame around a group of views, with an optional label in its top edge.
class BBox : public BView {
public:
	BBox(BRect frame, const char* name = NULL,
		uint32 resizingMode = B_FOLLOW_LEFT | B_FOLLOW_TOP,
		uint32 flags = B_WILL_DRAW | B_FRAME_EVENTS | B_NAVIGABLE_JUMP,
		border_style border = B_FANCY_BORDER);
	virtual ~BBox();

	virtual void AttachedToWindow();
	virtual void Draw(BRect updateRect);
	virtual void FrameResized(float width, float height);
	virtual void SetBorder(border_style border);
	border_style Border() const { return fBorder; }
	void SetLabel(const char* label);
	const char* Label() const;
	virtual void GetPreferredSize(float* width, float* height);

private:
	float pvTopEdge() const;

	std::string fLabel;
	bool fHasLabel = false;
	border_style fBorder;
};

#endif
