#ifndef BRINDLE_UTILS_H
#define BRINDLE_UTILS_H

#include <ctime>

// Writes the local date of time as "March 7, 2004" into buffer (at least 32
// bytes) and returns buffer. Throws std::runtime_error when the time has no
// local date.
char* DateString(char* buffer, time_t time);

#endif
