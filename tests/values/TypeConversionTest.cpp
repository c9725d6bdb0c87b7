#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "AttrTypes.h"
#include "TypeConversion.h"

namespace {

typedef std::vector<uint8> Bytes;

// What a type change writes: the converted value after its size is forced,
// with bytes past the end of a kept buffer left out (they are undefined).
struct Written {
	long size;
	Bytes bytes;
	bool fresh;
};

Written
Change(uint32 oldType, const Bytes& value, uint32 newType)
{
	Bytes buffer(value);
	buffer.push_back(0);
	void* data = buffer.data();
	long size = value.size();
	ConvertDataToNewType(&data, oldType, &size, newType);
	bool fresh = data != buffer.data();
	long available = fresh ? size : long(value.size());
	CalculateSize(newType, &size);

	const uint8* start = static_cast<const uint8*>(data);
	Written written { size, Bytes(start, start + std::min(size, available)), fresh };
	if (fresh)
		delete[] static_cast<char*>(data);
	return written;
}

Bytes
Little(uint64 value, int width)
{
	Bytes bytes;
	for (int i = 0; i < width; i++)
		bytes.push_back(uint8(value >> (8 * i)));
	return bytes;
}

Bytes
Low(const Bytes& bytes, size_t count)
{
	return Bytes(bytes.begin(), bytes.begin() + std::min(count, bytes.size()));
}

// The expected result in each column of the matrix for one source row.
struct Row {
	uint32 type;
	Bytes value;
	Bytes toBoolOrByte;
	Bytes toUnsignedByte;
	Bytes toShort;
	Bytes toLong;
	Bytes toLongLong;
};

void
CheckRow(const Row& row)
{
	const struct { uint32 type; const Bytes* expected; } columns[] = {
		{ 'BOOL', &row.toBoolOrByte }, { 'BYTE', &row.toBoolOrByte },
		{ 'UBYT', &row.toUnsignedByte },
		{ 'SHRT', &row.toShort }, { 'USHT', &row.toShort },
		{ 'LONG', &row.toLong }, { 'ULNG', &row.toLong },
		{ 'LLNG', &row.toLongLong }, { 'ULLG', &row.toLongLong }
	};
	for (const auto& column : columns) {
		Written written = Change(row.type, row.value, column.type);
		EXPECT_EQ(written.size, long(column.expected->size()));
		EXPECT_EQ(written.bytes, *column.expected)
			<< std::string(reinterpret_cast<const char*>(&row.type), 4) << " ("
			<< row.value.size() << ") to "
			<< std::string(reinterpret_cast<const char*>(&column.type), 4);
	}

	// Any other target keeps the bytes; the fixed-size types force the size.
	const struct { uint32 type; long size; } others[] = {
		{ 'FLOT', 4 }, { 'DBLE', 8 }, { 'TIME', 4 }, { 'RECT', 16 },
		{ 'CSTR', long(row.value.size()) }, { 'RAWT', long(row.value.size()) }
	};
	for (const auto& other : others) {
		Written written = Change(row.type, row.value, other.type);
		EXPECT_FALSE(written.fresh);
		EXPECT_EQ(written.size, other.size);
		EXPECT_EQ(written.bytes, Low(row.value, other.size));
	}
}

const Bytes kNotFilled1 = Bytes(1, 0);

}	// namespace

