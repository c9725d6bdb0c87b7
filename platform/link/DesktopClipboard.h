#ifndef _DESKTOP_CLIPBOARD_H
#define _DESKTOP_CLIPBOARD_H

#include <map>
#include <string>
#include <vector>

#include <SupportDefs.h>

namespace BPrivate {

// The desktop's clipboard, owned by the display server's thread. Loopers ask
// it synchronously; the server answers without touching any looper. Data is
// kept by MIME type; "text/plain" is UTF-8 text.
class DesktopClipboard {
public:
	typedef std::map<std::string, std::string> Formats;

	// B_NO_INIT when no display server runs (the caller keeps its own store),
	// B_TIMED_OUT when it did not answer in time.
	// Reads those of types that the clipboard holds.
	static status_t Read(const std::vector<std::string>& types, Formats* formats);
	// Replaces the clipboard's contents with formats.
	static status_t Write(const Formats& formats);
};

}

#endif
