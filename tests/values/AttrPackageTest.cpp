// The flattened package that carries an attribute through the clipboard,
// also to and from other programs.

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "AttrPackage.h"

namespace {

std::string
Flattened(const AttrPackage& package)
{
	std::string flat(size_t(package.FlattenedSize()), '\0');
	EXPECT_EQ(B_OK, package.Flatten(flat.data(), ssize_t(flat.size())));
	return flat;
}

}	// namespace

TEST(AttrPackageFlattening, NameTypeSizeAndBytesComeBack)
{
	const char value[] = {'a', '\0', 'b', '\xFF'};
	AttrPackage package("with\tblanks", 'RAWT', sizeof(value), value);
	std::string flat = Flattened(package);
	// The name and its end, the little-endian type and size, the bytes.
	EXPECT_EQ(std::string("with\tblanks\0TWAR\4\0\0\0", 20) + std::string(value, 4), flat);

	AttrPackage copy;
	ASSERT_EQ(B_OK, copy.Unflatten(flat.data(), ssize_t(flat.size())));
	EXPECT_STREQ("with\tblanks", copy.Name());
	EXPECT_EQ(uint32('RAWT'), copy.Type());
	ASSERT_EQ(4u, copy.Size());
	EXPECT_EQ(0, memcmp(value, copy.Data(), 4));

	AttrPackage empty("", 'CSTR', 0, nullptr);
	ASSERT_EQ(B_OK, copy.Unflatten(Flattened(empty).data(), empty.FlattenedSize()));
	EXPECT_STREQ("", copy.Name());
	EXPECT_EQ(0u, copy.Size());

	char small[8];
	EXPECT_EQ(B_BAD_VALUE, package.Flatten(small, sizeof(small)));
}

TEST(AttrPackageFlattening, DamagedFormsAreRefusedAndChangeNothing)
{
	AttrPackage package("count", 'LONG', 4, "\5\0\0\0");
	std::string flat = Flattened(package);

	std::string longer = flat + "x";
	std::string lying = flat;
	lying[10] = 5;
	std::string nameless = std::string(300, 'n') + flat.substr(5);
	const std::string damaged[] = {flat.substr(0, flat.size() - 1), longer, lying,
		flat.substr(0, 5), flat.substr(0, 9), nameless, std::string()};
	for (const std::string& bad : damaged) {
		AttrPackage kept("kept", 'CSTR', 2, "k");
		EXPECT_EQ(B_BAD_DATA, kept.Unflatten(bad.data(), ssize_t(bad.size())))
			<< bad.size();
		EXPECT_STREQ("kept", kept.Name());
		EXPECT_EQ(2u, kept.Size());
	}
	AttrPackage kept;
	EXPECT_EQ(B_BAD_DATA, kept.Unflatten(nullptr, 10));
}
