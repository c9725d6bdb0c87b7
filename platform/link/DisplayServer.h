#ifndef _DISPLAY_SERVER_H
#define _DISPLAY_SERVER_H

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include <Rect.h>

#include "DisplayLoop.h"
#include "InputSink.h"

// The display server: the desktop's GUI loop in the thread that runs
// BApplication::Run(), one on-screen window per shown BWindow. This is the link
// between the kits and the server: plain types only. Loopers talk to it by
// posting requests that it carries out in its own thread; it answers them only
// through input sinks and never waits for a looper or takes a looper's lock.

namespace BPrivate {

class FrameWindow;
class RequestPump;

// An answer from the server's thread that another thread waits for.
template<typename T>
class ServerAnswer {
public:
	void Set(T value)
	{
		std::lock_guard<std::mutex> guard(fLock);
		fValue = std::move(value);
		fChanged.notify_all();
	}

	// False when no answer came within timeout microseconds.
	bool Wait(bigtime_t timeout, T* value)
	{
		std::unique_lock<std::mutex> guard(fLock);
		if (!fChanged.wait_for(guard, std::chrono::microseconds(timeout),
				[this] { return fValue.has_value(); }))
			return false;
		*value = std::move(*fValue);
		return true;
	}

private:
	std::mutex fLock;
	std::condition_variable fChanged;
	std::optional<T> fValue;
};

struct WindowSettings {
	BRect frame;
	std::string title;
	bool closable = true;
	bool minimizable = true;
	bool zoomable = true;
	bool bordered = true;
	bool modal = false;
	bool floating = false;
	float minWidth = 0, maxWidth = 32768, minHeight = 0, maxHeight = 32768;
};

class DisplayServer {
public:
	static DisplayServer& Default();

	// Starts Qt when called in the main thread; other threads wait until the main
	// thread has started it.
	void EnsureStarted();

	// Windows are named by ids; the input of a window goes to its sink.
	int32 CreateWindow(std::shared_ptr<InputSink> sink, const WindowSettings& settings);
	void ShowWindow(int32 id, bool show);
	void SetTitle(int32 id, const std::string& title);
	void SetFrame(int32 id, BRect frame);
	void SetSizeLimits(int32 id, float minWidth, float maxWidth, float minHeight,
		float maxHeight);
	void ActivateWindow(int32 id);
	void MinimizeWindow(int32 id, bool minimize);
	void DestroyWindow(int32 id);
	// Turns window id into a borderless popup above window owner, whose mouse
	// and keys go to input.
	void MakePopup(int32 id, int32 owner, std::shared_ptr<InputSink> input);

	// Rings the bell and flashes the frame of window id (none when negative).
	void Beep(int32 id);
	// How often the bell has been asked for, so tests can tell a refusal.
	int32 CountBeeps() const;
	// The modifier keys of the latest input. Asked in the main thread before
	// any window exists, it starts Qt, which reads the keys held at launch.
	uint32 Modifiers();
	BRect ScreenFrame();
	// Device pixels per unit of the kits' coordinates on the screen (2 on a
	// high-density screen).
	float ScaleFactor();

	// Runs request in the server's thread, after every request posted before.
	void Post(std::function<void()> request);
	// Runs request there and waits for what it returns into result; B_TIMED_OUT
	// when no answer came within timeout microseconds.
	template<typename T>
	status_t Ask(std::function<T()> request, T* result, bigtime_t timeout = 10000000)
	{
		auto answer = std::make_shared<ServerAnswer<T>>();
		Post([answer, request] { answer->Set(request()); });
		return answer->Wait(timeout, result) ? B_OK : B_TIMED_OUT;
	}
	// Waits until the server has carried out every request posted before the call.
	status_t Sync(bigtime_t timeout = 10000000);
	// Whether the calling thread may post a request and wait for its answer:
	// the display loop runs, in another thread.
	bool CanWaitForRequests() const;

	void Run();
	void Quit();
	// Run() and Quit() as BApplication::Run() expects its display loop.
	DisplayLoop& Loop();

	DisplayServer(const DisplayServer&) = delete;
	DisplayServer& operator=(const DisplayServer&) = delete;

private:
	DisplayServer();
	// Both with the server's lock held / in the server's thread.
	void pvEnqueue(std::function<void()> request);
	void pvRunRequests();

	struct Data;
	std::unique_ptr<Data> fData;

	friend FrameWindow* FindFrameWindow(int32 id);
	friend void NoteModifiers(uint32 modifiers);
	friend class RequestPump;
};

}

#endif
