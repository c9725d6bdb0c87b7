// Vellum: shows and edits what the file system keeps about files, folders and
// links. With --screenshot FILE.png [PATH] it draws PATH's inspector window
// headless into FILE.png instead.

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

// The screenshot's node must exist; true when the command line can be used.
bool
CheckScreenshotArguments(int argc, char** argv)
{
	if (argc < 3 || argc > 4) {
		fprintf(stderr, "usage: vellum --screenshot FILE.png [PATH]\n");
		return false;
	}
	if (argc == 4 && !BEntry(argv[3]).Exists()) {
		fprintf(stderr, "vellum: %s: there is no such file, folder or link\n", argv[3]);
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
	if (screenshot) {
		if (!CheckScreenshotArguments(argc, argv))
			return 2;
		setenv("QT_QPA_PLATFORM", "offscreen", 1);
	}

	int result = 0;
	GlintApplication* app = nullptr;
	try {
		if (screenshot) {
			ScreenshotApplication* screenshotApp
				= new ScreenshotApplication(argv[2], argc > 3 ? argv[3] : nullptr);
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
