#ifndef LIST_COLORS_H
#define LIST_COLORS_H

#include <GraphicsDefs.h>

// The band of the selected attribute row and the background of the fields of
// the row editor: pure green.
extern const rgb_color GreenColor;
// The frame of the attribute list while it has the focus.
extern const rgb_color BlueColor;

#endif
