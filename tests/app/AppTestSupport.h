#ifndef APP_TEST_SUPPORT_H
#define APP_TEST_SUPPORT_H

#include <Messenger.h>
#include <OS.h>

// Waits (at most ten seconds) until the messenger's looper has quit; true when
// it has.
inline bool
WaitUntilGone(const BMessenger& messenger)
{
	for (int i = 0; i < 10000 && messenger.IsValid(); i++)
		snooze(1000);
	return !messenger.IsValid();
}

#endif
