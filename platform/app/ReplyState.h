#ifndef _REPLY_STATE_H
#define _REPLY_STATE_H

#include <condition_variable>
#include <memory>
#include <mutex>

#include <Message.h>

namespace BPrivate {

// Where a synchronous sender waits for its reply, shared by the sender and the
// message (and its copies). The first reply wins; a message that is deleted
// unanswered gives the sender a B_NO_REPLY message, as on BeOS.
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

}

#endif
