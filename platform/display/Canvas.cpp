#include "Canvas.h"

#include <cstdio>
#include <cstring>
#include <string_view>
#include <unordered_map>

#include <QBuffer>
#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QImage>
#include <QtMath>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <QRegion>


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
ToQFont(const FontSpec& font)
{
	QFont result(QString::fromUtf8(font.family));
	result.setPixelSize(qMax(1, qRound(font.size)));
	QString style = QString::fromUtf8(font.style);
	bool bold = (font.traits & FontSpec::kBold) != 0
		|| style.contains("Bold", Qt::CaseInsensitive);
	bool italic = (font.traits & FontSpec::kItalic) != 0
		|| style.contains("Oblique", Qt::CaseInsensitive)
		|| style.contains("Italic", Qt::CaseInsensitive);
	result.setBold(bold);
	result.setItalic(italic);
	result.setUnderline((font.traits & FontSpec::kUnderline) != 0);
	result.setStrikeOut((font.traits & FontSpec::kStrikeOut) != 0);
	if ((font.traits & FontSpec::kFixed) != 0)
		result.setFixedPitch(true);
	return result;
}

// A font description that owns its strings, as the metrics cache keeps it.
struct FontKey {
	std::string family;
	std::string style;
	float size;
	uint8 traits;

	explicit FontKey(const FontSpec& wanted)
		: family(wanted.family), style(wanted.style), size(wanted.size), traits(wanted.traits)
	{
	}
};

bool
SameFont(const FontKey& key, const FontSpec& wanted)
{
	return key.size == wanted.size && key.traits == wanted.traits && key.family == wanted.family
		&& key.style == wanted.style;
}

// Hashes and compares specs and keys alike, so a lookup copies no string.
struct FontHash {
	using is_transparent = void;

	static size_t Hash(std::string_view family, std::string_view style, float size,
		uint8 traits)
	{
		size_t hash = std::hash<std::string_view>()(family);
		for (size_t part : {std::hash<std::string_view>()(style), std::hash<float>()(size),
				size_t(traits)})
			hash = hash * 31 + part;
		return hash;
	}

	size_t operator()(const FontSpec& wanted) const
	{
		return Hash(wanted.family, wanted.style, wanted.size, wanted.traits);
	}

	size_t operator()(const FontKey& key) const
	{
		return Hash(key.family, key.style, key.size, key.traits);
	}
};

struct FontEqual {
	using is_transparent = void;

	bool operator()(const FontKey& a, const FontKey& b) const
	{
		return SameFont(a, FontSpec{b.family.c_str(), b.style.c_str(), b.size, b.traits});
	}

	bool operator()(const FontKey& key, const FontSpec& wanted) const
	{
		return SameFont(key, wanted);
	}

	bool operator()(const FontSpec& wanted, const FontKey& key) const
	{
		return SameFont(key, wanted);
	}
};

// Metrics per font; Qt's font caches belong to one thread, so do these.
// Rows and labels measure with the same font many times in a row.
const QFontMetricsF&
Metrics(const FontSpec& font)
{
	using Cache = std::unordered_map<FontKey, std::unique_ptr<QFontMetricsF>, FontHash,
		FontEqual>;
	thread_local Cache cache;
	thread_local const Cache::value_type* last = nullptr;
	if (last != nullptr && SameFont(last->first, font))
		return *last->second;
	auto found = cache.find(font);
	if (found == cache.end()) {
		DisplayServer::Default().EnsureStarted();
		found = cache.emplace(FontKey(font), std::make_unique<QFontMetricsF>(ToQFont(font)))
			.first;
	}
	last = &*found;
	return *found->second;
}

