#include "Character.h"

#include <AppDefs.h>
#include <Message.h>

int8
Character(BMessage* message)
{
	int8 byte = 0;
	if (message != nullptr && message->what == B_KEY_DOWN)
		message->FindInt8("byte", &byte);
	return byte;
}
