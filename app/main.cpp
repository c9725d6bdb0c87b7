// Vellum: shows and edits what the file system keeps about files, folders and
// links. With --screenshot FILE.png [PATH] it draws PATH's inspector window
// headless into FILE.png instead, with --attr NAME [--view N] the data window
// of one of its attributes.

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <Entry.h>

#include "GlintApplication.h"
#include "ScreenshotApplication.h"

namespace {

const char kScreenshotOption[] = "--screenshot";
const char kUsage[] =
	"usage: vellum [PATH...]                      open the nodes (files, folders, links)\n"
	"       vellum --refs PATH...                 open exactly these paths\n"
	"       vellum --screenshot FILE.png [PATH]   draw PATH's window into FILE.png\n"
	"       vellum --screenshot FILE.png PATH --attr NAME [--view N]\n"
	"                                             draw the data window of PATH's\n"
	"                                             attribute NAME (in view N, 0-5)\n"
	"       vellum --help                         show this\n";

bool
IsHelp(const char* argument)
{
	return strcmp(argument, "--help") == 0 || strcmp(argument, "-h") == 0;
}

// Windows need a display; Qt's offscreen platform stands for one on request.
bool
HasDisplay()
{
	for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
		const char* value = getenv(variable);
		if (value != nullptr && value[0] != '\0')
			return true;
	}
	return false;
}

// What --screenshot draws.
struct ScreenshotRequest {
	const char* output = nullptr;
	const char* path = nullptr;
	const char* attribute = nullptr;
	int32 view = -1;
};

// Reads the screenshot's command line; the node must exist. False, having
// said why, when the command line cannot be used.
bool
ReadScreenshotArguments(int argc, char** argv, ScreenshotRequest& request)
{
	const char* kScreenshotUsage
		= "usage: vellum --screenshot FILE.png [PATH [--attr NAME [--view N]]]\n";
	bool valid = argc == 3 || argc == 4 || argc == 6 || argc == 8;
	if (valid && argc >= 6)
		valid = strcmp(argv[4], "--attr") == 0;
	char* end = nullptr;
	if (valid && argc == 8) {
		long view = strtol(argv[7], &end, 10);
		valid = strcmp(argv[6], "--view") == 0 && *end == '\0' && view >= 0 && view <= 5;
		request.view = view;
	}
	if (!valid) {
		fputs(kScreenshotUsage, stderr);
		return false;
	}
	request.output = argv[2];
	request.path = argc > 3 ? argv[3] : nullptr;
	request.attribute = argc > 5 ? argv[5] : nullptr;
	if (request.path != nullptr && !BEntry(request.path).Exists()) {
		fprintf(stderr, "vellum: %s: there is no such file, folder or link\n", request.path);
		return false;
	}
	return true;
}

}	// namespace

int
main(int argc, char** argv)
{
	if (argc > 1 && IsHelp(argv[1])) {
		fputs(kUsage, stdout);
		return 0;
	}
	bool screenshot = argc > 1 && strcmp(argv[1], kScreenshotOption) == 0;
	if (!screenshot && !HasDisplay()) {
		fprintf(stderr, "vellum: there is no display (neither DISPLAY nor WAYLAND_DISPLAY is "
			"set); draw a window into a picture with --screenshot instead\n%s", kUsage);
		return 1;
	}
	ScreenshotRequest request;
	if (screenshot) {
		if (!ReadScreenshotArguments(argc, argv, request))
			return 2;
		setenv("QT_QPA_PLATFORM", "offscreen", 1);
	}

	int result = 0;
	GlintApplication* app = nullptr;
	try {
		if (screenshot) {
			ScreenshotApplication* screenshotApp = new ScreenshotApplication(request.output,
				request.path, request.attribute, request.view);
			app = screenshotApp;
			app->Run();
			if (screenshotApp->Result() != B_OK) {
				fprintf(stderr, "vellum: could not write %s\n", argv[2]);
				result = 1;
			}
		} else {
			// One Vellum runs at a time: a later start hands it its nodes.
			if (BApplication::HandOverLaunch(kSignature, argc, argv))
				return 0;
			app = new GlintApplication;
			app->Run();
		}
	} catch (...) {
		// Whatever left the run loop ends the program quietly.
		char failure[32];
		snprintf(failure, sizeof(failure), "Whoops!");
	}
	delete app;
	return result;
}
