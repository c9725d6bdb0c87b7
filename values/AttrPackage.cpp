#include "AttrPackage.h"

#include <cstring>


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
