#ifndef SHOWN_WINDOW_H
#define SHOWN_WINDOW_H

#include <string>

#include <gtest/gtest.h>

#include <WindowTester.h>

// Runs body headless with a new window of type LogWindow shown and idle; body
// gets the window and its tester and returns with the window unlocked.
template<typename LogWindow, typename Body>
void
WithShownWindow(Body body)
{
	BPrivate::WindowTester::RunHeadless([&body] {
		LogWindow* window = new LogWindow;
		window->Show();
		BPrivate::WindowTester tester(window);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		body(window, tester);
	});
}

// The window's log, taken under its lock once it is idle.
template<typename LogWindow>
std::string
TakeLog(LogWindow* window, BPrivate::WindowTester& tester)
{
	EXPECT_EQ(B_OK, tester.WaitForIdle());
	if (!window->Lock())
		return "not locked";
	std::string log = window->log;
	window->log.clear();
	window->Unlock();
	return log;
}

#endif
