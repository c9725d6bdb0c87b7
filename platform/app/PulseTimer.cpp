#include "PulseTimer.h"

#include <AppDefs.h>

#include <chrono>

namespace BPrivate {

PulseTimer::PulseTimer(const BMessenger& target)
	: fTarget(target), fThread(&PulseTimer::pvRun, this)
{
}

PulseTimer::~PulseTimer()
{
	{
		std::lock_guard<std::mutex> guard(fLock);
		fQuitting = true;
	}
	fChanged.notify_all();
	fThread.join();
}

void
PulseTimer::SetRate(bigtime_t rate)
{
	{
		std::lock_guard<std::mutex> guard(fLock);
		fRate = rate > 0 ? rate : 0;
	}
	fChanged.notify_all();
}

bigtime_t
PulseTimer::Rate() const
{
	std::lock_guard<std::mutex> guard(fLock);
	return fRate;
}

void
PulseTimer::PulseHandled()
{
	std::lock_guard<std::mutex> guard(fLock);
	fPending = false;
}

void
PulseTimer::pvRun()
{
	std::unique_lock<std::mutex> guard(fLock);
	while (!fQuitting) {
		if (fRate == 0) {
			fChanged.wait(guard);
			continue;
		}
		// A new rate starts a new interval.
		bigtime_t rate = fRate;
		bool changed = fChanged.wait_for(guard, std::chrono::microseconds(rate),
			[&] { return fQuitting || fRate != rate; });
		if (changed || fPending)
			continue;
		// Sent under the lock (posting never blocks), so that no pulse is sent
		// once SetRate(0) has returned.
		fPending = fTarget.SendMessage(B_PULSE) == B_OK;
	}
}

}
