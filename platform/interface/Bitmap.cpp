#include <Bitmap.h>

#include <algorithm>
#include <cstring>

namespace {

int32
BytesPerPixel(color_space space)
{
	switch (space) {
		case B_RGB32:
		case B_RGBA32:
			return 4;
		case B_RGB24:
			return 3;
		case B_RGB16:
		case B_RGB15:
		case B_RGBA15:
			return 2;
		case B_CMAP8:
		case B_GRAY8:
			return 1;
		default:
			return 0;
	}
}

// The colour of one pixel stored in a colour space; transparent has alpha 0.
rgb_color
ReadPixel(const uint8* pixel, color_space space)
{
	switch (space) {
		case B_RGB32:
			return rgb_color{pixel[2], pixel[1], pixel[0], 255};
		case B_RGBA32:
			return rgb_color{pixel[2], pixel[1], pixel[0], pixel[3]};
		case B_RGB24:
			return rgb_color{pixel[2], pixel[1], pixel[0], 255};
		case B_GRAY8:
			return rgb_color{pixel[0], pixel[0], pixel[0], 255};
		case B_CMAP8: {
			if (pixel[0] == B_TRANSPARENT_MAGIC_CMAP8)
				return rgb_color{B_TRANSPARENT_COLOR.red, B_TRANSPARENT_COLOR.green,
					B_TRANSPARENT_COLOR.blue, 0};
			return system_colors()->color_list[pixel[0]];
		}
		default:
			return rgb_color{0, 0, 0, 255};
	}
}

void
WritePixel(uint8* pixel, color_space space, rgb_color color)
{
	switch (space) {
		case B_RGB32:
		case B_RGBA32:
			pixel[0] = color.blue;
			pixel[1] = color.green;
			pixel[2] = color.red;
			pixel[3] = space == B_RGB32 ? 255 : color.alpha;
			break;
		case B_RGB24:
			pixel[0] = color.blue;
			pixel[1] = color.green;
			pixel[2] = color.red;
			break;
		case B_GRAY8:
			pixel[0] = uint8((color.red * 30 + color.green * 59 + color.blue * 11) / 100);
			break;
		case B_CMAP8:
			pixel[0] = color.alpha < 128 ? B_TRANSPARENT_MAGIC_CMAP8 : index_for_color(color);
			break;
		default:
			break;
	}
}

}	// namespace

uint8
index_for_color(rgb_color color)
{
	int index = ((color.red & 0xf8) << 7) | ((color.green & 0xf8) << 2) | (color.blue >> 3);
	return system_colors()->index_map[index];
}

BBitmap::BBitmap(BRect bounds, color_space colorSpace, bool, bool)
{
	pvInit(bounds, colorSpace, -1);
}

BBitmap::BBitmap(BRect bounds, uint32 flags, color_space colorSpace, int32 bytesPerRow)
{
	pvInit(bounds, colorSpace, bytesPerRow);
	if (fStatus == B_OK && (flags & B_BITMAP_CLEAR_TO_WHITE) != 0) {
		for (int32 y = 0; y < pvHeight(); y++) {
			for (int32 x = 0; x < pvWidth(); x++)
				pvSetPixel(x, y, make_color(255, 255, 255));
		}
	}
}

BBitmap::BBitmap(const BBitmap* source)
{
	if (source == nullptr || !source->IsValid()) {
		fStatus = B_BAD_VALUE;
		return;
	}
	pvInit(source->fBounds, source->fColorSpace, source->fBytesPerRow);
	fBits = source->fBits;
}

BBitmap::~BBitmap() = default;

void
BBitmap::pvInit(BRect bounds, color_space colorSpace, int32 bytesPerRow)
{
	int32 pixelSize = BytesPerPixel(colorSpace);
	if (!bounds.IsValid() || pixelSize == 0 || bounds.Width() > 32767
		|| bounds.Height() > 32767) {
		fStatus = B_BAD_VALUE;
		return;
	}
	fBounds = bounds;
	fColorSpace = colorSpace;
	int32 width = bounds.IntegerWidth() + 1;
	int32 minimum = (width * pixelSize + 3) & ~3;
	fBytesPerRow = bytesPerRow >= width * pixelSize ? bytesPerRow : minimum;
	fBits.assign(size_t(fBytesPerRow) * (bounds.IntegerHeight() + 1), 0);
	fStatus = B_OK;
}

status_t
BBitmap::InitCheck() const
{
	return fStatus;
}

void*
BBitmap::Bits() const
{
	return fBits.empty() ? nullptr : fBits.data();
}

int32
BBitmap::pvWidth() const
{
	return fStatus == B_OK ? fBounds.IntegerWidth() + 1 : 0;
}

int32
BBitmap::pvHeight() const
{
	return fStatus == B_OK ? fBounds.IntegerHeight() + 1 : 0;
}

void
BBitmap::pvSetPixel(int32 x, int32 y, rgb_color color)
{
	WritePixel(&fBits[size_t(y) * fBytesPerRow + x * BytesPerPixel(fColorSpace)], fColorSpace,
		color);
}

rgb_color
BBitmap::ColorAt(int32 x, int32 y) const
{
	if (x < 0 || y < 0 || x >= pvWidth() || y >= pvHeight())
		return rgb_color{0, 0, 0, 0};
	return ReadPixel(&fBits[size_t(y) * fBytesPerRow + x * BytesPerPixel(fColorSpace)],
		fColorSpace);
}

void
BBitmap::SetBits(const void* data, int32 length, int32 offset, color_space colorSpace)
{
	if (fStatus != B_OK || data == nullptr || length <= 0 || offset < 0)
		return;
	auto source = static_cast<const uint8*>(data);
	if (colorSpace == fColorSpace) {
		if (offset < BitsLength())
			memcpy(fBits.data() + offset, source, std::min(length, BitsLength() - offset));
		return;
	}
	// Converting: the source rows are as wide as the bitmap and padded to four
	// bytes; offset counts bytes of the destination.
	int32 sourcePixel = BytesPerPixel(colorSpace);
	if (sourcePixel == 0)
		return;
	int32 sourceRow = (pvWidth() * sourcePixel + 3) & ~3;
	int32 pixelSize = BytesPerPixel(fColorSpace);
	int32 first = offset / pixelSize;
	for (int32 i = 0; i < length / sourcePixel; i++) {
		int32 row = i * sourcePixel / sourceRow;
		int32 column = (i * sourcePixel % sourceRow) / sourcePixel;
		if (column >= pvWidth())
			continue;
		int32 target = first + row * pvWidth() + column;
		int32 y = target / pvWidth();
		int32 x = target % pvWidth();
		if (y >= pvHeight())
			break;
		pvSetPixel(x, y, ReadPixel(source + size_t(i) * sourcePixel, colorSpace));
	}
}

status_t
BBitmap::ImportBits(const BBitmap* source)
{
	if (source == nullptr || !source->IsValid() || fStatus != B_OK)
		return B_BAD_VALUE;
	int32 width = std::min(pvWidth(), source->pvWidth());
	int32 height = std::min(pvHeight(), source->pvHeight());
	for (int32 y = 0; y < height; y++) {
		for (int32 x = 0; x < width; x++)
			pvSetPixel(x, y, source->ColorAt(x, y));
	}
	return B_OK;
}
