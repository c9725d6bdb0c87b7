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

// path made absolute (from base, else the current folder) and normalised as the
// kernel resolves it: its folders through realpath, so that ".." after a link
// leaves the link's target, the leaf kept as it is (a link is not followed
// unless a slash comes after it); folders that do not exist are taken as
// written. No ".", "..", doubled or trailing slashes remain. An empty path
// gives an empty result.
std::string normalized_path(const char* path, const std::string& base = std::string());
// The canonical path of an existing path (realpath), else path unchanged.
std::string followed_path(const std::string& path);
std::string parent_of(const std::string& path);
std::string leaf_of(const std::string& path);

// Remembers where the folder (device, inode) is, so refs into it can be resolved.
void remember_directory(dev_t device, ino_t inode, const std::string& path);
// The ref of an absolute normalised path; its folder must exist.
status_t ref_for_path(const std::string& path, entry_ref* ref);
// The absolute path of a ref whose folder this process has seen and which still exists.
status_t path_for_ref(const entry_ref& ref, std::string* path);

#endif
