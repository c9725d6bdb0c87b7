#ifndef _MESSENGER_H
#define _MESSENGER_H

#include <Handler.h>
#include <Message.h>
#include <OS.h>

class BLooper;

// An address of a handler in a looper (or of a looper's preferred handler).
// Messages sent to an address whose looper is gone fail with B_BAD_PORT_ID.
class BMessenger {
public:
	BMessenger();
	BMessenger(const char* signature, team_id team = -1, status_t* result = NULL);
	BMessenger(const BHandler* handler, const BLooper* looper = NULL,
		status_t* result = NULL);
	BMessenger(const BMessenger& other);
	~BMessenger();

	BMessenger& operator=(const BMessenger& other);
	bool operator==(const BMessenger& other) const;
	bool operator!=(const BMessenger& other) const { return !(*this == other); }
	bool operator<(const BMessenger& other) const;

	status_t SetTo(const char* signature, team_id team = -1);
	status_t SetTo(const BHandler* handler, const BLooper* looper = NULL);

	bool IsTargetLocal() const;
	BHandler* Target(BLooper** looper) const;
	bool LockTarget() const;
	status_t LockTargetWithTimeout(bigtime_t timeout) const;

	// Asynchronous: replies go to replyTo, or to the application when it is NULL.
	status_t SendMessage(uint32 command, BHandler* replyTo = NULL) const;
	status_t SendMessage(BMessage* message, BHandler* replyTo = NULL,
		bigtime_t timeout = B_INFINITE_TIMEOUT) const;
	status_t SendMessage(BMessage* message, BMessenger replyTo,
		bigtime_t timeout = B_INFINITE_TIMEOUT) const;

	// Synchronous: waits for the reply. A target that does not answer within
	// replyTimeout gives B_TIMED_OUT; one that drops the message unanswered
	// gives a B_NO_REPLY reply.
	status_t SendMessage(uint32 command, BMessage* reply) const;
	status_t SendMessage(BMessage* message, BMessage* reply,
		bigtime_t deliveryTimeout = B_INFINITE_TIMEOUT,
		bigtime_t replyTimeout = B_INFINITE_TIMEOUT) const;

	bool IsValid() const;
	team_id Team() const { return fTeam; }

private:
	friend class BMessage;
	friend class BLooper;
	friend class BPrivate::MessageAccess;

	void pvSetTo(port_id port, int32 token, team_id team);
	status_t pvDeliver(const BMessage* message, const BMessenger* returnAddress,
		std::shared_ptr<BPrivate::ReplyState> channel) const;

	port_id fPort = -1;
	int32 fHandlerToken = B_NULL_TOKEN;
	team_id fTeam = -1;
};

#endif
