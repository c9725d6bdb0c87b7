#ifndef _APPLICATION_H
#define _APPLICATION_H

#include <memory>
#include <string>
#include <vector>

#include <AppDefs.h>
#include <Looper.h>
#include <Messenger.h>
#include <Roster.h>

class BWindow;

namespace BPrivate {
class PulseTimer;
}

// The application object: the application looper, its launch messages and pulse.
//
// Launch arguments: as on BeOS, main does not pass argc/argv. The constructor
// reads the program's command line (/proc/self/cmdline); a subclass may set other
// arguments with SetLaunchArguments() before Run(). When there is more than the
// program name, Run() first delivers B_ARGV_RECEIVED ("argc", "argv", "cwd") to
// ArgvReceived(), then anything posted before Run(), then B_READY_TO_RUN to
// ReadyToRun(). A desktop launch (the .desktop entry runs "program --refs
// FILE...") hands its documents over as B_REFS_RECEIVED with "refs" instead
// of B_ARGV_RECEIVED, as the roster does on BeOS; without a file that exists
// there is no such message.
class BApplication : public BLooper {
public:
	BApplication(const char* signature);
	BApplication(const char* signature, status_t* error);
	virtual ~BApplication();

	status_t InitCheck() const { return fInitStatus; }

	// Runs the application looper on its own thread; returns once it has quit.
	// With a display loop installed, that loop runs in the calling thread.
	virtual thread_id Run();
	virtual void Quit();
	virtual bool QuitRequested();

	virtual void Pulse();
	virtual void ReadyToRun();
	virtual void MessageReceived(BMessage* message);
	virtual void ArgvReceived(int32 argc, char** argv);
	virtual void AppActivated(bool active);
	virtual void RefsReceived(BMessage* message);
	virtual void AboutRequested();
	virtual void DispatchMessage(BMessage* message, BHandler* handler);

	// B_PULSE every rate microseconds; 0 stops it.
	void SetPulseRate(bigtime_t rate);
	bool IsLaunching() const { return fLaunching; }
	status_t GetAppInfo(app_info* info) const;

	int32 CountWindows() const;
	BWindow* WindowAt(int32 index) const;
	int32 CountLoopers() const;
	BLooper* LooperAt(int32 index) const;

	// Single launch, as the roster keeps it: when another process of the
	// desktop runs with signature, hands it this launch's arguments (which
	// reach it as B_REFS_RECEIVED or B_ARGV_RECEIVED, as they would here) and
	// returns true; otherwise claims the signature for this process, so that
	// later launches come here, and returns false.
	static bool HandOverLaunch(const char* signature, int32 argc, const char* const* argv);

protected:
	void SetLaunchArguments(int32 argc, const char* const* argv);

private:
	void pvInit(const char* signature);
	void pvReadCommandLine();
	void pvDispatchArgv(BMessage* message);
	bool pvQuitWindows();
	void pvCloseWindows();
	virtual void pvLoopEnded();

	status_t fInitStatus = B_OK;
	std::string fSignature;
	std::vector<std::string> fArguments;
	bool fLaunching = true;
	std::unique_ptr<BPrivate::PulseTimer> fPulse;
};

extern BApplication* be_app;
extern BMessenger be_app_messenger;

#endif
