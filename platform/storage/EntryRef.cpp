#include <Entry.h>

#include <cstdlib>
#include <cstring>
#include <tuple>

namespace {

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
