#include <View.h>

#include <cstring>

#include <Bitmap.h>
#include <Window.h>

#include "CanvasLink.h"
#include "ViewState.h"

using BPrivate::Canvas;
using BPrivate::Paint;

// #pragma mark - drawing state

void
BView::SetViewColor(rgb_color color)
{
	if (color == fViewColor)
		return;
	fViewColor = color;
	Invalidate();
}

void
BView::SetViewColor(uchar red, uchar green, uchar blue, uchar alpha)
{
	SetViewColor(make_color(red, green, blue, alpha));
}

void
BView::SetHighColor(rgb_color color)
{
	fState->high = color;
}

void
BView::SetHighColor(uchar red, uchar green, uchar blue, uchar alpha)
{
	SetHighColor(make_color(red, green, blue, alpha));
}

void
BView::AdoptParentColors()
{
	BView* parent = Parent();
	rgb_color color = parent != nullptr ? parent->ViewColor()
		: ui_color(B_PANEL_BACKGROUND_COLOR);
	SetViewColor(color);
	SetLowColor(color);
}

rgb_color
BView::HighColor() const
{
	return fState->high;
}

void
BView::SetLowColor(rgb_color color)
{
	fState->low = color;
}

void
BView::SetLowColor(uchar red, uchar green, uchar blue, uchar alpha)
{
	SetLowColor(make_color(red, green, blue, alpha));
}

rgb_color
BView::LowColor() const
{
	return fState->low;
}

void
BView::SetDrawingMode(drawing_mode mode)
{
	fState->mode = mode;
}

drawing_mode
BView::DrawingMode() const
{
	return fState->mode;
}

void
BView::SetBlendingMode(source_alpha srcAlpha, alpha_function alphaFunc)
{
	fState->sourceAlpha = srcAlpha;
	fState->alphaFunction = alphaFunc;
}

void
BView::MovePenTo(BPoint point)
{
	fState->pen = point;
}

void
BView::MovePenBy(float x, float y)
{
	fState->pen += BPoint(x, y);
}

BPoint
BView::PenLocation() const
{
	return fState->pen;
}

void
BView::SetPenSize(float size)
{
	fState->penSize = size;
}

float
BView::PenSize() const
{
	return fState->penSize;
}

void
BView::SetFont(const BFont* font, uint32 mask)
{
	if (font == nullptr)
		return;
	BFont& current = fState->font;
	if ((mask & B_FONT_ALL) == B_FONT_ALL) {
		current = *font;
		return;
	}
	if ((mask & B_FONT_FAMILY_AND_STYLE) != 0) {
		font_family family;
		font_style style;
		font->GetFamilyAndStyle(&family, &style);
		current.SetFamilyAndStyle(family, style);
	}
	if ((mask & B_FONT_SIZE) != 0)
		current.SetSize(font->Size());
	if ((mask & B_FONT_FACE) != 0)
		current.SetFace(font->Face());
	if ((mask & B_FONT_SPACING) != 0)
		current.SetSpacing(font->Spacing());
}

void
BView::GetFont(BFont* font) const
{
	if (font != nullptr)
		*font = fState->font;
}

void
BView::SetFontSize(float size)
{
	fState->font.SetSize(size);
}

void
BView::GetFontHeight(font_height* height) const
{
	fState->font.GetHeight(height);
}

float
BView::StringWidth(const char* string) const
{
	return fState->font.StringWidth(string);
}

float
BView::StringWidth(const char* string, int32 length) const
{
	return fState->font.StringWidth(string, length);
}

void
BView::ConstrainClippingRegion(BRegion* region)
{
	if (region != nullptr)
		fState->clipping = *region;
	else
		fState->clipping.reset();
	if (fWindow != nullptr)
		fWindow->pvContextChanged();
}

void
BView::GetClippingRegion(BRegion* region) const
{
	if (region == nullptr)
		return;
	region->Set(Bounds());
	if (fState->clipping)
		region->IntersectWith(&*fState->clipping);
}

void
BView::PushState()
{
	fStateStack.push_back(std::make_unique<State>(*fState));
}

void
BView::PopState()
{
	if (fStateStack.empty())
		return;
	fState = std::move(fStateStack.back());
	fStateStack.pop_back();
	if (fWindow != nullptr)
		fWindow->pvContextChanged();
}

// #pragma mark - drawing

Paint
BView::pvPaint(const pattern& stipple) const
{
	return Paint{fState->high, fState->low, stipple, fState->mode, fState->penSize};
}

Canvas*
BView::pvCanvas()
{
	if (fWindow == nullptr || IsHidden(nullptr))
		return nullptr;
	return fWindow->pvCanvasFor(this);
}

void
BView::StrokeLine(BPoint end, pattern p)
{
	StrokeLine(fState->pen, end, p);
}

void
BView::StrokeLine(BPoint start, BPoint end, pattern p)
{
	fState->pen = end;
	if (Canvas* canvas = pvCanvas())
		canvas->StrokeLine(start, end, pvPaint(p));
}

void
BView::StrokeRect(BRect rect, pattern p)
{
	if (Canvas* canvas = pvCanvas(); canvas != nullptr && rect.IsValid())
		canvas->StrokeRect(rect, pvPaint(p));
}

void
BView::FillRect(BRect rect, pattern p)
{
	if (Canvas* canvas = pvCanvas(); canvas != nullptr && rect.IsValid())
		canvas->FillRect(rect, pvPaint(p));
}

