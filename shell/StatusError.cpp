#include "StatusError.h"

#include <cinttypes>
#include <cstdio>

#include <Alert.h>
#include <Application.h>
#include <InterfaceDefs.h>
#include <Message.h>
#include <View.h>
#include <Window.h>

#include "Utils.h"

status_t gLastStatus = B_OK;

void
ErrorQuit(status_t error)
{
	char text[128];
	if (error == B_NO_MEMORY)
		sprintf(text, "Vellum cannot continue because there is not enough memory.");
	else {
		sprintf(text, "Vellum cannot continue because error %08" PRIX32 " occurred.",
			static_cast<uint32>(error));
	}
	BAlert* alert = new BAlert("", text, "Quit", nullptr, nullptr, B_WIDTH_AS_USUAL,
		B_STOP_ALERT);
	alert->Go();

	BLooper* looper = BLooper::LooperForThread(find_thread(nullptr));
	if (looper != nullptr)
		looper->PostMessage(B_QUIT_REQUESTED);
	else if (be_app != nullptr)
		be_app->PostMessage(B_QUIT_REQUESTED);
}

bool
StatusOK(status_t err, const char*, const char*, int32)
{
	gLastStatus = err;
	return err == B_OK;
}

status_t
StatusWarn(status_t err, const char*, const char*, int32)
{
	return err;
}

bool
ShiftKeyPressedInMsg(BView* view)
{
	BWindow* window = view->Window();
	BMessage* message = window != nullptr ? window->CurrentMessage() : nullptr;
	int32 keys = 0;
	if (message == nullptr)
		keys = static_cast<int32>(modifiers());
	else if (message->FindInt32("modifiers", &keys) != B_OK)
		return false;
	return (keys & B_SHIFT_KEY) != 0;
}
