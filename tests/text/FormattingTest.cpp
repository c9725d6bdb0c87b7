#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>

#include "Formatting.h"
#include "VellumString.h"

TEST(Formatting, TypeCodesInReadingOrder)
{
	EXPECT_STREQ(ASCII('LONG'), "LONG");
	EXPECT_STREQ(ASCII('MWPr'), "MWPr");
	EXPECT_STREQ(ASCII('a b '), "a b ");
	// Codes with bytes that cannot be shown stay recognisable as numbers.
	EXPECT_STREQ(ASCII(0), "0x00000000");
	EXPECT_STREQ(ASCII(0x4C4F4E01), "0x4C4F4E01");
	EXPECT_STREQ(ASCII(0xC3A94142), "0xC3A94142");
}

TEST(Formatting, ThousandsAreSeparated)
{
	EXPECT_STREQ(LongNumStr(0), "0");
	EXPECT_STREQ(LongNumStr(999), "999");
	EXPECT_STREQ(LongNumStr(1000), "1,000");
	EXPECT_STREQ(LongNumStr(1234567), "1,234,567");
	EXPECT_STREQ(LongNumStr(-1234), "-1,234");
	EXPECT_STREQ(LongNumStr(-100), "-100");
	EXPECT_STREQ(LongNumStr(LLONG_MIN), "-9,223,372,036,854,775,808");
	EXPECT_STREQ(ULongNumStr(ULLONG_MAX), "18,446,744,073,709,551,615");
}

TEST(Formatting, RectanglesAndPoints)
{
	BRect rect(1.9f, -2.5f, 300.2f, 400.0f);
	EXPECT_STREQ(IntegerRectString(rect), "1 -2 300 400");
	EXPECT_STREQ(RectString(rect), "(1.90, -2.50, 300.20, 400.00)");
	EXPECT_STREQ(PointString(BPoint(1, 2.345f)), "(1.00, 2.35)");
}

TEST(Formatting, DatesAndTimesInLocalTime)
{
	setenv("TZ", "UTC0", 1);
	tzset();
	// 2004-03-07 14:05:09 UTC
	const time_t time = 1078668309;
	EXPECT_STREQ(datestring(time), "Mar 7, 2004");
	EXPECT_STREQ(timestring(time), "14:05:09");
	EXPECT_STREQ(datetostring(time), "Mar 7, 2004 14:05:09");
	EXPECT_STREQ(datetostring(0), "Jan 1, 1970 00:00:00");
	// A time with no calendar date shows its seconds.
	EXPECT_STREQ(datetostring(LLONG_MAX), LongNumStr(LLONG_MAX));
	unsetenv("TZ");
	tzset();
}
