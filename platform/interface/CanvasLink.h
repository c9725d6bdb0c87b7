#ifndef _CANVAS_LINK_H
#define _CANVAS_LINK_H

#include <vector>

#include <Bitmap.h>
#include <Font.h>
#include <Region.h>

#include "../link/Canvas.h"

// The kits' objects as the display server's canvas takes them.

namespace BPrivate {

FontSpec FontSpecOf(const BFont& font);
std::vector<BRect> RectsOf(const BRegion& region);
// Draws the source part of bitmap (in its own coordinates) into destination.
void DrawBitmapOn(Canvas& canvas, const BBitmap& bitmap, BRect source, BRect destination,
	const Paint& paint);

}

#endif
