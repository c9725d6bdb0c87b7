#include <Statable.h>

#include <fcntl.h>
#include <sys/stat.h>

#include "StorageUtils.h"

BStatable::~BStatable() = default;

status_t
BStatable::GetStat(struct stat* st) const
{
	if (st == nullptr)
		return B_BAD_VALUE;
	int fd;
	const char* path;
	int flags;
	status_t status = _StatTarget(&fd, &path, &flags);
	if (status != B_OK)
		return status;
	return fstatat(fd, path, st, flags) == 0 ? B_OK : last_status();
}

bool
BStatable::IsFile() const
{
	struct stat st;
	return GetStat(&st) == B_OK && S_ISREG(st.st_mode);
}

bool
BStatable::IsDirectory() const
{
	struct stat st;
	return GetStat(&st) == B_OK && S_ISDIR(st.st_mode);
}

bool
BStatable::IsSymLink() const
{
	struct stat st;
	return GetStat(&st) == B_OK && S_ISLNK(st.st_mode);
}

status_t
BStatable::GetSize(off_t* size) const
{
	struct stat st;
	status_t status = size != nullptr ? GetStat(&st) : B_BAD_VALUE;
	if (status == B_OK)
		*size = st.st_size;
	return status;
}

status_t
BStatable::GetModificationTime(time_t* mtime) const
{
	struct stat st;
	status_t status = mtime != nullptr ? GetStat(&st) : B_BAD_VALUE;
	if (status == B_OK)
		*mtime = st.st_mtime;
	return status;
}

status_t
BStatable::SetModificationTime(time_t mtime)
{
	int fd;
	const char* path;
	int flags;
	status_t status = _StatTarget(&fd, &path, &flags);
	if (status != B_OK)
		return status;
	const struct timespec times[2] = {{0, UTIME_OMIT}, {mtime, 0}};
	int result = (flags & AT_EMPTY_PATH) != 0
		? futimens(fd, times) : utimensat(fd, path, times, AT_SYMLINK_NOFOLLOW);
	return result == 0 ? B_OK : last_status();
}

status_t
BStatable::GetCreationTime(time_t* ctime) const
{
	if (ctime == nullptr)
		return B_BAD_VALUE;
	int fd;
	const char* path;
	int flags;
	status_t status = _StatTarget(&fd, &path, &flags);
	if (status != B_OK)
		return status;
	struct statx st;
	if (statx(fd, path, flags, STATX_BTIME | STATX_MTIME, &st) != 0)
		return last_status();
	// Without a birth time the oldest time the file system keeps stands in for it.
	*ctime = (st.stx_mask & STATX_BTIME) != 0
		? st.stx_btime.tv_sec : st.stx_mtime.tv_sec;
	return B_OK;
}

status_t
BStatable::GetOwner(uid_t* owner) const
{
	struct stat st;
	status_t status = owner != nullptr ? GetStat(&st) : B_BAD_VALUE;
	if (status == B_OK)
		*owner = st.st_uid;
	return status;
}

status_t
BStatable::GetPermissions(mode_t* permissions) const
{
	struct stat st;
	status_t status = permissions != nullptr ? GetStat(&st) : B_BAD_VALUE;
	if (status == B_OK)
		*permissions = st.st_mode & ~S_IFMT;
	return status;
}
