#include "ReplyState.h"

#include "MessagePrivate.h"

#include <chrono>

namespace BPrivate {

status_t
ReplyState::Deliver(std::unique_ptr<BMessage> reply)
{
	std::lock_guard<std::mutex> guard(fLock);
	if (fDone)
		return B_DUPLICATE_REPLY;
	fReply = std::move(reply);
	fDone = true;
	fArrived.notify_all();
	return B_OK;
}

void
ReplyState::Abandon()
{
	Deliver(std::make_unique<BMessage>(B_NO_REPLY));
}

bool
ReplyState::Replied()
{
	std::lock_guard<std::mutex> guard(fLock);
	return fDone;
}

status_t
ReplyState::Wait(bigtime_t timeout, BMessage* reply)
{
	std::unique_lock<std::mutex> guard(fLock);
	auto arrived = [this] { return fDone; };
	if (timeout == B_INFINITE_TIMEOUT)
		fArrived.wait(guard, arrived);
	else if (!fArrived.wait_for(guard, std::chrono::microseconds(timeout < 0 ? 0 : timeout),
			arrived))
		return B_TIMED_OUT;
	std::unique_ptr<BMessage> received = std::move(fReply);
	guard.unlock();
	// The reply moves to the caller: deleting this copy must not answer it.
	*reply = *received;
	MessageAccess::SetReplyState(received.get(), nullptr);
	return B_OK;
}

}
