// libFuzzer target: parsedate on arbitrary text, against a fixed "now".

#include <parsedate.h>

#include <string>

extern "C" int
LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
	const std::string text(reinterpret_cast<const char*>(data), size);
	parsedate(text.c_str(), 1000000000);
	return 0;
}
