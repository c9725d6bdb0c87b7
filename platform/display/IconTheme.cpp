#include "IconTheme.h"

#include <cstring>
#include <string>

#include <QDir>
#include <QIcon>
#include <QImage>
#include <QMimeDatabase>

#include "DisplayServer.h"

namespace BPrivate {

namespace {

const bigtime_t kAnswerTimeout = 2000000;

// Without a desktop (the offscreen platform) Qt knows neither the theme nor
// where themes live: the freedesktop folders and Debian's default theme.
void
SetUpTheme()
{
	static bool done = false;
	if (done)
		return;
	done = true;
	QStringList paths = QIcon::themeSearchPaths();
	QStringList dataFolders = {QDir::homePath() + "/.local/share"};
	QByteArray xdg = qgetenv("XDG_DATA_DIRS");
	dataFolders += QString::fromLocal8Bit(xdg.isEmpty() ? "/usr/local/share:/usr/share" : xdg)
		.split(':', Qt::SkipEmptyParts);
	for (const QString& folder : dataFolders) {
		if (!paths.contains(folder + "/icons"))
			paths << folder + "/icons";
	}
	QIcon::setThemeSearchPaths(paths);
	if (QIcon::themeName().isEmpty() || QIcon::themeName() == "hicolor")
		QIcon::setThemeName("Adwaita");
	QIcon::setFallbackThemeName("hicolor");
}

// Runs in the server's thread: QIcon belongs to the GUI thread.
QImage
LookUp(const QString& type, int size)
{
	SetUpTheme();
	QMimeType mime = QMimeDatabase().mimeTypeForName(type);
	QStringList names;
	if (mime.isValid())
		names << mime.iconName() << mime.genericIconName();
	else
		names << QString(type).replace('/', '-');
	for (const QString& name : names) {
		QIcon icon = QIcon::fromTheme(name);
		if (!icon.isNull()) {
			QImage image = icon.pixmap(size, size).toImage();
			if (!image.isNull())
				return image.convertToFormat(QImage::Format_ARGB32).scaled(size, size);
		}
	}
	return QImage();
}

// ARGB32 rows are blue, green, red, alpha bytes: the B_RGBA32 layout.
void
CopyPixels(const QImage& image, int32 size, std::vector<uint8>* pixels)
{
	pixels->resize(size_t(size) * size * 4);
	for (int y = 0; y < size; y++)
		memcpy(pixels->data() + size_t(y) * size * 4, image.constScanLine(y), size_t(size) * 4);
}

}	// namespace

status_t
ThemeIcon(const char* mimeType, int32 size, std::vector<uint8>* pixels)
{
	if (mimeType == nullptr || size <= 0 || pixels == nullptr)
		return B_BAD_VALUE;
	DisplayServer& server = DisplayServer::Default();
	server.EnsureStarted();
	auto answer = std::make_shared<ServerAnswer<QImage>>();
	std::string type = mimeType;
	server.Post([answer, type, size] {
		answer->Set(LookUp(QString::fromStdString(type), size));
	});
	QImage image;
	if (!answer->Wait(kAnswerTimeout, &image))
		return B_TIMED_OUT;
	if (image.isNull())
		return B_NAME_NOT_FOUND;
	CopyPixels(image, size, pixels);
	return B_OK;
}

status_t
DecodeIcon(const uint8* data, size_t length, int32 size, std::vector<uint8>* pixels)
{
	if (data == nullptr || size <= 0 || pixels == nullptr)
		return B_BAD_VALUE;
	// Image formats are found through the GUI application's library paths.
	DisplayServer::Default().EnsureStarted();
	QImage image;
	if (!image.loadFromData(data, int(length)))
		return B_BAD_DATA;
	CopyPixels(image.convertToFormat(QImage::Format_ARGB32).scaled(size, size), size, pixels);
	return B_OK;
}

}
