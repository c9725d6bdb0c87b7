#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <vector>

#include "ValueParsing.h"

namespace {

struct Parsed {
	std::unique_ptr<char[]> bytes;
	long size = -1;

	template<typename T>
	T As() const
	{
		T value;
		memcpy(&value, bytes.get(), sizeof(T));
		return value;
	}

	std::vector<uint8> Bytes() const
	{
		const uint8* start = reinterpret_cast<const uint8*>(bytes.get());
		return std::vector<uint8>(start, start + size);
	}
};

Parsed
Number(const char* newText, const char* oldText, const char* type)
{
	Parsed parsed;
	parsed.bytes.reset(ExtractNumValue(newText, oldText, type, &parsed.size));
	return parsed;
}

Parsed
Hex(const char* text)
{
	Parsed parsed;
	parsed.bytes.reset(ExtractHexValue(text, &parsed.size));
	return parsed;
}

}	// namespace

TEST(NumberParsing, ChangedCharactersFieldReadsCharacterCodes)
{
	Parsed parsed = Number("1,235 '....' 0x000004D2", "1,234 '....' 0x000004D2",
		"LONG");
	ASSERT_EQ(parsed.size, 4);
	EXPECT_EQ(parsed.As<int32>(), 0x3565);
}

TEST(NumberParsing, DecimalEntryIsCutToTheTypeWidth)
{
	Parsed shortValue = Number("70000", "5 '..' 0x0005", "SHRT");
	ASSERT_EQ(shortValue.size, 2);
	EXPECT_EQ(shortValue.As<int16>(), 4464);

	Parsed longLong = Number("-5", "7 '........' 0x0000000000000007", "LLNG");
	ASSERT_EQ(longLong.size, 8);
	EXPECT_EQ(longLong.As<int64>(), -5);

	// atol's 32-bit range holds for 8-byte types as well.
	Parsed large = Number("5000000000", "", "ULLG");
	EXPECT_EQ(large.As<int64>(), 2147483647);

	Parsed character = Number("321", "", "CHAR");
	ASSERT_EQ(character.size, 1);
	EXPECT_EQ(character.As<uint8>(), 321 & 0xFF);
}

TEST(NumberParsing, UnchangedTextIsReadWholeInDecimal)
{
	Parsed same = Number("12 '.' 0x0C", "12 '.' 0x0C", "LONG");
	EXPECT_EQ(same.As<int32>(), 12);
	// Letter case alone is no change.
	Parsed upper = Number("12 'A' 0X0C", "12 'a' 0x0c", "LONG");
	EXPECT_EQ(upper.As<int32>(), 12);
	// atol stops at the thousands separator.
	Parsed grouped = Number("1,234 '....' 0x000004D2", "1,234 '....' 0x000004D2",
		"LONG");
	EXPECT_EQ(grouped.As<int32>(), 1);
}

TEST(NumberParsing, TheChangedFieldChoosesTheMode)
{
	// "0x10" changes field 0 to the digits 10, read in decimal.
	EXPECT_EQ(Number("0x10", "5 '.' 0x00000005", "LONG").As<int32>(), 10);
	// Field 0 and 1 unchanged: the hex digits are read.
	EXPECT_EQ(Number("5 '.' 0x000000FF", "5 '.' 0x00000005", "LONG").As<int32>(),
		0xFF);
	// A float edited after its decimal point stores the new decimals.
	EXPECT_FLOAT_EQ(Number("3.15", "3.14", "FLOT").As<float>(), 15.0f);
	EXPECT_FLOAT_EQ(Number("2.5", "3.14", "FLOT").As<float>(), 2.0f);
	EXPECT_FLOAT_EQ(Number("2.5", "", "FLOT").As<float>(), 2.0f);
	// The characters mode of a double passes through single precision.
	Parsed dble = Number("3.1", "3.14", "DBLE");
	ASSERT_EQ(dble.size, 8);
	EXPECT_DOUBLE_EQ(dble.As<double>(), 1.0);
	// Equal fields throughout: the third field, empty here, means the whole text.
	// hextof takes the '.' as the second integer digit: 1 * 16 + 0 + 5 / 10.
	EXPECT_FLOAT_EQ(Number("1.5x", "1.5", "FLOT").As<float>(), 16.5f);
}

