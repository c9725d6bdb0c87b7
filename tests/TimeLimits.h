#ifndef TESTS_TIME_LIMITS_H
#define TESTS_TIME_LIMITS_H

#include <chrono>

// Time limits of speed tests. Sanitizer builds run several times slower, so
// their limits stretch by that much.
#if defined(__SANITIZE_THREAD__) || defined(__SANITIZE_ADDRESS__)
constexpr int kTimeLimitScale = 10;
#else
constexpr int kTimeLimitScale = 1;
#endif

constexpr std::chrono::milliseconds
TimeLimit(int milliseconds)
{
	return std::chrono::milliseconds(milliseconds * kTimeLimitScale);
}

#endif
