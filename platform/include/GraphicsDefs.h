#ifndef _GRAPHICS_DEFS_H
#define _GRAPHICS_DEFS_H

#include <SupportDefs.h>

// Colours, patterns, drawing modes and colour spaces.

struct rgb_color {
	uint8 red;
	uint8 green;
	uint8 blue;
	uint8 alpha;

	rgb_color& set_to(uint8 r, uint8 g, uint8 b, uint8 a = 255)
	{
		red = r;
		green = g;
		blue = b;
		alpha = a;
		return *this;
	}
	bool operator==(const rgb_color& other) const
	{
		return red == other.red && green == other.green && blue == other.blue
			&& alpha == other.alpha;
	}
	bool operator!=(const rgb_color& other) const { return !(*this == other); }
};

inline rgb_color
make_color(uint8 red, uint8 green, uint8 blue, uint8 alpha = 255)
{
	return rgb_color{red, green, blue, alpha};
}

// A view colour that is never painted: the view shows what lies behind it.
extern const rgb_color B_TRANSPARENT_COLOR;
#define B_TRANSPARENT_32_BIT B_TRANSPARENT_COLOR
const uint8 B_TRANSPARENT_MAGIC_CMAP8 = 0xff;
const uint8 B_TRANSPARENT_8_BIT = 0xff;

// An 8 by 8 bit mask: set bits take the high colour, clear bits the low colour.
struct pattern {
	uint8 data[8];
};

extern const pattern B_SOLID_HIGH;
extern const pattern B_MIXED_COLORS;
extern const pattern B_SOLID_LOW;

enum drawing_mode {
	B_OP_COPY,
	B_OP_OVER,
	B_OP_ERASE,
	B_OP_INVERT,
	B_OP_ADD,
	B_OP_SUBTRACT,
	B_OP_BLEND,
	B_OP_MIN,
	B_OP_MAX,
	B_OP_SELECT,
	B_OP_ALPHA
};

enum source_alpha {
	B_PIXEL_ALPHA = 0,
	B_CONSTANT_ALPHA
};

enum alpha_function {
	B_ALPHA_OVERLAY = 0,
	B_ALPHA_COMPOSITE
};

enum color_space {
	B_NO_COLOR_SPACE = 0x0000,
	B_RGB32 = 0x0008,
	B_RGBA32 = 0x2008,
	B_RGB24 = 0x0003,
	B_RGB16 = 0x0005,
	B_RGB15 = 0x0010,
	B_RGBA15 = 0x2010,
	B_CMAP8 = 0x0004,
	B_GRAY8 = 0x0002,
	B_GRAY1 = 0x0001
};

struct color_map {
	int32 id;
	rgb_color color_list[256];
	uint8 inversion_map[256];
	uint8 index_map[32768];
};

// The system colour map that B_CMAP8 pixels index.
const color_map* system_colors();

#endif
