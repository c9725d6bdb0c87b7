#include <FindDirectory.h>

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>

#include <Path.h>

#include "StorageUtils.h"

namespace {

std::string
HomeFolder()
{
	const char* home = getenv("HOME");
	return home != nullptr && home[0] == '/' ? std::string(home) : std::string();
}

// The folder of the kind, not yet checked or created.
status_t
FolderOf(directory_which which, std::string* folder)
{
	std::string home = HomeFolder();
	switch (which) {
		case B_USER_DIRECTORY:
			*folder = home;
			break;
		case B_USER_SETTINGS_DIRECTORY: {
			const char* config = getenv("XDG_CONFIG_HOME");
			if (config != nullptr && config[0] == '/')
				*folder = config;
			else if (!home.empty())
				*folder = home + "/.config";
			else
				folder->clear();
			break;
		}
		default:
			return B_BAD_VALUE;
	}
	*folder = normalized_path(folder->c_str());
	return folder->empty() ? status_t(B_ENTRY_NOT_FOUND) : status_t(B_OK);
}

// Makes folder and the folders above it that are missing.
status_t
MakeFolders(const std::string& folder)
{
	struct stat st;
	if (stat(folder.c_str(), &st) == 0)
		return S_ISDIR(st.st_mode) ? status_t(B_OK) : status_t(B_NOT_A_DIRECTORY);
	std::string parent = parent_of(folder);
	if (!parent.empty()) {
		status_t status = MakeFolders(parent);
		if (status != B_OK)
			return status;
	}
	if (mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST)
		return last_status();
	return B_OK;
}

status_t
LocateFolder(directory_which which, bool createIt, std::string* folder)
{
	status_t status = FolderOf(which, folder);
	if (status == B_OK && createIt)
		status = MakeFolders(*folder);
	return status;
}

}	// namespace

status_t
find_directory(directory_which which, dev_t, bool createIt, char* pathString,
	int32 length)
{
	if (pathString == nullptr || length <= 0)
		return B_BAD_VALUE;
	std::string folder;
	status_t status = LocateFolder(which, createIt, &folder);
	if (status != B_OK)
		return status;
	if (folder.size() >= static_cast<size_t>(length))
		return B_NAME_TOO_LONG;
	memcpy(pathString, folder.c_str(), folder.size() + 1);
	return B_OK;
}

status_t
find_directory(directory_which which, BPath* path, bool createIt)
{
	if (path == nullptr)
		return B_BAD_VALUE;
	std::string folder;
	status_t status = LocateFolder(which, createIt, &folder);
	return status == B_OK ? path->SetTo(folder.c_str()) : status;
}
