#include "Canvas.h"

#include <cstring>
#include <string_view>
#include <unordered_map>

#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <QRegion>

#include <Bitmap.h>

#include "DisplayServer.h"
#include "FrameWindow.h"

namespace BPrivate {

namespace {

QColor
ToColor(rgb_color color, uint8 alpha = 255)
{
	return QColor(color.red, color.green, color.blue, alpha);
}

bool
IsSolid(const pattern& stipple, uint8 value)
{
	for (uint8 row : stipple.data) {
		if (row != value)
			return false;
	}
	return true;
}

// The colours a pattern paints with, per drawing mode: set bits take first,
// clear bits second (transparent where the mode leaves the pixel alone).
void
ModeColors(const Paint& paint, QColor* set, QColor* clear)
{
	switch (paint.mode) {
		case B_OP_ALPHA:
			*set = ToColor(paint.high, paint.high.alpha);
			*clear = ToColor(paint.low, paint.low.alpha);
			break;
		case B_OP_OVER:
			*set = ToColor(paint.high);
			*clear = Qt::transparent;
			break;
		case B_OP_ERASE:
			*set = ToColor(paint.low);
			*clear = Qt::transparent;
			break;
		case B_OP_INVERT:
			*set = Qt::white;
			*clear = Qt::transparent;
			break;
		case B_OP_BLEND:
			*set = ToColor(paint.high, 128);
			*clear = ToColor(paint.low, 128);
			break;
		default:
			*set = ToColor(paint.high);
			*clear = ToColor(paint.low);
			break;
	}
}

QPainter::CompositionMode
Composition(drawing_mode mode)
{
	switch (mode) {
		case B_OP_INVERT:
			return QPainter::RasterOp_SourceXorDestination;
		case B_OP_ADD:
			return QPainter::CompositionMode_Plus;
		case B_OP_SUBTRACT:
			// The nearest that Qt offers to a clamped subtraction.
			return QPainter::CompositionMode_Difference;
		case B_OP_MIN:
			return QPainter::CompositionMode_Darken;
		case B_OP_MAX:
			return QPainter::CompositionMode_Lighten;
		default:
			return QPainter::CompositionMode_SourceOver;
	}
}

QBrush
PatternBrush(const Paint& paint)
{
	QColor set, clear;
	ModeColors(paint, &set, &clear);
	if (IsSolid(paint.stipple, 0xff))
		return QBrush(set);
	if (IsSolid(paint.stipple, 0x00))
		return clear.alpha() == 0 ? QBrush(Qt::NoBrush) : QBrush(clear);
	QImage tile(8, 8, QImage::Format_ARGB32);
	for (int y = 0; y < 8; y++) {
		for (int x = 0; x < 8; x++)
			tile.setPixelColor(x, y, (paint.stipple.data[y] & (0x80 >> x)) ? set : clear);
	}
	return QBrush(tile);
}

QRectF
FillArea(BRect rect)
{
	return QRectF(rect.left, rect.top, rect.Width() + 1, rect.Height() + 1);
}

QRectF
StrokeArea(BRect rect)
{
	return QRectF(rect.left + 0.5, rect.top + 0.5, rect.Width(), rect.Height());
}

QPolygonF
PixelCentres(const BPoint* points, int32 count)
{
	QPolygonF polygon;
	for (int32 i = 0; i < count; i++)
		polygon << QPointF(points[i].x + 0.5, points[i].y + 0.5);
	return polygon;
}

QFont
ToQFont(const BFont& font)
{
	QFont result(QString::fromUtf8(font.Family()));
	result.setPixelSize(qMax(1, qRound(font.Size())));
	QString style = QString::fromUtf8(font.Style());
	bool bold = (font.Face() & B_BOLD_FACE) != 0 || style.contains("Bold", Qt::CaseInsensitive);
	bool italic = (font.Face() & B_ITALIC_FACE) != 0
		|| style.contains("Oblique", Qt::CaseInsensitive)
		|| style.contains("Italic", Qt::CaseInsensitive);
	result.setBold(bold);
	result.setItalic(italic);
	result.setUnderline((font.Face() & B_UNDERSCORE_FACE) != 0);
	result.setStrikeOut((font.Face() & B_STRIKEOUT_FACE) != 0);
	if (font.Spacing() == B_FIXED_SPACING)
		result.setFixedPitch(true);
	return result;
}

// Hashes every field that BFont::operator== compares, without copying.
struct FontHash {
	size_t operator()(const BFont& font) const
	{
		size_t hash = std::hash<std::string_view>()(font.Family());
		for (size_t part : {std::hash<std::string_view>()(font.Style()),
				std::hash<float>()(font.Size()), size_t(font.Face()), size_t(font.Spacing())})
			hash = hash * 31 + part;
		return hash;
	}
};

// Metrics per font; Qt's font caches belong to one thread, so do these.
// Rows and labels measure with the same font many times in a row.
const QFontMetricsF&
Metrics(const BFont& font)
{
	thread_local std::unordered_map<BFont, std::unique_ptr<QFontMetricsF>, FontHash> cache;
	thread_local const std::pair<const BFont, std::unique_ptr<QFontMetricsF>>* last = nullptr;
	if (last != nullptr && last->first == font)
		return *last->second;
	auto found = cache.find(font);
	if (found == cache.end()) {
		DisplayServer::Default().EnsureStarted();
		found = cache.emplace(font, std::make_unique<QFontMetricsF>(ToQFont(font))).first;
	}
	last = &*found;
	return *found->second;
}

QImage
BitmapImage(const BBitmap& bitmap)
{
	BRect bounds = bitmap.Bounds();
	int width = bounds.IntegerWidth() + 1;
	int height = bounds.IntegerHeight() + 1;
	auto bits = static_cast<const uchar*>(bitmap.Bits());
	switch (bitmap.ColorSpace()) {
		case B_RGBA32:
			return QImage(bits, width, height, bitmap.BytesPerRow(), QImage::Format_ARGB32)
				.copy();
		case B_RGB32:
			return QImage(bits, width, height, bitmap.BytesPerRow(), QImage::Format_RGB32)
				.convertToFormat(QImage::Format_ARGB32);
		case B_CMAP8: {
			QImage indexed(bits, width, height, bitmap.BytesPerRow(), QImage::Format_Indexed8);
			static const QList<QRgb> table = [] {
				QList<QRgb> colors;
				const color_map* map = system_colors();
				for (const rgb_color& color : map->color_list)
					colors.append(qRgba(color.red, color.green, color.blue, 255));
				colors[B_TRANSPARENT_MAGIC_CMAP8] = qRgba(0, 0, 0, 0);
				return colors;
			}();
			indexed.setColorTable(table);
			return indexed.convertToFormat(QImage::Format_ARGB32);
		}
		default: {
			QImage image(width, height, QImage::Format_ARGB32);
			for (int y = 0; y < height; y++) {
				for (int x = 0; x < width; x++) {
					rgb_color color = bitmap.ColorAt(x, y);
					image.setPixel(x, y, qRgba(color.red, color.green, color.blue, color.alpha));
				}
			}
			return image;
		}
	}
}

}	// namespace

struct Canvas::Data {
	QImage image;
	QPainter painter;
	QPointF origin;
	QRegion clip;

