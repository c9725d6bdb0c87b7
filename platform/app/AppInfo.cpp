#include <Roster.h>

#include <cstring>

app_info::app_info()
	: thread(-1), team(-1), port(-1), flags(B_MULTIPLE_LAUNCH)
{
	memset(signature, 0, sizeof(signature));
}

app_info::~app_info() = default;
