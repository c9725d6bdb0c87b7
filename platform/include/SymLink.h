#ifndef _SYM_LINK_H
#define _SYM_LINK_H

#include <Node.h>

// A symbolic link itself, never its target.
class BSymLink : public BNode {
public:
	BSymLink();
	BSymLink(const entry_ref* ref);
	BSymLink(const BEntry* entry);
	BSymLink(const char* path);
	BSymLink(const BDirectory* dir, const char* path);
	virtual ~BSymLink();

	// Copies the link's contents with a NUL into buffer (truncated to fit) and
	// returns their full length.
	ssize_t ReadLink(char* buffer, size_t size);
	bool IsAbsolute();
};

#endif
