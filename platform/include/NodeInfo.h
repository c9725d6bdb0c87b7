#ifndef _NODE_INFO_H
#define _NODE_INFO_H

#include <SupportDefs.h>

class BBitmap;
class BNode;

enum icon_size {
	B_LARGE_ICON = 32,
	B_MINI_ICON = 16
};

// The file type of a node ("BEOS:TYPE"), and its icon. Without a stored type the
// type comes from the desktop's MIME database.
class BNodeInfo {
public:
	BNodeInfo();
	BNodeInfo(BNode* node);
	virtual ~BNodeInfo();

	status_t SetTo(BNode* node);
	status_t InitCheck() const;

	status_t GetType(char* type) const;
	status_t SetType(const char* type);

	status_t GetTrackerIcon(BBitmap* icon, icon_size which = B_LARGE_ICON) const;

private:
	BNode* fNode;
	status_t fStatus;
};

#endif
