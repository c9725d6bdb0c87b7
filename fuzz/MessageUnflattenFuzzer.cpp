// libFuzzer target: BMessage::Unflatten on arbitrary bytes. Whatever it accepts
// must flatten again to a message with the same data.

#include <Message.h>

#include <cstdlib>
#include <vector>

extern "C" int
LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
	BMessage message;
	if (message.Unflatten(reinterpret_cast<const char*>(data), size) != B_OK)
		return 0;
	std::vector<char> flat(message.FlattenedSize());
	BMessage copy;
	if (message.Flatten(flat.data(), flat.size()) != B_OK
		|| copy.Unflatten(flat.data(), flat.size()) != B_OK || !copy.HasSameData(message))
		abort();
	return 0;
}
