#include <Invoker.h>

#include <Handler.h>
#include <Looper.h>
#include <Message.h>

BInvoker::BInvoker() = default;

BInvoker::BInvoker(BMessage* message, const BHandler* handler, const BLooper* looper)
	: fMessage(message)
{
	SetTarget(handler, looper);
}

BInvoker::BInvoker(BMessage* message, BMessenger target)
	: fMessage(message), fMessenger(target)
{
}

BInvoker::~BInvoker()
{
	delete fMessage;
}

status_t
BInvoker::SetMessage(BMessage* message)
{
	if (fMessage == message)
		return B_OK;
	delete fMessage;
	fMessage = message;
	return B_OK;
}

BMessage*
BInvoker::Message() const
{
	return fMessage;
}

uint32
BInvoker::Command() const
{
	return fMessage != nullptr ? fMessage->what : 0;
}

status_t
BInvoker::SetTarget(const BHandler* handler, const BLooper* looper)
{
	fMessenger = BMessenger();
	if (handler == nullptr && looper == nullptr)
		return B_OK;
	status_t status;
	fMessenger = BMessenger(handler, looper, &status);
	return status;
}

status_t
BInvoker::SetTarget(BMessenger messenger)
{
	fMessenger = messenger;
	return B_OK;
}

bool
BInvoker::IsTargetLocal() const
{
	return fMessenger.IsTargetLocal();
}

BHandler*
BInvoker::Target(BLooper** looper) const
{
	return fMessenger.Target(looper);
}

BMessenger
BInvoker::Messenger() const
{
	return fMessenger;
}

status_t
BInvoker::SetHandlerForReply(BHandler* handler)
{
	fReplyTo = handler;
	return B_OK;
}

BHandler*
BInvoker::HandlerForReply() const
{
	return fReplyTo;
}

status_t
BInvoker::Invoke(BMessage* message)
{
	return InvokeWith(message, this);
}

status_t
BInvoker::InvokeWith(BMessage* message, const void* source,
	const std::function<void(BMessage&)>& addFields)
{
	if (message == nullptr)
		message = fMessage;
	if (message == nullptr)
		return B_BAD_VALUE;
	BMessage copy(*message);
	copy.AddInt64("when", system_time());
	copy.AddPointer("source", source);
	if (addFields)
		addFields(copy);
	return fMessenger.SendMessage(&copy, fReplyTo, fTimeout);
}

status_t
BInvoker::InvokeNotify(BMessage* message, uint32 kind)
{
	BeginInvokeNotify(kind);
	status_t status = Invoke(message);
	EndInvokeNotify();
	return status;
}

status_t
BInvoker::SetTimeout(bigtime_t timeout)
{
	fTimeout = timeout;
	return B_OK;
}

bigtime_t
BInvoker::Timeout() const
{
	return fTimeout;
}

uint32
BInvoker::InvokeKind(bool* notify)
{
	if (notify != nullptr)
		*notify = fNotifying;
	return fNotifying ? fNotifyKind : static_cast<uint32>(B_CONTROL_INVOKED);
}

void
BInvoker::BeginInvokeNotify(uint32 kind)
{
	fNotifyKind = kind;
	fNotifying = true;
}

void
BInvoker::EndInvokeNotify()
{
	fNotifying = false;
}
