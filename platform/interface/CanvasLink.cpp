#include "CanvasLink.h"

namespace BPrivate {

FontSpec
FontSpecOf(const BFont& font)
{
	uint16 face = font.Face();
	uint8 traits = 0;
	if ((face & B_BOLD_FACE) != 0)
		traits |= FontSpec::kBold;
	if ((face & B_ITALIC_FACE) != 0)
		traits |= FontSpec::kItalic;
	if ((face & B_UNDERSCORE_FACE) != 0)
		traits |= FontSpec::kUnderline;
	if ((face & B_STRIKEOUT_FACE) != 0)
		traits |= FontSpec::kStrikeOut;
	if (font.Spacing() == B_FIXED_SPACING)
		traits |= FontSpec::kFixed;
	return FontSpec{font.Family(), font.Style(), font.Size(), traits};
}

std::vector<BRect>
RectsOf(const BRegion& region)
{
	std::vector<BRect> rects;
	rects.reserve(region.CountRects());
	for (int32 i = 0; i < region.CountRects(); i++)
		rects.push_back(region.RectAt(i));
	return rects;
}

namespace {

// The system colour map with its transparent index, as a B_CMAP8 bitmap shows.
const rgb_color*
SystemColorMap()
{
	static const std::vector<rgb_color> colors = [] {
		const color_map* map = system_colors();
		std::vector<rgb_color> list(map->color_list, map->color_list + 256);
		for (rgb_color& color : list)
			color.alpha = 255;
		list[B_TRANSPARENT_MAGIC_CMAP8] = rgb_color{0, 0, 0, 0};
		return list;
	}();
	return colors.data();
}

}	// namespace

void
DrawBitmapOn(Canvas& canvas, const BBitmap& bitmap, BRect source, BRect destination,
	const Paint& paint)
{
	BRect bounds = bitmap.Bounds();
	int32 width = bounds.IntegerWidth() + 1;
	int32 height = bounds.IntegerHeight() + 1;
	source.OffsetBy(-bounds.left, -bounds.top);
	color_space space = bitmap.ColorSpace();
	if (space == B_RGBA32 || space == B_RGB32 || space == B_CMAP8) {
		PixelMap pixels{bitmap.Bits(), width, height, bitmap.BytesPerRow(), space,
			SystemColorMap()};
		canvas.DrawBitmap(pixels, source, destination, paint);
		return;
	}
	// Other colour spaces are read pixel by pixel into B_RGBA32.
	std::vector<uint8> converted(size_t(width) * height * 4);
	for (int32 y = 0; y < height; y++) {
		for (int32 x = 0; x < width; x++) {
			rgb_color color = bitmap.ColorAt(x, y);
			uint8* pixel = &converted[(size_t(y) * width + x) * 4];
			pixel[0] = color.blue;
			pixel[1] = color.green;
			pixel[2] = color.red;
			pixel[3] = color.alpha;
		}
	}
	PixelMap pixels{converted.data(), width, height, width * 4, B_RGBA32, nullptr};
	canvas.DrawBitmap(pixels, source, destination, paint);
}

}
