#include <Entry.h>

#include <sys/stat.h>

#include <cstdlib>
#include <cstring>
#include <map>
#include <mutex>
#include <tuple>
#include <utility>

#include "StorageUtils.h"

namespace {

// Where the folders that this process has made refs into are: (device, inode) to path.
class DirectoryRegistry {
public:
	void Remember(dev_t device, ino_t inode, const std::string& path)
	{
		std::lock_guard<std::mutex> lock(fLock);
		fPaths[{device, inode}] = path;
	}

	// The folder's path, if it is still there; a folder that moved is forgotten.
	bool Find(dev_t device, ino_t inode, std::string* path)
	{
		std::lock_guard<std::mutex> lock(fLock);
		auto found = fPaths.find({device, inode});
		if (found == fPaths.end())
			return false;
		struct stat st;
		if (stat(found->second.c_str(), &st) != 0 || st.st_dev != device
			|| st.st_ino != inode || !S_ISDIR(st.st_mode)) {
			fPaths.erase(found);
			return false;
		}
		*path = found->second;
		return true;
	}

private:
	std::mutex fLock;
	std::map<std::pair<dev_t, ino_t>, std::string> fPaths;
};

DirectoryRegistry&
Registry()
{
	static DirectoryRegistry registry;
	return registry;
}

const char*
Safe(const char* name)
{
	return name != nullptr ? name : "";
}

}	// namespace

entry_ref::entry_ref()
	: device(-1), directory(-1), name(nullptr)
{
}

entry_ref::entry_ref(dev_t device, ino_t directory, const char* name)
	: device(device), directory(directory), name(nullptr)
{
	set_name(name);
}

entry_ref::entry_ref(const entry_ref& other)
	: device(other.device), directory(other.directory), name(nullptr)
{
	set_name(other.name);
}

entry_ref::~entry_ref()
{
	free(name);
}

status_t
entry_ref::set_name(const char* newName)
{
	char* copy = nullptr;
	if (newName != nullptr && (copy = strdup(newName)) == nullptr)
		return B_NO_MEMORY;
	free(name);
	name = copy;
	return B_OK;
}

bool
entry_ref::operator==(const entry_ref& other) const
{
	return device == other.device && directory == other.directory
		&& strcmp(Safe(name), Safe(other.name)) == 0;
}

bool
entry_ref::operator!=(const entry_ref& other) const
{
	return !(*this == other);
}

bool
entry_ref::operator<(const entry_ref& other) const
{
	if (std::tie(device, directory) != std::tie(other.device, other.directory))
		return std::tie(device, directory) < std::tie(other.device, other.directory);
	return strcmp(Safe(name), Safe(other.name)) < 0;
}

entry_ref&
entry_ref::operator=(const entry_ref& other)
{
	if (this != &other) {
		device = other.device;
		directory = other.directory;
		set_name(other.name);
	}
	return *this;
}


void
remember_directory(dev_t device, ino_t inode, const std::string& path)
{
	Registry().Remember(device, inode, path);
}

status_t
ref_for_path(const std::string& path, entry_ref* ref)
{
	if (ref == nullptr || path.empty())
		return B_BAD_VALUE;
	// The root has no folder above it: it is "." in itself.
	std::string folder = path == "/" ? path : parent_of(path);
	struct stat st;
	if (stat(folder.c_str(), &st) != 0)
		return last_status();
	if (!S_ISDIR(st.st_mode))
		return B_NOT_A_DIRECTORY;
	remember_directory(st.st_dev, st.st_ino, folder);
	ref->device = st.st_dev;
	ref->directory = st.st_ino;
	return ref->set_name(path == "/" ? "." : leaf_of(path).c_str());
}

status_t
path_for_ref(const entry_ref& ref, std::string* path)
{
	if (ref.name == nullptr || ref.name[0] == '\0' || strchr(ref.name, '/') != nullptr)
		return B_BAD_VALUE;
	std::string folder;
	if (!Registry().Find(ref.device, ref.directory, &folder))
		return B_ENTRY_NOT_FOUND;
	*path = normalized_path(ref.name, folder);
	return B_OK;
}

status_t
get_ref_for_path(const char* path, entry_ref* ref)
{
	if (path == nullptr || path[0] == '\0')
		return B_BAD_VALUE;
	return ref_for_path(normalized_path(path), ref);
}
