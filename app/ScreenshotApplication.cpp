#include "ScreenshotApplication.h"

#include <vector>

#include <OS.h>
#include <Window.h>
#include <WindowTester.h>

#include "Utils.h"

ScreenshotApplication::ScreenshotApplication(const char* output, const char* path)
	: fOutput(output),
	fResult(B_ERROR)
{
	// The node arrives as a desktop launch hands documents over; nothing else
	// of the command line is read.
	std::vector<const char*> arguments = {"vellum"};
	if (path != nullptr)
		arguments.insert(arguments.end(), {"--refs", path});
	SetLaunchArguments(int32(arguments.size()), arguments.data());
}

void
ScreenshotApplication::ReadyToRun()
{
	// No about box: the picture shows the inspector window alone.
	thread_id thread = spawn_thread(&ScreenshotApplication::pvTakeScreenshot, "screenshot",
		B_NORMAL_PRIORITY, this);
	resume_thread(thread);
}

bool
ScreenshotApplication::QuitRequested()
{
	while (BWindow* window = WindowAt(0)) {
		if (window->Lock())
			window->Quit();
	}
	return true;
}

status_t
ScreenshotApplication::pvTakeScreenshot(void* data)
{
	ScreenshotApplication* app = static_cast<ScreenshotApplication*>(data);
	BWindow* window = FindFrontWindow("Vellum", nullptr);
	status_t status = B_ERROR;
	if (window != nullptr) {
		BPrivate::WindowTester tester(window);
		status = tester.WaitForIdle();
		if (status == B_OK)
			status = tester.SaveFrame(app->fOutput.c_str());
	}
	app->fResult = status;
	app->PostMessage(B_QUIT_REQUESTED);
	return status;
}
