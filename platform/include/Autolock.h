#ifndef _AUTOLOCK_H
#define _AUTOLOCK_H

#include <Locker.h>

class BLooper;

// Locks a BLocker or a BLooper for the lifetime of the object.
class BAutolock {
public:
	explicit BAutolock(BLocker* locker);
	explicit BAutolock(BLocker& locker);
	explicit BAutolock(BLooper* looper);
	~BAutolock();

	bool IsLocked() const { return fIsLocked; }
	void Unlock();

	BAutolock(const BAutolock&) = delete;
	BAutolock& operator=(const BAutolock&) = delete;

private:
	BLocker* fLocker = nullptr;
	BLooper* fLooper = nullptr;
	bool fIsLocked = false;
};

#endif
