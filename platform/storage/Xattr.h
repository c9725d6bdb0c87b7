#ifndef _XATTR_H
#define _XATTR_H

#include <sys/types.h>

#include <string>
#include <vector>

#include <SupportDefs.h>

// The prefix of extended attributes that carry a typed attribute.
extern const char kTypedXattrPrefix[];

// The extended attribute that keeps the attribute name of type type: B_NAME_TOO_LONG
// when it would pass the host's limit, B_BAD_VALUE for an empty name.
status_t encode_attr_name(const char* name, type_code type, std::string* xattr);
// The attribute name and type that the extended attribute xattr keeps.
void decode_attr_name(const char* xattr, std::string* name, type_code* type);

// The extended attributes of one node, through its descriptor or, for a node that
// is open by path only (a link, a device), through its path without following it.
class XattrTarget {
public:
	XattrTarget(int fd, const std::string& path, bool byPath);

	status_t List(std::vector<char>* names) const;
	ssize_t Size(const char* xattr) const;
	// Reads the value into buffer; a value larger than size gives B_BAD_VALUE.
	ssize_t Get(const char* xattr, void* buffer, size_t size) const;
	status_t GetAll(const char* xattr, std::vector<char>* value) const;
	status_t Set(const char* xattr, const void* data, size_t size) const;
	status_t Remove(const char* xattr) const;

private:
	int fFd;
	const std::string& fPath;
	bool fByPath;
};

#endif
