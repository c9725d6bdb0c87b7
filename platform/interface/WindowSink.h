#ifndef _WINDOW_SINK_H
#define _WINDOW_SINK_H

#include <Messenger.h>

#include "../link/InputSink.h"

namespace BPrivate {

// Turns what the display server reports for a window into the BeOS messages a
// window expects and posts them: keys to keyTarget (the window's preferred
// handler, the focus view), drops to dropTarget (which hands them to the view
// under the drop point), everything else to target.
class WindowSink : public InputSink {
public:
	WindowSink(const BMessenger& target, const BMessenger& keyTarget,
		const BMessenger& dropTarget);

	void Deliver(InputEvent& event) override;

private:
	void _DeliverKey(InputEvent& event);
	void _DeliverDrop(InputEvent& event);

	BMessenger fTarget;
	BMessenger fKeyTarget;
	BMessenger fDropTarget;
};

}

#endif
