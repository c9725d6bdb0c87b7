#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "DisplayStrings.h"

namespace {

template<typename Value>
std::string
Shown(uint32 type, const Value& value)
{
	char buffer[kAttrStringSize];
	strcpy(buffer, kTooLargeText);
	MakeAttrString(buffer, type, &value, sizeof(value));
	return buffer;
}

std::string
ShownBytes(uint32 type, const std::vector<uint8>& bytes)
{
	char buffer[kAttrStringSize];
	strcpy(buffer, kTooLargeText);
	MakeAttrString(buffer, type, bytes.data(), bytes.size());
	return buffer;
}

std::string
ShownText(uint32 type, const std::string& text, bool withNul = true)
{
	return ShownBytes(type, std::vector<uint8>(text.begin(),
		text.end() + (withNul ? 1 : 0)));
}

}	// namespace

TEST(AttrString, IntegersShowDecimalCharactersAndHex)
{
	EXPECT_EQ(Shown('LONG', int32(1234)), "1,234 '....' 0x000004D2");
	EXPECT_EQ(Shown('LONG', int32('LONG')), "1,280,265,799 'LONG' 0x4C4F4E47");
	EXPECT_EQ(Shown('LONG', int32(-5)), "-5 '....' 0xFFFFFFFB");
	EXPECT_EQ(Shown('ULNG', int32(-5)), "4,294,967,291 '....' 0xFFFFFFFB");
	EXPECT_EQ(Shown('SHRT', int16(65)), "65 '.A' 0x0041");
	EXPECT_EQ(Shown('BYTE', int8(-1)), "-1 '.' 0xFF");
	EXPECT_EQ(Shown('UBYT', uint8(200)), "200 '.' 0xC8");
	EXPECT_EQ(Shown('CHAR', char('\'')), "39 '.' 0x27");
	EXPECT_EQ(Shown('LLNG', int64(-2)), "-2 '........' 0xFFFFFFFFFFFFFFFE");
	EXPECT_EQ(Shown('OFFT', int64(1) << 40),
		"1,099,511,627,776 '........' 0x0000010000000000");
	EXPECT_EQ(Shown('SIZT', uint32(7)), "7 '....' 0x00000007");
}

TEST(AttrString, OtherTypedValues)
{
	EXPECT_EQ(Shown('FLOT', 3.14159f), "3.14");
	EXPECT_EQ(Shown('DBLE', -0.5), "-0.50");
	EXPECT_EQ(Shown('DBLE', 1e300), "1.00e+300");
	float rect[4] = { 1, 2, -3, 4.125f };
	EXPECT_EQ(Shown('RECT', rect), "(1.00, 2.00, -3.00, 4.12)");
	float point[2] = { 5, 6 };
	EXPECT_EQ(Shown('BPNT', point), "(5.00, 6.00)");
	EXPECT_EQ(Shown('BOOL', uint8(1)), "true");
	EXPECT_EQ(Shown('BOOL', uint8(2)), "true");
	EXPECT_EQ(Shown('BOOL', uint8(0)), "false");
	EXPECT_EQ(ShownBytes('ICON', std::vector<uint8>(1024)), "32 x 32 icon");
	EXPECT_EQ(ShownBytes('MICN', std::vector<uint8>(256)), "16 x 16 icon");
}

TEST(AttrString, StringsShowTheirText)
{
	EXPECT_EQ(ShownText('CSTR', "hello"), "hello");
	EXPECT_EQ(ShownText('MIMS', "text/plain"), "text/plain");
	EXPECT_EQ(ShownText('TEXT', "no terminator", false), "no terminator");
	EXPECT_EQ(ShownText('CSTR', std::string("ab\0cd", 5)), "ab");
}

TEST(AttrString, RawDataShowsGroupsOfEightDigits)
{
	EXPECT_EQ(ShownBytes('RAWT', { 0x0A, 0x0B, 0x0C }), "0x0A0B0C ");
	EXPECT_EQ(ShownBytes('abcd', { 1, 2, 3, 4, 5 }), "0x01020304 05 ");
	EXPECT_EQ(ShownBytes('RAWT', std::vector<uint8>(8, 0xFF)), "0xFFFFFFFF FFFFFFFF ");
	// A value whose size does not fit its type is shown as raw data.
	EXPECT_EQ(ShownBytes('LONG', { 1, 2, 3 }), "0x010203 ");
	EXPECT_EQ(ShownBytes('BOOL', { 1, 0 }), "0x0100 ");
}

