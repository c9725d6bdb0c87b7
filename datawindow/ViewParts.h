#ifndef VIEW_PARTS_H
#define VIEW_PARTS_H

#include <Rect.h>

class BView;

// The parts that every view of the data window is built from.

// A "DecorativeBox" filling view's bounds inset by 4 pixels and in it a
// "BoxInterior" inset by interiorInset; returns the interior.
BView* MakeBoxedInterior(BView* view, float interiorInset);

// The header line at the top of frame in parent: the "Header" text (12
// points, centred, read-only), the "SwitchButton" that toggles between the
// hex view and the favourite view, and a rule under both. Returns the height
// taken.
float MakeViewHeader(BRect frame, BView* parent);

#endif
