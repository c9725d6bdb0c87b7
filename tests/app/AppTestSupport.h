#ifndef APP_TEST_SUPPORT_H
#define APP_TEST_SUPPORT_H

#include <functional>

#include <Messenger.h>
#include <OS.h>

// Waits (at most ten seconds) until condition holds; true when it does.
inline bool
WaitUntil(const std::function<bool()>& condition)
{
	for (int i = 0; i < 10000 && !condition(); i++)
		snooze(1000);
	return condition();
}

// Waits until the messenger's looper has quit; true when it has.
inline bool
WaitUntilGone(const BMessenger& messenger)
{
	return WaitUntil([&messenger] { return !messenger.IsValid(); });
}

#endif
