#ifndef _CANVAS_H
#define _CANVAS_H

#include <memory>

#include <Font.h>
#include <GraphicsDefs.h>
#include <Rect.h>
#include <Region.h>

class BBitmap;

namespace BPrivate {

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

	void SetContext(BPoint origin, const BRegion& clip);

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
	float DrawString(const char* string, int32 length, BPoint location, const BFont& font,
		const Paint& paint);
	void DrawBitmap(const BBitmap& bitmap, BRect source, BRect destination,
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

// Font metrics for BFont, computed with the desktop's font engine.
float FontStringWidth(const BFont& font, const char* string, int32 length);
void FontGetHeight(const BFont& font, font_height* height);
bool FontIsFixed(const BFont& font);
bool FontFamilyExists(const char* family);

}

#endif
