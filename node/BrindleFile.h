#ifndef BRINDLE_FILE_H
#define BRINDLE_FILE_H

#include <memory>

#include <Entry.h>
#include <Node.h>
#include <Path.h>
#include <StorageDefs.h>

// The node that a window inspects: an entry (a link is itself unless traversal is
// asked for) with its attributes. Attribute calls use the node opened with OpenOK,
// or open it for the one call when it is closed.
class BrindleFile : public BEntry {
public:
	BrindleFile(const char* path, bool traverse = false);
	BrindleFile(const entry_ref* ref, bool traverse = false);
	BrindleFile(const BEntry& entry);
	BrindleFile(const BrindleFile& other);
	BrindleFile& operator=(const BrindleFile& other);
	virtual ~BrindleFile();

	// The leaf name, or "" without an entry.
	const char* Name() const;

	// Opens the node for attribute work; writable also asks that the caller may
	// change it.
	bool OpenOK(bool writable);
	bool IsOpen() const;
	bool LockOK();
	void Close();

	ssize_t ReadAttr(const char* name, type_code type, off_t offset, void* buffer,
		size_t length);
	// Replaces any attribute of the name; type 0 with no data removes it.
	ssize_t WriteAttr(const char* name, type_code type, off_t offset,
		const void* buffer, size_t length);
	status_t RemoveAttr(const char* name);
	status_t RenameAttr(const char* oldName, const char* newName);
	status_t GetAttrInfo(const char* name, attr_info* info);
	int32 CountAttrs();
	status_t RewindAttrs();
	status_t GetNextAttrName(char* buffer);

	// The path of a link's target; B_ENTRY_NOT_FOUND for a broken link,
	// B_BAD_VALUE for a node that is not a link.
	status_t GetLink(BPath* target) const;

	using BEntry::operator==;
	bool operator==(const entry_ref& ref) const;

private:
	// Calls call with the open node, else with one opened for this call.
	template<typename Call>
	ssize_t pvWithNode(Call call);

	std::unique_ptr<BNode> fNode;
	bool fLocked;
	mutable char fName[B_FILE_NAME_LENGTH];
};

#endif
