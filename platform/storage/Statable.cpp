#include <Statable.h>

#include <fcntl.h>
#include <sys/stat.h>

#include "StorageUtils.h"

namespace {

// Stores one field of the stat of statable in *value.
template<typename Value, typename Field>
status_t
StatField(const BStatable& statable, Value* value, Field field)
{
	if (value == nullptr)
		return B_BAD_VALUE;
	struct stat st;
	status_t status = statable.GetStat(&st);
	if (status == B_OK)
		*value = field(st);
	return status;
}

}	// namespace

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
	return StatField(*this, size, [](const struct stat& st) { return st.st_size; });
}

status_t
BStatable::GetModificationTime(time_t* mtime) const
{
	return StatField(*this, mtime, [](const struct stat& st) { return st.st_mtime; });
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
	return StatField(*this, owner, [](const struct stat& st) { return st.st_uid; });
}

status_t
BStatable::GetPermissions(mode_t* permissions) const
{
	return StatField(*this, permissions, [](const struct stat& st) { return st.st_mode & ~S_IFMT; });
}
