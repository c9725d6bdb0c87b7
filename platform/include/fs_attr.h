#ifndef _FS_ATTR_H
#define _FS_ATTR_H

#include <sys/types.h>

#include <SupportDefs.h>

// What GetAttrInfo tells about one attribute.
struct attr_info {
	uint32 type;
	off_t size;
};

#endif
