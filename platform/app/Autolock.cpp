#include <Autolock.h>

#include <Looper.h>

BAutolock::BAutolock(BLocker* locker)
	: fLocker(locker), fIsLocked(locker != nullptr && locker->Lock())
{
}

BAutolock::BAutolock(BLocker& locker)
	: BAutolock(&locker)
{
}

BAutolock::BAutolock(BLooper* looper)
	: fLooper(looper), fIsLocked(looper != nullptr && looper->Lock())
{
}

BAutolock::~BAutolock()
{
	Unlock();
}

void
BAutolock::Unlock()
{
	if (!fIsLocked)
		return;
	fIsLocked = false;
	if (fLooper != nullptr)
		fLooper->Unlock();
	else
		fLocker->Unlock();
}