TEST(NumberParsing, NumericTypesWithoutARuleGiveNothing)
{
	long size = 99;
	EXPECT_EQ(ExtractNumValue("5", "", "BYTE", &size), nullptr);
	EXPECT_EQ(ExtractNumValue("5", "", "UBYT", &size), nullptr);
	EXPECT_EQ(ExtractNumValue("5", "", "MIME", &size), nullptr);
	EXPECT_EQ(size, 99);
}

TEST(RectParsing, DisplayFormReadsBackAndSignsAreSeparators)
{
	Parsed parsed;
	parsed.bytes.reset(ExtractRectValue("(1.00, 2.00, 3.00, 4.00)", &parsed.size));
	ASSERT_EQ(parsed.size, 16);
	float edges[4];
	memcpy(edges, parsed.bytes.get(), 16);
	EXPECT_EQ(edges[0], 1.0f);
	EXPECT_EQ(edges[1], 2.0f);
	EXPECT_EQ(edges[2], 3.0f);
	EXPECT_EQ(edges[3], 4.0f);

	parsed.bytes.reset(ExtractRectValue("-1 2e3", &parsed.size));
	memcpy(edges, parsed.bytes.get(), 16);
	EXPECT_EQ(edges[0], 1.0f);
	// atof reads the exponent, the digit scan does not: "e3" makes a third edge.
	EXPECT_EQ(edges[1], 2000.0f);
	EXPECT_EQ(edges[2], 3.0f);
	EXPECT_EQ(edges[3], 0.0f);

	parsed.bytes.reset(ExtractRectValue("", &parsed.size));
	EXPECT_EQ(parsed.size, 16);
	memcpy(edges, parsed.bytes.get(), 16);
	EXPECT_EQ(edges[0], 0.0f);
	EXPECT_EQ(parsed.bytes[16], 0);
}

TEST(BoolParsing, PrefixesOfTrue)
{
	for (const char* text : { "", "t", "T", "Tr", "true", "TRUE" }) {
		Parsed parsed;
		parsed.bytes.reset(ExtractBoolValue(text, &parsed.size));
		ASSERT_EQ(parsed.size, 1);
		EXPECT_EQ(parsed.bytes[0], 1) << text;
	}
	for (const char* text : { "1", "yes", "on", "true ", "false", "no" }) {
		Parsed parsed;
		parsed.bytes.reset(ExtractBoolValue(text, &parsed.size));
		EXPECT_EQ(parsed.bytes[0], 0) << text;
	}
}

TEST(HexParsing, PairsWithinRuns)
{
	Parsed spaced = Hex("0x0a0B 0c");
	EXPECT_EQ(spaced.Bytes(), (std::vector<uint8> { 0x0A, 0x0B, 0x0C }));

	Parsed odd = Hex("abc");
	EXPECT_EQ(odd.Bytes(), (std::vector<uint8> { 0xAB, 0x0C }));

	// Lone digits make bytes of their own, but the size counts digits.
	Parsed lone = Hex("1 2 3");
	EXPECT_EQ(lone.Bytes(), (std::vector<uint8> { 0x01, 0x02 }));

	// A second "0x" gives a byte for its '0'.
	Parsed twice = Hex("0x12 0x34");
	EXPECT_EQ(twice.Bytes(), (std::vector<uint8> { 0x12, 0x00, 0x34 }));

	Parsed none = Hex("zz");
	EXPECT_EQ(none.size, 0);
	EXPECT_EQ(none.bytes[0], 0);
}
