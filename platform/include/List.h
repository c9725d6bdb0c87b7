#ifndef _BE_LIST_H
#define _BE_LIST_H

#include <vector>

#include <SupportDefs.h>

// An ordered list of untyped pointers; indices out of range are refused.
class BList {
public:
	explicit BList(int32 count = 20);
	BList(const BList& other) = default;
	BList& operator=(const BList& other) = default;
	virtual ~BList() = default;

	bool AddItem(void* item);
	bool AddItem(void* item, int32 index);
	bool AddList(const BList* list);
	bool AddList(const BList* list, int32 index);
	bool RemoveItem(void* item);
	void* RemoveItem(int32 index);
	bool RemoveItems(int32 index, int32 count);
	bool ReplaceItem(int32 index, void* item);
	void MakeEmpty();

	void SortItems(int (*compare)(const void*, const void*));
	bool SwapItems(int32 indexA, int32 indexB);
	bool MoveItem(int32 fromIndex, int32 toIndex);

	void* ItemAt(int32 index) const;
	void* ItemAtFast(int32 index) const { return fItems[index]; }
	void* FirstItem() const;
	void* LastItem() const;
	void* Items() const { return const_cast<void**>(fItems.data()); }

	bool HasItem(const void* item) const { return IndexOf(item) >= 0; }
	int32 IndexOf(const void* item) const;
	int32 CountItems() const { return static_cast<int32>(fItems.size()); }
	bool IsEmpty() const { return fItems.empty(); }

	void DoForEach(bool (*func)(void* item));
	void DoForEach(bool (*func)(void* item, void* arg), void* arg);

private:
	bool pvValidIndex(int32 index) const { return index >= 0 && index < CountItems(); }

	std::vector<void*> fItems;
};

#endif
