#include <List.h>

#include <gtest/gtest.h>

namespace {

int gItems[5] = {0, 1, 2, 3, 4};

int
CompareInts(const void* a, const void* b)
{
	int left = **static_cast<int* const*>(a);
	int right = **static_cast<int* const*>(b);
	return right - left;
}

}	// namespace

TEST(BListTest, IndicesOutOfRangeAreRefused)
{
	BList list;
	EXPECT_TRUE(list.AddItem(&gItems[0]));
	EXPECT_TRUE(list.AddItem(&gItems[2], 1));
	EXPECT_TRUE(list.AddItem(&gItems[1], 1));
	EXPECT_FALSE(list.AddItem(&gItems[3], 5));
	EXPECT_FALSE(list.AddItem(&gItems[3], -1));
	EXPECT_EQ(3, list.CountItems());
	EXPECT_EQ(&gItems[1], list.ItemAt(1));
	EXPECT_EQ(nullptr, list.ItemAt(3));
	EXPECT_EQ(nullptr, list.RemoveItem(7));
	EXPECT_FALSE(list.ReplaceItem(3, &gItems[4]));
	EXPECT_EQ(-1, list.IndexOf(&gItems[4]));
}

TEST(BListTest, RemoveMoveSwapAndSort)
{
	BList list;
	for (int& item : gItems)
		list.AddItem(&item);
	EXPECT_TRUE(list.RemoveItem(&gItems[0]));
	EXPECT_EQ(&gItems[1], list.FirstItem());
	EXPECT_TRUE(list.RemoveItems(1, 10));
	EXPECT_EQ(1, list.CountItems());
	list.AddItem(&gItems[3]);
	list.AddItem(&gItems[2]);
	EXPECT_TRUE(list.MoveItem(0, 2));
	EXPECT_EQ(&gItems[1], list.LastItem());
	EXPECT_TRUE(list.SwapItems(0, 1));
	EXPECT_EQ(&gItems[2], list.FirstItem());
	list.SortItems(CompareInts);
	EXPECT_EQ(&gItems[3], list.ItemAt(0));
	EXPECT_EQ(&gItems[1], list.ItemAt(2));
	BList copy;
	copy.AddList(&list);
	copy.AddList(&list, 1);
	EXPECT_EQ(6, copy.CountItems());
	EXPECT_EQ(&gItems[3], copy.ItemAt(1));
}
