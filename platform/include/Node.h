#ifndef _NODE_H
#define _NODE_H

#include <sys/types.h>

#include <memory>
#include <string>

#include <Statable.h>
#include <StorageDefs.h>
#include <SupportDefs.h>
#include <fs_attr.h>

class BDirectory;
class BEntry;
struct entry_ref;

// An open file-system node and its typed attributes. A typed attribute NAME of type
// T lives in the extended attribute "user.haiku.NAME#T" (T as four characters when
// all are printable, else as eight hex digits); every other extended attribute is
// an attribute of type B_XATTR_TYPE under its full name. A link is opened as itself.
class BNode : public BStatable {
public:
	BNode();
	BNode(const entry_ref* ref);
	BNode(const BEntry* entry);
	BNode(const char* path);
	BNode(const BDirectory* dir, const char* path);
	BNode(const BNode&) = delete;
	BNode& operator=(const BNode&) = delete;
	virtual ~BNode();

	status_t InitCheck() const;

	status_t SetTo(const entry_ref* ref);
	status_t SetTo(const BEntry* entry);
	status_t SetTo(const char* path);
	status_t SetTo(const BDirectory* dir, const char* path);
	void Unset();

	// An exclusive advisory lock; B_BUSY when another descriptor holds it.
	status_t Lock();
	status_t Unlock();
	status_t Sync();

	// Writing at offset 0 replaces the value; a write of type 0 and no data removes
	// the attribute. An attribute of the same name and another type is replaced.
	ssize_t WriteAttr(const char* name, type_code type, off_t offset,
		const void* buffer, size_t length);
	ssize_t ReadAttr(const char* name, type_code type, off_t offset,
		void* buffer, size_t length) const;
	status_t RemoveAttr(const char* name);
	status_t RenameAttr(const char* oldName, const char* newName);
	status_t GetAttrInfo(const char* name, attr_info* info) const;

	status_t GetNextAttrName(char* buffer);
	status_t RewindAttrs();

	bool operator==(const BNode& node) const;
	bool operator!=(const BNode& node) const;

protected:
	status_t _StatTarget(int* fd, const char** path, int* flags) const override;
	// Opens path with the given open(2) flags; O_PATH opens reach attributes by path.
	status_t _Open(const std::string& path, int flags);
	// Closes the node and leaves status as its InitCheck.
	status_t _Fail(status_t status);
	const std::string& _Path() const { return fPath; }
	int _Descriptor() const { return fFd; }

private:
	friend class BNodeInfo;
	class AttrDirectory;

	status_t _SetToPath(const std::string& path);
	status_t _XattrNameOf(const char* name, std::string* xattr, type_code* type,
		ssize_t* size = nullptr) const;
	// Writes the attribute name of type type, kept in xattr unless it has that
	// type already; B_FILE_EXISTS when xattr is another attribute's.
	status_t _Replace(const char* name, type_code type, const std::string& xattr,
		const void* buffer, size_t length);

	int fFd;
	bool fByPath;
	status_t fStatus;
	std::string fPath;
	std::unique_ptr<AttrDirectory> fAttrs;
};

#endif
