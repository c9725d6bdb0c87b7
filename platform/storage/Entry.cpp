#include <Entry.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdio>
#include <cerrno>
#include <cstring>

#include <Directory.h>
#include <Path.h>
#include <StorageDefs.h>

#include "StorageUtils.h"

namespace {

// Follows path through links until it names something that is not a link.
status_t
Traverse(std::string* path)
{
	for (int links = 0; links <= B_MAX_SYMLINKS; links++) {
		struct stat st;
		if (lstat(path->c_str(), &st) != 0 || !S_ISLNK(st.st_mode))
			return B_OK;
		char target[PATH_MAX];
		ssize_t length = readlink(path->c_str(), target, sizeof(target) - 1);
		if (length < 0)
			return last_status();
		target[length] = '\0';
		*path = normalized_path(target, parent_of(*path));
	}
	return B_LINK_LIMIT;
}

}	// namespace

BEntry::BEntry()
	: fStatus(B_NO_INIT)
{
}

BEntry::BEntry(const char* path, bool traverse)
	: fStatus(B_NO_INIT)
{
	SetTo(path, traverse);
}

BEntry::BEntry(const entry_ref* ref, bool traverse)
	: fStatus(B_NO_INIT)
{
	SetTo(ref, traverse);
}

BEntry::BEntry(const BDirectory* dir, const char* path, bool traverse)
	: fStatus(B_NO_INIT)
{
	SetTo(dir, path, traverse);
}

BEntry::BEntry(const BEntry& entry)
	: BStatable(), fPath(entry.fPath), fStatus(entry.fStatus)
{
}

BEntry::~BEntry() = default;

status_t
BEntry::InitCheck() const
{
	return fStatus;
}

bool
BEntry::Exists() const
{
	struct stat st;
	return fStatus == B_OK && lstat(fPath.c_str(), &st) == 0;
}

status_t
BEntry::SetTo(const char* path, bool traverse)
{
	Unset();
	std::string full = normalized_path(path);
	if (full.empty())
		return fStatus = B_BAD_VALUE;
	// As the kernel reads it, a path that ends in a slash names a folder, one
	// that may not exist yet.
	size_t length = strlen(path);
	struct stat st;
	if (length > 1 && path[length - 1] == '/') {
		int result = stat(path, &st);
		if (result == 0 && !S_ISDIR(st.st_mode))
			return fStatus = B_NOT_A_DIRECTORY;
		if (result != 0 && errno != ENOENT)
			return fStatus = last_status();
	}
	if (traverse && (fStatus = Traverse(&full)) != B_OK)
		return fStatus;
	if (leaf_of(full).size() >= B_FILE_NAME_LENGTH)
		return fStatus = B_NAME_TOO_LONG;

	entry_ref ref;
	if ((fStatus = ref_for_path(full, &ref)) == B_OK)
		fPath = full;
	return fStatus;
}

status_t
BEntry::SetTo(const entry_ref* ref, bool traverse)
{
	Unset();
	std::string path;
	if (ref == nullptr)
		return fStatus = B_BAD_VALUE;
	if ((fStatus = path_for_ref(*ref, &path)) != B_OK)
		return fStatus;
	return SetTo(path.c_str(), traverse);
}

status_t
BEntry::SetTo(const BDirectory* dir, const char* path, bool traverse)
{
	Unset();
	if (dir == nullptr || dir->InitCheck() != B_OK || path == nullptr)
		return fStatus = B_BAD_VALUE;
	return SetTo(dir->_PathOf(path).c_str(), traverse);
}

void
BEntry::Unset()
{
	fPath.clear();
	fStatus = B_NO_INIT;
}

status_t
BEntry::GetRef(entry_ref* ref) const
{
	if (fStatus != B_OK)
		return fStatus;
	return ref_for_path(fPath, ref);
}

status_t
BEntry::GetPath(BPath* path) const
{
	if (path == nullptr)
		return B_BAD_VALUE;
	if (fStatus != B_OK)
		return fStatus;
	return path->SetTo(fPath.c_str());
}

