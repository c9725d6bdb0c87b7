#ifndef _ROSTER_H
#define _ROSTER_H

#include <Entry.h>
#include <OS.h>

#ifndef B_MIME_TYPE_LENGTH
#define B_MIME_TYPE_LENGTH 241
#endif

// Launch flags of app_info.
#define B_SINGLE_LAUNCH 0x0
#define B_MULTIPLE_LAUNCH 0x1
#define B_EXCLUSIVE_LAUNCH 0x2
#define B_LAUNCH_MASK 0x3
#define B_BACKGROUND_APP 0x4
#define B_ARGV_ONLY 0x8

// What the system knows about a running application.
struct app_info {
	app_info();
	~app_info();

	thread_id thread;
	team_id team;
	port_id port;
	uint32 flags;
	entry_ref ref;
	char signature[B_MIME_TYPE_LENGTH];
};

#endif
