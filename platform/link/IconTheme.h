#ifndef _ICON_THEME_H
#define _ICON_THEME_H

#include <vector>

#include <SupportDefs.h>

namespace BPrivate {

// The desktop icon theme's icon for a MIME type, size by size pixels in B_RGBA32
// layout (blue, green, red, alpha); B_NAME_NOT_FOUND when the theme has none.
// Asks the display server, which answers without touching any looper.
status_t ThemeIcon(const char* mimeType, int32 size, std::vector<uint8>* pixels);
// An icon in an image file format (PNG) decoded to size by size B_RGBA32 pixels.
status_t DecodeIcon(const uint8* data, size_t length, int32 size, std::vector<uint8>* pixels);

}

#endif
