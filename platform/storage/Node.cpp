#include <Node.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <unordered_map>
#include <vector>

#include <Directory.h>
#include <Entry.h>
#include <StorageDefs.h>
#include <TypeConstants.h>

#include "StorageUtils.h"
#include "Xattr.h"

// The node's extended attribute names as last listed, a cursor into them for
// GetNextAttrName, and each attribute name's extended attribute, so that asking
// about every attribute in turn stays linear in their number.
class BNode::AttrDirectory {
public:
	std::vector<char> fListing;
	size_t fCursor = 0;
	bool fListed = false;
	std::unordered_map<std::string, std::string> fXattrs;

	// Lists the attributes again; with rewind, iteration starts over on the new list.
	status_t Read(const XattrTarget& target, bool rewind)
	{
		std::vector<char> listing;
		status_t status = target.List(&listing);
		if (status != B_OK)
			return status;
		fXattrs.clear();
		std::string name;
		type_code type;
		for (size_t offset = 0; offset < listing.size();
				offset += strlen(listing.data() + offset) + 1) {
			decode_attr_name(listing.data() + offset, &name, &type);
			fXattrs.emplace(name, listing.data() + offset);
		}
		if (rewind) {
			fListing = std::move(listing);
			fCursor = 0;
			fListed = true;
		}
		return B_OK;
	}
};

namespace {

// Every extended attribute of the listing that keeps an attribute called name.
std::vector<std::string>
XattrsNamed(const std::vector<char>& listing, const char* name)
{
	std::vector<std::string> found;
	std::string decoded;
	type_code type;
	for (size_t offset = 0; offset < listing.size();
			offset += strlen(listing.data() + offset) + 1) {
		decode_attr_name(listing.data() + offset, &decoded, &type);
		if (decoded == name)
			found.emplace_back(listing.data() + offset);
	}
	return found;
}

}	// namespace

BNode::BNode()
	: fFd(-1), fByPath(false), fStatus(B_NO_INIT),
	fAttrs(std::make_unique<AttrDirectory>())
{
}

BNode::BNode(const entry_ref* ref)
	: BNode()
{
	SetTo(ref);
}

BNode::BNode(const BEntry* entry)
	: BNode()
{
	SetTo(entry);
}

BNode::BNode(const char* path)
	: BNode()
{
	SetTo(path);
}

BNode::BNode(const BDirectory* dir, const char* path)
	: BNode()
{
	SetTo(dir, path);
}

BNode::~BNode()
{
	Unset();
}

status_t
BNode::InitCheck() const
{
	return fStatus;
}

status_t
BNode::SetTo(const entry_ref* ref)
{
	Unset();
	std::string path;
	if (ref == nullptr)
		return fStatus = B_BAD_VALUE;
	if ((fStatus = path_for_ref(*ref, &path)) != B_OK)
		return fStatus;
	return _SetToPath(path);
}

status_t
BNode::SetTo(const BEntry* entry)
{
	Unset();
	if (entry == nullptr)
		return fStatus = B_BAD_VALUE;
	if ((fStatus = entry->InitCheck()) != B_OK)
		return fStatus;
	return _SetToPath(entry->fPath);
}

status_t
BNode::SetTo(const char* path)
{
	Unset();
	std::string full = normalized_path(path);
	if (full.empty())
		return fStatus = B_BAD_VALUE;
	return _SetToPath(full);
}

status_t
BNode::SetTo(const BDirectory* dir, const char* path)
{
	Unset();
	if (dir == nullptr || dir->InitCheck() != B_OK || path == nullptr)
		return fStatus = B_BAD_VALUE;
	return _SetToPath(dir->_PathOf(path));
}

void
BNode::Unset()
{
	if (fFd >= 0)
		close(fFd);
	fFd = -1;
	fByPath = false;
	fStatus = B_NO_INIT;
	fPath.clear();
	*fAttrs = AttrDirectory();
}

status_t
BNode::Lock()
{
	if (fStatus != B_OK)
		return fStatus;
	if (fByPath)
		return B_UNSUPPORTED;
	if (flock(fFd, LOCK_EX | LOCK_NB) == 0)
		return B_OK;
	return errno == EWOULDBLOCK ? B_BUSY : last_status();
}

status_t
BNode::Unlock()
{
	if (fStatus != B_OK)
		return fStatus;
	if (fByPath)
		return B_UNSUPPORTED;
	return flock(fFd, LOCK_UN) == 0 ? B_OK : last_status();
}

status_t
BNode::Sync()
{
	if (fStatus != B_OK)
		return fStatus;
	if (fByPath)
		return B_UNSUPPORTED;
	return fsync(fFd) == 0 ? B_OK : last_status();
}

