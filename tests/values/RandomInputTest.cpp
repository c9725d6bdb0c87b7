#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "AttrTypes.h"
#include "DisplayStrings.h"
#include "FieldValue.h"
#include "TypeConversion.h"
#include "ValueParsing.h"
#include "ValueText.h"

// Arbitrary input for every formatter, extractor and text function: nothing
// may crash or touch memory outside its buffers. Values and texts live in
// heap blocks of their exact size, so that AddressSanitizer sees any read
// past their end.

namespace {

std::vector<uint32>
AllTypes()
{
	std::vector<uint32> types(kAttrTypes, kAttrTypes + kAttrTypeCount);
	for (uint32 type : { uint32('XATR'), uint32('ICON'), uint32('MICN'),
			uint32('abcd'), uint32(0), uint32(0xFFFFFFFF) })
		types.push_back(type);
	return types;
}

// A text drawn mostly from the characters that the parsers look at.
std::string
RandomText(std::mt19937& random)
{
	static const char kAlphabet[] = "0123456789abcdefABCDEFxX'., -+e()\t";
	std::string text;
	size_t length = random() % 40;
	for (size_t i = 0; i < length; i++) {
		if (random() % 8 == 0)
			text += char(1 + random() % 255);
		else
			text += kAlphabet[random() % (sizeof(kAlphabet) - 1)];
	}
	return text;
}

}	// namespace

TEST(RandomInput, AttrStringsOfEveryTypeAndSize)
{
	std::mt19937 random(1);
	for (uint32 type : AllTypes()) {
		for (int32 size = 0; size <= 300; size++) {
			std::unique_ptr<uint8[]> data(new uint8[size > 0 ? size : 1]);
			for (int32 i = 0; i < size; i++)
				data[i] = uint8(random());
			// Some values end in a NUL or are text, to reach the text paths.
			if (size > 0 && random() % 2 == 0) {
				for (int32 i = 0; i < size; i++)
					data[i] = uint8(' ' + random() % 95);
				data[size - 1] = 0;
			}

			std::unique_ptr<char[]> buffer(new char[kAttrStringSize]);
			strcpy(buffer.get(), kTooLargeText);
			MakeAttrString(buffer.get(), type, data.get(), size);
			size_t length = strnlen(buffer.get(), kAttrStringSize);
			ASSERT_LT(length, size_t(kAttrStringSize));
			if (size == 0) {
				EXPECT_EQ(length, 0u);
			}

			AttrData current("name", type, data.get(), size);
			String question;
			String details;
			int32 newSize = random() % (size + 1);
			MakeChangeStrings(current, "other", "RAWT", data.get(), newSize,
				question, details);
			EXPECT_EQ(question.Length() == 0, details.Length() == 0);

			long converted = size;
			void* value = data.get();
			uint32 newType = AllTypes()[random() % AllTypes().size()];
			ConvertDataToNewType(&value, type, &converted, newType);
			if (value != data.get())
				delete[] static_cast<char*>(value);
		}
	}
}

TEST(RandomInput, TextsForEveryExtractor)
{
	std::mt19937 random(2);
	const char* typeTexts[] = { "LONG", "ULNG", "SHRT", "USHT", "LLNG", "ULLG",
		"CHAR", "FLOT", "DBLE", "BYTE", "UBYT", "", "L" };
	for (int round = 0; round < 20000; round++) {
		std::string newText = RandomText(random);
		std::string oldText = random() % 2 ? RandomText(random) : newText;
		std::unique_ptr<char[]> exactNew(new char[newText.size() + 1]);
		memcpy(exactNew.get(), newText.c_str(), newText.size() + 1);

		long size = -1;
		const char* typeText = typeTexts[random() % std::size(typeTexts)];
		delete[] ExtractNumValue(exactNew.get(), oldText.c_str(), typeText, &size);

		for (const char* type : { "CSTR", "RECT", "TIME", "BOOL", "LONG", "RAWT" })
			delete[] GetDataFromText(exactNew.get(), oldText.c_str(), type, &size);
		std::unique_ptr<char[]> date(ExtractDateValue(exactNew.get(), &size));
		EXPECT_EQ(size, 4);

		std::unique_ptr<char[]> rect(ExtractRectValue(exactNew.get(), &size));
		EXPECT_EQ(size, 16);
		std::unique_ptr<char[]> boolean(ExtractBoolValue(exactNew.get(), &size));
		EXPECT_EQ(size, 1);
		std::unique_ptr<char[]> hex(ExtractHexValue(exactNew.get(), &size));
		String text(exactNew.get());
		EXPECT_EQ(size, HexLength(text));

		for (int field = 0; field < 6; field++)
			EXPECT_LE(GetFieldStr(text, field).Length(), text.Length());
		EXPECT_LE(FindFirstHex(text), text.Length());
		hextof(text);
		hextod(text);
		hextol(text);
		strtol(text);
	}
}
