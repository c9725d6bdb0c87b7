#include "WindowList.h"

#include <algorithm>
#include <mutex>
#include <utility>
#include <vector>

namespace BPrivate {

namespace {

std::mutex sLock;
std::vector<std::pair<BWindow*, BLooper*>> sWindows;

std::pair<BWindow*, BLooper*>
EntryAt(int32 index)
{
	std::lock_guard<std::mutex> guard(sLock);
	if (index < 0 || static_cast<size_t>(index) >= sWindows.size())
		return {nullptr, nullptr};
	return sWindows[index];
}

}

void
AddWindow(BWindow* window, BLooper* looper)
{
	std::lock_guard<std::mutex> guard(sLock);
	sWindows.emplace_back(window, looper);
}

void
RemoveWindow(BWindow* window)
{
	std::lock_guard<std::mutex> guard(sLock);
	std::erase_if(sWindows, [window](const auto& entry) { return entry.first == window; });
}

int32
CountWindows()
{
	std::lock_guard<std::mutex> guard(sLock);
	return static_cast<int32>(sWindows.size());
}

BWindow*
WindowAt(int32 index)
{
	return EntryAt(index).first;
}

BLooper*
WindowLooperAt(int32 index)
{
	return EntryAt(index).second;
}

}
