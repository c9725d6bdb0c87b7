#include <Node.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <Directory.h>
#include <Entry.h>
#include <StorageDefs.h>
#include <TypeConstants.h>

#include "StorageUtils.h"
#include "Xattr.h"

namespace {

// Where an attribute is kept: its extended attribute, and its type.
struct AttrPlace {
	std::string xattr;
	type_code type;
};

using AttrPlaces = std::unordered_map<std::string, AttrPlace>;

// The types looked for when a node has more names than Linux lists: a foreign
// attribute under its own name, and the types the kits know.
const type_code kKnownTypes[] = {B_XATTR_TYPE, B_STRING_TYPE, B_INT32_TYPE, B_INT64_TYPE,
	B_INT16_TYPE, B_INT8_TYPE, B_UINT32_TYPE, B_UINT64_TYPE, B_UINT16_TYPE, B_UINT8_TYPE,
	B_BOOL_TYPE, B_FLOAT_TYPE, B_DOUBLE_TYPE, B_TIME_TYPE, B_OFF_T_TYPE, B_SIZE_T_TYPE,
	B_SSIZE_T_TYPE, B_RAW_TYPE, B_MIME_STRING_TYPE, B_MIME_TYPE, B_ASCII_TYPE, B_CHAR_TYPE,
	B_RECT_TYPE, B_POINT_TYPE, B_RGB_COLOR_TYPE, B_RGB_32_BIT_TYPE, B_COLOR_8_BIT_TYPE,
	B_GRAYSCALE_8_BIT_TYPE, B_MONOCHROME_1_BIT_TYPE, B_PATTERN_TYPE, B_MESSAGE_TYPE,
	B_MESSENGER_TYPE, B_POINTER_TYPE, B_OBJECT_TYPE, B_REF_TYPE, B_ANY_TYPE, 'ICON', 'MICN',
	'VICN'};

// The attribute names of a listing of extended attributes, in its order, and
// where each is kept. The first extended attribute that maps to a name keeps
// it; a further one, or one whose name is another's full name, is a foreign
// attribute under its own full name, so that each has a name of its own.
std::vector<std::string>
NamesOf(const std::vector<char>& listing, AttrPlaces* places)
{
	std::vector<const char*> xattrs;
	for (size_t offset = 0; offset < listing.size(); offset += strlen(listing.data() + offset) + 1)
		xattrs.push_back(listing.data() + offset);
	std::unordered_set<std::string_view> fullNames(xattrs.begin(), xattrs.end());
	places->clear();
	std::vector<std::string> names;
	names.reserve(xattrs.size());
	std::string name;
	type_code type;
	for (const char* xattr : xattrs) {
		decode_attr_name(xattr, &name, &type);
		if (name != xattr && (places->count(name) != 0 || fullNames.count(name) != 0)) {
			name = xattr;
			type = B_XATTR_TYPE;
		}
		places->emplace(name, AttrPlace{xattr, type});
		names.push_back(name);
	}
	return names;
}

// Without a listing, the extended attribute that keeps name is looked for
// under each name it may have.
status_t
Probe(const XattrTarget& target, const char* name, AttrPlace* place)
{
	std::string xattr;
	for (type_code type : kKnownTypes) {
		if (encode_attr_name(name, type, &xattr) == B_OK && target.Size(xattr.c_str()) >= 0) {
			*place = AttrPlace{xattr, type};
			return B_OK;
		}
	}
	return B_ENTRY_NOT_FOUND;
}

}	// namespace

// The node's attribute names as last listed, a cursor into them for
// GetNextAttrName, and where each attribute is kept, so that asking about every
// attribute in turn stays linear in their number.
class BNode::AttrDirectory {
public:
	std::vector<std::string> fNames;
	size_t fCursor = 0;
	bool fListed = false;
	AttrPlaces fPlaces;

	// Lists the attributes again; with rewind, iteration starts over on the new list.
	status_t Read(const XattrTarget& target, bool rewind)
	{
		std::vector<char> listing;
		status_t status = target.List(&listing);
		if (status != B_OK)
			return status;
		std::vector<std::string> names = NamesOf(listing, &fPlaces);
		if (rewind) {
			fNames = std::move(names);
			fCursor = 0;
			fListed = true;
		}
		return B_OK;
	}

