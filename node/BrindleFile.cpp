#include "BrindleFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstring>

BrindleFile::BrindleFile(const char* path, bool traverse)
	: BEntry(path, traverse), fLocked(false), fName()
{
}

BrindleFile::BrindleFile(const entry_ref* ref, bool traverse)
	: BEntry(ref, traverse), fLocked(false), fName()
{
}

BrindleFile::BrindleFile(const BEntry& entry)
	: BEntry(entry), fLocked(false), fName()
{
}

BrindleFile::BrindleFile(const BrindleFile& other)
	: BEntry(other), fLocked(false), fName()
{
}

BrindleFile&
BrindleFile::operator=(const BrindleFile& other)
{
	if (this != &other) {
		Close();
		BEntry::operator=(other);
	}
	return *this;
}

BrindleFile::~BrindleFile()
{
	Close();
}

const char*
BrindleFile::Name() const
{
	if (GetName(fName) != B_OK)
		fName[0] = '\0';
	return fName;
}

bool
BrindleFile::OpenOK(bool writable)
{
	Close();
	BPath path;
	if (GetPath(&path) != B_OK)
		return false;
	if (writable && !IsSymLink()
		&& faccessat(AT_FDCWD, path.Path(), W_OK, AT_EACCESS) != 0)
		return false;
	auto node = std::make_unique<BNode>(this);
	if (node->InitCheck() != B_OK)
		return false;
	fNode = std::move(node);
	return true;
}

bool
BrindleFile::IsOpen() const
{
	return fNode != nullptr;
}

bool
BrindleFile::LockOK()
{
	if (!fNode)
		return false;
	if (!fLocked)
		fLocked = fNode->Lock() == B_OK;
	return fLocked;
}

void
BrindleFile::Close()
{
	if (fNode && fLocked)
		fNode->Unlock();
	fLocked = false;
	fNode.reset();
}

ssize_t
BrindleFile::ReadAttr(const char* name, type_code type, off_t offset, void* buffer,
	size_t length)
{
	return pvWithNode([&](BNode* node) { return node->ReadAttr(name, type, offset, buffer, length); });
}

ssize_t
BrindleFile::WriteAttr(const char* name, type_code type, off_t offset,
	const void* buffer, size_t length)
{
	return pvWithNode([&](BNode* node) { return node->WriteAttr(name, type, offset, buffer, length); });
}

status_t
BrindleFile::RemoveAttr(const char* name)
{
	return pvWithNode([&](BNode* node) { return node->RemoveAttr(name); });
}

status_t
BrindleFile::RenameAttr(const char* oldName, const char* newName)
{
	return pvWithNode([&](BNode* node) { return node->RenameAttr(oldName, newName); });
}

status_t
BrindleFile::GetAttrInfo(const char* name, attr_info* info)
{
	return pvWithNode([&](BNode* node) { return node->GetAttrInfo(name, info); });
}

int32
BrindleFile::CountAttrs()
{
	ssize_t count = pvWithNode([](BNode* node) {
		ssize_t found = 0;
		char name[B_ATTR_NAME_LENGTH];
		if (node->RewindAttrs() != B_OK)
			return found;
		while (node->GetNextAttrName(name) == B_OK)
			found++;
		node->RewindAttrs();
		return found;
	});
	return count > 0 ? static_cast<int32>(count) : 0;
}

status_t
BrindleFile::RewindAttrs()
{
	return fNode ? fNode->RewindAttrs() : B_NO_INIT;
}

status_t
BrindleFile::GetNextAttrName(char* buffer)
{
	return fNode ? fNode->GetNextAttrName(buffer) : B_NO_INIT;
}

status_t
BrindleFile::GetLink(BPath* target) const
{
	if (target == nullptr)
		return B_BAD_VALUE;
	if (InitCheck() != B_OK)
		return InitCheck();
	if (!IsSymLink())
		return B_BAD_VALUE;
	entry_ref ref;
	status_t status = GetRef(&ref);
	if (status != B_OK)
		return status;
	BEntry resolved(&ref, true);
	if ((status = resolved.InitCheck()) != B_OK)
		return status;
	if (!resolved.Exists())
		return B_ENTRY_NOT_FOUND;
	return resolved.GetPath(target);
}

bool
BrindleFile::operator==(const entry_ref& ref) const
{
	entry_ref mine;
	return GetRef(&mine) == B_OK && mine == ref;
}

template<typename Call>
ssize_t
BrindleFile::pvWithNode(Call call)
{
	if (fNode)
		return call(fNode.get());
	if (InitCheck() != B_OK)
		return InitCheck();
	BNode node(this);
	if (node.InitCheck() != B_OK)
		return node.InitCheck();
	return call(&node);
}
