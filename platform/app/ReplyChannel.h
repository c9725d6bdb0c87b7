#ifndef _REPLY_CHANNEL_H
#define _REPLY_CHANNEL_H

#include <condition_variable>
#include <memory>
#include <mutex>

#include <Message.h>

namespace BPrivate {

// Where a synchronous sender waits for its reply. The sender keeps the state;
// the message and its copies share a ReplyChannel. When the last of them goes
// away unanswered, the sender gets a B_NO_REPLY message.
class ReplyState {
public:
	// B_DUPLICATE_REPLY when a reply (or the abandonment) came first.
	status_t Deliver(std::unique_ptr<BMessage> reply);
	void Abandon();
	bool Replied();
	// The reply, or B_TIMED_OUT after timeout (relative, microseconds).
	status_t Wait(bigtime_t timeout, BMessage* reply);

private:
	std::mutex fLock;
	std::condition_variable fArrived;
	std::unique_ptr<BMessage> fReply;
	bool fDone = false;
};

class ReplyChannel {
public:
	explicit ReplyChannel(std::shared_ptr<ReplyState> state) : fState(std::move(state)) {}
	~ReplyChannel() { fState->Abandon(); }

	ReplyState& State() { return *fState; }

	ReplyChannel(const ReplyChannel&) = delete;
	ReplyChannel& operator=(const ReplyChannel&) = delete;

private:
	std::shared_ptr<ReplyState> fState;
};

}

#endif
