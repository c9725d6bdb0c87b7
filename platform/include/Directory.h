#ifndef _DIRECTORY_H
#define _DIRECTORY_H

#include <dirent.h>

#include <memory>
#include <string>

#include <Node.h>
#include <StorageDefs.h>

class BEntry;
class BFile;
class BSymLink;
struct entry_ref;

// A folder: its entries, and new files, folders and links in it. Relative paths
// given to its calls are taken from the folder.
class BDirectory : public BNode {
public:
	BDirectory();
	BDirectory(const entry_ref* ref);
	BDirectory(const BEntry* entry);
	BDirectory(const char* path);
	BDirectory(const BDirectory* dir, const char* path);
	virtual ~BDirectory();

	status_t SetTo(const entry_ref* ref);
	status_t SetTo(const BEntry* entry);
	status_t SetTo(const char* path);
	status_t SetTo(const BDirectory* dir, const char* path);
	void Unset();

	status_t GetEntry(BEntry* entry) const;
	status_t FindEntry(const char* path, BEntry* entry, bool traverse = false) const;
	bool IsRootDirectory() const;

	// Whether path names an entry in this folder or below it, of one of the flavors.
	bool Contains(const char* path, int32 nodeFlags = B_ANY_NODE) const;
	bool Contains(const BEntry* entry, int32 nodeFlags = B_ANY_NODE) const;

	status_t GetNextEntry(BEntry* entry, bool traverse = false);
	status_t GetNextRef(entry_ref* ref);
	status_t Rewind();
	int32 CountEntries() const;

	status_t CreateFile(const char* path, BFile* file, bool failIfExists = false);
	status_t CreateDirectory(const char* path, BDirectory* dir);
	status_t CreateSymLink(const char* path, const char* linkToPath, BSymLink* link);

private:
	friend class BEntry;
	friend class BNode;
	friend class BPath;

	// The absolute path of path taken relative to this folder.
	std::string _PathOf(const char* path) const;

	struct DirCloser {
		void operator()(DIR* dir) const;
	};

	status_t _NextName(std::string* name);

	std::unique_ptr<DIR, DirCloser> fDir;
};

#endif