	// Where the attribute called name is kept now; on a node with more names
	// than Linux lists, wherever it is found.
	status_t Find(const XattrTarget& target, const char* name, AttrPlace* place)
	{
		status_t status = Read(target, false);
		if (status == B_BAD_DATA)
			return Probe(target, name, place);
		if (status != B_OK)
			return status;
		auto found = fPlaces.find(name);
		if (found == fPlaces.end())
			return B_ENTRY_NOT_FOUND;
		*place = found->second;
		return B_OK;
	}
};

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
		status = _Replace(name, type, xattr, buffer, length);
	else {
		// Xattrs are written whole: merge the bytes into the current value of
		// the type, if there is one.
		std::vector<char> value;
		std::string current;
		type_code currentType;
		status = _XattrNameOf(name, &current, &currentType);
		if (status == B_OK && currentType == type)
			status = XattrTarget(fFd, fPath, fByPath).GetAll(current.c_str(), &value);
		if (status != B_OK && status != B_ENTRY_NOT_FOUND)
			return status;
		value.resize(std::max<size_t>(value.size(), offset + length));
		std::copy_n(static_cast<const char*>(buffer), length, value.begin() + offset);
		status = _Replace(name, type, xattr, value.data(), value.size());
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
	AttrPlace place;
	status_t status = fAttrs->Find(target, name, &place);
	if (status == B_OK)
		status = target.Remove(place.xattr.c_str());
	if (status == B_OK)
		fAttrs->fPlaces.erase(name);
	return status;
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

	XattrTarget target(fFd, fPath, fByPath);
	std::vector<char> value;
	if ((status = target.GetAll(oldXattr.c_str(), &value)) != B_OK)
		return status;
	// The new name is written before the old one goes, so the value is never lost.
	if ((status = _Replace(newName, type, newXattr, value.data(), value.size())) != B_OK
		|| (status = target.Remove(oldXattr.c_str())) != B_OK)
		return status;
	fAttrs->fPlaces.erase(oldName);
	return B_OK;
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
	if (fAttrs->fCursor >= fAttrs->fNames.size())
		return B_ENTRY_NOT_FOUND;
	snprintf(buffer, B_ATTR_NAME_LENGTH, "%s", fAttrs->fNames[fAttrs->fCursor++].c_str());
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
	auto found = fAttrs->fPlaces.find(name);
	AttrPlace place;
	ssize_t valueSize = B_ENTRY_NOT_FOUND;
	if (found != fAttrs->fPlaces.end()) {
		place = found->second;
		valueSize = target.Size(place.xattr.c_str());
	}
	if (valueSize < 0) {
		// Unknown, or changed since it was listed: look again.
		status_t status = fAttrs->Find(target, name, &place);
		if (status != B_OK)
			return status;
		if ((valueSize = target.Size(place.xattr.c_str())) < 0)
			return valueSize;
	}
	if (size != nullptr)
		*size = valueSize;
	*xattr = place.xattr;
	*type = place.type;
	return B_OK;
}

status_t
BNode::_Replace(const char* name, type_code type, const std::string& xattr,
	const void* buffer, size_t length)
{
	XattrTarget target(fFd, fPath, fByPath);
	AttrPlace current;
	status_t status = fAttrs->Find(target, name, &current);
	if (status != B_OK && status != B_ENTRY_NOT_FOUND)
		return status;
	bool replaces = status == B_OK;
	// A rewrite of the same type replaces the value in place, in one setxattr.
	if (replaces && current.type == type)
		status = target.Set(current.xattr.c_str(), buffer, length);
	else if (replaces && target.Size(xattr.c_str()) >= 0) {
		// That extended attribute is another attribute, listed under its own
		// name: it is not written over unasked.
		return B_FILE_EXISTS;
	} else {
		// An attribute of the same name and another type goes once the new one
		// is written.
		if ((status = target.Set(xattr.c_str(), buffer, length)) == B_OK && replaces)
			status = target.Remove(current.xattr.c_str());
		if (status == B_ENTRY_NOT_FOUND)
			status = B_OK;
		current = AttrPlace{xattr, type};
	}
	if (status == B_OK)
		fAttrs->fPlaces[name] = current;
	return status;
}