QImage
PixelImage(const PixelMap& pixels)
{
	auto bits = static_cast<const uchar*>(pixels.bits);
	switch (pixels.space) {
		case B_RGB32:
			return QImage(bits, pixels.width, pixels.height, pixels.bytesPerRow,
				QImage::Format_RGB32).convertToFormat(QImage::Format_ARGB32);
		case B_CMAP8: {
			QImage indexed(bits, pixels.width, pixels.height, pixels.bytesPerRow,
				QImage::Format_Indexed8);
			QList<QRgb> table;
			for (int32 i = 0; i < 256; i++) {
				const rgb_color& color = pixels.colorMap[i];
				table.append(qRgba(color.red, color.green, color.blue, color.alpha));
			}
			indexed.setColorTable(table);
			return indexed.convertToFormat(QImage::Format_ARGB32);
		}
		default:
			return QImage(bits, pixels.width, pixels.height, pixels.bytesPerRow,
				QImage::Format_ARGB32).copy();
	}
}

// What stands for a character that would otherwise not show, or 0 for one that
// shows as it is: the picture of a control character, a replacement mark for
// a format character (direction overrides, isolates, joiners).
char16_t
VisibleStandIn(QChar c)
{
	char16_t code = c.unicode();
	if (code < 0x20)
		return char16_t(0x2400 + code);
	if (code == 0x7F)
		return 0x2421;
	if ((code >= 0x80 && code < 0xA0) || c.category() == QChar::Other_Format)
		return 0xFFFD;
	return 0;
}

// UTF-8 text as the kits draw it: every control or format character visible,
// so that no string can read as another. Measuring uses the same text, so
// widths agree.
QString
VisibleText(const char* string, int32 length)
{
	QString text = QString::fromUtf8(string, length);
	for (QChar& c : text) {
		if (char16_t standIn = VisibleStandIn(c))
			c = QChar(standIn);
	}
	return text;
}

// Whether text holds characters that the desktop would lay out right to left.
bool
HasRightToLeft(const QString& text)
{
	for (QChar c : text) {
		QChar::Direction direction = c.direction();
		if (direction == QChar::DirR || direction == QChar::DirAL)
			return true;
	}
	return false;
}

// Calls place for each character of text (a surrogate pair as one) with the x
// it starts at, left to right in logical order; returns the width.
template<typename Place>
float
EachCharacter(const QString& text, const QFontMetricsF& metrics, Place place)
{
	float x = 0;
	for (qsizetype i = 0; i < text.size();) {
		qsizetype length = text[i].isHighSurrogate() && i + 1 < text.size() ? 2 : 1;
		QString character = text.mid(i, length);
		place(character, x);
		x += float(metrics.horizontalAdvance(character));
		i += length;
	}
	return x;
}

// The width of text drawn in logical order.
float
LogicalWidth(const QString& text, const QFontMetricsF& metrics)
{
	if (!HasRightToLeft(text))
		return float(metrics.horizontalAdvance(text));
	return EachCharacter(text, metrics, [](const QString&, float) {});
}

}	// namespace

struct Canvas::Data {
	// In the screen's device pixels; drawing works in the kits' own units.
	// A resize takes effect when the frame is next used, once the display
	// tells the pixel density.
	QImage image;
	int32 width = 1;
	int32 height = 1;
	bool resized = true;
	QPainter painter;
	QPointF origin;
	QRegion clip;

	QImage& Image()
	{
		if (resized)
			Reallocate();
		return image;
	}

	// The frame at its new size, with what it showed kept where it fits.
	void Reallocate()
	{
		resized = false;
		if (painter.isActive())
			painter.end();
		qreal ratio = DisplayServer::Default().ScaleFactor();
		QImage fresh(qCeil(width * ratio), qCeil(height * ratio), QImage::Format_RGB32);
		fresh.fill(Qt::white);
		int rows = qMin(image.height(), fresh.height());
		int bytes = qMin(image.width(), fresh.width()) * 4;
		for (int y = 0; y < rows; y++)
			memcpy(fresh.scanLine(y), image.constScanLine(y), bytes);
		fresh.setDevicePixelRatio(ratio);
		image = fresh;
	}