ssize_t
BNode::WriteAttr(const char* name, type_code type, off_t offset,
	const void* buffer, size_t length)
{
	if (fStatus != B_OK)
		return fStatus;
	if (type == 0 && length == 0) {
		status_t status = RemoveAttr(name);
		return status == B_ENTRY_NOT_FOUND ? B_OK : status;
	}
	if (offset < 0 || (buffer == nullptr && length > 0))
		return B_BAD_VALUE;
	std::string xattr;
	status_t status = encode_attr_name(name, type, &xattr);
	if (status != B_OK)
		return status;

	if (offset == 0)
		status = _Replace(name, xattr, buffer, length);
	else {
		// Xattrs are written whole: merge the bytes into the current value.
		std::vector<char> value;
		status = XattrTarget(fFd, fPath, fByPath).GetAll(xattr.c_str(), &value);
		if (status != B_OK && status != B_ENTRY_NOT_FOUND)
			return status;
		value.resize(std::max<size_t>(value.size(), offset + length));
		std::copy_n(static_cast<const char*>(buffer), length, value.begin() + offset);
		status = _Replace(name, xattr, value.data(), value.size());
	}
	return status == B_OK ? static_cast<ssize_t>(length) : status;
}

ssize_t
BNode::ReadAttr(const char* name, type_code, off_t offset, void* buffer,
	size_t length) const
{
	if (fStatus != B_OK)
		return fStatus;
	if (offset < 0 || (buffer == nullptr && length > 0))
		return B_BAD_VALUE;
	std::string xattr;
	type_code type;
	status_t status = _XattrNameOf(name, &xattr, &type);
	if (status != B_OK)
		return status;

	XattrTarget target(fFd, fPath, fByPath);
	if (offset == 0) {
		ssize_t read = target.Get(xattr.c_str(), buffer, length);
		if (read != B_BAD_VALUE)
			return read;
	}
	std::vector<char> value;
	if ((status = target.GetAll(xattr.c_str(), &value)) != B_OK)
		return status;
	if (static_cast<size_t>(offset) >= value.size())
		return 0;
	size_t count = std::min(length, value.size() - offset);
	memcpy(buffer, value.data() + offset, count);
	return count;
}

status_t
BNode::RemoveAttr(const char* name)
{
	if (fStatus != B_OK)
		return fStatus;
	if (name == nullptr || name[0] == '\0')
		return B_BAD_VALUE;
	XattrTarget target(fFd, fPath, fByPath);
	std::vector<char> listing;
	status_t status = target.List(&listing);
	if (status != B_OK)
		return status;
	std::vector<std::string> found = XattrsNamed(listing, name);
	if (found.empty())
		return B_ENTRY_NOT_FOUND;
	for (const std::string& xattr : found) {
		if ((status = target.Remove(xattr.c_str())) != B_OK)
			return status;
	}
	fAttrs->fXattrs.erase(name);
	return B_OK;
}

status_t
BNode::RenameAttr(const char* oldName, const char* newName)
{
	if (fStatus != B_OK)
		return fStatus;
	if (oldName == nullptr || newName == nullptr || newName[0] == '\0')
		return B_BAD_VALUE;
	if (strcmp(oldName, newName) == 0)
		return B_OK;
	std::string oldXattr;
	type_code type;
	status_t status = _XattrNameOf(oldName, &oldXattr, &type);
	if (status != B_OK)
		return status;
	std::string newXattr;
	if ((status = encode_attr_name(newName, type, &newXattr)) != B_OK)
		return status;

	std::vector<char> value;
	if ((status = XattrTarget(fFd, fPath, fByPath).GetAll(oldXattr.c_str(), &value))
			!= B_OK)
		return status;
	// The new name is written before the old one goes, so the value is never lost.
	if ((status = _Replace(newName, newXattr, value.data(), value.size())) != B_OK)
		return status;
	return RemoveAttr(oldName);
}

status_t
BNode::GetAttrInfo(const char* name, attr_info* info) const
{
	if (fStatus != B_OK)
		return fStatus;
	if (info == nullptr)
		return B_BAD_VALUE;
	std::string xattr;
	type_code type;
	ssize_t size;
	status_t status = _XattrNameOf(name, &xattr, &type, &size);
	if (status != B_OK)
		return status;
	info->type = type;
	info->size = size;
	return B_OK;
}

