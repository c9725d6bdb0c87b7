#ifndef ITEM_VIEW_H
#define ITEM_VIEW_H

#include <View.h>

class BListItem;

// Draws one list item outside of any list, over the whole view.
class ItemView : public BView {
public:
	ItemView(BRect frame, const char* name, uint32 resizingMode, uint32 flags);

	virtual void Draw(BRect updateRect);

	// Remembers item (not owned) as the one to draw, replacing any earlier one;
	// the item does not become a child view.
	void AddChild(BListItem* item);
	BListItem* Item() const { return fItem; }

private:
	BListItem* fItem = nullptr;
};

#endif
