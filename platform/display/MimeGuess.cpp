#include "MimeGuess.h"

#include <QFile>
#include <QMimeDatabase>

namespace BPrivate {

std::string
GuessMimeType(const char* path)
{
	// The database is shared and safe to ask from any thread.
	QMimeDatabase database;
	return database.mimeTypeForFile(QFile::decodeName(path)).name().toStdString();
}

}
