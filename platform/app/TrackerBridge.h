#ifndef _TRACKER_BRIDGE_H
#define _TRACKER_BRIDGE_H

#include <Looper.h>
#include <Messenger.h>

struct entry_ref;

namespace BPrivate {

// What answers messages sent to the file manager's signature: it turns the
// file manager's scripting into the desktop's own file manager. A folder ref
// (B_REFS_RECEIVED) is acknowledged: its window opens with the selection that
// follows. Creating the "Selection" of a folder window's poses with "data" =
// a node's ref shows that node selected in its folder (D-Bus ShowItems); when
// no file manager answers, the folder is opened with the opener command
// (xdg-open unless set). Replies are B_REPLY with "error".
class TrackerBridge : public BLooper {
public:
	static const char* Signature();
	// The bridge's address; the bridge starts on first use and runs until
	// Stop(), which the application calls when it goes.
	static BMessenger Messenger();
	static void Stop();
	// The command that opens a folder when no file manager answers; null or
	// empty restores xdg-open.
	static void SetFolderOpener(const char* command);

	virtual BHandler* ResolveSpecifier(BMessage* message, int32 index,
		BMessage* specifier, int32 what, const char* property);
	virtual void MessageReceived(BMessage* message);

private:
	TrackerBridge();

	status_t pvAcceptFolders(BMessage* message);
	status_t pvShowSelection(BMessage* message);
	static void pvReply(BMessage* message, status_t status);
};

}

#endif
