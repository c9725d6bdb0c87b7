// libFuzzer target: the text of an editor's Data field made into a value.
// The input is the type's four characters, the new text, a NUL and the text
// the field showed before.

#include <string>

#include "FieldValue.h"

// Every byte that a value's size counts is read into this, so that a size past
// its buffer is caught.
static volatile char sByteRead;

extern "C" int
LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
	const std::string input(reinterpret_cast<const char*>(data), size);
	const std::string type = input.substr(0, 4);
	const std::string texts = input.size() > 4 ? input.substr(4) : std::string();
	const size_t end = texts.find('\0');
	const std::string text = texts.substr(0, end);
	const std::string old = end == std::string::npos ? text : texts.substr(end + 1);

	long valueSize = -1;
	char* value = GetDataFromText(text.c_str(), old.c_str(), type.c_str(), &valueSize);
	for (long index = 0; value != nullptr && index < valueSize; index++)
		sByteRead = value[index];
	delete[] value;
	return 0;
}
