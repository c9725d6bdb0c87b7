// libFuzzer target: an attribute copied to the clipboard, as another program
// may have put it there. What AttrPackage takes must flatten to the same
// bytes; what it refuses must leave the package as it was.

#include <cstdlib>
#include <cstring>
#include <vector>

#include "AttrPackage.h"

extern "C" int
LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
	const int32 kept = 7;
	AttrPackage package("kept", 'LONG', sizeof(kept), &kept);
	if (package.Unflatten(data, size) != B_OK) {
		if (strcmp(package.Name(), "kept") != 0 || package.Size() != sizeof(kept)
			|| memcmp(package.Data(), &kept, sizeof(kept)) != 0)
			abort();
		return 0;
	}
	std::vector<char> flat(package.FlattenedSize());
	if (package.Flatten(flat.data(), flat.size()) != B_OK || flat.size() != size
		|| memcmp(flat.data(), data, size) != 0)
		abort();
	return 0;
}
