// The settings file: what is read from it, what is written, and damaged files.

#include <gtest/gtest.h>

#include <cstdio>
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

TEST_F(SettingsFileTest, ReadsTheVersionLineThenRectanglesUntilALineFallsShort)
{
	const struct {
		std::string text;
		const char* rects;
	} cases[] = {
		{"0\n1 2 3 4\n5 6 7 8\n9 10 11 12\n13 14 15 16\n17 18 19 20\n21 22 23 24\n",
			"1 2 3 4|5 6 7 8|9 10 11 12|13 14 15 16|17 18 19 20|"},
		{"1\n1 2 3 4\n", "-|-|-|-|-|"},
		{"-1\n1 2 3 4\n", "-|-|-|-|-|"},
		{"x\n1 2 3 4\n", "-|-|-|-|-|"},
		{"\n1 2 3 4\n", "-|-|-|-|-|"},
		{"", "-|-|-|-|-|"},
		{"0\n1 2 3 4\n5 6 7 8\n", "1 2 3 4|5 6 7 8|-|-|-|"},
		{"0\n1 2 3 4\n9\n5 6 7 8\n", "1 2 3 4|-|-|-|-|"},
		{"0\n\n1 2 3 4\n", "-|-|-|-|-|"},
		// A short line keeps the trailing numbers of the line before.
		{"0\n1 2 3 4\n10 20\n30 40 50\n", "1 2 3 4|10 20 3 4|30 40 50 4|-|-|"},
		{"0\n10 20\n", "10 20 460 330|-|-|-|-|"},
		{std::string("0\n1 2 3 4\n\xff\x00\x01garbage\n5 6 7 8\n", 28), "1 2 3 4|-|-|-|-|"},
		{"0\n99999999999999999999 -99999999999999999999 3 4 5 6 7\n-5 -6 -7 -8",
			"2147483648 -2147483648 3 4|-5 -6 -7 -8|-|-|-|"},
	};
	for (const auto& test : cases) {
		fSettings.WriteSettings(test.text);
		for (int i = 0; i < 5; i++)
			fRects[i] = kDefaults[i];
		ReadWindowRects(fRects, 5);
		std::string rects;
		for (int i = 0; i < 5; i++) {
			char text[80] = "-";
			if (fRects[i] != kDefaults[i]) {
				snprintf(text, sizeof(text), "%.0f %.0f %.0f %.0f", fRects[i].left, fRects[i].top,
					fRects[i].right, fRects[i].bottom);
			}
			rects += std::string(text) + "|";
		}
		EXPECT_EQ(test.rects, rects) << test.text;
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

TEST_F(SettingsFileTest, ASettingsFileThatIsAFolderNeverFails)
{
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
