#include "WindowList.h"

#include <algorithm>
#include <mutex>
#include <utility>
#include <vector>

namespace BPrivate {

namespace {

struct WindowTable {
	std::mutex lock;
	std::vector<std::pair<BWindow*, BLooper*>> windows;
};

// Never destroyed: a window thread may still leave the list while the
// process exits.
WindowTable&
Table()
{
	static WindowTable* table = new WindowTable;
	return *table;
}

std::pair<BWindow*, BLooper*>
EntryAt(int32 index)
{
	WindowTable& table = Table();
	std::lock_guard<std::mutex> guard(table.lock);
	if (index < 0 || static_cast<size_t>(index) >= table.windows.size())
		return {nullptr, nullptr};
	return table.windows[index];
}

}

void
AddWindow(BWindow* window, BLooper* looper)
{
	WindowTable& table = Table();
	std::lock_guard<std::mutex> guard(table.lock);
	table.windows.emplace_back(window, looper);
}

void
RemoveWindow(BWindow* window)
{
	WindowTable& table = Table();
	std::lock_guard<std::mutex> guard(table.lock);
	std::erase_if(table.windows, [window](const auto& entry) { return entry.first == window; });
}

int32
CountWindows()
{
	WindowTable& table = Table();
	std::lock_guard<std::mutex> guard(table.lock);
	return static_cast<int32>(table.windows.size());
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
