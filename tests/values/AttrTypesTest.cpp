#include <gtest/gtest.h>

#include <TypeConstants.h>

#include "AttrData.h"
#include "AttrPackage.h"
#include "AttrTypes.h"

TEST(AttrTypes, KnownCodesAreSuggestedForTheirSpellingInAnyCase)
{
	// A few of the 35 known codes, spelt in lower or mixed case.
	const struct { uint32 typed; uint32 known; } spelt[] = {
		{ 'cstr', 'CSTR' }, { 'Long', 'LONG' }, { 'rect', 'RECT' }, { 'time', 'TIME' },
		{ 'mims', 'MIMS' }, { 'ullg', 'ULLG' }, { 'clrb', 'CLRB' }, { 'msgg', 'MSGG' },
		{ 'anyt', 'ANYT' }, { 'rgbc', 'RGBC' }
	};
	for (const auto& entry : spelt)
		EXPECT_EQ(SuggestedTypeFor(entry.typed), entry.known);
	// Unknown codes, and codes that only look alike, stay as typed.
	for (uint32 typed : { uint32('abcd'), uint32('CST '), uint32('XATR'), 0x0000001Fu, 0u })
		EXPECT_EQ(SuggestedTypeFor(typed), typed);

	// Every code of the table is distinct and suggested for itself.
	ASSERT_EQ(kAttrTypeCount, 35);
	EXPECT_EQ(kAttrTypes[kAttrTypeCount], 0u);
	for (int i = 0; i < kAttrTypeCount; i++) {
		EXPECT_EQ(SuggestedTypeFor(kAttrTypes[i]), kAttrTypes[i]);
		for (int j = 0; j < i; j++)
			EXPECT_NE(kAttrTypes[i], kAttrTypes[j]);
	}
}

TEST(AttrTypes, NumericTypesAreTheTenNumberCodes)
{
	int count = 0;
	for (int i = 0; i < kAttrTypeCount; i++)
		count += IsNumType(kAttrTypes[i]) ? 1 : 0;
	EXPECT_EQ(count, 10);
	for (uint32 type : { 'FLOT', 'DBLE', 'LLNG', 'LONG', 'SHRT', 'BYTE', 'ULLG',
			'ULNG', 'USHT', 'UBYT' })
		EXPECT_TRUE(IsNumType(type));
	for (uint32 type : { 'BOOL', 'CHAR', 'TIME', 0 })
		EXPECT_FALSE(IsNumType(type));
}

TEST(AttrTypes, TheTwoSizeRulesDisagreeWhereTheyShould)
{
	EXPECT_EQ(SizeForType('UBYT', nullptr), 1u);
	EXPECT_EQ(CalcStandardAttrSize('UBYT'), 4);
	EXPECT_EQ(SizeForType('DBLE', nullptr), 8u);
	EXPECT_EQ(CalcStandardAttrSize('DBLE'), 4);
	EXPECT_EQ(SizeForType('CHAR', nullptr), 1u);
	EXPECT_EQ(CalcStandardAttrSize('CHAR'), 4);
	EXPECT_EQ(SizeForType('BPNT', nullptr), 8u);
	EXPECT_EQ(SizeForType('RECT', nullptr), 16u);
	EXPECT_EQ(CalcStandardAttrSize('RECT'), 4);
	EXPECT_EQ(SizeForType('TIME', nullptr), 4u);
	EXPECT_EQ(SizeForType('USHT', nullptr), 2u);
	EXPECT_EQ(CalcStandardAttrSize('USHT'), 2);
	EXPECT_EQ(CalcStandardAttrSize('BOOL'), 1);
	EXPECT_EQ(CalcStandardAttrSize('ULLG'), 8);
}

TEST(AttrTypes, SizeForTypeCountsTheTextOfOtherTypes)
{
	EXPECT_EQ(SizeForType('CSTR', "abc"), 4u);
	EXPECT_EQ(SizeForType('OFFT', ""), 1u);
	EXPECT_EQ(SizeForType('MIMS', "text/plain"), 11u);
}

TEST(AttrTypes, CalculateSizeForcesOnlyTheFixedSizeTypes)
{
	const struct { uint32 type; long size; } forced[] = {
		{ 'BOOL', 1 }, { 'BYTE', 1 }, { 'UBYT', 1 }, { 'SHRT', 2 }, { 'USHT', 2 },
		{ 'LONG', 4 }, { 'ULNG', 4 }, { 'FLOT', 4 }, { 'TIME', 4 }, { 'PNTR', 4 },
		{ 'LLNG', 8 }, { 'ULLG', 8 }, { 'DBLE', 8 }, { 'OFFT', 8 }, { 'RECT', 16 }
	};
	for (const auto& entry : forced) {
		long size = 77;
		CalculateSize(entry.type, &size);
		EXPECT_EQ(size, entry.size);
	}
	for (uint32 type : { 'CSTR', 'MIME', 'RAWT', 'BPNT', 'CHAR', 'abcd' }) {
		long size = 77;
		CalculateSize(type, &size);
		EXPECT_EQ(size, 77);
	}
}

TEST(AttrTypes, TypeCodeFromTextReadsFourBytesInReadingOrder)
{
	EXPECT_EQ(TypeCodeFromText("LONG"), uint32('LONG'));
	EXPECT_EQ(TypeCodeFromText("LONGER"), uint32('LONG'));
	EXPECT_EQ(TypeCodeFromText("AB"), 0x41420000u);
	EXPECT_EQ(TypeCodeFromText(""), 0u);
	EXPECT_EQ(TypeCodeFromText(nullptr), 0u);
}

TEST(AttrRecords, AttrDataCopiesTheNameButOnlyPointsAtTheData)
{
	char name[] = "size";
	char* bytes = new char[4] { 1, 2, 3, 4 };
	{
		AttrData record(name, 'LONG', bytes, 4);
		name[0] = 'X';
		EXPECT_STREQ(record.name, "size");
		EXPECT_EQ(record.data, bytes);
		EXPECT_EQ(record.type, uint32('LONG'));
		EXPECT_EQ(record.size, 4);
		record.Set("other", 'CSTR', nullptr, 0);
		EXPECT_STREQ(record.name, "other");
		EXPECT_EQ(record.data, nullptr);
	}
	// Still ours: freeing it here would fail under the sanitizer if the
	// record had freed it.
	EXPECT_EQ(bytes[3], 4);
	delete[] bytes;
}

TEST(AttrRecords, AttrPackageOwnsACopy)
{
	char value[] = "hello";
	AttrPackage package("greeting", 'CSTR', 6, value);
	value[0] = 'j';
	EXPECT_STREQ(package.Name(), "greeting");
	EXPECT_EQ(package.Type(), uint32('CSTR'));
	EXPECT_EQ(package.Size(), 6u);
	EXPECT_STREQ(static_cast<const char*>(package.Data()), "hello");

	package.Set("n", 'LONG', 0, nullptr);
	EXPECT_EQ(package.Size(), 0u);
	EXPECT_NE(package.Data(), nullptr);

	package.DeleteOld();
	EXPECT_EQ(package.Data(), nullptr);
	EXPECT_STREQ(package.Name(), "");
	EXPECT_EQ(package.Type(), 0u);
}

TEST(AttrRecords, AttrPackageCutsNamesToTheBuffer)
{
	std::string name(400, 'n');
	AttrPackage package(name.c_str(), 'RAWT', 1, "x");
	EXPECT_EQ(strlen(package.Name()), size_t(AttrPackage::kNameLength - 1));
}
