#ifndef _CLIPBOARD_H
#define _CLIPBOARD_H

#include <memory>
#include <string>

#include <Locker.h>
#include <Message.h>
#include <Messenger.h>

// A named clipboard shared by everyone who opens a clipboard of that name. Lock()
// fetches the current contents into Data(); Commit() publishes Data() as the new
// contents. The system clipboard ("system", be_clipboard) is the desktop's: a
// commit offers the "text/plain" data (or else the "text" string) as text to
// other programs and the whole message in flattened form; text that another
// program put there arrives as "text/plain" data and a "text" string.
class BClipboard {
public:
	// Clipboards are never persistent here, so transient changes nothing.
	BClipboard(const char* name, bool transient = false);
	virtual ~BClipboard();

	const char* Name() const { return fName.c_str(); }

	// The number of the contents last fetched or committed by this object, and
	// the number of the clipboard's current contents.
	uint32 LocalCount() const { return fCount; }
	uint32 SystemCount() const;

	// Watchers get B_CLIPBOARD_CHANGED whenever the contents change.
	status_t StartWatching(BMessenger target);
	status_t StopWatching(BMessenger target);

	bool Lock();
	void Unlock();
	bool IsLocked() const;

	// All of these need the lock (else B_NOT_ALLOWED). Commit(true) fails with
	// B_ERROR when someone else committed since this object's contents were
	// fetched.
	status_t Clear();
	status_t Commit();
	status_t Commit(bool failIfChanged);
	status_t Revert();

	// The application that committed the contents.
	BMessenger DataSource() const { return fDataSource; }
	// The contents, while locked; NULL otherwise.
	BMessage* Data() const;

	BClipboard(const BClipboard&) = delete;
	BClipboard& operator=(const BClipboard&) = delete;

private:
	void pvFetch();

	std::string fName;
	std::unique_ptr<BMessage> fData;
	BLocker fLock;
	uint32 fCount = 0;
	BMessenger fDataSource;
};

extern BClipboard* be_clipboard;

#endif
