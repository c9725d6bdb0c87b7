#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <random>
#include <string>

#include "DisplayStrings.h"
#include "Formatting.h"
#include "ValueParsing.h"

// A value's display string read back by the extraction of its type.

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

template<typename Value>
Value
ReadBack(char* bytes)
{
	std::unique_ptr<char[]> owned(bytes);
	Value value;
	memcpy(&value, owned.get(), sizeof(value));
	return value;
}

template<typename Integer>
void
CheckIntegers(uint32 type, const char* typeText, int64 low, int64 high)
{
	for (int64 value = low; value <= high; value++) {
		std::string text = Shown(type, static_cast<Integer>(value));
		EXPECT_EQ(ReadBack<Integer>(ExtractNumValue(text.c_str(), text.c_str(),
			typeText, nullptr)), static_cast<Integer>(value)) << text;
	}
}

// The display string of shown with its hex digits replaced by those of the
// same-width value hex, as a user edits them.
std::string
WithHexOf(const std::string& shown, const std::string& hex)
{
	std::string edited = shown.substr(0, shown.rfind("0x") + 2);
	return edited + hex.substr(hex.rfind("0x") + 2);
}

}	// namespace

TEST(RoundTrip, IntegersUpToThreeDigitsReadBackUnchanged)
{
	CheckIntegers<int32>('LONG', "LONG", -999, 999);
	CheckIntegers<uint32>('ULNG', "ULNG", 0, 999);
	CheckIntegers<int16>('SHRT', "SHRT", -999, 999);
	CheckIntegers<uint16>('USHT', "USHT", 0, 999);
	CheckIntegers<int64>('LLNG', "LLNG", -999, 999);
	CheckIntegers<uint64>('ULLG', "ULLG", 0, 999);
	CheckIntegers<int8>('CHAR', "CHAR", -128, 127);
}

TEST(RoundTrip, EditedHexDigitsReadBackExactly)
{
	std::mt19937_64 random(7);
	for (int i = 0; i < 500; i++) {
		int64 wanted = static_cast<int64>(random()) & 0x7FFFFFFFFFFFFFFFll;
		std::string shown = Shown('LLNG', int64(i));
		std::string edited = WithHexOf(shown, Shown('LLNG', wanted));
		EXPECT_EQ(ReadBack<int64>(ExtractNumValue(edited.c_str(), shown.c_str(),
			"LLNG", nullptr)), wanted) << edited;

		int32 wanted32 = static_cast<int32>(random() & 0x7FFFFFFF);
		std::string shown32 = Shown('LONG', int32(i));
		std::string edited32 = WithHexOf(shown32, Shown('LONG', wanted32));
		EXPECT_EQ(ReadBack<int32>(ExtractNumValue(edited32.c_str(), shown32.c_str(),
			"LONG", nullptr)), wanted32) << edited32;
	}
}

TEST(RoundTrip, FloatsWithTwoDecimalsReadBack)
{
	for (int quarter = -4000; quarter <= 4000; quarter += 7) {
		float value = quarter / 4.0f;
		std::string text = Shown('FLOT', value);
		EXPECT_EQ(ReadBack<float>(ExtractNumValue(text.c_str(), text.c_str(), "FLOT",
			nullptr)), value) << text;
		std::string doubleText = Shown('DBLE', double(value));
		EXPECT_EQ(ReadBack<double>(ExtractNumValue(doubleText.c_str(),
			doubleText.c_str(), "DBLE", nullptr)), double(value)) << doubleText;
	}
	std::string large = Shown('DBLE', 1e300);
	EXPECT_EQ(ReadBack<double>(ExtractNumValue(large.c_str(), large.c_str(), "DBLE",
		nullptr)), 1e300);
}
