#include "StorageUtils.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <algorithm>
#include <climits>
#include <cstdlib>
#include <memory>
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

namespace {

// The parts of an absolute path between its slashes, empty ones left out.
std::vector<std::string>
PathParts(const std::string& path)
{
	std::vector<std::string> parts;
	size_t start = 0;
	while (start < path.size()) {
		size_t end = std::min(path.find('/', start), path.size());
		if (end > start)
			parts.push_back(path.substr(start, end - start));
		start = end + 1;
	}
	return parts;
}

// Adds part to path as written: ".." goes up, "." stays.
void
AppendPart(std::string* path, const std::string& part)
{
	if (part == "..")
		path->erase(std::max<size_t>(path->rfind('/'), 1));
	else if (part != ".")
		*path += (path->back() == '/' ? "" : "/") + part;
}

// The canonical path of an existing path (realpath); false when it has none.
bool
Canonical(const std::string& path, std::string* canonical)
{
	std::unique_ptr<char, decltype(&free)> real(realpath(path.c_str(), nullptr), &free);
	if (!real)
		return false;
	*canonical = real.get();
	return true;
}

// The folder of the first count parts as the kernel reaches it: the longest
// start of them that exists through realpath, the rest, which does not exist,
// as written.
std::string
ResolvedFolder(const std::vector<std::string>& parts, size_t count)
{
	size_t resolved = count;
	std::string result = "/";
	for (; resolved > 0; resolved--) {
		std::string folder;
		for (size_t i = 0; i < resolved; i++)
			folder += "/" + parts[i];
		if (Canonical(folder, &result))
			break;
	}
	for (size_t i = resolved; i < count; i++)
		AppendPart(&result, parts[i]);
	return result;
}

}	// namespace

std::string
followed_path(const std::string& path)
{
	std::string canonical;
	return Canonical(path, &canonical) ? canonical : path;
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

	// A leaf "." or ".." is a folder reached through every part before it; any
	// other leaf is the entry itself, a link included, unless a slash after it
	// asks for the folder it leads to.
	std::vector<std::string> parts = PathParts(full);
	bool isFolder = parts.empty() || parts.back() == "." || parts.back() == "..";
	std::string result = ResolvedFolder(parts, isFolder ? parts.size() : parts.size() - 1);
	if (!isFolder)
		AppendPart(&result, parts.back());
	return full.back() == '/' ? followed_path(result) : result;
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
