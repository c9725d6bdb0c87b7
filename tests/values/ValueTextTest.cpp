#include <gtest/gtest.h>

#include "ValueText.h"

TEST(ValueText, HexDigitsAndTheirValues)
{
	for (char c : std::string("0123456789abcdefABCDEF"))
		EXPECT_TRUE(ishexdigit(c)) << c;
	for (char c : std::string("gGxX .,'-\x80\xff"))
		EXPECT_FALSE(ishexdigit(c)) << int(c);
	EXPECT_EQ(hexvalue('7'), 7);
	EXPECT_EQ(hexvalue('a'), 10);
	EXPECT_EQ(hexvalue('F'), 15);
	EXPECT_EQ(hexvalue('x'), 0);
	EXPECT_EQ(hexvalue('\xff'), 0);
}

// Fields of display strings as the row shows them.
TEST(ValueText, FieldsOfADisplayString)
{
	String small("65 'A' 0x00000041");
	EXPECT_STREQ(GetFieldStr(small, 0), "65");
	EXPECT_STREQ(GetFieldStr(small, 1), "A");
	EXPECT_STREQ(GetFieldStr(small, 2), "00000041");
	EXPECT_STREQ(GetFieldStr(small, 3), "");

	// Thousands separators make fields of their own.
	String grouped("1,234 '....' 0x000004D2");
	EXPECT_STREQ(GetFieldStr(grouped, 0), "1");
	EXPECT_STREQ(GetFieldStr(grouped, 1), "234");
	EXPECT_STREQ(GetFieldStr(grouped, 2), "....");
	EXPECT_STREQ(GetFieldStr(grouped, 3), "000004D2");

	String decimal("3.14");
	EXPECT_STREQ(GetFieldStr(decimal, 0), "3");
	EXPECT_STREQ(GetFieldStr(decimal, 1), "14");
}

TEST(ValueText, FieldScannerQuirks)
{
	// A text not starting with a digit skips to the first quote.
	String negative("-5 '.' 0xFB");
	EXPECT_STREQ(GetFieldStr(negative, 0), ".");
	// A hex field starting with a letter is one character long.
	EXPECT_STREQ(GetFieldStr(negative, 1), "F");

	String hex("0x10");
	EXPECT_STREQ(GetFieldStr(hex, 0), "10");
	String letters("abc");
	EXPECT_STREQ(GetFieldStr(letters, 0), "");

	// An unclosed quote runs to the end of the text.
	String open("1 'ab");
	EXPECT_STREQ(GetFieldStr(open, 1), "ab");
}

TEST(ValueText, FirstHexAndHexLength)
{
	BString prefixed("0x0a0B 0c");
	EXPECT_EQ(FindFirstHex(prefixed), 2);
	String prefixedString("0x0a0B 0c");
	EXPECT_EQ(HexLength(prefixedString), 3);

	BString later("  zz 12");
	EXPECT_EQ(FindFirstHex(later), 5);
	BString none("xyz");
	EXPECT_EQ(FindFirstHex(none), 3);
	BString bare("0");
	EXPECT_EQ(FindFirstHex(bare), 0);

	String odd("abc");
	EXPECT_EQ(HexLength(odd), 2);
	String empty("");
	EXPECT_EQ(HexLength(empty), 0);
}

TEST(ValueText, HexIntegers)
{
	BString digits("000004D2");
	EXPECT_EQ(hextol(digits), 0x4D2);
	// Non-hex characters count as zero digits and still shift.
	BString spaced("1 2");
	EXPECT_EQ(hextol(spaced), 0x102);
	// Only the first 17 characters are read.
	BString longText("11111111111111111FFFF");
	EXPECT_EQ(static_cast<uint64>(hextol(longText)), 0x1111111111111111ull * 16 + 1);
	BString empty;
	EXPECT_EQ(hextol(empty), 0);
}

TEST(ValueText, CharactersShiftByFourBits)
{
	EXPECT_EQ(strtol(BString("235")), 0x3565);
	EXPECT_EQ(strtol(BString("A")), 0x41);
	EXPECT_EQ(strtol(BString("")), 0);
	// Character codes above 127 are sign-extended.
	EXPECT_EQ(strtol(BString("\xff")), -1);
}

TEST(ValueText, HexFloatsReturnAndWeighLaterDigitsMore)
{
	String empty;
	EXPECT_FLOAT_EQ(hextof(empty), 0.0f);
	String two("1A");
	EXPECT_FLOAT_EQ(hextof(two), 26.0f);
	// Index 2 adds 5/10, index 3 adds 2/1.
	String fraction("1A52");
	EXPECT_FLOAT_EQ(hextof(fraction), 26.0f + 0.5f + 2.0f);

	String four("00FF");
	EXPECT_DOUBLE_EQ(hextod(four), 255.0);
	String more("00011x1");
	EXPECT_DOUBLE_EQ(hextod(more), 1.0 + 0.1 + 1.0);
}

TEST(ValueText, DecimalTextToFloat)
{
	String text("3.25");
	EXPECT_FLOAT_EQ(strtof(text), 3.25f);
	EXPECT_DOUBLE_EQ(strtod(text), 3.25);
	String junk("x");
	EXPECT_EQ(strtof(junk), 0.0f);
}
