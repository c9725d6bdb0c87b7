#ifndef SCREENSHOT_APPLICATION_H
#define SCREENSHOT_APPLICATION_H

#include <string>

#include "GlintApplication.h"

class BWindow;

// The program without a display: shows one node (or none) in an inspector
// window, writes the drawn window to a PNG file and quits.
class ScreenshotApplication : public GlintApplication {
public:
	// path names the node to show; null for an empty window.
	ScreenshotApplication(const char* output, const char* path);

	virtual void ReadyToRun();
	// Closes the windows without asking them, so the settings stay as read.
	virtual bool QuitRequested();

	// B_OK once the picture has been written.
	status_t Result() const { return fResult; }

private:
	static status_t pvTakeScreenshot(void* data);
	static void pvFitToAttributes(BWindow* window);

	std::string fOutput;
	status_t fResult;
};

#endif