	QPainter& Begin()
	{
		if (!painter.isActive()) {
			// Painting needs Qt's fonts, which need the GUI application.
			DisplayServer::Default().EnsureStarted();
			painter.begin(&image);
			painter.setRenderHint(QPainter::Antialiasing, false);
			painter.setRenderHint(QPainter::TextAntialiasing, true);
		}
		painter.setTransform(QTransform::fromTranslate(origin.x(), origin.y()));
		painter.setClipRegion(clip);
		return painter;
	}

	QPainter& Fill(const Paint& paint)
	{
		QPainter& p = Begin();
		p.setCompositionMode(Composition(paint.mode));
		p.setPen(Qt::NoPen);
		p.setBrush(PatternBrush(paint));
		p.setBrushOrigin(-origin);
		return p;
	}

	QPainter& Stroke(const Paint& paint)
	{
		QPainter& p = Begin();
		p.setCompositionMode(Composition(paint.mode));
		QPen pen(PatternBrush(paint), qMax(1.0f, paint.penSize), Qt::SolidLine, Qt::SquareCap,
			Qt::MiterJoin);
		p.setPen(pen);
		p.setBrush(Qt::NoBrush);
		p.setBrushOrigin(-origin);
		return p;
	}
};

Canvas::Canvas()
	: fData(std::make_unique<Data>())
{
}

Canvas::~Canvas()
{
	if (fData->painter.isActive())
		fData->painter.end();
}

void
Canvas::Resize(int32 width, int32 height)
{
	if (width == fData->image.width() && height == fData->image.height())
		return;
	if (fData->painter.isActive())
		fData->painter.end();
	QImage image(qMax(1, width), qMax(1, height), QImage::Format_RGB32);
	image.fill(Qt::white);
	const QImage& old = fData->image;
	int rows = qMin(old.height(), image.height());
	int bytes = qMin(old.width(), image.width()) * 4;
	for (int y = 0; y < rows; y++)
		memcpy(image.scanLine(y), old.constScanLine(y), bytes);
	fData->image = image;
}

int32
Canvas::Width() const
{
	return fData->image.width();
}

int32
Canvas::Height() const
{
	return fData->image.height();
}

void
Canvas::SetContext(BPoint origin, const BRegion& clip)
{
	fData->origin = QPointF(origin.x, origin.y);
	QRegion region;
	for (int32 i = 0; i < clip.CountRects(); i++) {
		BRect rect = clip.RectAt(i);
		region += QRect(int(rect.left), int(rect.top), rect.IntegerWidth() + 1,
			rect.IntegerHeight() + 1);
	}
	region.translate(-int(origin.x), -int(origin.y));
	fData->clip = region;
}

void
Canvas::StrokeLine(BPoint start, BPoint end, const Paint& paint)
{
	fData->Stroke(paint).drawLine(QPointF(start.x + 0.5, start.y + 0.5),
		QPointF(end.x + 0.5, end.y + 0.5));
}

void
Canvas::StrokeRect(BRect rect, const Paint& paint)
{
	fData->Stroke(paint).drawRect(StrokeArea(rect));
}

void
Canvas::FillRect(BRect rect, const Paint& paint)
{
	fData->Fill(paint).drawRect(FillArea(rect));
}

void
Canvas::StrokeRoundRect(BRect rect, float xRadius, float yRadius, const Paint& paint)
{
	fData->Stroke(paint).drawRoundedRect(StrokeArea(rect), xRadius, yRadius);
}

void
Canvas::FillRoundRect(BRect rect, float xRadius, float yRadius, const Paint& paint)
{
	fData->Fill(paint).drawRoundedRect(FillArea(rect), xRadius, yRadius);
}

void
Canvas::StrokeEllipse(BRect rect, const Paint& paint)
{
	fData->Stroke(paint).drawEllipse(StrokeArea(rect));
}

void
Canvas::FillEllipse(BRect rect, const Paint& paint)
{
	fData->Fill(paint).drawEllipse(FillArea(rect));
}

void
Canvas::StrokeArc(BRect rect, float start, float span, const Paint& paint)
{
	fData->Stroke(paint).drawArc(StrokeArea(rect), qRound(start * 16), qRound(span * 16));
}

void
Canvas::FillArc(BRect rect, float start, float span, const Paint& paint)
{
	fData->Fill(paint).drawPie(FillArea(rect), qRound(start * 16), qRound(span * 16));
}

void
Canvas::StrokePolygon(const BPoint* points, int32 count, bool closed, const Paint& paint)
{
	QPolygonF polygon = PixelCentres(points, count);
	QPainter& painter = fData->Stroke(paint);
	if (closed)
		painter.drawPolygon(polygon);
	else
		painter.drawPolyline(polygon);
}

void
Canvas::FillPolygon(const BPoint* points, int32 count, const Paint& paint)
{
	fData->Fill(paint).drawPolygon(PixelCentres(points, count));
}

float
Canvas::DrawString(const char* string, int32 length, BPoint location, const BFont& font,
	const Paint& paint)
{
	QString text = QString::fromUtf8(string, length);
	QPainter& painter = fData->Begin();
	painter.setCompositionMode(Composition(paint.mode));
	QColor set, clear;
	ModeColors(paint, &set, &clear);
	painter.setPen(set);
	painter.setFont(ToQFont(font));
	painter.drawText(QPointF(location.x, location.y), text);
	return float(Metrics(font).horizontalAdvance(text));
}

void
Canvas::DrawBitmap(const BBitmap& bitmap, BRect source, BRect destination, const Paint& paint)
{
	QImage image = BitmapImage(bitmap);
	BRect bounds = bitmap.Bounds();
	source.OffsetBy(-bounds.left, -bounds.top);
	QPainter& painter = fData->Begin();
	if (paint.mode == B_OP_COPY) {
		// Copying replaces the pixels: transparent ones take the low colour.
		painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
		painter.fillRect(FillArea(destination), ToColor(paint.low));
	} else
		painter.setCompositionMode(Composition(paint.mode));
	painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
	painter.drawImage(FillArea(destination), image, FillArea(source));
}

rgb_color
Canvas::PixelAt(int32 x, int32 y)
{
	if (x < 0 || y < 0 || x >= fData->image.width() || y >= fData->image.height())
		return rgb_color{0, 0, 0, 0};
	QRgb pixel = fData->image.pixel(x, y);
	return rgb_color{uint8(qRed(pixel)), uint8(qGreen(pixel)), uint8(qBlue(pixel)), 255};
}

void
Canvas::Present(int32 windowId)
{
	// The server gets a copy of its own: no pixels are shared between threads.
	QImage frame = fData->image.copy();
	DisplayServer::Default().Post([windowId, frame] { ShowFrame(windowId, frame); });
}

status_t
Canvas::SavePNG(const char* path)
{
	if (fData->painter.isActive())
		fData->painter.end();
	return fData->image.save(QString::fromUtf8(path), "PNG") ? B_OK : B_ERROR;
}

// #pragma mark - fonts

float
FontStringWidth(const BFont& font, const char* string, int32 length)
{
	if (string == nullptr || length <= 0)
		return 0;
	int32 size = static_cast<int32>(strnlen(string, length));
	return float(Metrics(font).horizontalAdvance(QString::fromUtf8(string, size)));
}

void
FontGetHeight(const BFont& font, font_height* height)
{
	const QFontMetricsF& metrics = Metrics(font);
	height->ascent = float(metrics.ascent());
	height->descent = float(metrics.descent());
	height->leading = float(metrics.leading());
}

bool
FontIsFixed(const BFont& font)
{
	DisplayServer::Default().EnsureStarted();
	return QFontDatabase::isFixedPitch(QString::fromUtf8(font.Family()));
}

bool
FontFamilyExists(const char* family)
{
	DisplayServer::Default().EnsureStarted();
	return QFontDatabase::families().contains(QString::fromUtf8(family), Qt::CaseInsensitive);
}

}