status_t
BNode::GetNextAttrName(char* buffer)
{
	if (fStatus != B_OK)
		return fStatus;
	if (buffer == nullptr)
		return B_BAD_VALUE;
	if (!fAttrs->fListed) {
		status_t status = fAttrs->Read(XattrTarget(fFd, fPath, fByPath), true);
		if (status != B_OK)
			return status;
	}
	std::vector<char>& listing = fAttrs->fListing;
	if (fAttrs->fCursor >= listing.size())
		return B_ENTRY_NOT_FOUND;
	const char* xattr = listing.data() + fAttrs->fCursor;
	fAttrs->fCursor += strlen(xattr) + 1;
	std::string name;
	type_code type;
	decode_attr_name(xattr, &name, &type);
	snprintf(buffer, B_ATTR_NAME_LENGTH, "%s", name.c_str());
	return B_OK;
}

status_t
BNode::RewindAttrs()
{
	if (fStatus != B_OK)
		return fStatus;
	return fAttrs->Read(XattrTarget(fFd, fPath, fByPath), true);
}

bool
BNode::operator==(const BNode& node) const
{
	if (fStatus != B_OK || node.fStatus != B_OK)
		return fStatus != B_OK && node.fStatus != B_OK;
	struct stat mine;
	struct stat theirs;
	return GetStat(&mine) == B_OK && node.GetStat(&theirs) == B_OK
		&& mine.st_dev == theirs.st_dev && mine.st_ino == theirs.st_ino;
}

bool
BNode::operator!=(const BNode& node) const
{
	return !(*this == node);
}

status_t
BNode::_StatTarget(int* fd, const char** path, int* flags) const
{
	if (fStatus != B_OK)
		return fStatus;
	if (fByPath) {
		*fd = AT_FDCWD;
		*path = fPath.c_str();
		*flags = AT_SYMLINK_NOFOLLOW;
	} else {
		*fd = fFd;
		*path = "";
		*flags = AT_EMPTY_PATH;
	}
	return B_OK;
}

status_t
BNode::_Open(const std::string& path, int flags)
{
	Unset();
	if (path.empty())
		return fStatus = B_BAD_VALUE;
	fFd = open(path.c_str(), flags | O_CLOEXEC, 0666);
	if (fFd < 0)
		return fStatus = last_status();
	fByPath = (flags & O_PATH) != 0;
	fPath = path;
	return fStatus = B_OK;
}

status_t
BNode::_Fail(status_t status)
{
	Unset();
	return fStatus = status;
}

status_t
BNode::_SetToPath(const std::string& path)
{
	struct stat st;
	if (lstat(path.c_str(), &st) != 0)
		return fStatus = last_status();
	// Files and folders are opened for their descriptor; links, devices and pipes
	// are only located, so opening them has no side effects.
	if (S_ISREG(st.st_mode) || S_ISDIR(st.st_mode)) {
		if (_Open(path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK) == B_OK
			|| fStatus != B_PERMISSION_DENIED)
			return fStatus;
	}
	return _Open(path, O_PATH | O_NOFOLLOW);
}

status_t
BNode::_XattrNameOf(const char* name, std::string* xattr, type_code* type,
	ssize_t* size) const
{
	if (name == nullptr || name[0] == '\0')
		return B_BAD_VALUE;
	XattrTarget target(fFd, fPath, fByPath);
	auto found = fAttrs->fXattrs.find(name);
	ssize_t valueSize = found != fAttrs->fXattrs.end()
		? target.Size(found->second.c_str()) : ssize_t(B_ENTRY_NOT_FOUND);
	if (valueSize < 0) {
		// Unknown, or changed since it was listed: list again.
		status_t status = fAttrs->Read(target, false);
		if (status != B_OK)
			return status;
		found = fAttrs->fXattrs.find(name);
		if (found == fAttrs->fXattrs.end())
			return B_ENTRY_NOT_FOUND;
		if ((valueSize = target.Size(found->second.c_str())) < 0)
			return valueSize;
	}
	if (size != nullptr)
		*size = valueSize;
	*xattr = found->second;
	std::string decoded;
	decode_attr_name(xattr->c_str(), &decoded, type);
	return B_OK;
}

status_t
BNode::_Replace(const char* name, const std::string& xattr, const void* buffer,
	size_t length)
{
	XattrTarget target(fFd, fPath, fByPath);
	std::vector<char> listing;
	status_t status = target.List(&listing);
	if (status != B_OK)
		return status;
	// One setxattr replaces a value of the same type in place; an attribute of the
	// same name and another type goes once the new one is written.
	if ((status = target.Set(xattr.c_str(), buffer, length)) != B_OK)
		return status;
	for (const std::string& other : XattrsNamed(listing, name)) {
		if (other != xattr && (status = target.Remove(other.c_str())) != B_OK
			&& status != B_ENTRY_NOT_FOUND)
			return status;
	}
	fAttrs->fXattrs[name] = xattr;
	return B_OK;
}
