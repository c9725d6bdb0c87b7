#ifndef GET_REAL_TRACKER_ICON_H
#define GET_REAL_TRACKER_ICON_H

#include <NodeInfo.h>
#include <SupportDefs.h>

class BBitmap;
struct entry_ref;

// The file manager's icon for the node, seen through a link whose target
// exists; a link to nothing gives the link's own icon.
status_t GetRealTrackerIcon(entry_ref* ref, BBitmap* bitmap, icon_size size);

#endif
