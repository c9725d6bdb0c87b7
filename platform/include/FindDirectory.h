#ifndef _FIND_DIRECTORY_H
#define _FIND_DIRECTORY_H

#include <sys/types.h>

#include <SupportDefs.h>

class BPath;

enum directory_which {
	B_USER_DIRECTORY = 3000,
	B_USER_SETTINGS_DIRECTORY = 3006
};

// The folder of the given kind; with createIt, it is made when missing. A buffer
// too small for the path is an error (B_NAME_TOO_LONG), never a truncation.
status_t find_directory(directory_which which, dev_t volume, bool createIt,
	char* pathString, int32 length);
status_t find_directory(directory_which which, BPath* path, bool createIt = false);

#endif
