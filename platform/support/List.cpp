#include <List.h>

#include <algorithm>

BList::BList(int32 count)
{
	fItems.reserve(std::max<int32>(count, 0));
}

bool
BList::AddItem(void* item)
{
	fItems.push_back(item);
	return true;
}

bool
BList::AddItem(void* item, int32 index)
{
	if (index < 0 || index > CountItems())
		return false;
	fItems.insert(fItems.begin() + index, item);
	return true;
}

bool
BList::AddList(const BList* list)
{
	return list != nullptr && AddList(list, CountItems());
}

bool
BList::AddList(const BList* list, int32 index)
{
	if (list == nullptr || index < 0 || index > CountItems())
		return false;
	std::vector<void*> copy = list->fItems;
	fItems.insert(fItems.begin() + index, copy.begin(), copy.end());
	return true;
}

bool
BList::RemoveItem(void* item)
{
	int32 index = IndexOf(item);
	if (index < 0)
		return false;
	fItems.erase(fItems.begin() + index);
	return true;
}

void*
BList::RemoveItem(int32 index)
{
	if (!pvValidIndex(index))
		return nullptr;
	void* item = fItems[index];
	fItems.erase(fItems.begin() + index);
	return item;
}

bool
BList::RemoveItems(int32 index, int32 count)
{
	if (!pvValidIndex(index) || count < 0)
		return false;
	count = std::min(count, CountItems() - index);
	fItems.erase(fItems.begin() + index, fItems.begin() + index + count);
	return true;
}

bool
BList::ReplaceItem(int32 index, void* item)
{
	if (!pvValidIndex(index))
		return false;
	fItems[index] = item;
	return true;
}

void
BList::MakeEmpty()
{
	fItems.clear();
}

void
BList::SortItems(int (*compare)(const void*, const void*))
{
	if (compare == nullptr)
		return;
	// The comparator receives pointers to the list's slots, as qsort would give them.
	std::stable_sort(fItems.begin(), fItems.end(),
		[compare](void* const& a, void* const& b) { return compare(&a, &b) < 0; });
}

bool
BList::SwapItems(int32 indexA, int32 indexB)
{
	if (!pvValidIndex(indexA) || !pvValidIndex(indexB))
		return false;
	std::swap(fItems[indexA], fItems[indexB]);
	return true;
}

bool
BList::MoveItem(int32 fromIndex, int32 toIndex)
{
	if (!pvValidIndex(fromIndex) || !pvValidIndex(toIndex))
		return false;
	void* item = fItems[fromIndex];
	fItems.erase(fItems.begin() + fromIndex);
	fItems.insert(fItems.begin() + toIndex, item);
	return true;
}

void*
BList::ItemAt(int32 index) const
{
	return pvValidIndex(index) ? fItems[index] : nullptr;
}

void*
BList::FirstItem() const
{
	return fItems.empty() ? nullptr : fItems.front();
}

void*
BList::LastItem() const
{
	return fItems.empty() ? nullptr : fItems.back();
}

int32
BList::IndexOf(const void* item) const
{
	auto found = std::find(fItems.begin(), fItems.end(), item);
	return found == fItems.end() ? -1 : static_cast<int32>(found - fItems.begin());
}

void
BList::DoForEach(bool (*func)(void* item))
{
	if (func == nullptr)
		return;
	for (void* item : fItems) {
		if (func(item))
			break;
	}
}

void
BList::DoForEach(bool (*func)(void* item, void* arg), void* arg)
{
	if (func == nullptr)
		return;
	for (void* item : fItems) {
		if (func(item, arg))
			break;
	}
}
