#ifndef TYPE_CONVERSION_H
#define TYPE_CONVERSION_H

#include <SupportDefs.h>

// Converts the value at *data, of oldType and *size bytes, to newType when
// newType is an integer type: a value at least as long as the standard size
// of newType keeps its low bytes (only *size shrinks); a shorter one gets a
// fresh zeroed buffer (release it with delete[]) into which 1, 2 and 4-byte
// integers are sign-extended ('BOOL' zero-extended). The old buffer is never
// changed or released. Other target types leave *data and *size alone.
void ConvertDataToNewType(void** data, uint32 oldType, long* size,
	uint32 newType);

#endif
