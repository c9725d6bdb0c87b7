#include "AttrData.h"


AttrData::AttrData(const char* name, uint32 type, void* data, int32 size)
{
	Set(name, type, data, size);
}


void
AttrData::Set(const char* name, uint32 type, void* data, int32 size)
{
	this->name = name;
	this->type = type;
	this->data = data;
	this->size = size;
}
