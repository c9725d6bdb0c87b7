#include <Shelf.h>

#include <View.h>

#include "ShelfFilter.h"

BShelf::BShelf(BView* view, bool allowDrags, const char* shelfType)
	: BHandler("shelf"),
	fView(view),
	fType(shelfType != nullptr ? shelfType : ""),
	fAllowDrags(allowDrags),
	fFilter(nullptr)
{
	if (fView != nullptr) {
		fFilter = new BPrivate::ShelfFilter(this);
		fView->AddFilter(fFilter);
	}
}

BShelf::~BShelf()
{
	if (fFilter != nullptr) {
		fFilter->ShelfGone();
		fView->RemoveFilter(fFilter);
		delete fFilter;
	}
}

status_t
BShelf::AddReplicant(BMessage* archive, BPoint)
{
	if (archive == nullptr)
		return B_BAD_VALUE;
	return B_UNSUPPORTED;
}

status_t
BShelf::DeleteReplicant(int32)
{
	return B_BAD_INDEX;
}

int32
BShelf::CountReplicants() const
{
	return 0;
}

BMessage*
BShelf::ReplicantAt(int32, BView** view, uint32* uid, status_t* error) const
{
	if (view != nullptr)
		*view = nullptr;
	if (uid != nullptr)
		*uid = 0;
	if (error != nullptr)
		*error = B_BAD_INDEX;
	return nullptr;
}

int32
BShelf::IndexOf(const BView*) const
{
	return -1;
}
