#ifndef _PARSEDATE_H
#define _PARSEDATE_H

#include <ctime>

// Reads a free-form date and time in the local time zone and returns it in seconds
// since 1970, or -1 when the text is not understood. Relative forms ("+1 day",
// "3 weeks ago", "next monday", "yesterday") count from now; now = -1 means the
// current time.
time_t parsedate(const char* dateString, time_t now);

#endif
