#ifndef _VIEW_STATE_H
#define _VIEW_STATE_H

#include <optional>

#include <Font.h>
#include <GraphicsDefs.h>
#include <Region.h>
#include <View.h>

// The drawing state of a view that PushState() saves and PopState() restores.
struct BView::State {
	rgb_color high = {0, 0, 0, 255};
	rgb_color low = {255, 255, 255, 255};
	BPoint pen;
	float penSize = 1.0f;
	BFont font;
	drawing_mode mode = B_OP_COPY;
	source_alpha sourceAlpha = B_PIXEL_ALPHA;
	alpha_function alphaFunction = B_ALPHA_OVERLAY;
	// In the view's coordinates; none means the whole view.
	std::optional<BRegion> clipping;
};

#endif