TEST(TypeConversion, IntegerSources)
{
	const Bytes one = Little(0x81, 1);
	const Bytes two = Little(0x8281, 2);
	const Bytes four = Little(0x84838281, 4);
	const Bytes eight = Little(0x8887868584838281ull, 8);

	CheckRow({ 'BOOL', one, one, kNotFilled1, Little(0x81, 2), Little(0x81, 4),
		Little(0x81, 8) });
	for (uint32 type : { 'BYTE', 'UBYT' }) {
		CheckRow({ type, one, one, kNotFilled1, Little(0xFF81, 2),
			Little(0xFFFFFF81, 4), Little(0xFFFFFFFFFFFFFF81ull, 8) });
	}
	for (uint32 type : { 'SHRT', 'USHT' }) {
		CheckRow({ type, two, Low(two, 1), kNotFilled1, two, Little(0xFFFF8281, 4),
			Little(0xFFFFFFFFFFFF8281ull, 8) });
	}
	for (uint32 type : { 'LONG', 'ULNG' }) {
		CheckRow({ type, four, Low(four, 1), Low(four, 1), Low(four, 2), four,
			Little(0xFFFFFFFF84838281ull, 8) });
	}
	for (uint32 type : { 'LLNG', 'ULLG' }) {
		CheckRow({ type, eight, Low(eight, 1), Low(eight, 1), Low(eight, 2),
			Low(eight, 4), eight });
	}
}

TEST(TypeConversion, OtherSourcesAreNotWidened)
{
	const Bytes four = Little(0x40490FDB, 4);
	for (uint32 type : { 'FLOT', 'TIME' }) {
		CheckRow({ type, four, Low(four, 1), Low(four, 1), Low(four, 2), four,
			Bytes(8, 0) });
	}
	const Bytes eight = Little(0x400921FB54442D18ull, 8);
	for (uint32 type : { 'DBLE', 'OFFT' })
		CheckRow({ type, eight, Low(eight, 1), Low(eight, 1), Low(eight, 2),
			Low(eight, 4), eight });
	Bytes sixteen;
	for (int i = 0; i < 16; i++)
		sixteen.push_back(uint8(0xA0 + i));
	CheckRow({ 'RECT', sixteen, Low(sixteen, 1), Low(sixteen, 1), Low(sixteen, 2),
		Low(sixteen, 4), Low(sixteen, 8) });

	// Strings and raw data by length: the first bytes when there are enough.
	for (size_t length : { 0, 1, 2, 3, 4, 7, 8, 9 }) {
		Bytes text;
		for (size_t i = 0; i < length; i++)
			text.push_back(uint8('a' + i));
		auto firstOrZero = [&](size_t count, size_t needed) {
			return length >= needed ? Low(text, count) : Bytes(count, 0);
		};
		for (uint32 type : { 'CSTR', 'RAWT' }) {
			CheckRow({ type, text, firstOrZero(1, 1), firstOrZero(1, 4),
				firstOrZero(2, 2), firstOrZero(4, 4), firstOrZero(8, 8) });
		}
	}
}

TEST(TypeConversion, TheWorkedExamples)
{
	Written shortened = Change('LONG', Little(0x12345678, 4), 'SHRT');
	EXPECT_FALSE(shortened.fresh);
	EXPECT_EQ(shortened.bytes, Little(0x5678, 2));

	Written widened = Change('UBYT', Little(200, 1), 'LONG');
	EXPECT_TRUE(widened.fresh);
	EXPECT_EQ(widened.bytes, Little(uint32(-56), 4));
}

TEST(TypeConversion, OddSizedIntegersAreNotFilled)
{
	// 3 bytes read by size: not one of 1, 2 or 4.
	EXPECT_EQ(Change('LONG', Little(0x818283, 3), 'LLNG').bytes, Bytes(8, 0));
	EXPECT_EQ(Change('LONG', Bytes(), 'SHRT').bytes, Bytes(2, 0));
	// A 5-byte 'SHRT' is simply cut to 2.
	EXPECT_EQ(Change('SHRT', Little(0x8584838281ull, 5), 'SHRT').bytes,
		Little(0x8281, 2));
}

TEST(TypeConversion, NullDataIsNotRead)
{
	void* data = nullptr;
	long size = 0;
	ConvertDataToNewType(&data, 'BOOL', &size, 'LONG');
	ASSERT_NE(data, nullptr);
	EXPECT_EQ(size, 4);
	int32 value;
	memcpy(&value, data, 4);
	EXPECT_EQ(value, 0);
	delete[] static_cast<char*>(data);
}
