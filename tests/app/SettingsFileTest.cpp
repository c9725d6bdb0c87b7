// The settings file: what is read from it, what is written, and damaged files.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "SettingsFile.h"
#include "SettingsFolder.h"

namespace {

const BRect kDefaults[5] = {BRect(60, 60, 460, 330), BRect(100, 100, 228, 228),
	BRect(100, 100, 616, 280), BRect(100, 100, 616, 280), BRect(100, 100, 616, 280)};

// A settings folder of its own for every test.
class SettingsFileTest : public testing::Test {
protected:
	void SetUp() override
	{
		ASSERT_FALSE(fSettings.Root().empty());
		for (int i = 0; i < 5; i++)
			fRects[i] = kDefaults[i];
	}

	void ExpectDefaultsFrom(int first)
	{
		for (int i = first; i < 5; i++)
			EXPECT_EQ(kDefaults[i], fRects[i]) << "slot " << i;
	}

	SettingsFolder fSettings;
	BRect fRects[5];
};

}	// namespace

TEST_F(SettingsFileTest, ReadsTheVersionLineThenFiveRectangles)
{
	fSettings.WriteSettings(
		"0\n1 2 3 4\n5 6 7 8\n9 10 11 12\n13 14 15 16\n17 18 19 20\n21 22 23 24\n");
	ReadWindowRects(fRects, 5);
	EXPECT_EQ(BRect(1, 2, 3, 4), fRects[0]);
	EXPECT_EQ(BRect(5, 6, 7, 8), fRects[1]);
	EXPECT_EQ(BRect(9, 10, 11, 12), fRects[2]);
	EXPECT_EQ(BRect(13, 14, 15, 16), fRects[3]);
	EXPECT_EQ(BRect(17, 18, 19, 20), fRects[4]);
}

TEST_F(SettingsFileTest, AnotherVersionOrNoVersionLeavesTheDefaults)
{
	for (const char* text : {"1\n1 2 3 4\n", "-1\n1 2 3 4\n", "x\n1 2 3 4\n", "\n1 2 3 4\n",
			""}) {
		fSettings.WriteSettings(text);
		ReadWindowRects(fRects, 5);
		ExpectDefaultsFrom(0);
	}
}

TEST_F(SettingsFileTest, AMissingFileLeavesTheDefaultsAndCreatesTheFolder)
{
	std::filesystem::remove_all(fSettings.Root());
	ReadWindowRects(fRects, 5);
	ExpectDefaultsFrom(0);
	EXPECT_TRUE(std::filesystem::is_directory(fSettings.Root()));
	EXPECT_FALSE(std::filesystem::exists(fSettings.SettingsPath()));
}

TEST_F(SettingsFileTest, ReadingStopsAtTheFirstLineWithFewerThanTwoNumbers)
{
	fSettings.WriteSettings("0\n1 2 3 4\n5 6 7 8\n");
	ReadWindowRects(fRects, 5);
	EXPECT_EQ(BRect(1, 2, 3, 4), fRects[0]);
	EXPECT_EQ(BRect(5, 6, 7, 8), fRects[1]);
	ExpectDefaultsFrom(2);

	for (int i = 0; i < 5; i++)
		fRects[i] = kDefaults[i];
	fSettings.WriteSettings("0\n1 2 3 4\n9\n5 6 7 8\n");
	ReadWindowRects(fRects, 5);
	EXPECT_EQ(BRect(1, 2, 3, 4), fRects[0]);
	ExpectDefaultsFrom(1);

	fSettings.WriteSettings("0\n\n1 2 3 4\n");
	ReadWindowRects(fRects, 5);
	EXPECT_EQ(BRect(1, 2, 3, 4), fRects[0]) << "an empty line ends the reading";
}

TEST_F(SettingsFileTest, AShortLineKeepsTheTrailingNumbersOfTheLineBefore)
{
	fSettings.WriteSettings("0\n1 2 3 4\n10 20\n30 40 50\n");
	ReadWindowRects(fRects, 5);
	EXPECT_EQ(BRect(1, 2, 3, 4), fRects[0]);
	EXPECT_EQ(BRect(10, 20, 3, 4), fRects[1]);
	EXPECT_EQ(BRect(30, 40, 50, 4), fRects[2]);
	ExpectDefaultsFrom(3);
}

TEST_F(SettingsFileTest, AShortFirstLineKeepsTheInspectorDefault)
{
	fSettings.WriteSettings("0\n10 20\n");
	ReadWindowRects(fRects, 5);
	EXPECT_EQ(BRect(10, 20, 460, 330), fRects[0]);
	ExpectDefaultsFrom(1);
}

TEST_F(SettingsFileTest, ADamagedFileNeverFails)
{
	fSettings.WriteSettings(std::string("0\n1 2 3 4\n\xff\x00\x01garbage\n5 6 7 8\n", 28));
	ReadWindowRects(fRects, 5);
	EXPECT_EQ(BRect(1, 2, 3, 4), fRects[0]);
	ExpectDefaultsFrom(1);

	fSettings.WriteSettings("0\n99999999999999999999 -99999999999999999999 3 4 5 6 7\n-5 -6 -7 -8");
	ReadWindowRects(fRects, 5);
	EXPECT_EQ(BRect(float(INT_MAX), float(INT_MIN), 3, 4), fRects[0]);
	EXPECT_EQ(BRect(-5, -6, -7, -8), fRects[1]) << "the last line needs no line end";

	std::filesystem::remove(fSettings.SettingsPath());
	std::filesystem::create_directory(fSettings.SettingsPath());
	ReadWindowRects(fRects, 5);
	WriteWindowRects(fRects, 5);
	EXPECT_TRUE(std::filesystem::is_directory(fSettings.SettingsPath()));
}

TEST_F(SettingsFileTest, WritesSixLinesOfIntegers)
{
	WriteWindowRects(kDefaults, 5);
	EXPECT_EQ("0\n60 60 460 330\n100 100 228 228\n100 100 616 280\n100 100 616 280\n"
		"100 100 616 280\n", fSettings.Settings());

	BRect rects[5] = {BRect(10.75, 20.25, 410.5, 290.9), BRect(-3.5, 0, 1, 2),
		kDefaults[2], kDefaults[3], kDefaults[4]};
	WriteWindowRects(rects, 5);
	EXPECT_EQ("0\n10 20 410 290\n-3 0 1 2\n100 100 616 280\n100 100 616 280\n"
		"100 100 616 280\n", fSettings.Settings());
}

TEST_F(SettingsFileTest, ASettingsFolderPathTooLongIsNeverUsed)
{
	std::string deep = fSettings.Root() + "/" + std::string(120, 'd');
	setenv("XDG_CONFIG_HOME", deep.c_str(), 1);
	WriteWindowRects(kDefaults, 5);
	ReadWindowRects(fRects, 5);
	ExpectDefaultsFrom(0);
	EXPECT_FALSE(std::filesystem::exists(deep + "/Vellum_Settings"));
}

TEST_F(SettingsFileTest, RectanglesLargerThanTheScreenAreCutToIt)
{
	fSettings.WriteSettings("0\n0 0 60000 60000\n-5 10 50 100\n");
	ReadWindowRects(fRects, 5);
	FitWindowRects(fRects, 5, BRect(0, 0, 1279, 1023));
	EXPECT_EQ(BRect(0, 0, 1279, 1023), fRects[0]);
	EXPECT_EQ(BRect(-5, 10, 50, 100), fRects[1]) << "what fits stays as it was";
	ExpectDefaultsFrom(2);
}
