#ifndef _SUPPORT_DEFS_H
#define _SUPPORT_DEFS_H

#include <cstddef>
#include <cstdint>
#include <sys/types.h>

#include <Errors.h>

typedef int8_t int8;
typedef uint8_t uint8;
typedef int16_t int16;
typedef uint16_t uint16;
typedef int32_t int32;
typedef uint32_t uint32;
typedef int64_t int64;
typedef uint64_t uint64;

typedef int32 status_t;
typedef int64 bigtime_t;
typedef uint32 type_code;
typedef uint32 perform_code;

typedef unsigned char uchar;
typedef unsigned int uint;

#ifndef B_EMPTY_STRING
#define B_EMPTY_STRING ""
#endif

#define min_c(a, b) ((a) > (b) ? (b) : (a))
#define max_c(a, b) ((a) > (b) ? (a) : (b))

#endif
