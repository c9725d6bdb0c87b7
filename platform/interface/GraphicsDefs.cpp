#include <GraphicsDefs.h>

#include <cstdlib>

const rgb_color B_TRANSPARENT_COLOR = {0x77, 0x74, 0x77, 0x00};

const pattern B_SOLID_HIGH = {{0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff}};
const pattern B_MIXED_COLORS = {{0xaa, 0x55, 0xaa, 0x55, 0xaa, 0x55, 0xaa, 0x55}};
const pattern B_SOLID_LOW = {{0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00}};

namespace {

// The system colour map: 32 greys from black in steps of 8, a 6 by 6 by 6 colour
// cube, then the lightest greys and white; 255 stands for transparent pixels.
color_map
MakeSystemColors()
{
	color_map map{};
	map.id = 0;
	int index = 0;
	for (int i = 0; i < 32; i++, index++)
		map.color_list[index] = rgb_color{uint8(i * 8), uint8(i * 8), uint8(i * 8), 255};
	for (int r = 0; r < 6; r++) {
		for (int g = 0; g < 6; g++) {
			for (int b = 0; b < 6; b++, index++)
				map.color_list[index] = rgb_color{uint8(r * 51), uint8(g * 51), uint8(b * 51), 255};
		}
	}
	const uint8 lightGreys[] = {216, 224, 232, 240, 248, 252};
	for (uint8 grey : lightGreys)
		map.color_list[index++] = rgb_color{grey, grey, grey, 255};
	map.color_list[index++] = rgb_color{255, 255, 255, 255};
	map.color_list[B_TRANSPARENT_MAGIC_CMAP8] = B_TRANSPARENT_COLOR;

	// Nearest entries for every 15-bit colour and for every inverted entry.
	auto nearest = [&map](int red, int green, int blue) {
		int best = 0;
		int bestDistance = 1 << 30;
		for (int i = 0; i < 255; i++) {
			const rgb_color& c = map.color_list[i];
			int distance = (c.red - red) * (c.red - red) + (c.green - green) * (c.green - green)
				+ (c.blue - blue) * (c.blue - blue);
			if (distance < bestDistance) {
				bestDistance = distance;
				best = i;
			}
		}
		return uint8(best);
	};
	for (int i = 0; i < 32768; i++) {
		int red = (i >> 10) & 0x1f, green = (i >> 5) & 0x1f, blue = i & 0x1f;
		map.index_map[i] = nearest(red << 3 | red >> 2, green << 3 | green >> 2,
			blue << 3 | blue >> 2);
	}
	for (int i = 0; i < 256; i++) {
		const rgb_color& c = map.color_list[i];
		map.inversion_map[i] = nearest(255 - c.red, 255 - c.green, 255 - c.blue);
	}
	return map;
}

}	// namespace

const color_map*
system_colors()
{
	static const color_map* map = new color_map(MakeSystemColors());
	return map;
}
