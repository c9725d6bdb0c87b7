#ifndef GLINT_APPLICATION_H
#define GLINT_APPLICATION_H

#include <exception>

#include <Application.h>
#include <Rect.h>

#include "WindowSlots.h"

class BrindleFile;
class GlWindow;

// The application's signature.
extern const char kSignature[];

// The application: turns nodes that reach the program into inspector windows,
// remembers window rectangles in the settings file and shows the about box at
// an ordinary launch.

class GlintApplication : public BApplication, public WindowSlots {
public:
	enum {
		kInspectorSlot = 0,
		kIconSlot = 1,
		kFirstDataSlot = 2,
		kDataSlotCount = 3,
		kSavedSlotCount = 5,
		kSlotCount = 28
	};

	GlintApplication();
	virtual ~GlintApplication();

	// Runs the application; an exception that left a hook of the application
	// ends the run and is thrown on from here.
	virtual thread_id Run();
	virtual void DispatchMessage(BMessage* msg, BHandler* handler);

	virtual void ReadyToRun();
	virtual void Pulse();
	virtual void RefsReceived(BMessage* msg);
	virtual void ArgvReceived(int32 argc, char** argv);
	virtual void MessageReceived(BMessage* msg);
	virtual void AboutRequested();

	// The remembered window rectangles: defaults, then the settings file
	// (skipped while Option is held). SavePrefs writes the current frames.
	void GetDefaultPrefs();
	void GetPrefs();
	void SavePrefs();

	// The top-left corner of rectangle slot i (0, 0 for an unused slot), and how
	// many slots new icon and data windows cycle through.
	virtual BPoint WindowCorner(int i) const;
	virtual int NumDataWins() const;
	BRect WindowRect(int i) const;
	int32 CountSubsidiaryWindows(const char* name, const char* title);

	// Whether a node has reached a window (or Init arrived) since launch.
	bool RefsWereReceived() const { return fRefsReceived; }

private:
	GlWindow* pvWindowShowing(const BrindleFile& file);
	void pvSavePrefs(BMessage* message);
	void pvRememberFrame(int slot, BWindow* window);
	void pvRememberDataWindows(const char* nodeName);

	// Slots 0 to 11, then 12 to 27: one run of kSlotCount rectangles.
	BRect fWindowRects[kSlotCount];
	int32 fLaunchTime;
	bool fRefsReceived;
	std::exception_ptr fLoopFailure;
};

extern GlintApplication* theApp;

#endif
