#ifndef _INVOKER_H
#define _INVOKER_H

#include <functional>

#include <AppDefs.h>
#include <Messenger.h>

class BHandler;
class BLooper;
class BMessage;

// Sends a model message to a target: the base of controls and menu items.
class BInvoker {
public:
	BInvoker();
	BInvoker(BMessage* message, const BHandler* handler, const BLooper* looper = NULL);
	BInvoker(BMessage* message, BMessenger target);
	virtual ~BInvoker();

	// Takes ownership of message.
	virtual status_t SetMessage(BMessage* message);
	BMessage* Message() const;
	uint32 Command() const;

	virtual status_t SetTarget(const BHandler* handler, const BLooper* looper = NULL);
	virtual status_t SetTarget(BMessenger messenger);
	bool IsTargetLocal() const;
	BHandler* Target(BLooper** looper = NULL) const;
	BMessenger Messenger() const;

	virtual status_t SetHandlerForReply(BHandler* handler);
	BHandler* HandlerForReply() const;

	// Sends a copy of message (or of the model message) with "when" (the time)
	// and "source" (this invoker) added.
	virtual status_t Invoke(BMessage* message = NULL);
	status_t InvokeNotify(BMessage* message, uint32 kind = B_CONTROL_INVOKED);

	status_t SetTimeout(bigtime_t timeout);
	bigtime_t Timeout() const;

	BInvoker(const BInvoker&) = delete;
	BInvoker& operator=(const BInvoker&) = delete;

protected:
	// Sends a copy of message (or of the model message) with "when", "source"
	// and whatever addFields adds; B_BAD_VALUE when there is no message.
	status_t InvokeWith(BMessage* message, const void* source,
		const std::function<void(BMessage&)>& addFields = nullptr);
	uint32 InvokeKind(bool* notify = NULL);
	void BeginInvokeNotify(uint32 kind = B_CONTROL_INVOKED);
	void EndInvokeNotify();

private:
	BMessage* fMessage = nullptr;
	BMessenger fMessenger;
	BHandler* fReplyTo = nullptr;
	bigtime_t fTimeout = B_INFINITE_TIMEOUT;
	uint32 fNotifyKind = 0;
	bool fNotifying = false;
};

#endif
