#include <NodeInfo.h>

#include <sys/stat.h>

#include <cstdio>
#include <cstring>

#include <Node.h>
#include <StorageDefs.h>
#include <TypeConstants.h>

#include "../link/MimeGuess.h"

namespace {

const char kTypeAttribute[] = "BEOS:TYPE";

}	// namespace

BNodeInfo::BNodeInfo()
	: fNode(nullptr), fStatus(B_NO_INIT)
{
}

BNodeInfo::BNodeInfo(BNode* node)
	: fNode(nullptr), fStatus(B_NO_INIT)
{
	SetTo(node);
}

BNodeInfo::~BNodeInfo() = default;

status_t
BNodeInfo::SetTo(BNode* node)
{
	fNode = nullptr;
	if (node == nullptr)
		return fStatus = B_BAD_VALUE;
	if ((fStatus = node->InitCheck()) == B_OK)
		fNode = node;
	return fStatus;
}

status_t
BNodeInfo::InitCheck() const
{
	return fStatus;
}

status_t
BNodeInfo::GetType(char* type) const
{
	if (type == nullptr)
		return B_BAD_VALUE;
	if (fStatus != B_OK)
		return fStatus;

	ssize_t length = fNode->ReadAttr(kTypeAttribute, B_MIME_STRING_TYPE, 0, type,
		B_MIME_TYPE_LENGTH - 1);
	if (length > 0) {
		type[length] = '\0';
		return B_OK;
	}

	struct stat st;
	status_t status = fNode->GetStat(&st);
	if (status != B_OK)
		return status;
	std::string sniffed;
	if (S_ISDIR(st.st_mode))
		sniffed = "application/x-vnd.Be-directory";
	else if (S_ISLNK(st.st_mode))
		sniffed = "application/x-vnd.Be-symlink";
	else if (S_ISREG(st.st_mode))
		sniffed = BPrivate::GuessMimeType(fNode->_Path().c_str());
	else
		sniffed = "application/octet-stream";
	snprintf(type, B_MIME_TYPE_LENGTH, "%s", sniffed.c_str());
	return B_OK;
}

status_t
BNodeInfo::SetType(const char* type)
{
	if (fStatus != B_OK)
		return fStatus;
	if (type == nullptr) {
		status_t status = fNode->RemoveAttr(kTypeAttribute);
		return status == B_ENTRY_NOT_FOUND ? B_OK : status;
	}
	size_t length = strlen(type) + 1;
	if (length > B_MIME_TYPE_LENGTH)
		return B_BAD_VALUE;
	ssize_t written = fNode->WriteAttr(kTypeAttribute, B_MIME_STRING_TYPE, 0, type,
		length);
	return written < 0 ? static_cast<status_t>(written) : B_OK;
}
