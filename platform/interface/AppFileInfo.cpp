#include <AppFileInfo.h>

#include <cstdio>
#include <cstring>

#include <File.h>
#include <StorageDefs.h>
#include <TypeConstants.h>

#include "Icons.h"

namespace {

const char kVersionAttribute[] = "BEOS:APP_VERSION";
const type_code kVersionType = 'APPV';
const char kSignatureAttribute[] = "BEOS:APP_SIG";

// The version the program was built with: "major.middle.minor".
version_info
ProgramVersion()
{
	version_info info{};
	unsigned major = 0, middle = 0, minor = 0;
	sscanf(VELLUM_PROGRAM_VERSION, "%u.%u.%u", &major, &middle, &minor);
	info.major = major;
	info.middle = middle;
	info.minor = minor;
	info.variety = major == 0 ? B_DEVELOPMENT_VERSION : B_FINAL_VERSION;
	snprintf(info.short_info, sizeof(info.short_info), "%s", VELLUM_PROGRAM_VERSION);
	snprintf(info.long_info, sizeof(info.long_info), "%s", VELLUM_PROGRAM_VERSION);
	return info;
}

}	// namespace

BAppFileInfo::BAppFileInfo() = default;

BAppFileInfo::BAppFileInfo(BFile* file)
{
	SetTo(file);
}

BAppFileInfo::~BAppFileInfo() = default;

status_t
BAppFileInfo::SetTo(BFile* file)
{
	fFile = file;
	return BNodeInfo::SetTo(file);
}

status_t
BAppFileInfo::GetIcon(BBitmap* icon, icon_size which) const
{
	if (!BPrivate::FitsIconSize(icon, which))
		return B_BAD_VALUE;
	if (InitCheck() != B_OK)
		return InitCheck();
	if (BPrivate::ReadIconAttribute(fFile, icon, which) == B_OK)
		return B_OK;
	return BPrivate::IsRunningProgram(fFile) ? BPrivate::GetProgramIcon(icon, which)
		: B_ENTRY_NOT_FOUND;
}

status_t
BAppFileInfo::GetVersionInfo(version_info* info, version_kind kind) const
{
	if (info == nullptr || (kind != B_APP_VERSION_KIND && kind != B_SYSTEM_VERSION_KIND))
		return B_BAD_VALUE;
	if (InitCheck() != B_OK)
		return InitCheck();
	// The attribute holds the application's version, then the system's.
	version_info versions[2];
	ssize_t length = fFile->ReadAttr(kVersionAttribute, kVersionType, 0, versions,
		sizeof(versions));
	if (length >= ssize_t(sizeof(version_info) * (kind + 1))) {
		*info = versions[kind];
		info->short_info[sizeof(info->short_info) - 1] = '\0';
		info->long_info[sizeof(info->long_info) - 1] = '\0';
		return B_OK;
	}
	if (!BPrivate::IsRunningProgram(fFile))
		return B_ENTRY_NOT_FOUND;
	*info = ProgramVersion();
	return B_OK;
}

status_t
BAppFileInfo::GetSignature(char* signature) const
{
	if (signature == nullptr)
		return B_BAD_VALUE;
	if (InitCheck() != B_OK)
		return InitCheck();
	ssize_t length = fFile->ReadAttr(kSignatureAttribute, B_MIME_STRING_TYPE, 0, signature,
		B_MIME_TYPE_LENGTH - 1);
	if (length <= 0)
		return length < 0 ? status_t(length) : B_ENTRY_NOT_FOUND;
	signature[length] = '\0';
	return B_OK;
}
