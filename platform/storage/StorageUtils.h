#ifndef _STORAGE_UTILS_H
#define _STORAGE_UTILS_H

#include <sys/types.h>

#include <string>

#include <SupportDefs.h>

struct entry_ref;

// The status code for an errno value.
status_t status_for_errno(int error);
// The status code for the current errno.
status_t last_status();

// path made absolute (from base, else the current folder) and normalised: no ".",
// "..", doubled or trailing slashes. An empty path gives an empty result.
std::string normalized_path(const char* path, const std::string& base = std::string());
std::string parent_of(const std::string& path);
std::string leaf_of(const std::string& path);

// Remembers where the folder (device, inode) is, so refs into it can be resolved.
void remember_directory(dev_t device, ino_t inode, const std::string& path);
// The ref of an absolute normalised path; its folder must exist.
status_t ref_for_path(const std::string& path, entry_ref* ref);
// The absolute path of a ref whose folder this process has seen and which still exists.
status_t path_for_ref(const entry_ref& ref, std::string* path);

#endif
