#ifndef FIX_LINK_H
#define FIX_LINK_H

#include <SupportDefs.h>

class BEntry;
class BNode;

// Re-points the symbolic link at newTarget: the link is removed and made anew
// under the same name, carrying the old link's attributes. Always B_OK: the
// caller re-reads the link and shows whatever state resulted, and a failure
// after the removal leaves no link at all.
status_t FixLink(BEntry* link, BEntry* newTarget);

// Copies every attribute of from onto to, then gives to the link file type
// ("BEOS:TYPE" = "application/x-vnd.Be-symlink"). The status of the copy; the
// end of the attribute list counts as success.
status_t CopyLinkAttrs(BNode* from, BNode* to);

#endif
