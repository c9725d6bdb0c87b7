#ifndef _CLIPBOARD_STORE_H
#define _CLIPBOARD_STORE_H

#include <map>
#include <mutex>
#include <string>
#include <vector>

#include <Message.h>
#include <Messenger.h>

namespace BPrivate {

// The contents of every named clipboard in the process, as the system keeps
// them for all BClipboard objects. The system clipboard follows the desktop's
// clipboard whenever a display server runs.
class ClipboardStore {
public:
	static ClipboardStore& Default();

	void Get(const std::string& name, BMessage* data, uint32* count, BMessenger* source);
	uint32 Count(const std::string& name);
	// B_ERROR when failIfChanged and the contents are no longer number
	// localCount; the new number goes to count.
	status_t Put(const std::string& name, const BMessage& data, const BMessenger& source,
		uint32 localCount, bool failIfChanged, uint32* count);

	status_t StartWatching(const std::string& name, const BMessenger& target);
	status_t StopWatching(const std::string& name, const BMessenger& target);

private:
	typedef std::map<std::string, std::string> Formats;

	struct Entry {
		BMessage data;
		uint32 count = 0;
		BMessenger source;
		std::vector<BMessenger> watchers;
		// What the desktop held when last looked at or written.
		Formats desktop;
	};

	// With fLock held.
	Entry& pvEntry(const std::string& name, std::vector<BMessenger>* toNotify);
	bool pvFollowDesktop(Entry& entry);
	void pvExport(Entry& entry);
	static void pvNotify(const std::vector<BMessenger>& watchers);

	std::mutex fLock;
	std::map<std::string, Entry> fEntries;
};

}

#endif
