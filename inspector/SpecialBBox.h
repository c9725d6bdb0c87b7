#ifndef SPECIAL_BBOX_H
#define SPECIAL_BBOX_H

#include <Box.h>

// The plain box of the node info panel: a box class of the panel's own.
class SpecialBBox : public BBox {
public:
	SpecialBBox(BRect frame, const char* name, uint32 resizingMode, uint32 flags,
		border_style border = B_FANCY_BORDER);

	virtual void Draw(BRect updateRect);
};

#endif
