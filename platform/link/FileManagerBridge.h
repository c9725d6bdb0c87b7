#ifndef _FILE_MANAGER_BRIDGE_H
#define _FILE_MANAGER_BRIDGE_H

#include <SupportDefs.h>

namespace BPrivate {

// The desktop's file manager, reached over D-Bus (org.freedesktop.FileManager1
// on the session bus) from the display server's thread.
class FileManagerBridge {
public:
	// Where the file manager answers on the bus.
	static constexpr const char* kService = "org.freedesktop.FileManager1";
	static constexpr const char* kObject = "/org/freedesktop/FileManager1";
	static constexpr const char* kInterface = "org.freedesktop.FileManager1";

	// Asks the file manager to show the node at path selected in its folder's
	// window. B_OK when it answered; B_NAME_NOT_FOUND when no file manager
	// answers or there is no session bus; B_TIMED_OUT when it answers too
	// late; B_ERROR when the display server is not running.
	static status_t ShowItem(const char* path);
	// Starts opener on folder, detached: it outlives the program and leaves
	// no child behind. B_ERROR when it could not be started.
	static status_t OpenFolder(const char* opener, const char* folder);
};

}

#endif
