#ifndef ATTR_DATA_H
#define ATTR_DATA_H

#include <SupportDefs.h>

#include "VellumString.h"

// One attribute value as it is shown or edited. The record keeps its own copy
// of the name but only points at the value bytes: whoever filled it keeps
// them alive for as long as the record is used, and frees them.
struct AttrData {
	AttrData(const char* name, uint32 type, void* data, int32 size);

	void Set(const char* name, uint32 type, void* data, int32 size);

	String name;
	uint32 type;
	void* data;
	int32 size;
};

#endif
