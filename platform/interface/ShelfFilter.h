#ifndef _SHELF_FILTER_H
#define _SHELF_FILTER_H

#include <MessageFilter.h>

class BShelf;

namespace BPrivate {

// Sits on a shelf's view and hands replicant archives that reach the view to
// the shelf instead. The view owns it; it and the shelf forget each other when
// either is deleted.
class ShelfFilter : public BMessageFilter {
public:
	explicit ShelfFilter(BShelf* shelf);
	virtual ~ShelfFilter();

	virtual filter_result Filter(BMessage* message, BHandler** target);

	void ShelfGone() { fShelf = nullptr; }

private:
	BShelf* fShelf;
};

}

#endif
