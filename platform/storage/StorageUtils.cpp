#include "StorageUtils.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <vector>

status_t
status_for_errno(int error)
{
	switch (error) {
		case 0:
			return B_OK;
		case ENOENT:
		case ENODATA:
			return B_ENTRY_NOT_FOUND;
		case EACCES:
			return B_PERMISSION_DENIED;
		case EPERM:
			return B_NOT_ALLOWED;
		case ENOSPC:
		case EDQUOT:
		case E2BIG:
		case EFBIG:
			return B_DEVICE_FULL;
		case ENOTSUP:
			return B_UNSUPPORTED;
		case ENAMETOOLONG:
			return B_NAME_TOO_LONG;
		case EEXIST:
			return B_FILE_EXISTS;
		case ENOTDIR:
			return B_NOT_A_DIRECTORY;
		case EISDIR:
			return B_IS_A_DIRECTORY;
		case ENOTEMPTY:
			return B_DIRECTORY_NOT_EMPTY;
		case EROFS:
			return B_READ_ONLY_DEVICE;
		case EXDEV:
			return B_CROSS_DEVICE_LINK;
		case ELOOP:
			return B_LINK_LIMIT;
		case EMFILE:
		case ENFILE:
			return B_NO_MORE_FDS;
		case ENOMEM:
			return B_NO_MEMORY;
		case EINVAL:
			return B_BAD_VALUE;
		case EBADF:
			return B_FILE_ERROR;
		case EBUSY:
			return B_BUSY;
		case EWOULDBLOCK:
			return B_WOULD_BLOCK;
		case EINTR:
			return B_INTERRUPTED;
		case EIO:
			return B_IO_ERROR;
		case EPIPE:
			return B_BUSTED_PIPE;
		default:
			return B_ERROR;
	}
}

status_t
last_status()
{
	return status_for_errno(errno);
}

std::string
normalized_path(const char* path, const std::string& base)
{
	if (path == nullptr || path[0] == '\0')
		return std::string();

	std::string full;
	if (path[0] == '/')
		full = path;
	else if (!base.empty())
		full = base + "/" + path;
	else {
		char cwd[PATH_MAX];
		if (getcwd(cwd, sizeof(cwd)) == nullptr)
			return std::string();
		full = std::string(cwd) + "/" + path;
	}

	std::vector<std::string> parts;
	size_t start = 0;
	while (start <= full.size()) {
		size_t end = full.find('/', start);
		if (end == std::string::npos)
			end = full.size();
		std::string part = full.substr(start, end - start);
		if (part == "..") {
			if (!parts.empty())
				parts.pop_back();
		} else if (!part.empty() && part != ".")
			parts.push_back(std::move(part));
		start = end + 1;
	}

	std::string result;
	for (const std::string& part : parts)
		result += "/" + part;
	return result.empty() ? std::string("/") : result;
}

std::string
parent_of(const std::string& path)
{
	size_t slash = path.rfind('/');
	if (slash == std::string::npos || path == "/")
		return std::string();
	return slash == 0 ? std::string("/") : path.substr(0, slash);
}

std::string
leaf_of(const std::string& path)
{
	if (path == "/")
		return path;
	size_t slash = path.rfind('/');
	return slash == std::string::npos ? path : path.substr(slash + 1);
}
