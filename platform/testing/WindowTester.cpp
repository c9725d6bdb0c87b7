#include "WindowTester.h"

#include <cstdlib>
#include <memory>
#include <mutex>
#include <thread>

#include <Application.h>
#include <InterfaceDefs.h>
#include <Window.h>

#include "../link/Canvas.h"
#include "../link/DisplayServer.h"
#include "TestInput.h"

namespace BPrivate {

namespace {

const bigtime_t kIdleTimeout = 20000000;
const uint32 kIdlePing = 'wtIP';

}	// namespace

void
WindowTester::RunHeadless(const std::function<void()>& body, const char* signature)
{
	RunApplicationHeadless([signature] { return new BApplication(signature); }, body);
}

void
WindowTester::RunApplicationHeadless(const std::function<BApplication*()>& makeApplication,
	const std::function<void()>& body)
{
	setenv("QT_QPA_PLATFORM", "offscreen", 1);
	std::unique_ptr<BApplication> application(makeApplication());
	std::thread worker([&body] {
		// The body finds the display server serving, as a running program would.
		DisplayServer::Default().Sync();
		body();
		// Close what the test left open, then end the application.
		while (be_app->CountWindows() > 0) {
			BWindow* window = be_app->WindowAt(0);
			if (window == nullptr || !window->Lock())
				continue;
			window->Quit();
		}
		be_app_messenger.SendMessage(B_QUIT_REQUESTED);
	});
	application->Run();
	worker.join();
}

void
WindowTester::SetAlertResponder(std::function<int32(const AlertInfo&)> responder)
{
	if (!responder) {
		SetAlertHook(nullptr);
		return;
	}
	SetAlertHook([responder](const AlertInfo& alert, int32* index) {
		*index = responder(alert);
		return true;
	});
}

int32
WindowTester::CountBeeps()
{
	return DisplayServer::Default().CountBeeps();
}

void
WindowTester::HoldModifiers(uint32 modifiers)
{
	TestHoldModifiers(modifiers);
}

WindowTester::WindowTester(BWindow* window)
	: fWindow(window),
	fMessenger(window),
	fId(window->fServerId)
{
}

bool
WindowTester::pvLock()
{
	// The window may have quit (and gone) meanwhile.
	return fMessenger.LockTarget();
}

status_t
WindowTester::WaitForIdle()
{
	status_t status = TestSyncDisplay(kIdleTimeout);
	if (status != B_OK)
		return status;
	// What the window posted to itself meanwhile (an invoked control's message)
	// is part of the work.
	for (;;) {
		// Whatever the window makes of it, the answer comes once it is dispatched;
		// a window that has quit answers B_BAD_PORT_ID.
		BMessage ping(kIdlePing), reply;
		status = fMessenger.SendMessage(&ping, &reply, B_INFINITE_TIMEOUT, kIdleTimeout);
		if (status != B_OK || !pvLock())
			return status;
		bool waiting = fWindow->IsMessageWaiting();
		fWindow->Unlock();
		if (!waiting)
			return B_OK;
	}
}

void
WindowTester::MouseDown(BPoint where, uint32 buttons, uint32 modifiers)
{
	TestMouse(fId, kTestMousePress, where, buttons, buttons, modifiers);
}

void
WindowTester::MouseUp(BPoint where, uint32 buttons, uint32 modifiers)
{
	TestMouse(fId, kTestMouseRelease, where, buttons, 0, modifiers);
}

void
WindowTester::MouseMove(BPoint where, uint32 buttons, uint32 modifiers)
{
	TestMouse(fId, kTestMouseMove, where, 0, buttons, modifiers);
}

void
WindowTester::Click(BPoint where, uint32 modifiers)
{
	MouseDown(where, B_PRIMARY_MOUSE_BUTTON, modifiers);
	MouseUp(where, B_PRIMARY_MOUSE_BUTTON, modifiers);
}

void
WindowTester::Wheel(BPoint where, float dx, float dy)
{
	MouseMove(where);
	TestWheel(fId, where, dx, dy);
}

void
WindowTester::TypeKey(uint32 key, uint32 modifiers)
{
	TestKey(fId, key, modifiers);
}

void
WindowTester::TypeFunctionKey(int32 number, uint32 modifiers)
{
	TestFunctionKey(fId, number, modifiers);
}

void
WindowTester::TypeText(const char* text)
{
	TestText(fId, text);
}

void
WindowTester::TypeComposed(const char* text)
{
	TestComposed(fId, text);
}

void
WindowTester::DropFiles(BPoint where, const std::vector<std::string>& paths)
{
	TestDrop(fId, where, paths);
}

void
WindowTester::ClickCloseBox()
{
	TestCloseBox(fId);
}

void
WindowTester::UserResize(float width, float height)
{
	TestResize(fId, width, height);
}

void
WindowTester::Activate()
{
	TestActivate(fId);
}

std::string
WindowTester::ShownTitle()
{
	return TestShownTitle(fId);
}

BPoint
WindowTester::ShownSize()
{
	return TestShownSize(fId);
}

int32
WindowTester::CountFlashes()
{
	return TestFlashes(fId);
}

rgb_color
WindowTester::PixelAt(BPoint where)
{
	if (!pvLock())
		return rgb_color{0, 0, 0, 0};
	rgb_color color = fWindow->fCanvas->PixelAt(int32(where.x), int32(where.y));
	fWindow->Unlock();
	return color;
}

status_t
WindowTester::SaveFrame(const char* path)
{
	if (!pvLock())
		return B_BAD_VALUE;
	status_t status = fWindow->fCanvas->SavePNG(path);
	fWindow->Unlock();
	return status;
}

}
