#include "GetRealTrackerIcon.h"

#include <Entry.h>
#include <Node.h>

status_t
GetRealTrackerIcon(entry_ref* ref, BBitmap* bitmap, icon_size size)
{
	BNode node(ref);
	status_t status = node.InitCheck();
	if (status != B_OK)
		return status;
	if (node.IsSymLink()) {
		BEntry target(ref, true);
		if (target.InitCheck() == B_OK && target.Exists())
			node.SetTo(&target);
	}
	BNodeInfo info(&node);
	return info.GetTrackerIcon(bitmap, size);
}
