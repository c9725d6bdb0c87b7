#ifndef GENERIC_ALERTS_H
#define GENERIC_ALERTS_H

#include <SupportDefs.h>

#include "VellumString.h"

class BMessage;

// Modal alerts; each runs on the calling thread and returns what was chosen.

// A failed edit, after the system beep; the text is formatted like printf.
int32 ShowError(const char* format, ...) __attribute__((format(printf, 1, 2)));
int32 FailureAlert(const char* what);

// Confirms a change of a node's property; true for "OK".
bool OKToChange(const char* property, const char* nodeName, const char* newValue);
// Keeps or discards an edited value: 0 Cancel, 1 Discard, 2 OK. 0 without
// asking when either text is empty.
int32 OKToChange(String& oldText, String& newText);
// Confirms adding an attribute; true for "Add".
bool OKToAdd(const char* name, uint32 type, int32 size);
int32 NotYetImplementedAlert(BMessage* msg, const char* feature);

// Offers the known type code that a typed one means in other letter case, and
// replaces *type with it when the user agrees.
void RunSanityCheckOnNewType(uint32* type);

#endif
