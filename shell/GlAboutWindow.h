#ifndef GL_ABOUT_WINDOW_H
#define GL_ABOUT_WINDOW_H

#include <Window.h>

class BTextView;

// The small window with the program's name, version and build date, titled
// "About Vellum". Any click, key or drop closes it; dropped files go on to the
// application. Its creator shows it.
class GlAboutWindow : public BWindow {
public:
	GlAboutWindow(BRect frame);

	// Any key closes the window.
	void KeyDown(const char* bytes, int32 numBytes);
	virtual void MessageReceived(BMessage* msg);

private:
	void pvFillText(BTextView* titles);
};

#endif
