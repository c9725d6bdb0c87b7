#include "../link/DisplayLoop.h"

#include <atomic>

namespace BPrivate {

namespace {

std::atomic<DisplayLoop*> sDisplayLoop{nullptr};

}

DisplayLoop::~DisplayLoop() = default;

void
SetDisplayLoop(DisplayLoop* loop)
{
	sDisplayLoop = loop;
}

DisplayLoop*
GetDisplayLoop()
{
	return sDisplayLoop;
}

}
