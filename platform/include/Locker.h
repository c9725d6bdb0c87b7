#ifndef _LOCKER_H
#define _LOCKER_H

#include <OS.h>

#include <condition_variable>
#include <mutex>

// A recursive lock that knows its owning thread.
class BLocker {
public:
	BLocker();
	explicit BLocker(const char* name);
	BLocker(bool benaphoreStyle);
	BLocker(const char* name, bool benaphoreStyle);
	virtual ~BLocker();

	status_t InitCheck() const { return B_OK; }

	bool Lock();
	status_t LockWithTimeout(bigtime_t timeout);
	void Unlock();

	thread_id LockingThread() const;
	// True only when the calling thread holds the lock.
	bool IsLocked() const;
	int32 CountLocks() const;
	int32 CountLockRequests() const;
	sem_id Sem() const { return -1; }

private:
	mutable std::mutex fMutex;
	std::condition_variable fReleased;
	thread_id fOwner = -1;
	int32 fOwnerCount = 0;
	int32 fWaiting = 0;
};

#endif
