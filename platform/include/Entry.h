#ifndef _ENTRY_H
#define _ENTRY_H

#include <sys/types.h>

#include <SupportDefs.h>

// A reference to a directory entry: the device and folder it lives in, and its leaf name.
// Identity and ordering are by (device, directory, name).
struct entry_ref {
	entry_ref();
	entry_ref(dev_t device, ino_t directory, const char* name);
	entry_ref(const entry_ref& other);
	~entry_ref();

	status_t set_name(const char* name);

	bool operator==(const entry_ref& other) const;
	bool operator!=(const entry_ref& other) const;
	bool operator<(const entry_ref& other) const;
	entry_ref& operator=(const entry_ref& other);

	dev_t device;
	ino_t directory;
	char* name;
};

#endif
