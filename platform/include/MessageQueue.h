#ifndef _MESSAGE_QUEUE_H
#define _MESSAGE_QUEUE_H

#include <memory>

#include <Autolock.h>
#include <Locker.h>
#include <Message.h>

// A FIFO of messages. It owns the messages it holds.
class BMessageQueue {
public:
	BMessageQueue();
	virtual ~BMessageQueue();

	void AddMessage(BMessage* message);
	void RemoveMessage(BMessage* message);
	BMessage* NextMessage();
	BMessage* FindMessage(int32 index) const;
	BMessage* FindMessage(uint32 what, int32 index = 0) const;
	int32 CountMessages() const;
	bool IsEmpty() const;

	bool Lock();
	void Unlock();
	bool IsLocked() const;

	BMessageQueue(const BMessageQueue&) = delete;
	BMessageQueue& operator=(const BMessageQueue&) = delete;

private:
	friend class BLooper;

	void pvAddFirst(BMessage* message);

	mutable BLocker fLock;
	struct Messages;
	std::unique_ptr<Messages> fMessages;
};

#endif
