#ifndef _PATH_H
#define _PATH_H

#include <string>

#include <SupportDefs.h>

class BDirectory;
class BEntry;
struct entry_ref;

// An absolute path, always normalised as the kernel resolves it: the folders
// through their links (so ".." after a link leaves the link's target), the leaf
// kept, even a link; no ".", "..", doubled or trailing slashes. Folders that do
// not exist are taken as written, unless normalize asks that they exist.
// Relative paths are taken from the current folder.
class BPath {
public:
	BPath();
	BPath(const BPath& path);
	BPath(const entry_ref* ref);
	BPath(const BEntry* entry);
	BPath(const char* dir, const char* leaf = nullptr, bool normalize = false);
	BPath(const BDirectory* dir, const char* leaf, bool normalize = false);
	~BPath();

	status_t InitCheck() const;

	status_t SetTo(const entry_ref* ref);
	status_t SetTo(const BEntry* entry);
	status_t SetTo(const char* path, const char* leaf = nullptr, bool normalize = false);
	status_t SetTo(const BDirectory* dir, const char* leaf = nullptr,
		bool normalize = false);
	void Unset();

	status_t Append(const char* path, bool normalize = false);

	const char* Path() const;
	const char* Leaf() const;
	status_t GetParent(BPath* path) const;

	bool operator==(const BPath& item) const;
	bool operator==(const char* path) const;
	bool operator!=(const BPath& item) const;
	bool operator!=(const char* path) const;
	BPath& operator=(const BPath& item);
	BPath& operator=(const char* path);

private:
	std::string fPath;
	status_t fStatus;
};

#endif
