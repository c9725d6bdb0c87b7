#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <ctime>
#include <memory>
#include <string>

#include <parsedate.h>

#include "DisplayStrings.h"
#include "FieldValue.h"
#include "Formatting.h"

namespace {

struct Parsed {
	std::unique_ptr<char[]> bytes;
	long size = -1;
};

Parsed
FromField(const char* text, const char* typeText, const char* oldText = "")
{
	Parsed parsed;
	parsed.bytes.reset(GetDataFromText(text, oldText, typeText, &parsed.size));
	return parsed;
}

int32
TimeIn(const Parsed& parsed)
{
	int32 time;
	memcpy(&time, parsed.bytes.get(), sizeof(time));
	return time;
}

// Local times are read back in the zone they were written in.
class DateRoundTrip : public ::testing::Test {
protected:
	void SetUp() override
	{
		setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);
		tzset();
	}

	void TearDown() override
	{
		unsetenv("TZ");
		tzset();
	}
};

}	// namespace

TEST(FieldValue, DispatchByTheTypeText)
{
	Parsed text = FromField("abc", "CSTR");
	ASSERT_EQ(text.size, 4);
	EXPECT_EQ(std::string(text.bytes.get(), 4), std::string("abc", 4));

	Parsed number = FromField("1,235 '....' 0x000004D2", "LONG",
		"1,234 '....' 0x000004D2");
	ASSERT_EQ(number.size, 4);
	EXPECT_EQ(TimeIn(number), 0x3565);

	Parsed raw = FromField("0x0a0B 0c", "RAWT");
	ASSERT_EQ(raw.size, 3);
	EXPECT_EQ(std::string(raw.bytes.get(), 3), "\x0A\x0B\x0C");
	EXPECT_EQ(FromField("0x0102", "MWPr").size, 2);

	EXPECT_EQ(FromField("", "BOOL").bytes[0], 1);
	EXPECT_EQ(FromField("no", "BOOL").bytes[0], 0);
	EXPECT_EQ(FromField("(1.00, 2.00, 3.00, 4.00)", "RECT").size, 16);

	// The type is the first four characters of the Type field, whatever follows.
	EXPECT_EQ(FromField("7", "SHRT and more").size, 2);
}

TEST(FieldValue, TypesWithoutARuleGiveNothing)
{
	for (const char* type : { "MIME", "CHAR", "BYTE", "XATR", "", "cstr" }) {
		long size = 42;
		EXPECT_EQ(GetDataFromText("5", "", type, &size), nullptr) << type;
		EXPECT_EQ(size, 42);
	}
}

TEST_F(DateRoundTrip, DatesReadBackToTheSecond)
{
	// Times across several years, summer and winter time, leap days.
	const time_t times[] = { 0, 86399, 951782400, 1078668309, 1215000000,
		1330473600, 1500000000, 1700000001, 2000000000, 2147483647 };
	for (time_t time : times) {
		String text = datetostring(time);
		EXPECT_EQ(parsedate(text, -1), time) << static_cast<const char*>(text);

		// The date view joins its two fields with two blanks.
		String joined = datestring(time);
		joined << "  " << timestring(time);
		EXPECT_EQ(parsedate(joined, -1), time) << static_cast<const char*>(joined);
	}
}

TEST_F(DateRoundTrip, TimeValuesReadBackThroughTheirDisplayString)
{
	int32 time = 1215000000;
	char buffer[kAttrStringSize];
	MakeAttrString(buffer, 'TIME', &time, sizeof(time));
	Parsed parsed = FromField(buffer, "TIME");
	ASSERT_EQ(parsed.size, 4);
	EXPECT_EQ(TimeIn(parsed), time);

	EXPECT_EQ(TimeIn(FromField("not a date at all", "TIME")), -1);
}
