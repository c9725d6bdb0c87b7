#include "ShelfFilter.h"

#include <Message.h>
#include <Shelf.h>

namespace BPrivate {

ShelfFilter::ShelfFilter(BShelf* shelf)
	: BMessageFilter(B_ANY_DELIVERY, B_ANY_SOURCE, B_ARCHIVED_OBJECT),
	fShelf(shelf)
{
}

ShelfFilter::~ShelfFilter()
{
	if (fShelf != nullptr)
		fShelf->fFilter = nullptr;
}

filter_result
ShelfFilter::Filter(BMessage* message, BHandler**)
{
	// The shelf refuses it; the archive never reaches the view either way.
	if (fShelf != nullptr)
		fShelf->AddReplicant(message, message->DropPoint());
	return B_SKIP_MESSAGE;
}

}
