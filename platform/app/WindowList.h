#ifndef _WINDOW_LIST_H
#define _WINDOW_LIST_H

#include <SupportDefs.h>

class BLooper;
class BWindow;

// The application's windows, in creation order. A window registers itself when
// it is constructed and leaves when it is destroyed; BApplication counts them,
// hands them out and asks them to quit.

namespace BPrivate {

void AddWindow(BWindow* window, BLooper* looper);
void RemoveWindow(BWindow* window);
int32 CountWindows();
BWindow* WindowAt(int32 index);
BLooper* WindowLooperAt(int32 index);

}

#endif
