#ifndef _HANDLER_H
#define _HANDLER_H

#include <List.h>
#include <OS.h>

#include <string>

class BLooper;
class BMessage;
class BMessageFilter;

#define B_NULL_TOKEN (-1)
#define B_PREFERRED_TOKEN (-2)

// An object that receives messages in a looper's thread.
class BHandler {
public:
	BHandler(const char* name = NULL);
	virtual ~BHandler();

	// Called with each message dispatched to this handler. The default passes the
	// message to the next handler, or at the end of the chain tells a waiting
	// sender that the message was not understood.
	virtual void MessageReceived(BMessage* message);

	BLooper* Looper() const;
	void SetName(const char* name);
	const char* Name() const;
	virtual void SetNextHandler(BHandler* handler);
	BHandler* NextHandler() const;

	virtual void AddFilter(BMessageFilter* filter);
	virtual bool RemoveFilter(BMessageFilter* filter);
	virtual void SetFilterList(BList* filters);
	BList* FilterList();

	bool LockLooper();
	status_t LockLooperWithTimeout(bigtime_t timeout);
	void UnlockLooper();

	virtual BHandler* ResolveSpecifier(BMessage* message, int32 index,
		BMessage* specifier, int32 what, const char* property);

	BHandler(const BHandler&) = delete;
	BHandler& operator=(const BHandler&) = delete;

private:
	friend class BLooper;
	friend class BMessenger;
	friend class BApplication;

	void pvSetLooper(BLooper* looper);
	int32 pvToken() const { return fToken; }

	int32 fToken;
	std::string fName;
	bool fNamed = false;
	BLooper* fLooper = nullptr;
	BHandler* fNextHandler = nullptr;
	BList* fFilters = nullptr;
};

#endif
