#ifndef _SHELF_H
#define _SHELF_H

#include <string>

#include <Handler.h>
#include <Point.h>

class BMessage;
class BView;

namespace BPrivate {
class ShelfFilter;
}

// A shelf for replicants on a view. Replicants are not supported here: the
// shelf accepts none, and an archive dropped on its view is refused.
class BShelf : public BHandler {
public:
	BShelf(BView* view, bool allowDrags = true, const char* shelfType = NULL);
	virtual ~BShelf();

	BView* ContainerView() const { return fView; }
	const char* ShelfType() const { return fType.c_str(); }

	bool AllowsDragging() const { return fAllowDrags; }
	void SetAllowsDragging(bool state) { fAllowDrags = state; }
	bool AllowsZombies() const { return fAllowZombies; }
	void SetAllowsZombies(bool state) { fAllowZombies = state; }
	bool DisplaysZombies() const { return fDisplayZombies; }
	void SetDisplaysZombies(bool state) { fDisplayZombies = state; }

	// B_UNSUPPORTED: no replicant is ever added.
	status_t AddReplicant(BMessage* archive, BPoint location);
	status_t DeleteReplicant(int32 index);
	int32 CountReplicants() const;
	BMessage* ReplicantAt(int32 index, BView** view = NULL, uint32* uid = NULL,
		status_t* error = NULL) const;
	int32 IndexOf(const BView* replicantView) const;

	BShelf(const BShelf&) = delete;
	BShelf& operator=(const BShelf&) = delete;

private:
	friend class BPrivate::ShelfFilter;

	BView* fView;
	std::string fType;
	bool fAllowDrags;
	bool fAllowZombies = true;
	bool fDisplayZombies = false;
	// Owned by the view; each tells the other when it goes first.
	BPrivate::ShelfFilter* fFilter;
};

#endif
