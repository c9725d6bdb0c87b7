#include <File.h>

#include <sys/stat.h>
#include <unistd.h>

#include <Directory.h>
#include <Entry.h>
#include <Path.h>

#include "StorageUtils.h"

BFile::BFile()
	: fMode(0)
{
}

BFile::BFile(const entry_ref* ref, uint32 openMode)
	: fMode(0)
{
	SetTo(ref, openMode);
}

BFile::BFile(const BEntry* entry, uint32 openMode)
	: fMode(0)
{
	SetTo(entry, openMode);
}

BFile::BFile(const char* path, uint32 openMode)
	: fMode(0)
{
	SetTo(path, openMode);
}

BFile::BFile(const BDirectory* dir, const char* path, uint32 openMode)
	: fMode(0)
{
	SetTo(dir, path, openMode);
}

BFile::~BFile() = default;

status_t
BFile::SetTo(const entry_ref* ref, uint32 openMode)
{
	BPath path(ref);
	if (path.InitCheck() != B_OK)
		return _Fail(path.InitCheck());
	return _OpenFile(path.Path(), openMode);
}

status_t
BFile::SetTo(const BEntry* entry, uint32 openMode)
{
	BPath path(entry);
	if (path.InitCheck() != B_OK)
		return _Fail(path.InitCheck());
	return _OpenFile(path.Path(), openMode);
}

status_t
BFile::SetTo(const char* path, uint32 openMode)
{
	return _OpenFile(normalized_path(path), openMode);
}

status_t
BFile::SetTo(const BDirectory* dir, const char* path, uint32 openMode)
{
	BPath full(dir, path);
	if (full.InitCheck() != B_OK)
		return _Fail(B_BAD_VALUE);
	return _OpenFile(full.Path(), openMode);
}

bool
BFile::IsReadable() const
{
	return InitCheck() == B_OK && (fMode & O_ACCMODE) != O_WRONLY;
}

bool
BFile::IsWritable() const
{
	return InitCheck() == B_OK && (fMode & O_ACCMODE) != O_RDONLY;
}

ssize_t
BFile::Read(void* buffer, size_t size)
{
	if (!IsReadable())
		return InitCheck() != B_OK ? InitCheck() : B_NOT_ALLOWED;
	ssize_t result = read(_Descriptor(), buffer, size);
	return result >= 0 ? result : last_status();
}

ssize_t
BFile::ReadAt(off_t location, void* buffer, size_t size)
{
	if (!IsReadable())
		return InitCheck() != B_OK ? InitCheck() : B_NOT_ALLOWED;
	ssize_t result = pread(_Descriptor(), buffer, size, location);
	return result >= 0 ? result : last_status();
}

ssize_t
BFile::Write(const void* buffer, size_t size)
{
	if (!IsWritable())
		return InitCheck() != B_OK ? InitCheck() : B_NOT_ALLOWED;
	ssize_t result = write(_Descriptor(), buffer, size);
	return result >= 0 ? result : last_status();
}

ssize_t
BFile::WriteAt(off_t location, const void* buffer, size_t size)
{
	if (!IsWritable())
		return InitCheck() != B_OK ? InitCheck() : B_NOT_ALLOWED;
	ssize_t result = pwrite(_Descriptor(), buffer, size, location);
	return result >= 0 ? result : last_status();
}

off_t
BFile::Seek(off_t position, uint32 seekMode)
{
	if (InitCheck() != B_OK)
		return InitCheck();
	off_t result = lseek(_Descriptor(), position, seekMode);
	return result >= 0 ? result : last_status();
}

off_t
BFile::Position() const
{
	if (InitCheck() != B_OK)
		return InitCheck();
	off_t result = lseek(_Descriptor(), 0, SEEK_CUR);
	return result >= 0 ? result : last_status();
}

status_t
BFile::GetSize(off_t* size) const
{
	return BNode::GetSize(size);
}

status_t
BFile::SetSize(off_t size)
{
	if (!IsWritable())
		return InitCheck() != B_OK ? InitCheck() : B_NOT_ALLOWED;
	if (size < 0)
		return B_BAD_VALUE;
	return ftruncate(_Descriptor(), size) == 0 ? B_OK : last_status();
}

status_t
BFile::_OpenFile(const std::string& path, uint32 openMode)
{
	fMode = openMode;
	if (_Open(path, openMode) != B_OK)
		return InitCheck();
	struct stat st;
	if (GetStat(&st) == B_OK && S_ISDIR(st.st_mode))
		return _Fail(B_IS_A_DIRECTORY);
	return B_OK;
}
