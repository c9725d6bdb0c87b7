// libFuzzer target: the settings file's contents, read into the five
// remembered window frames.

#include <string>

#include "SettingsFile.h"

extern "C" int
LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
	BRect rects[5] = {BRect(60, 60, 460, 330), BRect(100, 100, 228, 228),
		BRect(100, 100, 616, 280), BRect(100, 100, 616, 280), BRect(100, 100, 616, 280)};
	ParseWindowRects(std::string(reinterpret_cast<const char*>(data), size), rects, 5);
	return 0;
}
