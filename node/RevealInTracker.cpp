#include "RevealInTracker.h"

#include <AppDefs.h>
#include <Entry.h>
#include <Message.h>
#include <Messenger.h>

namespace {

const char* const kTrackerSignature = "application/x-vnd.Be-TRAK";
// How often a selection is asked for while the folder's window is not open yet.
const int32 kSelectionTries = 1000;

// Selection of Poses of Window folderName, with the node as the new selection.
void
BuildSelectMessage(BMessage* message, const entry_ref& node, const char* folderName)
{
	message->AddSpecifier("Selection");
	message->AddRef("data", &node);
	message->AddSpecifier("Poses");
	message->AddSpecifier("Window", folderName);
}

}	// namespace

void
RevealInTracker(BEntry* entry)
{
	if (entry == nullptr)
		return;
	entry_ref ref;
	if (entry->GetRef(&ref) == B_OK)
		RevealInTracker(&ref);
}

void
RevealInTracker(entry_ref* ref)
{
	BEntry node(ref, true);
	BEntry folder;
	entry_ref nodeRef;
	entry_ref folderRef;
	if (node.InitCheck() != B_OK || node.GetParent(&folder) != B_OK
		|| node.GetRef(&nodeRef) != B_OK || folder.GetRef(&folderRef) != B_OK)
		return;

	BMessenger tracker(kTrackerSignature);
	BMessage open(B_REFS_RECEIVED);
	open.AddRef("refs", &folderRef);
	BMessage reply;
	tracker.SendMessage(&open, &reply);

	BMessage select(B_CREATE_PROPERTY);
	BuildSelectMessage(&select, nodeRef, folderRef.name);
	for (int32 tries = kSelectionTries; tries >= 1; tries--) {
		reply.MakeEmpty();
		reply.what = 0;
		if (tracker.SendMessage(&select, &reply) != B_OK
			|| reply.what != B_MESSAGE_NOT_UNDERSTOOD)
			break;
	}
}
