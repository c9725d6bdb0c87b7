#include "BrindleUtils.h"

#include <cstdio>
#include <stdexcept>

namespace {

const char* const kMonthNames[] = {"January", "February", "March", "April", "May", "June",
	"July", "August", "September", "October", "November", "December"};

}	// namespace

char*
DateString(char* buffer, time_t time)
{
	struct tm local;
	if (localtime_r(&time, &local) == nullptr)
		throw std::runtime_error("the time has no local date");
	sprintf(buffer, "%s %d, %d", kMonthNames[local.tm_mon], local.tm_mday,
		local.tm_year + 1900);
	return buffer;
}
