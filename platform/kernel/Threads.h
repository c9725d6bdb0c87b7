#ifndef _THREADS_PRIVATE_H
#define _THREADS_PRIVATE_H

#include <cstddef>

namespace BPrivate {

// Joins every thread whose function has returned and that nobody waited for,
// so that none is still tearing down its thread-local data (the display
// library keeps some) when the process exits. Spawning a thread does this too.
void JoinFinishedThreads();

// How many threads the kits know of: running, or ended and not yet joined.
size_t CountKnownThreads();

}	// namespace BPrivate

#endif
