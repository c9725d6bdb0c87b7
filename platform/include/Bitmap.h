#ifndef _BITMAP_H
#define _BITMAP_H

#include <vector>

#include <GraphicsDefs.h>
#include <Rect.h>

class BView;

enum {
	B_BITMAP_ACCEPTS_VIEWS = 0x00000002,
	B_BITMAP_CLEAR_TO_WHITE = 0x00000004
};

// Pixels in one of the colour spaces B_CMAP8 (one byte per pixel indexing the
// system colour map, 255 transparent), B_RGB32 or B_RGBA32 (blue, green, red,
// alpha bytes). Rows are padded to a multiple of four bytes.
class BBitmap {
public:
	BBitmap(BRect bounds, color_space colorSpace, bool acceptsViews = false,
		bool needsContiguous = false);
	BBitmap(BRect bounds, uint32 flags, color_space colorSpace,
		int32 bytesPerRow = -1);
	BBitmap(const BBitmap* source);
	virtual ~BBitmap();

	status_t InitCheck() const;
	bool IsValid() const { return InitCheck() == B_OK; }

	BRect Bounds() const { return fBounds; }
	color_space ColorSpace() const { return fColorSpace; }
	void* Bits() const;
	int32 BitsLength() const { return static_cast<int32>(fBits.size()); }
	int32 BytesPerRow() const { return fBytesPerRow; }

	// Copies length bytes of data in the given colour space to the bitmap's bits,
	// starting offset bytes in, converting between the supported colour spaces.
	void SetBits(const void* data, int32 length, int32 offset, color_space colorSpace);
	status_t ImportBits(const BBitmap* source);

	// The pixel at x, y (from the top-left of the bitmap) as a colour; transparent
	// pixels have alpha 0.
	rgb_color ColorAt(int32 x, int32 y) const;

	BBitmap(const BBitmap&) = delete;
	BBitmap& operator=(const BBitmap&) = delete;

private:
	void pvInit(BRect bounds, color_space colorSpace, int32 bytesPerRow);
	int32 pvWidth() const;
	int32 pvHeight() const;
	void pvSetPixel(int32 x, int32 y, rgb_color color);

	BRect fBounds;
	color_space fColorSpace = B_NO_COLOR_SPACE;
	int32 fBytesPerRow = 0;
	mutable std::vector<uint8> fBits;
	status_t fStatus = B_NO_INIT;
};

// The nearest index of the system colour map for a colour.
uint8 index_for_color(rgb_color color);

#endif
