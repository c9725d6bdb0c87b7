#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "DisplayStrings.h"
#include "FieldValue.h"

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
	EXPECT_EQ(Shown('FLOT', 3.14159f), "3.14159");
	EXPECT_EQ(Shown('FLOT', 3.0f), "3.00");
	EXPECT_EQ(Shown('DBLE', -0.5), "-0.50");
	EXPECT_EQ(Shown('DBLE', 0.1), "0.10");
	EXPECT_EQ(Shown('DBLE', 1e300), "1e+300");
	EXPECT_EQ(Shown('DBLE', 5e-324), "5e-324");
	float rect[4] = { 1, 2, -3, 4.125f };
	EXPECT_EQ(Shown('RECT', rect), "(1.00, 2.00, -3.00, 4.125)");
	// Never an exponent, which would read back as two numbers.
	float huge[4] = { 1e20f, 1e-10f, 0, 0 };
	EXPECT_EQ(Shown('RECT', huge), "(100000002004087734272.00, 0.0000000001, 0.00, 0.00)");
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

	// 112 bytes of raw data fit in the row; 113 do not, and since the row
	// can still be edited it says so in words without a hex digit.
	EXPECT_EQ(ShownBytes('RAWT', std::vector<uint8>(112, 1)).size(), 254u);
	EXPECT_EQ(ShownBytes('RAWT', std::vector<uint8>(113, 1)), kTooLongText);
	EXPECT_EQ(ShownBytes('RAWT', std::vector<uint8>(255, 1)), kTooLongText);
	EXPECT_EQ(ShownBytes('RAWT', std::vector<uint8>(256, 1)), kTooLargeText);
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
	Change revalued = Changes(current, "count", "LONG", &six, 4);
	EXPECT_STREQ(revalued.question, "value 5 '....' 0x00000005 of \"count\"");
	EXPECT_STREQ(revalued.details, "value 6 '....' 0x00000006");

	// The letter case of a name is a change of its own.
	Change recased = Changes(current, "Count", nullptr, nullptr, -1);
	EXPECT_STREQ(recased.question, "name \"count\"");
	EXPECT_STREQ(recased.details, "name \"Count\"");

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
	for (const Change& change : { Changes(current, "count", "LONG", &same, 4),
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

// What a row shows is what its editor reads back: the same bytes, or, for a
// value too long to show, no bytes at all, so that the row's are kept.
TEST(AttrString, ShownValuesReadBackToTheirBytes)
{
	auto readBack = [](uint32 type, const std::vector<uint8>& bytes) {
		std::string shown = ShownBytes(type, bytes);
		char typeText[5] = {char(type >> 24), char(type >> 16), char(type >> 8),
			char(type), '\0'};
		long size = -1;
		std::unique_ptr<char[]> value(GetDataFromText(shown.c_str(), shown.c_str(),
			typeText, &size));
		if (value == nullptr || size < 0)
			return std::vector<uint8>{0xEE};
		return std::vector<uint8>(value.get(), value.get() + size);
	};
	auto of = [](const auto& value) {
		auto bytes = reinterpret_cast<const uint8*>(&value);
		return std::vector<uint8>(bytes, bytes + sizeof(value));
	};

	for (size_t size = 0; size <= 112; size++) {
		std::vector<uint8> raw(size);
		for (size_t index = 0; index < size; index++)
			raw[index] = uint8(index * 37 + 11);
		EXPECT_EQ(raw, readBack('RAWT', raw)) << size;
	}
	for (size_t size : {113, 200, 255})
		EXPECT_TRUE(readBack('RAWT', std::vector<uint8>(size, 0xAB)).empty()) << size;

	const float rects[][4] = {{1, 2, 3, 4}, {0.1f, 1.0f / 3, 12345.678f, 1e-7f},
		{3.4e38f, 1e-45f, 0, 255.5f}};
	for (const auto& rect : rects)
		EXPECT_EQ(of(rect), readBack('RECT', of(rect)));
	for (float number : {0.1f, 1.0f / 3, 3.14159f, 1e20f, 1e-30f, -2.5f})
		EXPECT_EQ(of(number), readBack('FLOT', of(number))) << number;
	for (double number : {0.1, 1.0 / 3, 1e300, 5e-324, -123456.789})
		EXPECT_EQ(of(number), readBack('DBLE', of(number))) << number;
	for (uint8 flag : {0, 1})
		EXPECT_EQ(of(flag), readBack('BOOL', of(flag)));
	const char text[] = "text with 0x12, 'quotes' and\ttabs";
	EXPECT_EQ(std::vector<uint8>(text, text + sizeof(text)),
		readBack('CSTR', std::vector<uint8>(text, text + sizeof(text))));
	for (int32 date : {0, 86400 * 365, 1700000000})
		EXPECT_EQ(of(date), readBack('TIME', of(date))) << date;
}
