// libFuzzer target: the display text of a value. The input is the type code
// (four bytes, most significant first) and the value's bytes; the text must
// end within its buffer.

#include <cstdlib>
#include <cstring>
#include <vector>

#include "DisplayStrings.h"

extern "C" int
LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
	if (size < 4)
		return 0;
	const uint32 type = uint32(data[0]) << 24 | data[1] << 16 | data[2] << 8 | data[3];
	// A copy of exactly the value's size, so that a read past it is caught.
	const std::vector<uint8_t> value(data + 4, data + size);
	std::vector<char> buffer(kAttrStringSize);
	strcpy(buffer.data(), kTooLargeText);
	MakeAttrString(buffer.data(), type, value.data(), value.size());
	if (memchr(buffer.data(), '\0', buffer.size()) == nullptr)
		abort();
	return 0;
}
