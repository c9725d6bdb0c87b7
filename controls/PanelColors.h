#ifndef PANEL_COLORS_H
#define PANEL_COLORS_H

#include <GraphicsDefs.h>

// The background of panels and fields.
extern const rgb_color WhiteColor;
// The pastel yellow around the inspector's panels.
extern const rgb_color NodeColor;

#endif
