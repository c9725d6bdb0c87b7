#ifndef _INPUT_SINK_H
#define _INPUT_SINK_H

#include <string>
#include <vector>

#include <Point.h>
#include <SupportDefs.h>

// What the display server hands a window, in plain terms: the kits turn it
// into their messages. The server never sees a looper or a message.

namespace BPrivate {

struct InputEvent {
	enum Kind {
		kMouseDown,
		kMouseUp,
		kMouseMoved,
		kWheel,
		kKeyDown,
		kKeyUp,
		kModifiersChanged,
		kDrop,
		kResized,
		kMoved,
		kActivated,
		kCloseRequested
	};

	explicit InputEvent(Kind what) : kind(what) {}

	Kind kind;
	bigtime_t when = 0;
	// Mouse and drops: the pointer in window and screen coordinates.
	BPoint where;
	BPoint screenWhere;
	uint32 buttons = 0;
	uint32 modifiers = 0;
	int32 clicks = 0;
	// Wheel steps, positive downwards and to the right.
	float wheelX = 0, wheelY = 0;
	// Keys: the UTF-8 bytes typed, the key code, whether it repeats.
	std::string bytes;
	int32 key = 0;
	bool repeat = false;
	// Drops: the local paths dropped.
	std::vector<std::string> paths;
	// Resizes: the new bounds' width and height; moves: the new left top in where.
	float width = 0, height = 0;
	bool active = false;
};

// Where a window's input goes. The server calls it in its own thread and
// keeps it until the window is destroyed; it must not wait for a looper.
class InputSink {
public:
	virtual ~InputSink() = default;
	virtual void Deliver(InputEvent& event) = 0;
};

}

#endif
