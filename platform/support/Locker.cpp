#include <Locker.h>

#include <chrono>

BLocker::BLocker() = default;

BLocker::BLocker(const char*)
{
}

BLocker::BLocker(bool)
{
}

BLocker::BLocker(const char*, bool)
{
}

BLocker::~BLocker() = default;

bool
BLocker::Lock()
{
	return LockWithTimeout(B_INFINITE_TIMEOUT) == B_OK;
}

status_t
BLocker::LockWithTimeout(bigtime_t timeout)
{
	thread_id self = find_thread(nullptr);
	std::unique_lock<std::mutex> guard(fMutex);
	if (fOwner == self) {
		fOwnerCount++;
		return B_OK;
	}
	auto isFree = [this] { return fOwnerCount == 0; };
	fWaiting++;
	bool acquired;
	if (timeout == B_INFINITE_TIMEOUT) {
		fReleased.wait(guard, isFree);
		acquired = true;
	} else {
		acquired = fReleased.wait_for(guard,
			std::chrono::microseconds(timeout > 0 ? timeout : 0), isFree);
	}
	fWaiting--;
	if (!acquired)
		return timeout <= 0 ? B_WOULD_BLOCK : B_TIMED_OUT;
	fOwner = self;
	fOwnerCount = 1;
	return B_OK;
}

void
BLocker::Unlock()
{
	std::lock_guard<std::mutex> guard(fMutex);
	if (fOwnerCount == 0 || fOwner != find_thread(nullptr))
		return;
	if (--fOwnerCount == 0) {
		fOwner = -1;
		fReleased.notify_one();
	}
}

thread_id
BLocker::LockingThread() const
{
	std::lock_guard<std::mutex> guard(fMutex);
	return fOwner;
}

bool
BLocker::IsLocked() const
{
	std::lock_guard<std::mutex> guard(fMutex);
	return fOwnerCount > 0 && fOwner == find_thread(nullptr);
}

int32
BLocker::CountLocks() const
{
	std::lock_guard<std::mutex> guard(fMutex);
	return fOwnerCount;
}

int32
BLocker::CountLockRequests() const
{
	std::lock_guard<std::mutex> guard(fMutex);
	return fOwnerCount + fWaiting;
}
