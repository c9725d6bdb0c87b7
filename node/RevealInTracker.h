#ifndef REVEAL_IN_TRACKER_H
#define REVEAL_IN_TRACKER_H

class BEntry;
struct entry_ref;

// Shows the node (a link: its target) selected in its folder's window of the
// file manager. Nothing is reported when that does not work.
void RevealInTracker(BEntry* entry);
void RevealInTracker(entry_ref* ref);

#endif
