#include "AttrPackage.h"

#include <algorithm>
#include <cstring>

namespace {

// The type and the size that follow the name.
const ssize_t kHeaderSize = 2 * sizeof(uint32);


uint32
ReadWord(const char* bytes)
{
	uint32 word = 0;
	for (int shift = 24; shift >= 0; shift -= 8)
		word = (word << 8) | static_cast<uint8>(bytes[shift / 8]);
	return word;
}


void
WriteWord(char* bytes, uint32 word)
{
	for (size_t index = 0; index < sizeof(word); index++, word >>= 8)
		bytes[index] = static_cast<char>(word & 0xFF);
}

}	// namespace


AttrPackage::AttrPackage()
{
	Init();
}


AttrPackage::AttrPackage(const char* name, uint32 type, uint32 size,
	const void* data)
{
	Init();
	Set(name, type, size, data);
}


AttrPackage::~AttrPackage()
{
	DeleteOld();
}


void
AttrPackage::Init()
{
	fType = 0;
	fSize = 0;
	fName[0] = '\0';
	fData = nullptr;
}


void
AttrPackage::Set(const char* name, uint32 type, uint32 size, const void* data)
{
	DeleteOld();

	// Names longer than the platform allows are cut rather than overflowing.
	strncpy(fName, name != nullptr ? name : "", kNameLength - 1);
	fName[kNameLength - 1] = '\0';
	fType = type;
	fSize = size;

	fData = new char[size];
	if (size > 0)
		memcpy(fData, data, size);
}


void
AttrPackage::DeleteOld()
{
	delete[] fData;
	Init();
}


ssize_t
AttrPackage::FlattenedSize() const
{
	return strlen(fName) + 1 + kHeaderSize + fSize;
}


status_t
AttrPackage::Flatten(void* buffer, ssize_t size) const
{
	if (buffer == nullptr || size < FlattenedSize())
		return B_BAD_VALUE;
	char* bytes = static_cast<char*>(buffer);
	size_t nameSize = strlen(fName) + 1;
	memcpy(bytes, fName, nameSize);
	bytes += nameSize;
	WriteWord(bytes, fType);
	WriteWord(bytes + sizeof(uint32), fSize);
	if (fSize > 0)
		memcpy(bytes + kHeaderSize, fData, fSize);
	return B_OK;
}


status_t
AttrPackage::Unflatten(const void* buffer, ssize_t size)
{
	if (buffer == nullptr || size <= 0)
		return B_BAD_DATA;
	const char* bytes = static_cast<const char*>(buffer);
	const void* nameEnd = memchr(bytes, '\0', std::min<ssize_t>(size, kNameLength));
	if (nameEnd == nullptr)
		return B_BAD_DATA;
	ssize_t nameSize = static_cast<const char*>(nameEnd) - bytes + 1;
	if (size - nameSize < kHeaderSize)
		return B_BAD_DATA;
	const char* header = bytes + nameSize;
	uint32 type = ReadWord(header);
	uint32 dataSize = ReadWord(header + sizeof(uint32));
	if (uint64(size - nameSize - kHeaderSize) != dataSize)
		return B_BAD_DATA;
	Set(bytes, type, dataSize, header + kHeaderSize);
	return B_OK;
}
