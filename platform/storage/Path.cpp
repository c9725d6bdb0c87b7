#include <Path.h>

#include <sys/stat.h>

#include <Directory.h>
#include <Entry.h>

#include "StorageUtils.h"

BPath::BPath()
	: fStatus(B_NO_INIT)
{
}

BPath::BPath(const BPath& path)
	: fPath(path.fPath), fStatus(path.fStatus)
{
}

BPath::BPath(const entry_ref* ref)
	: fStatus(B_NO_INIT)
{
	SetTo(ref);
}

BPath::BPath(const BEntry* entry)
	: fStatus(B_NO_INIT)
{
	SetTo(entry);
}

BPath::BPath(const char* dir, const char* leaf, bool normalize)
	: fStatus(B_NO_INIT)
{
	SetTo(dir, leaf, normalize);
}

BPath::BPath(const BDirectory* dir, const char* leaf, bool normalize)
	: fStatus(B_NO_INIT)
{
	SetTo(dir, leaf, normalize);
}

BPath::~BPath() = default;

status_t
BPath::InitCheck() const
{
	return fStatus;
}

status_t
BPath::SetTo(const entry_ref* ref)
{
	Unset();
	if (ref == nullptr)
		return fStatus = B_BAD_VALUE;
	std::string path;
	if ((fStatus = path_for_ref(*ref, &path)) == B_OK)
		fPath = path;
	return fStatus;
}

status_t
BPath::SetTo(const BEntry* entry)
{
	Unset();
	if (entry == nullptr)
		return fStatus = B_BAD_VALUE;
	if ((fStatus = entry->InitCheck()) == B_OK)
		fPath = entry->fPath;
	return fStatus;
}

status_t
BPath::SetTo(const char* path, const char* leaf, bool normalize)
{
	Unset();
	if (path == nullptr || path[0] == '\0')
		return fStatus = B_BAD_VALUE;
	if (leaf != nullptr && leaf[0] == '/')
		return fStatus = B_BAD_VALUE;
	std::string joined = leaf != nullptr && leaf[0] != '\0'
		? std::string(path) + "/" + leaf : std::string(path);
	std::string full = normalized_path(joined.c_str());
	if (full.empty())
		return fStatus = B_ERROR;
	// Normalising asks that every folder on the way exists.
	struct stat st;
	if (normalize && full != "/" && stat(parent_of(full).c_str(), &st) != 0)
		return fStatus = last_status();
	fPath = full;
	return fStatus = B_OK;
}

status_t
BPath::SetTo(const BDirectory* dir, const char* leaf, bool normalize)
{
	Unset();
	if (dir == nullptr || dir->InitCheck() != B_OK)
		return fStatus = B_BAD_VALUE;
	return SetTo(dir->_PathOf(".").c_str(), leaf, normalize);
}

void
BPath::Unset()
{
	fPath.clear();
	fStatus = B_NO_INIT;
}

status_t
BPath::Append(const char* path, bool normalize)
{
	if (fStatus != B_OK)
		return fStatus;
	std::string base = fPath;
	return SetTo(base.c_str(), path, normalize);
}

const char*
BPath::Path() const
{
	return fStatus == B_OK ? fPath.c_str() : nullptr;
}

const char*
BPath::Leaf() const
{
	if (fStatus != B_OK)
		return nullptr;
	// The root has an empty leaf name.
	return fPath.c_str() + fPath.rfind('/') + 1;
}

status_t
BPath::GetParent(BPath* path) const
{
	if (path == nullptr)
		return B_BAD_VALUE;
	if (fStatus != B_OK)
		return fStatus;
	std::string parent = parent_of(fPath);
	if (parent.empty())
		return B_ENTRY_NOT_FOUND;
	return path->SetTo(parent.c_str());
}

bool
BPath::operator==(const BPath& item) const
{
	return fStatus == item.fStatus && fPath == item.fPath;
}

bool
BPath::operator==(const char* path) const
{
	if (fStatus != B_OK || path == nullptr)
		return fStatus != B_OK && path == nullptr;
	return fPath == path;
}

bool
BPath::operator!=(const BPath& item) const
{
	return !(*this == item);
}

bool
BPath::operator!=(const char* path) const
{
	return !(*this == path);
}

BPath&
BPath::operator=(const BPath& item)
{
	fPath = item.fPath;
	fStatus = item.fStatus;
	return *this;
}

BPath&
BPath::operator=(const char* path)
{
	if (path == nullptr)
		Unset();
	else
		SetTo(path);
	return *this;
}
