#include <SymLink.h>

#include <unistd.h>

#include <climits>
#include <cstring>

#include "StorageUtils.h"

BSymLink::BSymLink() = default;

BSymLink::BSymLink(const entry_ref* ref)
	: BNode(ref)
{
}

BSymLink::BSymLink(const BEntry* entry)
	: BNode(entry)
{
}

BSymLink::BSymLink(const char* path)
	: BNode(path)
{
}

BSymLink::BSymLink(const BDirectory* dir, const char* path)
	: BNode(dir, path)
{
}

BSymLink::~BSymLink() = default;

ssize_t
BSymLink::ReadLink(char* buffer, size_t size)
{
	if (InitCheck() != B_OK)
		return InitCheck();
	if (buffer == nullptr || size == 0)
		return B_BAD_VALUE;
	if (!IsSymLink())
		return B_BAD_VALUE;
	char target[PATH_MAX];
	ssize_t length = readlink(_Path().c_str(), target, sizeof(target));
	if (length < 0)
		return last_status();
	size_t copied = static_cast<size_t>(length) < size ? length : size - 1;
	memcpy(buffer, target, copied);
	buffer[copied] = '\0';
	return length;
}

bool
BSymLink::IsAbsolute()
{
	char target[PATH_MAX];
	return ReadLink(target, sizeof(target)) > 0 && target[0] == '/';
}