void
BView::FillRegion(BRegion* region, pattern p)
{
	if (region == nullptr)
		return;
	for (int32 i = 0; i < region->CountRects(); i++)
		FillRect(region->RectAt(i), p);
}

void
BView::InvertRect(BRect rect)
{
	drawing_mode mode = fState->mode;
	fState->mode = B_OP_INVERT;
	FillRect(rect);
	fState->mode = mode;
}

void
BView::StrokeRoundRect(BRect rect, float xRadius, float yRadius, pattern p)
{
	if (Canvas* canvas = pvCanvas(); canvas != nullptr && rect.IsValid())
		canvas->StrokeRoundRect(rect, xRadius, yRadius, pvPaint(p));
}

void
BView::FillRoundRect(BRect rect, float xRadius, float yRadius, pattern p)
{
	if (Canvas* canvas = pvCanvas(); canvas != nullptr && rect.IsValid())
		canvas->FillRoundRect(rect, xRadius, yRadius, pvPaint(p));
}

void
BView::StrokeEllipse(BPoint center, float xRadius, float yRadius, pattern p)
{
	StrokeEllipse(BRect(center.x - xRadius, center.y - yRadius, center.x + xRadius,
		center.y + yRadius), p);
}

void
BView::StrokeEllipse(BRect rect, pattern p)
{
	if (Canvas* canvas = pvCanvas(); canvas != nullptr && rect.IsValid())
		canvas->StrokeEllipse(rect, pvPaint(p));
}

void
BView::FillEllipse(BPoint center, float xRadius, float yRadius, pattern p)
{
	FillEllipse(BRect(center.x - xRadius, center.y - yRadius, center.x + xRadius,
		center.y + yRadius), p);
}

void
BView::FillEllipse(BRect rect, pattern p)
{
	if (Canvas* canvas = pvCanvas(); canvas != nullptr && rect.IsValid())
		canvas->FillEllipse(rect, pvPaint(p));
}

void
BView::StrokeArc(BRect rect, float startAngle, float arcAngle, pattern p)
{
	if (Canvas* canvas = pvCanvas(); canvas != nullptr && rect.IsValid())
		canvas->StrokeArc(rect, startAngle, arcAngle, pvPaint(p));
}

void
BView::FillArc(BRect rect, float startAngle, float arcAngle, pattern p)
{
	if (Canvas* canvas = pvCanvas(); canvas != nullptr && rect.IsValid())
		canvas->FillArc(rect, startAngle, arcAngle, pvPaint(p));
}

void
BView::StrokePolygon(const BPoint* points, int32 count, bool closed, pattern p)
{
	if (Canvas* canvas = pvCanvas(); canvas != nullptr && points != nullptr && count > 0)
		canvas->StrokePolygon(points, count, closed, pvPaint(p));
}

void
BView::FillPolygon(const BPoint* points, int32 count, pattern p)
{
	if (Canvas* canvas = pvCanvas(); canvas != nullptr && points != nullptr && count > 2)
		canvas->FillPolygon(points, count, pvPaint(p));
}

void
BView::StrokeTriangle(BPoint p1, BPoint p2, BPoint p3, pattern p)
{
	BPoint points[] = {p1, p2, p3};
	StrokePolygon(points, 3, true, p);
}

void
BView::FillTriangle(BPoint p1, BPoint p2, BPoint p3, pattern p)
{
	BPoint points[] = {p1, p2, p3};
	FillPolygon(points, 3, p);
}

void
BView::DrawString(const char* string)
{
	if (string != nullptr)
		DrawString(string, static_cast<int32>(strlen(string)), fState->pen);
}

void
BView::DrawString(const char* string, int32 length)
{
	DrawString(string, length, fState->pen);
}

void
BView::DrawString(const char* string, BPoint location)
{
	if (string != nullptr)
		DrawString(string, static_cast<int32>(strlen(string)), location);
}

void
BView::DrawString(const char* string, int32 length, BPoint location)
{
	if (string == nullptr || length <= 0)
		return;
	length = static_cast<int32>(strnlen(string, length));
	float width;
	if (Canvas* canvas = pvCanvas())
		width = canvas->DrawString(string, length, location,
			BPrivate::FontSpecOf(fState->font), pvPaint(B_SOLID_HIGH));
	else
		width = fState->font.StringWidth(string, length);
	fState->pen = BPoint(location.x + width, location.y);
}

void
BView::DrawChar(char c)
{
	DrawString(&c, 1, fState->pen);
}

void
BView::DrawChar(char c, BPoint location)
{
	DrawString(&c, 1, location);
}

void
BView::DrawBitmap(const BBitmap* bitmap)
{
	DrawBitmap(bitmap, fState->pen);
}

void
BView::DrawBitmap(const BBitmap* bitmap, BPoint where)
{
	if (bitmap != nullptr)
		DrawBitmap(bitmap, bitmap->Bounds(), bitmap->Bounds().OffsetToCopy(where));
}

void
BView::DrawBitmap(const BBitmap* bitmap, BRect destination)
{
	if (bitmap != nullptr)
		DrawBitmap(bitmap, bitmap->Bounds(), destination);
}

void
BView::DrawBitmap(const BBitmap* bitmap, BRect source, BRect destination)
{
	if (bitmap == nullptr || !bitmap->IsValid() || !source.IsValid() || !destination.IsValid())
		return;
	if (Canvas* canvas = pvCanvas())
		BPrivate::DrawBitmapOn(*canvas, *bitmap, source, destination, pvPaint(B_SOLID_HIGH));
}
