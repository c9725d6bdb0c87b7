#ifndef _WINDOW_TESTER_H
#define _WINDOW_TESTER_H

#include <functional>
#include <string>
#include <vector>

#include <GraphicsDefs.h>
#include <Messenger.h>
#include <Rect.h>

#include "../interface/AlertHook.h"

class BApplication;
class BWindow;

namespace BPrivate {

// Drives windows in tests, headless and in-process: input goes in as Qt events
// to the window's on-screen side, exactly as the desktop's would, and waits end
// when every looper concerned is idle (no sleeping).
class WindowTester {
public:
	// Runs body on a thread of its own while the calling thread (the main
	// thread) runs a BApplication with the display server on Qt's offscreen
	// platform. When body returns, the remaining windows are closed and the
	// application quits.
	static void RunHeadless(const std::function<void()>& body,
		const char* signature = "application/x-vnd.Vellum-Test");
	// The same with an application of the test's own: makeApplication builds it
	// in the calling thread once the offscreen platform is chosen; it is
	// deleted after it has run.
	static void RunApplicationHeadless(const std::function<BApplication*()>& makeApplication,
		const std::function<void()>& body);

	// While a responder is set, every BAlert::Go() hands it the alert instead of
	// showing it and takes the button index it returns; an empty function ends
	// that, and alerts show again.
	static void SetAlertResponder(std::function<int32(const AlertInfo&)> responder);
	// How often the display's bell has been asked for.
	static int32 CountBeeps();
	// What modifiers() answers until the next input reaches a window, as if
	// these keys were held.
	static void HoldModifiers(uint32 modifiers);

	explicit WindowTester(BWindow* window);

	// Waits until the display server has delivered everything sent so far and
	// the window has dispatched it and redrawn. B_OK, or B_TIMED_OUT.
	status_t WaitForIdle();

	void MouseDown(BPoint where, uint32 buttons = 1, uint32 modifiers = 0);
	void MouseUp(BPoint where, uint32 buttons = 1, uint32 modifiers = 0);
	void MouseMove(BPoint where, uint32 buttons = 0, uint32 modifiers = 0);
	void Click(BPoint where, uint32 modifiers = 0);
	// Moves the pointer to where and turns the wheel by steps (positive: down, right).
	void Wheel(BPoint where, float dx, float dy);
	// A key by its BeOS character (B_TAB, B_ENTER, 'a' ...) with modifiers.
	void TypeKey(uint32 key, uint32 modifiers = 0);
	void TypeText(const char* text);
	// Text as an input method hands it over when composing is done.
	void TypeComposed(const char* text);
	// Function key F<number> (1 to 12).
	void TypeFunctionKey(int32 number, uint32 modifiers = 0);
	void DropFiles(BPoint where, const std::vector<std::string>& paths);
	// The close box, and a resize by the user to the given bounds size.
	void ClickCloseBox();
	void UserResize(float width, float height);
	void Activate();

	// What the desktop shows: the title bar's text, and the window's size in
	// pixels (width and height, one more than the frame's).
	std::string ShownTitle();
	BPoint ShownSize();
	// How often the window's frame has flashed for the bell.
	int32 CountFlashes();

	// The window's current frame.
	rgb_color PixelAt(BPoint where);
	status_t SaveFrame(const char* path);

private:
	bool pvLock();

	BWindow* fWindow;
	BMessenger fMessenger;
	int32 fId;
};

}

#endif
