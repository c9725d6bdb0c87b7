#include "TrackerBridge.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <mutex>

#include <AppDefs.h>
#include <Entry.h>
#include <Path.h>

#include "FileManagerBridge.h"

namespace BPrivate {

namespace {

const char* const kFolderOpenerVariable = "VELLUM_FOLDER_OPENER";
const char* const kDefaultFolderOpener = "xdg-open";

// Starts the opener on folder without waiting for it: the grandchild is
// nobody's child once its parent has exited. Only async-signal-safe calls
// happen after the fork.
status_t
OpenFolder(const char* folder)
{
	const char* opener = getenv(kFolderOpenerVariable);
	if (opener == nullptr || opener[0] == '\0')
		opener = kDefaultFolderOpener;
	char* const argv[] = {const_cast<char*>(opener), const_cast<char*>(folder), nullptr};
	pid_t child = fork();
	if (child < 0)
		return B_NO_MORE_THREADS;
	if (child == 0) {
		if (fork() == 0) {
			setsid();
			int null = open("/dev/null", O_RDWR);
			if (null >= 0) {
				dup2(null, STDIN_FILENO);
				dup2(null, STDOUT_FILENO);
				dup2(null, STDERR_FILENO);
			}
			execvp(argv[0], argv);
			_exit(127);
		}
		_exit(0);
	}
	int childStatus;
	while (waitpid(child, &childStatus, 0) < 0 && errno == EINTR) {
	}
	return B_OK;
}

}	// namespace

TrackerBridge::TrackerBridge()
	: BLooper("Tracker")
{
}

const char*
TrackerBridge::Signature()
{
	return "application/x-vnd.Be-TRAK";
}

BMessenger
TrackerBridge::Messenger()
{
	static BMessenger sMessenger;
	static std::once_flag sStarted;
	std::call_once(sStarted, [] {
		TrackerBridge* bridge = new TrackerBridge;
		sMessenger = BMessenger(nullptr, bridge);
		bridge->Run();
	});
	return sMessenger;
}

BHandler*
TrackerBridge::ResolveSpecifier(BMessage* message, int32 index, BMessage* specifier,
	int32 what, const char* property)
{
	// Selection of Poses of Window: the bridge answers for the whole stack,
	// which is resolved from its outermost specifier, the window.
	if (message->what == B_CREATE_PROPERTY && strcmp(property, "Window") == 0)
		return this;
	return BLooper::ResolveSpecifier(message, index, specifier, what, property);
}

void
TrackerBridge::MessageReceived(BMessage* message)
{
	switch (message->what) {
		case B_REFS_RECEIVED:
			pvReply(message, pvAcceptFolders(message));
			break;
		case B_CREATE_PROPERTY:
			pvReply(message, pvShowSelection(message));
			break;
		default:
			BLooper::MessageReceived(message);
			break;
	}
}

status_t
TrackerBridge::pvAcceptFolders(BMessage* message)
{
	entry_ref ref;
	if (message->FindRef("refs", &ref) != B_OK)
		return B_BAD_VALUE;
	for (int32 i = 0; message->FindRef("refs", i, &ref) == B_OK; i++) {
		BEntry entry(&ref, true);
		if (!entry.IsDirectory())
			return B_BAD_TYPE;
	}
	return B_OK;
}

status_t
TrackerBridge::pvShowSelection(BMessage* message)
{
	entry_ref ref;
	if (message->FindRef("data", &ref) != B_OK)
		return B_BAD_VALUE;
	BEntry entry(&ref);
	BPath path;
	status_t status = entry.GetPath(&path);
	if (status != B_OK)
		return status;
	if (FileManagerBridge::ShowItem(path.Path()) == B_OK)
		return B_OK;
	BPath folder;
	status = path.GetParent(&folder);
	return status == B_OK ? OpenFolder(folder.Path()) : status;
}

void
TrackerBridge::pvReply(BMessage* message, status_t status)
{
	BMessage reply(B_REPLY);
	reply.AddInt32("error", status);
	message->SendReply(&reply);
}

}
