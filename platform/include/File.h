#ifndef _FILE_H
#define _FILE_H

#include <Node.h>
#include <StorageDefs.h>

// A regular file opened for reading and writing its data; links are followed.
class BFile : public BNode {
public:
	BFile();
	BFile(const entry_ref* ref, uint32 openMode);
	BFile(const BEntry* entry, uint32 openMode);
	BFile(const char* path, uint32 openMode);
	BFile(const BDirectory* dir, const char* path, uint32 openMode);
	virtual ~BFile();

	status_t SetTo(const entry_ref* ref, uint32 openMode);
	status_t SetTo(const BEntry* entry, uint32 openMode);
	status_t SetTo(const char* path, uint32 openMode);
	status_t SetTo(const BDirectory* dir, const char* path, uint32 openMode);

	bool IsReadable() const;
	bool IsWritable() const;

	ssize_t Read(void* buffer, size_t size);
	ssize_t ReadAt(off_t location, void* buffer, size_t size);
	ssize_t Write(const void* buffer, size_t size);
	ssize_t WriteAt(off_t location, const void* buffer, size_t size);

	off_t Seek(off_t position, uint32 seekMode);
	off_t Position() const;

	status_t GetSize(off_t* size) const;
	status_t SetSize(off_t size);

private:
	status_t _OpenFile(const std::string& path, uint32 openMode);

	uint32 fMode;
};

#endif