	QPainter& Begin()
	{
		if (!painter.isActive()) {
			// Painting needs Qt's fonts, which need the GUI application.
			DisplayServer::Default().EnsureStarted();
			painter.begin(&Image());
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
	width = qMax(1, width);
	height = qMax(1, height);
	if (width == fData->width && height == fData->height)
		return;
	if (fData->painter.isActive())
		fData->painter.end();
	fData->width = width;
	fData->height = height;
	fData->resized = true;
}

int32
Canvas::Width() const
{
	return fData->width;
}

int32
Canvas::Height() const
{
	return fData->height;
}

void
Canvas::SetContext(BPoint origin, const std::vector<BRect>& clip)
{
	fData->origin = QPointF(origin.x, origin.y);
	QRegion region;
	for (const BRect& rect : clip) {
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
Canvas::DrawString(const char* string, int32 length, BPoint location, const FontSpec& font,
	const Paint& paint)
{
	QString text = VisibleText(string, length);
	QPainter& painter = fData->Begin();
	painter.setCompositionMode(Composition(paint.mode));
	QColor set, clear;
	ModeColors(paint, &set, &clear);
	painter.setPen(set);
	painter.setFont(ToQFont(font));
	const QFontMetricsF& metrics = Metrics(font);
	// Text is drawn left to right in logical order: a script written right to
	// left goes character by character, so that no string reads as another.
	if (!HasRightToLeft(text)) {
		painter.drawText(QPointF(location.x, location.y), text);
		return float(metrics.horizontalAdvance(text));
	}
	return EachCharacter(text, metrics, [&](const QString& character, float x) {
		painter.drawText(QPointF(location.x + x, location.y), character);
	});
}

void
Canvas::DrawBitmap(const PixelMap& pixels, BRect source, BRect destination, const Paint& paint)
{
	QImage image = PixelImage(pixels);
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
	if (x < 0 || y < 0 || x >= fData->width || y >= fData->height)
		return rgb_color{0, 0, 0, 0};
	const QImage& image = fData->Image();
	qreal ratio = image.devicePixelRatio();
	QRgb pixel = image.pixel(int(x * ratio), int(y * ratio));
	return rgb_color{uint8(qRed(pixel)), uint8(qGreen(pixel)), uint8(qBlue(pixel)), 255};
}

void
Canvas::Present(int32 windowId)
{
	// The server gets a copy of its own: no pixels are shared between threads.
	QImage frame = fData->Image().copy();
	DisplayServer::Default().Post([windowId, frame] { ShowFrame(windowId, frame); });
}

status_t
Canvas::SavePNG(const char* path)
{
	if (fData->painter.isActive())
		fData->painter.end();
	QByteArray png;
	QBuffer buffer(&png);
	if (!fData->Image().save(&buffer, "PNG"))
		return B_ERROR;
	// The file is named by exactly the bytes given, whatever their encoding.
	FILE* file = fopen(path, "wb");
	if (file == nullptr)
		return B_ERROR;
	bool written = fwrite(png.constData(), 1, size_t(png.size()), file) == size_t(png.size());
	return fclose(file) == 0 && written ? B_OK : B_ERROR;
}

// #pragma mark - fonts

float
FontStringWidth(const FontSpec& font, const char* string, int32 length)
{
	if (string == nullptr || length <= 0)
		return 0;
	int32 size = static_cast<int32>(strnlen(string, length));
	return LogicalWidth(VisibleText(string, size), Metrics(font));
}

void
FontGetHeight(const FontSpec& font, float* ascent, float* descent, float* leading)
{
	const QFontMetricsF& metrics = Metrics(font);
	*ascent = float(metrics.ascent());
	*descent = float(metrics.descent());
	*leading = float(metrics.leading());
}

bool
FontIsFixed(const FontSpec& font)
{
	DisplayServer::Default().EnsureStarted();
	return QFontDatabase::isFixedPitch(QString::fromUtf8(font.family));
}

bool
FontFamilyExists(const char* family)
{
	DisplayServer::Default().EnsureStarted();
	return QFontDatabase::families().contains(QString::fromUtf8(family), Qt::CaseInsensitive);
}

}
