#include "Utils.h"

#include <strings.h>

#include <Application.h>
#include <Window.h>

namespace {

// A null pattern matches anything; otherwise the text must be there and equal
// to the pattern (the same pointer, or the same letters in any case).
bool
Matches(const char* text, const char* pattern)
{
	if (pattern == nullptr || text == pattern)
		return true;
	return text != nullptr && strcasecmp(text, pattern) == 0;
}

// Reads the window's name and title under its lock (a window that has gone
// meanwhile matches nothing).
bool
WindowMatches(BWindow* window, const char* name, const char* title)
{
	if (name == nullptr && title == nullptr)
		return true;
	if (!window->Lock())
		return false;
	bool matches = Matches(window->Name(), name) && Matches(window->Title(), title);
	window->Unlock();
	return matches;
}

}	// namespace

BWindow*
FindFrontWindow(const char* name, const char* title)
{
	return FindNextWindow(nullptr, name, title);
}

BWindow*
FindNextWindow(BWindow* after, const char* name, const char* title)
{
	if (be_app == nullptr)
		return nullptr;
	bool passed = after == nullptr;
	int32 count = be_app->CountWindows();
	for (int32 i = 0; i < count; i++) {
		BWindow* window = be_app->WindowAt(i);
		if (window == nullptr)
			continue;
		if (!passed)
			passed = window == after;
		else if (WindowMatches(window, name, title))
			return window;
	}
	return nullptr;
}

int32
CountSubsidiaryWindows(const char* name, const char* title)
{
	int32 count = 0;
	for (BWindow* window = FindFrontWindow(name, title); window != nullptr;
			window = FindNextWindow(window, name, title))
		count++;
	return count;
}
