#ifndef _LAUNCH_SERVICE_H
#define _LAUNCH_SERVICE_H

#include <functional>
#include <string>
#include <vector>

#include <SupportDefs.h>

// Single launch across processes, on the desktop's session bus: the first
// process of a signature owns a bus name made from it; a later launch hands
// its arguments to that one instead of running.

namespace BPrivate {

// What a launch hands over: its arguments, the program's path first, and the
// folder it was started in.
struct LaunchRequest {
	std::vector<std::string> arguments;
	std::string cwd;
};

// B_OK when this process now owns the signature's name, and then receives
// later launches through handler (called in the display server's thread);
// B_NAME_IN_USE when another process owns it; B_ERROR without a session bus.
status_t ClaimLaunchName(const char* signature,
	std::function<void(const LaunchRequest&)> handler);
// Hands request to the process that owns the signature's name.
status_t HandOverLaunch(const char* signature, const LaunchRequest& request);

}

#endif
