#ifndef _CANVAS_H
#define _CANVAS_H

#include <memory>
#include <vector>

#include <GraphicsDefs.h>
#include <Rect.h>

namespace BPrivate {

// A font as the font engine needs it; the strings belong to the caller.
struct FontSpec {
	enum Trait : uint8 {
		kBold = 1,
		kItalic = 2,
		kUnderline = 4,
		kStrikeOut = 8,
		kFixed = 16
	};

	const char* family;
	const char* style;
	float size;
	uint8 traits;
};

// The pixels of a bitmap, width by height, rows bytesPerRow apart, in B_RGBA32,
// B_RGB32 or B_CMAP8 (then colorMap gives the 256 colours, the transparent
// index included).
struct PixelMap {
	const void* bits;
	int32 width;
	int32 height;
	int32 bytesPerRow;
	color_space space;
	const rgb_color* colorMap;
};

// How a drawing call paints: the pattern picks high or low colour per pixel.
struct Paint {
	rgb_color high;
	rgb_color low;
	pattern stipple;
	drawing_mode mode;
	float penSize;
};

// A window's frame: an image that the window's thread draws into. Drawing calls
// take coordinates relative to the context origin and are clipped to the
// context region (both in frame coordinates).
class Canvas {
public:
	Canvas();
	~Canvas();

	void Resize(int32 width, int32 height);
	int32 Width() const;
	int32 Height() const;

	// Clipped to the union of clip (frame coordinates).
	void SetContext(BPoint origin, const std::vector<BRect>& clip);

	void StrokeLine(BPoint start, BPoint end, const Paint& paint);
	void StrokeRect(BRect rect, const Paint& paint);
	void FillRect(BRect rect, const Paint& paint);
	void StrokeRoundRect(BRect rect, float xRadius, float yRadius, const Paint& paint);
	void FillRoundRect(BRect rect, float xRadius, float yRadius, const Paint& paint);
	void StrokeEllipse(BRect rect, const Paint& paint);
	void FillEllipse(BRect rect, const Paint& paint);
	void StrokeArc(BRect rect, float start, float span, const Paint& paint);
	void FillArc(BRect rect, float start, float span, const Paint& paint);
	void StrokePolygon(const BPoint* points, int32 count, bool closed, const Paint& paint);
	void FillPolygon(const BPoint* points, int32 count, const Paint& paint);
	// Draws length bytes of UTF-8 text with its baseline at location; returns its width.
	float DrawString(const char* string, int32 length, BPoint location, const FontSpec& font,
		const Paint& paint);
	// Draws the source part of pixels (in pixel coordinates) into destination.
	void DrawBitmap(const PixelMap& pixels, BRect source, BRect destination,
		const Paint& paint);

	// The colour of the frame's pixel at x, y.
	rgb_color PixelAt(int32 x, int32 y);
	// Hands the finished frame to the display server's window id.
	void Present(int32 windowId);
	status_t SavePNG(const char* path);

	Canvas(const Canvas&) = delete;
	Canvas& operator=(const Canvas&) = delete;

private:
	struct Data;
	std::unique_ptr<Data> fData;
};

// Font metrics, computed with the desktop's font engine.
float FontStringWidth(const FontSpec& font, const char* string, int32 length);
void FontGetHeight(const FontSpec& font, float* ascent, float* descent, float* leading);
bool FontIsFixed(const FontSpec& font);
bool FontFamilyExists(const char* family);

}

#endif
