#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "CMultiTextItem.h"
#include "DisplayStrings.h"

namespace {

// A row filled from an attribute the way the list fills its rows.
CMultiTextItem*
RowFor(const char* name, uint32 type, const void* data, int32 size)
{
	auto row = new CMultiTextItem(CMultiTextItem::kAttributeRow, 0, true);
	AttrData record(name, type, const_cast<void*>(data), size);
	row->SetNode(&record);
	return row;
}

}	// namespace

TEST(CMultiTextItemTest, ColumnsOfAnIntegerAndTheirTabJoinedCopy)
{
	int32 one = 1;
	std::unique_ptr<CMultiTextItem> row(RowFor("a", 'LONG', &one, 4));
	EXPECT_STREQ("a", row->GetString(CMultiTextItem::kNameColumn));
	EXPECT_STREQ("LONG", row->GetString(CMultiTextItem::kTypeColumn));
	EXPECT_STREQ("4", row->GetString(CMultiTextItem::kSizeColumn));
	EXPECT_STREQ("1 '....' 0x00000001", row->GetString(CMultiTextItem::kValueColumn));

	std::string joined = row->GetAttributeString();
	EXPECT_EQ("a\tLONG\t4\t1 '....' 0x00000001", joined);
	EXPECT_STREQ(joined.c_str(), row->GetString(CMultiTextItem::kJoinedString));

	row->SetNodeStrings("a", "LONG", "4", "1");
	EXPECT_STREQ("", row->GetString(CMultiTextItem::kJoinedString));
	EXPECT_STREQ("a\tLONG\t4\t1", row->GetAttributeString());
	EXPECT_EQ(nullptr, row->GetString(5));
}

TEST(CMultiTextItemTest, KeepsItsOwnZeroEndedCopyOfTheValue)
{
	char text[] = "hello";
	std::unique_ptr<CMultiTextItem> row(RowFor("s", 'CSTR', text, 5));
	text[0] = 'J';
	ASSERT_NE(nullptr, row->GetData());
	EXPECT_NE(static_cast<const void*>(text), row->GetData());
	EXPECT_STREQ("hello", static_cast<const char*>(row->GetData()));
	EXPECT_EQ(5u, row->GetDataSize());
	EXPECT_EQ(uint32('CSTR'), row->GetType());

	uint8 bytes[3] = {1, 2, 3};
	row->SetAttrData('RAWT', bytes, 3);
	EXPECT_EQ(0, memcmp(bytes, row->GetData(), 3));
	EXPECT_EQ(0, static_cast<const char*>(row->GetData())[3]);
	EXPECT_EQ(uint32('RAWT'), row->GetType());

	row->FreeAttrData();
	EXPECT_EQ(nullptr, row->GetData());
	EXPECT_EQ(0u, row->GetDataSize());
	EXPECT_EQ(0u, row->GetType());
}

TEST(CMultiTextItemTest, ZeroLengthValueHoldsNoDataButKeepsItsTypeText)
{
	char empty[1] = {0};
	std::unique_ptr<CMultiTextItem> row(RowFor("nothing", 'LONG', empty, 0));
	EXPECT_STREQ("0", row->GetString(CMultiTextItem::kSizeColumn));
	EXPECT_STREQ("LONG", row->GetString(CMultiTextItem::kTypeColumn));
	EXPECT_EQ(nullptr, row->GetData());
	EXPECT_EQ(0u, row->GetDataSize());
	EXPECT_EQ(0u, row->GetType());
}

TEST(CMultiTextItemTest, LargeValuesAreCopiedWholeButNotShown)
{
	std::vector<char> text(300, 'x');
	text.back() = '\0';
	std::unique_ptr<CMultiTextItem> row(RowFor("long", 'CSTR', text.data(), 300));
	EXPECT_STREQ("300", row->GetString(CMultiTextItem::kSizeColumn));
	EXPECT_STREQ(kTooLargeText, row->GetString(CMultiTextItem::kValueColumn));
	EXPECT_EQ(0, memcmp(text.data(), row->GetData(), 300));

	std::vector<uint8> raw(65536, 0xAB);
	row.reset(RowFor("raw", 'RAWT', raw.data(), 65536));
	EXPECT_STREQ("65,536", row->GetString(CMultiTextItem::kSizeColumn));
	EXPECT_STREQ(kTooLargeText, row->GetString(CMultiTextItem::kValueColumn));
	EXPECT_EQ(65536u, row->GetDataSize());
}

TEST(CMultiTextItemTest, FieldsFollowTheTabStops)
{
	CMultiTextItem row(CMultiTextItem::kAttributeRow, 0, true);
	// Left of the first stop and anywhere in the open value column: the value.
	EXPECT_EQ(3u, row.FindField(BPoint(3, 5)));
	EXPECT_EQ(0u, row.FindField(BPoint(6, 5)));
	// A point on a shared stop belongs to the column on its left.
	EXPECT_EQ(0u, row.FindField(BPoint(118, 5)));
	EXPECT_EQ(1u, row.FindField(BPoint(118.5, 5)));
	EXPECT_EQ(1u, row.FindField(BPoint(160, 5)));
	EXPECT_EQ(2u, row.FindField(BPoint(161, 5)));
	EXPECT_EQ(2u, row.FindField(BPoint(200, 5)));
	EXPECT_EQ(3u, row.FindField(BPoint(201, 5)));
	EXPECT_EQ(3u, row.FindField(BPoint(5000, 5)));
}
