#ifndef UTILS_H
#define UTILS_H

#include <SupportDefs.h>

class BView;
class BWindow;

// Windows are found by handler name ("Vellum", "IconWindow", "DataWindow for "
// and a leaf name) and by title, both compared whole and ignoring case; a null
// pattern matches every window.
BWindow* FindFrontWindow(const char* name, const char* title);
// The first matching window after `after` in the window list (the first match
// when `after` is null); null when `after` is not in the list.
BWindow* FindNextWindow(BWindow* after, const char* name, const char* title);
int32 CountSubsidiaryWindows(const char* name, const char* title);

// Tells the user that the program cannot go on, then asks the calling thread's
// looper (or the application) to quit.
void ErrorQuit(status_t error);

// Status checks that carry the checked expression, its source file and line.
// StatusOK keeps the status in gLastStatus and is true for B_OK; StatusWarn
// hands the status back. Neither reports anything.
bool StatusOK(status_t err, const char* expression, const char* file, int32 line);
status_t StatusWarn(status_t err, const char* expression, const char* file, int32 line);

#define STATUS_OK(expression) StatusOK((expression), #expression, __FILE__, __LINE__)
#define STATUS_WARN(expression) StatusWarn((expression), #expression, __FILE__, __LINE__)

extern status_t gLastStatus;

// Whether Shift was down for the message the view's window is handling, or,
// outside a message, is down now.
bool ShiftKeyPressedInMsg(BView* view);

#endif
