#include <cstdlib>

#include <gtest/gtest.h>

#include <parsedate.h>

namespace {

// Local time of the given fields, for comparisons.
time_t
Local(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
{
	struct tm tm = {};
	tm.tm_year = year - 1900;
	tm.tm_mon = month - 1;
	tm.tm_mday = day;
	tm.tm_hour = hour;
	tm.tm_min = minute;
	tm.tm_sec = second;
	tm.tm_isdst = -1;
	return mktime(&tm);
}

// Wednesday, 10 January 2024, 15:20:00 local time.
const time_t kNow = Local(2024, 1, 10, 15, 20, 0);

}	// namespace

TEST(Parsedate, AbsoluteDatesAndTimes)
{
	const time_t jan5 = Local(2024, 1, 5);
	for (const char* text : {"January 5, 2024", "5 Jan 2024", "Jan 5 2024", "2024-01-05",
			"01/05/2024", "5-Jan-2024", "Friday, January 5th, 2024", "05.01.2024"})
		EXPECT_EQ(parsedate(text, kNow), jan5) << text;

	EXPECT_EQ(parsedate("10:30", kNow), Local(2024, 1, 10, 10, 30));
	EXPECT_EQ(parsedate("10:30:15", kNow), Local(2024, 1, 10, 10, 30, 15));
	EXPECT_EQ(parsedate("10:30 PM", kNow), Local(2024, 1, 10, 22, 30));
	EXPECT_EQ(parsedate("12:05 am", kNow), Local(2024, 1, 10, 0, 5));
	EXPECT_EQ(parsedate("22:30", kNow), Local(2024, 1, 10, 22, 30));
	EXPECT_EQ(parsedate("2024-01-05 10:30", kNow), Local(2024, 1, 5, 10, 30));
	EXPECT_EQ(parsedate("2024-01-05T10:30:15", kNow), Local(2024, 1, 5, 10, 30, 15));
	EXPECT_EQ(parsedate("Jan 5 2024 10:30 PM", kNow), Local(2024, 1, 5, 22, 30));
	EXPECT_EQ(parsedate("February 29, 2024", kNow), Local(2024, 2, 29));
	EXPECT_EQ(parsedate("1/5/99", kNow), Local(1999, 1, 5));
}

TEST(Parsedate, TheProgramsOwnFormats)
{
	EXPECT_EQ(parsedate("Fri, Jan 05 2024, 10:30:15 AM", kNow),
		Local(2024, 1, 5, 10, 30, 15));
	EXPECT_EQ(parsedate("Fri, Jan 05 2024, 10:30:15 PM", kNow),
		Local(2024, 1, 5, 22, 30, 15));
	EXPECT_EQ(parsedate("01/05/2024 22:30:15", kNow), Local(2024, 1, 5, 22, 30, 15));
}

TEST(Parsedate, RelativeForms)
{
	EXPECT_EQ(parsedate("now", kNow), kNow);
	EXPECT_EQ(parsedate("today", kNow), kNow);
	EXPECT_EQ(parsedate("yesterday", kNow), Local(2024, 1, 9, 15, 20));
	EXPECT_EQ(parsedate("tomorrow 9:00", kNow), Local(2024, 1, 11, 9, 0));
	EXPECT_EQ(parsedate("+1 day", kNow), Local(2024, 1, 11, 15, 20));
	EXPECT_EQ(parsedate("-2 hours", kNow), kNow - 7200);
	EXPECT_EQ(parsedate("3 weeks ago", kNow), Local(2023, 12, 20, 15, 20));
	EXPECT_EQ(parsedate("last week", kNow), Local(2024, 1, 3, 15, 20));
	EXPECT_EQ(parsedate("next month", kNow), Local(2024, 2, 10, 15, 20));
	EXPECT_EQ(parsedate("next monday", kNow), Local(2024, 1, 15));
	EXPECT_EQ(parsedate("last monday", kNow), Local(2024, 1, 8));
	EXPECT_EQ(parsedate("friday", kNow), Local(2024, 1, 12));
	EXPECT_EQ(parsedate("next wednesday", kNow), Local(2024, 1, 17));
	time_t before = time(nullptr);
	time_t current = parsedate("now", -1);
	EXPECT_GE(current, before);
	EXPECT_LE(current, time(nullptr));
}

TEST(Parsedate, RefusesWhatItDoesNotUnderstand)
{
	for (const char* text : {"", "   ", "garbage", "13/45/2024", "February 30, 2024",
			"25:00", "10:61", "13:00 pm", "Jan Feb", "2024-01-05 10:30 10:40",
			"5 blorbs", "next", "+", "10:30 @", "99999999999999999999",
			"Jan 5 2024 garbage", "\xff\xfe"})
		EXPECT_EQ(parsedate(text, kNow), -1) << text;
	EXPECT_EQ(parsedate(nullptr, kNow), -1);
}
