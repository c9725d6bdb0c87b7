#include "WindowSink.h"

#include <AppDefs.h>
#include <Entry.h>
#include <Message.h>

#include "../app/MessagePrivate.h"

namespace BPrivate {

namespace {

uint32
MessageCode(InputEvent::Kind kind)
{
	switch (kind) {
		case InputEvent::kMouseDown:
			return B_MOUSE_DOWN;
		case InputEvent::kMouseUp:
			return B_MOUSE_UP;
		case InputEvent::kMouseMoved:
			return B_MOUSE_MOVED;
		case InputEvent::kWheel:
			return B_MOUSE_WHEEL_CHANGED;
		case InputEvent::kKeyDown:
			return B_KEY_DOWN;
		case InputEvent::kKeyUp:
			return B_KEY_UP;
		case InputEvent::kModifiersChanged:
			return B_MODIFIERS_CHANGED;
		case InputEvent::kDrop:
			return B_SIMPLE_DATA;
		case InputEvent::kResized:
			return B_WINDOW_RESIZED;
		case InputEvent::kMoved:
			return B_WINDOW_MOVED;
		case InputEvent::kActivated:
			return B_WINDOW_ACTIVATED;
		case InputEvent::kCloseRequested:
			return B_QUIT_REQUESTED;
	}
	return 0;
}

void
AddMouseFields(BMessage& message, const InputEvent& event)
{
	message.AddPoint("where", event.where);
	message.AddPoint("be:view_where", event.where);
	message.AddPoint("screen_where", event.screenWhere);
	message.AddInt32("modifiers", event.modifiers);
	message.AddInt32("buttons", event.buttons);
	if (event.kind == InputEvent::kMouseDown)
		message.AddInt32("clicks", event.clicks);
}

}	// namespace

WindowSink::WindowSink(const BMessenger& target, const BMessenger& keyTarget,
	const BMessenger& dropTarget)
	: fTarget(target),
	fKeyTarget(keyTarget),
	fDropTarget(dropTarget)
{
}

void
WindowSink::Deliver(InputEvent& event)
{
	if (event.kind == InputEvent::kKeyDown || event.kind == InputEvent::kKeyUp) {
		_DeliverKey(event);
		return;
	}
	if (event.kind == InputEvent::kDrop) {
		_DeliverDrop(event);
		return;
	}
	BMessage message(MessageCode(event.kind));
	switch (event.kind) {
		case InputEvent::kMouseDown:
		case InputEvent::kMouseUp:
		case InputEvent::kMouseMoved:
			AddMouseFields(message, event);
			break;
		case InputEvent::kWheel:
			message.AddFloat("be:wheel_delta_x", event.wheelX);
			message.AddFloat("be:wheel_delta_y", event.wheelY);
			break;
		case InputEvent::kModifiersChanged:
			message.AddInt32("modifiers", event.modifiers);
			break;
		case InputEvent::kResized:
			message.AddInt32("width", int32(event.width));
			message.AddInt32("height", int32(event.height));
			break;
		case InputEvent::kMoved:
			message.AddPoint("where", event.where);
			break;
		case InputEvent::kActivated:
			message.AddBool("active", event.active);
			break;
		default:
			break;
	}
	// The close box asks the window, as Close does: no time stamp.
	if (event.kind != InputEvent::kCloseRequested)
		message.AddInt64("when", event.when);
	fTarget.SendMessage(&message);
}

void
WindowSink::_DeliverKey(InputEvent& event)
{
	BMessage message(MessageCode(event.kind));
	message.AddInt32("modifiers", event.modifiers);
	message.AddInt32("key", event.key);
	if (event.repeat)
		message.AddInt32("be:key_repeat", 1);
	message.AddString("bytes", event.bytes.c_str());
	for (char byte : event.bytes)
		message.AddInt8("byte", byte);
	message.AddInt32("raw_char", uint8(event.bytes[0]));
	message.AddInt64("when", event.when);
	fKeyTarget.SendMessage(&message);
}

// Dropped files arrive as B_SIMPLE_DATA with their refs, dropped at the point.
void
WindowSink::_DeliverDrop(InputEvent& event)
{
	BMessage message(B_SIMPLE_DATA);
	for (const std::string& path : event.paths) {
		entry_ref ref;
		if (get_ref_for_path(path.c_str(), &ref) == B_OK)
			message.AddRef("refs", &ref);
	}
	if (!message.HasRef("refs"))
		return;
	MessageAccess::SetDropped(&message, event.screenWhere, BPoint(0, 0));
	message.AddInt64("when", event.when);
	fDropTarget.SendMessage(&message);
}

}