TEST(AttrString, ExtendedAttributesAsTextWhenPrintable)
{
	EXPECT_EQ(ShownText('XATR', "a comment", false), "a comment");
	EXPECT_EQ(ShownText('XATR', "with NUL"), "with NUL");
	EXPECT_EQ(ShownText('XATR', "caf\xc3\xa9", false), "caf\xc3\xa9");
	EXPECT_EQ(ShownText('XATR', "bad \xc3", false), "0x62616420 C3 ");
	EXPECT_EQ(ShownBytes('XATR', { 'a', 1 }), "0x6101 ");
	// A lone NUL is the empty text, as it is for 'CSTR'.
	EXPECT_EQ(ShownBytes('XATR', { 0 }), "");
}

TEST(AttrString, EmptyAndTooLargeValues)
{
	EXPECT_EQ(ShownBytes('LONG', {}), "");
	EXPECT_EQ(ShownBytes('CSTR', {}), "");

	// 112 bytes of raw data fit in the row; 113 do not.
	EXPECT_EQ(ShownBytes('RAWT', std::vector<uint8>(112, 1)).size(), 254u);
	EXPECT_EQ(ShownBytes('RAWT', std::vector<uint8>(113, 1)), kTooLargeText);
	EXPECT_EQ(ShownText('CSTR', std::string(255, 'x')), std::string(255, 'x'));
	EXPECT_EQ(ShownText('CSTR', std::string(256, 'x')), kTooLargeText);
	EXPECT_EQ(ShownText('XATR', std::string(300, 'x')), kTooLargeText);
}

TEST(HeaderString, NamesTypeAndSize)
{
	EXPECT_STREQ(MakeHeaderString('LONG', 4, "count"), "Attribute \"count\" (LONG, 4 bytes)");
	EXPECT_STREQ(MakeHeaderString('BOOL', 1, nullptr), "Attribute (BOOL, 1 byte)");
	EXPECT_STREQ(MakeHeaderString('RAWT', 65536, ""), "Attribute (RAWT, 65,536 bytes)");
}

namespace {

struct Change {
	String question;
	String details;
};

Change
Changes(const AttrData& current, const char* name, const char* type,
	const void* data, long size)
{
	Change change;
	MakeChangeStrings(current, name, type, data, size, change.question,
		change.details);
	return change;
}

}	// namespace

TEST(ChangeStrings, NameOnlyWhatChanged)
{
	int32 five = 5;
	AttrData current("count", 'LONG', &five, 4);

	Change renamed = Changes(current, "total", nullptr, nullptr, -1);
	EXPECT_STREQ(renamed.question, "name \"count\"");
	EXPECT_STREQ(renamed.details, "name \"total\"");

	Change retyped = Changes(current, nullptr, "SHRT", nullptr, -1);
	EXPECT_STREQ(retyped.question, "type LONG of \"count\"");
	EXPECT_STREQ(retyped.details, "type SHRT");

	int32 six = 6;
	Change revalued = Changes(current, "COUNT", "LONG", &six, 4);
	EXPECT_STREQ(revalued.question, "value 5 '....' 0x00000005 of \"count\"");
	EXPECT_STREQ(revalued.details, "value 6 '....' 0x00000006");

	int16 seven = 7;
	Change all = Changes(current, "n", "SHRT", &seven, 2);
	EXPECT_STREQ(all.question, "name \"count\", type LONG, value 5 '....' 0x00000005");
	EXPECT_STREQ(all.details, "name \"n\", type SHRT, value 7 '..' 0x0007");
}

TEST(ChangeStrings, NothingChangedGivesEmptyTexts)
{
	int32 five = 5;
	AttrData current("count", 'LONG', &five, 4);
	int32 same = 5;
	for (const Change& change : { Changes(current, "Count", "LONG", &same, 4),
			Changes(current, "", nullptr, nullptr, 0),
			Changes(current, nullptr, nullptr, "5 '....' 0x00000005", -1) }) {
		EXPECT_STREQ(change.question, "");
		EXPECT_STREQ(change.details, "");
	}
}

TEST(ChangeStrings, TextValuesShowAsTyped)
{
	char text[] = "old";
	AttrData current("note", 'CSTR', text, 4);
	Change change = Changes(current, nullptr, nullptr, "new text", -1);
	EXPECT_STREQ(change.question, "value old of \"note\"");
	EXPECT_STREQ(change.details, "value new text");

	std::string longText(1000, 'y');
	Change large = Changes(current, nullptr, nullptr, longText.c_str(), -1);
	EXPECT_STREQ(large.details, "value (1,000 bytes)");
}
