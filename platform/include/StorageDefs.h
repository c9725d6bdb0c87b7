#ifndef _STORAGE_DEFS_H
#define _STORAGE_DEFS_H

#include <fcntl.h>
#include <climits>

// Lengths of names and paths, each counting the terminating NUL.
#define B_FILE_NAME_LENGTH (NAME_MAX + 1)
#define B_PATH_NAME_LENGTH PATH_MAX
#define B_ATTR_NAME_LENGTH 256
// As on BeOS (B_ATTR_NAME_LENGTH - 15), and as Roster.h has it.
#ifndef B_MIME_TYPE_LENGTH
#define B_MIME_TYPE_LENGTH 241
#endif
#define B_MAX_SYMLINKS 16

// Open modes of BFile; they are the host's open flags.
enum {
	B_READ_ONLY = O_RDONLY,
	B_WRITE_ONLY = O_WRONLY,
	B_READ_WRITE = O_RDWR,
	B_FAIL_IF_EXISTS = O_EXCL,
	B_CREATE_FILE = O_CREAT,
	B_ERASE_FILE = O_TRUNC,
	B_OPEN_AT_END = O_APPEND
};

// Kinds of node, as flags for BDirectory::Contains.
enum node_flavor {
	B_FILE_NODE = 0x01,
	B_SYMLINK_NODE = 0x02,
	B_DIRECTORY_NODE = 0x04,
	B_ANY_NODE = 0x07
};

#endif
