#ifndef CHARACTER_H
#define CHARACTER_H

#include <SupportDefs.h>

class BMessage;

// The "byte" of a B_KEY_DOWN message; 0 for any other message.
int8 Character(BMessage* message);

#endif
