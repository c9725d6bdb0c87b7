#ifndef _ENTRY_H
#define _ENTRY_H

#include <sys/types.h>

#include <string>

#include <Statable.h>
#include <SupportDefs.h>

class BDirectory;
class BPath;

// A reference to a directory entry: the device and folder it lives in, and its leaf name.
// Identity and ordering are by (device, directory, name). A ref made by this kit can be
// turned back into a path for as long as its folder exists.
struct entry_ref {
	entry_ref();
	entry_ref(dev_t device, ino_t directory, const char* name);
	entry_ref(const entry_ref& other);
	~entry_ref();

	status_t set_name(const char* name);

	bool operator==(const entry_ref& other) const;
	bool operator!=(const entry_ref& other) const;
	bool operator<(const entry_ref& other) const;
	entry_ref& operator=(const entry_ref& other);

	dev_t device;
	ino_t directory;
	char* name;
};

status_t get_ref_for_path(const char* path, entry_ref* ref);

// A location in the file system by path; the entry itself need not exist, but its
// folder must. With traversal, links are followed to the entry they point at.
class BEntry : public BStatable {
public:
	BEntry();
	BEntry(const char* path, bool traverse = false);
	BEntry(const entry_ref* ref, bool traverse = false);
	BEntry(const BDirectory* dir, const char* path, bool traverse = false);
	BEntry(const BEntry& entry);
	virtual ~BEntry();

	status_t InitCheck() const;
	bool Exists() const;

	status_t SetTo(const char* path, bool traverse = false);
	status_t SetTo(const entry_ref* ref, bool traverse = false);
	status_t SetTo(const BDirectory* dir, const char* path, bool traverse = false);
	void Unset();

	status_t GetRef(entry_ref* ref) const;
	status_t GetPath(BPath* path) const;
	status_t GetParent(BEntry* entry) const;
	status_t GetParent(BDirectory* dir) const;
	status_t GetName(char* buffer) const;

	// Renames or moves the entry; a relative path is taken from the entry's folder.
	status_t Rename(const char* path, bool clobber = false);
	status_t MoveTo(BDirectory* dir, const char* path = nullptr, bool clobber = false);
	status_t Remove();

	bool operator==(const BEntry& item) const;
	bool operator!=(const BEntry& item) const;
	BEntry& operator=(const BEntry& item);

protected:
	status_t _StatTarget(int* fd, const char** path, int* flags) const override;

private:
	friend class BNode;
	friend class BPath;

	status_t _ParentPath(std::string* parent) const;

	std::string fPath;
	status_t fStatus;
};

#endif
