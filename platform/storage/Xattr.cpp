#include "Xattr.h"

#include <sys/xattr.h>

#include <cctype>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>

#include <TypeConstants.h>

#include "StorageUtils.h"

const char kTypedXattrPrefix[] = "user.haiku.";

namespace {

const size_t kPrefixLength = sizeof(kTypedXattrPrefix) - 1;

bool
IsPrintableType(type_code type)
{
	for (int shift = 24; shift >= 0; shift -= 8) {
		if (!isprint(static_cast<unsigned char>(type >> shift)))
			return false;
	}
	return true;
}

bool
IsHexDigits(const char* text, size_t length)
{
	for (size_t i = 0; i < length; i++) {
		if (!isxdigit(static_cast<unsigned char>(text[i])))
			return false;
	}
	return true;
}

// A failure of a value read: a value larger than the buffer is not a name error.
ssize_t
GetFailure(const char* xattr)
{
	if (errno == ERANGE && strlen(xattr) <= XATTR_NAME_MAX)
		return B_BAD_VALUE;
	return errno == ERANGE ? B_NAME_TOO_LONG : last_status();
}

}	// namespace

status_t
encode_attr_name(const char* name, type_code type, std::string* xattr)
{
	if (name == nullptr || name[0] == '\0')
		return B_BAD_VALUE;
	if (type == B_XATTR_TYPE) {
		// Any extended attribute under its own name: it must carry a namespace.
		if (strchr(name, '.') == nullptr)
			return B_BAD_VALUE;
		*xattr = name;
	} else {
		char suffix[16];
		if (IsPrintableType(type)) {
			snprintf(suffix, sizeof(suffix), "#%c%c%c%c", char(type >> 24),
				char(type >> 16), char(type >> 8), char(type));
		} else
			snprintf(suffix, sizeof(suffix), "#%08x", static_cast<unsigned>(type));
		*xattr = std::string(kTypedXattrPrefix) + name + suffix;
	}
	if (xattr->size() > XATTR_NAME_MAX)
		return B_NAME_TOO_LONG;
	return B_OK;
}

void
decode_attr_name(const char* xattr, std::string* name, type_code* type)
{
	size_t length = strlen(xattr);
	if (strncmp(xattr, kTypedXattrPrefix, kPrefixLength) == 0) {
		const char* rest = xattr + kPrefixLength;
		size_t restLength = length - kPrefixLength;
		if (restLength > 5 && rest[restLength - 5] == '#') {
			const unsigned char* code
				= reinterpret_cast<const unsigned char*>(rest + restLength - 4);
			name->assign(rest, restLength - 5);
			*type = (type_code(code[0]) << 24) | (type_code(code[1]) << 16)
				| (type_code(code[2]) << 8) | code[3];
			return;
		}
		if (restLength > 9 && rest[restLength - 9] == '#'
			&& IsHexDigits(rest + restLength - 8, 8)) {
			name->assign(rest, restLength - 9);
			*type = static_cast<type_code>(strtoul(rest + restLength - 8, nullptr, 16));
			return;
		}
	}
	name->assign(xattr, length);
	*type = B_XATTR_TYPE;
}

XattrTarget::XattrTarget(int fd, const std::string& path, bool byPath)
	: fFd(fd), fPath(path), fByPath(byPath)
{
}

status_t
XattrTarget::List(std::vector<char>* names) const
{
	while (true) {
		ssize_t size = fByPath ? llistxattr(fPath.c_str(), nullptr, 0)
			: flistxattr(fFd, nullptr, 0);
		if (size < 0)
			return last_status();
		names->resize(size);
		if (size == 0)
			return B_OK;
		size = fByPath ? llistxattr(fPath.c_str(), names->data(), names->size())
			: flistxattr(fFd, names->data(), names->size());
		if (size >= 0) {
			names->resize(size);
			return B_OK;
		}
		// Linux lists at most 64 KiB of names (XATTR_LIST_MAX); beyond that the
		// node's attributes cannot be listed at all.
		if (errno == E2BIG)
			return B_BAD_DATA;
		if (errno != ERANGE)
			return last_status();
	}
}

ssize_t
XattrTarget::Size(const char* xattr) const
{
	return Get(xattr, nullptr, 0);
}

ssize_t
XattrTarget::Get(const char* xattr, void* buffer, size_t size) const
{
	ssize_t result = fByPath ? lgetxattr(fPath.c_str(), xattr, buffer, size)
		: fgetxattr(fFd, xattr, buffer, size);
	return result >= 0 ? result : GetFailure(xattr);
}

status_t
XattrTarget::GetAll(const char* xattr, std::vector<char>* value) const
{
	while (true) {
		ssize_t size = Size(xattr);
		if (size < 0)
			return size;
		value->resize(size);
		ssize_t read = Get(xattr, value->data(), value->size());
		if (read >= 0) {
			value->resize(read);
			return B_OK;
		}
		// The value grew between the two calls: ask again.
		if (read != B_BAD_VALUE)
			return read;
	}
}

status_t
XattrTarget::Set(const char* xattr, const void* data, size_t size) const
{
	int result = fByPath ? lsetxattr(fPath.c_str(), xattr, data, size, 0)
		: fsetxattr(fFd, xattr, data, size, 0);
	if (result == 0)
		return B_OK;
	return errno == ERANGE ? B_NAME_TOO_LONG : last_status();
}

status_t
XattrTarget::Remove(const char* xattr) const
{
	int result = fByPath ? lremovexattr(fPath.c_str(), xattr) : fremovexattr(fFd, xattr);
	return result == 0 ? B_OK : last_status();
}
