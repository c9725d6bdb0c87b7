#include <Directory.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>

#include <Entry.h>
#include <File.h>
#include <Path.h>
#include <SymLink.h>

#include "StorageUtils.h"

namespace {

bool
IsFlavor(mode_t mode, int32 nodeFlags)
{
	int32 flavor = S_ISDIR(mode) ? B_DIRECTORY_NODE
		: S_ISLNK(mode) ? B_SYMLINK_NODE : B_FILE_NODE;
	return (flavor & nodeFlags) != 0;
}

}	// namespace

void
BDirectory::DirCloser::operator()(DIR* dir) const
{
	closedir(dir);
}

BDirectory::BDirectory() = default;

BDirectory::BDirectory(const entry_ref* ref)
{
	SetTo(ref);
}

BDirectory::BDirectory(const BEntry* entry)
{
	SetTo(entry);
}

BDirectory::BDirectory(const char* path)
{
	SetTo(path);
}

BDirectory::BDirectory(const BDirectory* dir, const char* path)
{
	SetTo(dir, path);
}

BDirectory::~BDirectory() = default;

status_t
BDirectory::SetTo(const entry_ref* ref)
{
	BPath path(ref);
	if (path.InitCheck() != B_OK) {
		Unset();
		return _Fail(path.InitCheck());
	}
	return SetTo(path.Path());
}

status_t
BDirectory::SetTo(const BEntry* entry)
{
	BPath path(entry);
	if (path.InitCheck() != B_OK) {
		Unset();
		return _Fail(path.InitCheck());
	}
	return SetTo(path.Path());
}

status_t
BDirectory::SetTo(const char* path)
{
	Unset();
	// A folder opened through a link is the folder it leads to.
	std::string full = followed_path(normalized_path(path));
	if (full.empty())
		return B_BAD_VALUE;
	status_t status = _Open(full, O_RDONLY | O_DIRECTORY);
	if (status == B_OK) {
		struct stat st;
		if (GetStat(&st) == B_OK)
			remember_directory(st.st_dev, st.st_ino, full);
	}
	return status;
}

status_t
BDirectory::SetTo(const BDirectory* dir, const char* path)
{
	if (dir == nullptr || dir->InitCheck() != B_OK || path == nullptr) {
		Unset();
		return B_BAD_VALUE;
	}
	std::string full = dir->_PathOf(path);
	return SetTo(full.c_str());
}

void
BDirectory::Unset()
{
	fDir.reset();
	BNode::Unset();
}

status_t
BDirectory::GetEntry(BEntry* entry) const
{
	if (entry == nullptr)
		return B_BAD_VALUE;
	if (InitCheck() != B_OK)
		return InitCheck();
	return entry->SetTo(_Path().c_str());
}

status_t
BDirectory::FindEntry(const char* path, BEntry* entry, bool traverse) const
{
	if (path == nullptr || entry == nullptr)
		return B_BAD_VALUE;
	if (InitCheck() != B_OK)
		return InitCheck();
	status_t status = entry->SetTo(this, path, traverse);
	if (status == B_OK && !entry->Exists()) {
		entry->Unset();
		return B_ENTRY_NOT_FOUND;
	}
	return status;
}

bool
BDirectory::IsRootDirectory() const
{
	return InitCheck() == B_OK && _Path() == "/";
}

bool
BDirectory::Contains(const char* path, int32 nodeFlags) const
{
	if (path == nullptr || InitCheck() != B_OK)
		return false;
	std::string full = _PathOf(path);
	const std::string& folder = _Path();
	bool inside = folder == "/" ? full != "/"
		: full.compare(0, folder.size() + 1, folder + "/") == 0;
	struct stat st;
	return inside && lstat(full.c_str(), &st) == 0 && IsFlavor(st.st_mode, nodeFlags);
}

bool
BDirectory::Contains(const BEntry* entry, int32 nodeFlags) const
{
	BPath path;
	return entry != nullptr && entry->GetPath(&path) == B_OK
		&& Contains(path.Path(), nodeFlags);
}

status_t
BDirectory::GetNextEntry(BEntry* entry, bool traverse)
{
	if (entry == nullptr)
		return B_BAD_VALUE;
	std::string name;
	status_t status = _NextName(&name);
	if (status != B_OK)
		return status;
	return entry->SetTo(_PathOf(name.c_str()).c_str(), traverse);
}

status_t
BDirectory::GetNextRef(entry_ref* ref)
{
	if (ref == nullptr)
		return B_BAD_VALUE;
	std::string name;
	status_t status = _NextName(&name);
	if (status != B_OK)
		return status;
	return ref_for_path(_PathOf(name.c_str()), ref);
}

status_t
BDirectory::Rewind()
{
	if (InitCheck() != B_OK)
		return InitCheck();
	if (fDir)
		rewinddir(fDir.get());
	return B_OK;
}

int32
BDirectory::CountEntries() const
{
	if (InitCheck() != B_OK)
		return InitCheck();
	std::unique_ptr<DIR, DirCloser> dir(opendir(_Path().c_str()));
	if (!dir)
		return last_status();
	int32 count = 0;
	while (const dirent* entry = readdir(dir.get())) {
		if (strcmp(entry->d_name, ".") != 0 && strcmp(entry->d_name, "..") != 0)
			count++;
	}
	return count;
}

status_t
BDirectory::CreateFile(const char* path, BFile* file, bool failIfExists)
{
	if (path == nullptr)
		return B_BAD_VALUE;
	if (InitCheck() != B_OK)
		return InitCheck();
	BFile local;
	BFile* target = file != nullptr ? file : &local;
	uint32 mode = B_READ_WRITE | B_CREATE_FILE
		| (failIfExists ? B_FAIL_IF_EXISTS : B_ERASE_FILE);
	return target->SetTo(_PathOf(path).c_str(), mode);
}

status_t
BDirectory::CreateDirectory(const char* path, BDirectory* dir)
{
	if (path == nullptr)
		return B_BAD_VALUE;
	if (InitCheck() != B_OK)
		return InitCheck();
	std::string full = _PathOf(path);
	if (mkdir(full.c_str(), 0777) != 0)
		return last_status();
	return dir != nullptr ? dir->SetTo(full.c_str()) : B_OK;
}

status_t
BDirectory::CreateSymLink(const char* path, const char* linkToPath, BSymLink* link)
{
	if (path == nullptr || linkToPath == nullptr)
		return B_BAD_VALUE;
	if (InitCheck() != B_OK)
		return InitCheck();
	std::string full = _PathOf(path);
	if (symlink(linkToPath, full.c_str()) != 0)
		return last_status();
	return link != nullptr ? link->SetTo(full.c_str()) : B_OK;
}

std::string
BDirectory::_PathOf(const char* path) const
{
	return normalized_path(path, _Path());
}

status_t
BDirectory::_NextName(std::string* name)
{
	if (InitCheck() != B_OK)
		return InitCheck();
	if (!fDir) {
		int fd = dup(_Descriptor());
		DIR* dir = fd >= 0 ? fdopendir(fd) : nullptr;
		if (dir == nullptr) {
			if (fd >= 0)
				close(fd);
			return last_status();
		}
		fDir.reset(dir);
		rewinddir(dir);
	}
	while (const dirent* entry = readdir(fDir.get())) {
		if (strcmp(entry->d_name, ".") != 0 && strcmp(entry->d_name, "..") != 0) {
			*name = entry->d_name;
			return B_OK;
		}
	}
	return B_ENTRY_NOT_FOUND;
}
