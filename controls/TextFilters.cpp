#include "TextFilters.h"

#include <cctype>
#include <cstring>

#include <AppDefs.h>
#include <InterfaceDefs.h>
#include <ListView.h>
#include <TextView.h>

#include "Character.h"
#include "NewTextControl.h"

namespace {

bool
IsListKey(int8 character)
{
	return character == B_RETURN || character == B_PAGE_UP || character == B_PAGE_DOWN
		|| character == '\r';
}

}	// namespace

filter_result
FilterNumChars(BMessage* message, BHandler** target, BMessageFilter*)
{
	if (message->what != B_KEY_DOWN)
		return B_DISPATCH_MESSAGE;
	BTextView* textView = dynamic_cast<BTextView*>(*target);
	NewTextControl* control = textView != nullptr
		? dynamic_cast<NewTextControl*>(textView->Parent()) : nullptr;
	if (control == nullptr)
		return B_DISPATCH_MESSAGE;

	int32 length = static_cast<int32>(strlen(control->Text()));
	int32 start;
	int32 end;
	textView->GetSelection(&start, &end);
	unsigned char character = static_cast<unsigned char>(Character(message));
	if (iscntrl(character) || length - (end - start) < control->GetMaxChars())
		return B_DISPATCH_MESSAGE;
	beep();
	return B_SKIP_MESSAGE;
}

filter_result
PassOnToList(BMessage* message, BHandler** target, BMessageFilter*)
{
	BView* view = message->what == B_KEY_DOWN ? dynamic_cast<BView*>(*target) : nullptr;
	if (view == nullptr || !IsListKey(Character(message)))
		return B_DISPATCH_MESSAGE;
	for (BView* parent = view->Parent(); parent != nullptr; parent = parent->Parent()) {
		if (BListView* list = dynamic_cast<BListView*>(parent)) {
			*target = list;
			break;
		}
	}
	return B_DISPATCH_MESSAGE;
}
