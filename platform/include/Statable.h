#ifndef _STATABLE_H
#define _STATABLE_H

#include <sys/stat.h>
#include <ctime>

#include <SupportDefs.h>

// The stat-based questions common to entries and nodes. Subclasses say where
// the node is (_StatTarget); an entry never follows a link, a node is what it opened.
class BStatable {
public:
	virtual ~BStatable();

	virtual status_t GetStat(struct stat* st) const;

	bool IsFile() const;
	bool IsDirectory() const;
	bool IsSymLink() const;

	status_t GetSize(off_t* size) const;
	status_t GetModificationTime(time_t* mtime) const;
	status_t SetModificationTime(time_t mtime);
	status_t GetCreationTime(time_t* ctime) const;
	status_t GetOwner(uid_t* owner) const;
	status_t GetPermissions(mode_t* permissions) const;

protected:
	// A directory descriptor and path as the *at() calls take them, and their flags
	// (AT_EMPTY_PATH for an open descriptor, AT_SYMLINK_NOFOLLOW for a path).
	virtual status_t _StatTarget(int* fd, const char** path, int* flags) const = 0;
};

#endif
