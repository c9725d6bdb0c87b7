#ifndef _PULSE_TIMER_H
#define _PULSE_TIMER_H

#include <condition_variable>
#include <mutex>
#include <thread>

#include <Messenger.h>

namespace BPrivate {

// Sends B_PULSE to a target at a settable rate on a thread of its own; a rate of
// 0 sends nothing. A pulse is not sent while the previous one is still queued,
// and none is sent after SetRate(0) has returned.
class PulseTimer {
public:
	explicit PulseTimer(const BMessenger& target);
	~PulseTimer();

	void SetRate(bigtime_t rate);
	bigtime_t Rate() const;
	// The target calls this when it has handled a pulse.
	void PulseHandled();

	PulseTimer(const PulseTimer&) = delete;
	PulseTimer& operator=(const PulseTimer&) = delete;

private:
	void pvRun();

	BMessenger fTarget;
	mutable std::mutex fLock;
	std::condition_variable fChanged;
	bigtime_t fRate = 0;
	bool fPending = false;
	bool fQuitting = false;
	std::thread fThread;
};

}

#endif
