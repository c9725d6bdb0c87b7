#ifndef _LOOPER_H
#define _LOOPER_H

#include <atomic>
#include <memory>

#include <Handler.h>
#include <List.h>
#include <Message.h>
#include <MessageQueue.h>
#include <OS.h>

class BMessageFilter;

namespace BPrivate {
struct LooperRecord;
class LooperRegistry;
}

#define B_LOOPER_PORT_DEFAULT_CAPACITY 200

// A handler with its own thread and message queue. Messages are dispatched one
// at a time, in the order they were posted, with the looper locked.
//
// A looper is locked by the thread that constructs it; Run() (called by that
// thread) starts the message loop and releases the lock. Quit() while locked
// ends it: called from the looper's own thread it takes effect after the current
// message; from another thread it waits until the loop has ended. Either way the
// looper deletes itself; a looper that never ran is deleted at once.
class BLooper : public BHandler {
public:
	BLooper(const char* name = NULL, int32 priority = B_NORMAL_PRIORITY,
		int32 portCapacity = B_LOOPER_PORT_DEFAULT_CAPACITY);
	virtual ~BLooper();

	// The message is copied. Without a handler it goes to the looper itself; a
	// NULL handler in the longer forms means the preferred handler.
	status_t PostMessage(uint32 command);
	status_t PostMessage(BMessage* message);
	status_t PostMessage(uint32 command, BHandler* handler, BHandler* replyTo = NULL);
	status_t PostMessage(BMessage* message, BHandler* handler, BHandler* replyTo = NULL);

	virtual void DispatchMessage(BMessage* message, BHandler* handler);
	virtual void MessageReceived(BMessage* message);
	BMessage* CurrentMessage() const;
	// The caller owns the returned message; the looper forgets it.
	BMessage* DetachCurrentMessage();
	BMessageQueue* MessageQueue() const;
	bool IsMessageWaiting() const;

	void AddHandler(BHandler* handler);
	bool RemoveHandler(BHandler* handler);
	int32 CountHandlers() const;
	BHandler* HandlerAt(int32 index) const;
	int32 IndexOf(BHandler* handler) const;

	BHandler* PreferredHandler() const;
	void SetPreferredHandler(BHandler* handler);

	virtual thread_id Run();
	virtual void Quit();
	virtual bool QuitRequested();

	bool Lock();
	void Unlock();
	bool IsLocked() const;
	status_t LockWithTimeout(bigtime_t timeout);
	thread_id Thread() const;
	team_id Team() const;
	static BLooper* LooperForThread(thread_id thread);

	thread_id LockingThread() const;
	int32 CountLocks() const;
	int32 CountLockRequests() const;
	sem_id Sem() const;

	virtual BHandler* ResolveSpecifier(BMessage* message, int32 index,
		BMessage* specifier, int32 what, const char* property);

	// Common filters see every message before the target handler's filters.
	virtual void AddCommonFilter(BMessageFilter* filter);
	virtual bool RemoveCommonFilter(BMessageFilter* filter);
	virtual void SetCommonFilterList(BList* filters);
	BList* CommonFilterList() const;

protected:
	// Called in the looper's thread after each dispatched message, still locked.
	virtual void DispatchMessageDone();

private:
	friend class BApplication;
	friend class BMessenger;
	friend class BHandler;
	friend class BPrivate::LooperRegistry;

	static status_t pvThreadEntry(void* looper);
	void pvLoop();
	void pvDispatch(BMessage* message);
	BHandler* pvTargetFor(BMessage* message);
	BHandler* pvApplyFilters(BList* filters, BMessage* message, BHandler* target);
	BHandler* pvTopLevelFilter(BMessage* message, BHandler* target);
	void pvEnqueue(BMessage* message);
	void pvEnqueueFirst(BMessage* message);
	void pvDiscardQueue();
	status_t pvPost(BMessage* message, BHandler* handler, BHandler* replyTo);
	void pvQuitRequested(BMessage* message);
	virtual void pvLoopEnded();
	port_id pvPort() const;

	std::shared_ptr<BPrivate::LooperRecord> fRecord;
	std::unique_ptr<BMessageQueue> fQueue;
	sem_id fQueueSem;
	int32 fPriority;
	// Read by other threads (Thread(), app_info) while Run() sets it.
	std::atomic<thread_id> fThread{-1};
	bool fRunCalled = false;
	bool fTerminating = false;
	bool fDeleteOnQuit = true;
	BList fHandlers;
	BHandler* fPreferred = nullptr;
	BList* fCommonFilters = nullptr;
	BMessage* fCurrentMessage = nullptr;
};

namespace BPrivate {

// Waits until the looper has dispatched every message posted before the call
// (a synchronous round trip through its queue). B_TIMED_OUT if that takes longer
// than timeout, B_BAD_PORT_ID if the looper is gone, B_MESSAGE_TO_SELF when
// called from the looper's own thread.
status_t WaitForLooperIdle(BLooper* looper, bigtime_t timeout = B_INFINITE_TIMEOUT);

}

#endif
