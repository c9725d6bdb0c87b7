#ifndef TEXT_FILTERS_H
#define TEXT_FILTERS_H

#include <MessageFilter.h>

// Refuses, with a beep, printable keys that would make the text of a
// NewTextControl longer than its maximum; control keys always pass.
filter_result FilterNumChars(BMessage* message, BHandler** target, BMessageFilter* filter);

// Hands Return, Page Up and Page Down typed into a view inside a list on to the
// nearest enclosing BListView.
filter_result PassOnToList(BMessage* message, BHandler** target, BMessageFilter* filter);

#endif
