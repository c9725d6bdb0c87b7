#ifndef _MIME_GUESS_H
#define _MIME_GUESS_H

#include <string>

namespace BPrivate {

// The desktop's guess at the MIME type of the regular file at path, from its
// name and its content (the shared MIME database); "application/octet-stream"
// when nothing fits.
std::string GuessMimeType(const char* path);

}

#endif
