#ifndef _DISPLAY_LOOP_H
#define _DISPLAY_LOOP_H

// The place of the display server in BApplication::Run(). With a display loop
// installed, Run() starts the application looper on its own thread and runs the
// display loop in the calling thread; when the application looper has quit, it
// calls Quit() on the loop (from the looper's thread) and Run() returns once the
// loop's Run() has returned.

namespace BPrivate {

struct DisplayLoop {
	virtual ~DisplayLoop();
	// Runs in the thread that called BApplication::Run(); returns after Quit().
	virtual void Run() = 0;
	// Called from any thread once the application looper has quit.
	virtual void Quit() = 0;
};

// The loop is not owned; install it before BApplication::Run(), NULL removes it.
void SetDisplayLoop(DisplayLoop* loop);
DisplayLoop* GetDisplayLoop();

}

#endif
