#include <MessageQueue.h>

#include <algorithm>
#include <deque>

// The messages, oldest first.
struct BMessageQueue::Messages : std::deque<BMessage*> {
};

BMessageQueue::BMessageQueue()
	: fMessages(std::make_unique<Messages>())
{
}

BMessageQueue::~BMessageQueue()
{
	for (BMessage* message : *fMessages)
		delete message;
}

void
BMessageQueue::AddMessage(BMessage* message)
{
	if (message == nullptr)
		return;
	BAutolock lock(fLock);
	fMessages->push_back(message);
}

void
BMessageQueue::pvAddFirst(BMessage* message)
{
	BAutolock lock(fLock);
	fMessages->push_front(message);
}

void
BMessageQueue::RemoveMessage(BMessage* message)
{
	BAutolock lock(fLock);
	auto found = std::find(fMessages->begin(), fMessages->end(), message);
	if (found != fMessages->end())
		fMessages->erase(found);
}

BMessage*
BMessageQueue::NextMessage()
{
	BAutolock lock(fLock);
	if (fMessages->empty())
		return nullptr;
	BMessage* message = fMessages->front();
	fMessages->pop_front();
	return message;
}

BMessage*
BMessageQueue::FindMessage(int32 index) const
{
	BAutolock lock(fLock);
	if (index < 0 || static_cast<size_t>(index) >= fMessages->size())
		return nullptr;
	return (*fMessages)[index];
}

BMessage*
BMessageQueue::FindMessage(uint32 what, int32 index) const
{
	BAutolock lock(fLock);
	for (BMessage* message : *fMessages) {
		if (message->what == what && index-- == 0)
			return message;
	}
	return nullptr;
}

int32
BMessageQueue::CountMessages() const
{
	BAutolock lock(fLock);
	return static_cast<int32>(fMessages->size());
}

bool
BMessageQueue::IsEmpty() const
{
	return CountMessages() == 0;
}

bool
BMessageQueue::Lock()
{
	return fLock.Lock();
}

void
BMessageQueue::Unlock()
{
	fLock.Unlock();
}

bool
BMessageQueue::IsLocked() const
{
	return fLock.IsLocked();
}
