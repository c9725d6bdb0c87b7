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
	bool screenshot = argc > 1 && strcmp(argv[1], kScreenshotOption) == 0;
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
