#include "FixLink.h"

#include <cstring>
#include <memory>
#include <new>

#include <Directory.h>
#include <Entry.h>
#include <Node.h>
#include <Path.h>
#include <SymLink.h>
#include <TypeConstants.h>

namespace {

const char* const kTypeAttribute = "BEOS:TYPE";
const char* const kLinkType = "application/x-vnd.Be-symlink";

// Copies one attribute; a value that reads as empty is not written.
status_t
CopyAttribute(BNode* from, BNode* to, const char* name)
{
	attr_info info;
	status_t status = from->GetAttrInfo(name, &info);
	if (status != B_OK)
		return status;
	std::unique_ptr<char[]> buffer(new (std::nothrow) char[info.size > 0 ? info.size : 1]);
	if (buffer == nullptr)
		return B_NO_MEMORY;
	ssize_t read = from->ReadAttr(name, info.type, 0, buffer.get(), info.size);
	if (read < 0)
		return static_cast<status_t>(read);
	if (read > 0) {
		ssize_t written = to->WriteAttr(name, info.type, 0, buffer.get(), read);
		if (written < 0)
			return static_cast<status_t>(written);
	}
	return B_OK;
}

}	// namespace

status_t
CopyLinkAttrs(BNode* from, BNode* to)
{
	from->Lock();
	to->Lock();
	from->RewindAttrs();
	status_t status = B_OK;
	char name[B_ATTR_NAME_LENGTH];
	while (status == B_OK) {
		memset(name, 0, sizeof(name));
		status = from->GetNextAttrName(name);
		if (status == B_OK)
			status = CopyAttribute(from, to, name);
	}
	if (status == B_ENTRY_NOT_FOUND)
		status = B_OK;
	to->WriteAttr(kTypeAttribute, B_MIME_STRING_TYPE, 0, kLinkType, strlen(kLinkType));
	to->Unlock();
	from->Unlock();
	return status;
}

status_t
FixLink(BEntry* link, BEntry* newTarget)
{
	BSymLink oldLink(link);
	if (oldLink.InitCheck() != B_OK)
		return B_OK;
	BEntry parentEntry;
	if (link->GetParent(&parentEntry) != B_OK)
		return B_OK;
	BDirectory parent(&parentEntry);
	char leafName[B_FILE_NAME_LENGTH];
	if (link->GetName(leafName) != B_OK)
		return B_OK;
	link->Remove();
	BPath targetPath;
	if (newTarget->GetPath(&targetPath) != B_OK)
		return B_OK;
	BSymLink newLink;
	if (parent.CreateSymLink(leafName, targetPath.Path(), &newLink) == B_OK)
		CopyLinkAttrs(&oldLink, &newLink);
	return B_OK;
}
