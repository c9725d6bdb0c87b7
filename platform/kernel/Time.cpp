#include <OS.h>

#include <chrono>
#include <ctime>
#include <thread>

bigtime_t
system_time()
{
	timespec now;
	clock_gettime(CLOCK_MONOTONIC, &now);
	return static_cast<bigtime_t>(now.tv_sec) * 1000000 + now.tv_nsec / 1000;
}

status_t
snooze(bigtime_t microseconds)
{
	if (microseconds > 0)
		std::this_thread::sleep_for(std::chrono::microseconds(microseconds));
	return B_OK;
}

status_t
snooze_until(bigtime_t time, int)
{
	return snooze(time - system_time());
}

uint32
real_time_clock()
{
	return static_cast<uint32>(::time(nullptr));
}