status_t
BEntry::GetParent(BEntry* entry) const
{
	std::string parent;
	status_t status = entry != nullptr ? _ParentPath(&parent) : status_t(B_BAD_VALUE);
	return status == B_OK ? entry->SetTo(parent.c_str()) : status;
}

status_t
BEntry::GetParent(BDirectory* dir) const
{
	std::string parent;
	status_t status = dir != nullptr ? _ParentPath(&parent) : status_t(B_BAD_VALUE);
	return status == B_OK ? dir->SetTo(parent.c_str()) : status;
}

status_t
BEntry::GetName(char* buffer) const
{
	if (buffer == nullptr)
		return B_BAD_VALUE;
	if (fStatus != B_OK)
		return fStatus;
	std::string leaf = leaf_of(fPath);
	snprintf(buffer, B_FILE_NAME_LENGTH, "%s", leaf.c_str());
	return B_OK;
}

status_t
BEntry::Rename(const char* path, bool clobber)
{
	if (path == nullptr || path[0] == '\0')
		return B_BAD_VALUE;
	if (fStatus != B_OK)
		return fStatus;
	std::string target = normalized_path(path, parent_of(fPath));
	if (target == fPath)
		return B_OK;

	int result = renameat2(AT_FDCWD, fPath.c_str(), AT_FDCWD, target.c_str(),
		clobber ? 0 : RENAME_NOREPLACE);
	if (result != 0 && errno == EINVAL && !clobber) {
		// A file system that cannot refuse to replace: look first.
		struct stat st;
		if (lstat(target.c_str(), &st) == 0)
			return B_FILE_EXISTS;
		result = rename(fPath.c_str(), target.c_str());
	}
	if (result != 0)
		return last_status();

	entry_ref ref;
	ref_for_path(target, &ref);
	fPath = target;
	return B_OK;
}

status_t
BEntry::MoveTo(BDirectory* dir, const char* path, bool clobber)
{
	if (dir == nullptr || dir->InitCheck() != B_OK)
		return B_BAD_VALUE;
	if (fStatus != B_OK)
		return fStatus;
	std::string leaf = leaf_of(fPath);
	return Rename(dir->_PathOf(path != nullptr ? path : leaf.c_str()).c_str(), clobber);
}

status_t
BEntry::Remove()
{
	if (fStatus != B_OK)
		return fStatus;
	struct stat st;
	if (lstat(fPath.c_str(), &st) != 0)
		return last_status();
	int result = S_ISDIR(st.st_mode) ? rmdir(fPath.c_str()) : unlink(fPath.c_str());
	return result == 0 ? B_OK : last_status();
}

bool
BEntry::operator==(const BEntry& item) const
{
	if (fStatus != B_OK || item.fStatus != B_OK)
		return fStatus != B_OK && item.fStatus != B_OK;
	if (fPath == item.fPath)
		return true;
	entry_ref mine;
	entry_ref theirs;
	return GetRef(&mine) == B_OK && item.GetRef(&theirs) == B_OK && mine == theirs;
}

bool
BEntry::operator!=(const BEntry& item) const
{
	return !(*this == item);
}

BEntry&
BEntry::operator=(const BEntry& item)
{
	fPath = item.fPath;
	fStatus = item.fStatus;
	return *this;
}

status_t
BEntry::_ParentPath(std::string* parent) const
{
	if (fStatus != B_OK)
		return fStatus;
	*parent = parent_of(fPath);
	return parent->empty() ? status_t(B_ENTRY_NOT_FOUND) : status_t(B_OK);
}

status_t
BEntry::_StatTarget(int* fd, const char** path, int* flags) const
{
	if (fStatus != B_OK)
		return fStatus;
	*fd = AT_FDCWD;
	*path = fPath.c_str();
	*flags = AT_SYMLINK_NOFOLLOW;
	return B_OK;
}
