#ifndef PRIVATE_BUS_H
#define PRIVATE_BUS_H

#include <signal.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "platform/storage/TempFolder.h"

// A session bus of the test's own (a dbus-daemon listening in folder), so that
// no program of the desktop takes part.
class PrivateBus {
public:
	explicit PrivateBus(const TempFolder& folder)
	{
		std::string config = folder.File("bus.conf",
			"<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-BUS Bus Configuration 1.0//EN\""
			" \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
			"<busconfig><type>session</type><listen>unix:dir=" + folder.Root() + "</listen>"
			"<auth>EXTERNAL</auth><policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/><allow eavesdrop=\"true\"/>"
			"<allow own=\"*\"/></policy></busconfig>\n");
		FILE* daemon = popen(("dbus-daemon --fork --print-address=1 --print-pid=1"
			" --config-file=" + config).c_str(), "r");
		if (daemon == nullptr)
			return;
		char line[512];
		if (fgets(line, sizeof(line), daemon) != nullptr) {
			fAddress = line;
			fAddress.erase(fAddress.find_last_not_of('\n') + 1);
		}
		if (fgets(line, sizeof(line), daemon) != nullptr)
			fPid = atoi(line);
		pclose(daemon);
	}

	~PrivateBus()
	{
		if (fPid > 0)
			kill(fPid, SIGTERM);
	}

	const std::string& Address() const { return fAddress; }

private:
	std::string fAddress;
	pid_t fPid = -1;
};

#endif
