#ifndef ICON_VIEW_H
#define ICON_VIEW_H

#include <Box.h>

class BApplication;
class BBitmap;
class BEntry;

// An icon well: draws a node's file-manager icon (a link shows its target's
// icon when the target exists) or an explicit bitmap, scaled into the view.
// Borderless on a white background, framed on any other.
class IconView : public BBox {
public:
	IconView(BRect frame, const char* name, uint32 resizingMode, uint32 flags);
	virtual ~IconView();

	virtual void AttachedToWindow();
	virtual void Draw(BRect updateRect);
	// A border other than B_NO_BORDER grows the view by 2 pixels on each side,
	// so the icon keeps its place; going back to no border does not shrink it.
	virtual void SetBorder(border_style style);

	// Takes ownership of entry and shows its node's icon at 32 pixels.
	void SetNode(BEntry* entry);
	// Shows the icon of the application's own file; nothing changes when the
	// application cannot tell where its file is.
	void SetNode(BApplication* app);
	// Shows bitmap (not owned) instead of the node's icon; size is its edge.
	void SetBitmap(BBitmap* bitmap, uint32 size);
	void SetBitmapSize(uint32 size);

	BEntry* Entry() const { return fEntry; }
	uint32 BitmapSize() const { return fBitmapSize; }

private:
	BRect pvIconFrame() const;
	void pvDrawNodeIcon(BRect source, BRect destination);

	BEntry* fEntry = nullptr;
	BBitmap* fBitmap = nullptr;
	uint32 fBitmapSize = 0;
};

#endif
