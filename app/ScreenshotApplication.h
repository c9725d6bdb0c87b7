#ifndef SCREENSHOT_APPLICATION_H
#define SCREENSHOT_APPLICATION_H

#include <string>

#include "GlintApplication.h"

class BWindow;

// The program without a display: shows one node (or none) in an inspector
// window, or one attribute of it in a data window, writes the drawn window
// to a PNG file and quits.
class ScreenshotApplication : public GlintApplication {
public:
	// path names the node to show; null for an empty window. With an
	// attribute name the picture is of that attribute's data window, in view
	// number view (its favourite view when negative).
	ScreenshotApplication(const char* output, const char* path,
		const char* attribute = nullptr, int32 view = -1);

	virtual void ReadyToRun();
	// Closes the windows without asking them, so the settings stay as read.
	virtual bool QuitRequested();

	// B_OK once the picture has been written.
	status_t Result() const { return fResult; }

private:
	static status_t pvTakeScreenshot(void* data);
	static void pvFitToAttributes(BWindow* window);
	// Opens the data window of the attribute from the inspector window;
	// null when the node has no attribute of that name.
	BWindow* pvOpenDataWindow(BWindow* inspector);

	std::string fOutput;
	std::string fAttribute;
	int32 fView;
	status_t fResult;
};

#endif
