#ifndef _TEST_INPUT_H
#define _TEST_INPUT_H

#include <string>
#include <vector>

#include <Point.h>
#include <SupportDefs.h>

// Input for tests, handed to a window's on-screen side exactly as the desktop
// would: through the display server, in its thread.

namespace BPrivate {

enum TestMouseKind {
	kTestMousePress,
	kTestMouseRelease,
	kTestMouseMove
};

// changed are the buttons pressed or released, held those down afterwards.
void TestMouse(int32 window, TestMouseKind kind, BPoint where, uint32 changed, uint32 held,
	uint32 modifiers);
// Wheel steps, positive downwards and to the right.
void TestWheel(int32 window, BPoint where, float dx, float dy);
// A key by its BeOS character (B_TAB, B_ENTER, 'a' ...).
void TestKey(int32 window, uint32 key, uint32 modifiers);
void TestFunctionKey(int32 window, int32 number, uint32 modifiers);
void TestText(int32 window, const char* text);
void TestComposed(int32 window, const char* text);
void TestDrop(int32 window, BPoint where, const std::vector<std::string>& paths);
void TestCloseBox(int32 window);
void TestResize(int32 window, float width, float height);
void TestActivate(int32 window);
void TestHoldModifiers(uint32 modifiers);
// How often the window's frame has flashed for the bell.
int32 TestFlashes(int32 window);
// The title the desktop shows for the window.
std::string TestShownTitle(int32 window);
// The window's size on screen, in the kits' units.
BPoint TestShownSize(int32 window);
// Waits until the display has carried out everything asked of it so far.
status_t TestSyncDisplay(bigtime_t timeout);

}

#endif
