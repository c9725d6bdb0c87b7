// Flattened messages: round trips of every field type, and hostile input.

#include <gtest/gtest.h>

#include <Message.h>
#include <Messenger.h>

#include <cstring>
#include <memory>
#include <random>
#include <vector>

#include "../../../platform/app/MessagePrivate.h"

namespace {

std::vector<char>
Flatten(const BMessage& message)
{
	std::vector<char> buffer(message.FlattenedSize());
	EXPECT_EQ(message.Flatten(buffer.data(), buffer.size()), B_OK);
	return buffer;
}

// Unflattens from a heap copy of exactly the given size, so that a sanitizer
// sees any read past its end.
status_t
UnflattenExact(const char* data, size_t size, BMessage* message)
{
	std::unique_ptr<char[]> copy(new char[size > 0 ? size : 1]);
	memcpy(copy.get(), data, size);
	return message->Unflatten(copy.get(), size);
}

BMessage
EveryType()
{
	BMessage message('all ');
	message.AddBool("bool", true);
	message.AddInt8("int8", -1);
	message.AddUInt8("uint8", 200);
	message.AddInt16("int16", -300);
	message.AddUInt16("uint16", 60000);
	message.AddInt32("int32", INT32_MIN);
	message.AddUInt32("uint32", UINT32_MAX);
	message.AddInt64("int64", INT64_MIN);
	message.AddUInt64("uint64", UINT64_MAX);
	message.AddFloat("float", -0.5f);
	message.AddDouble("double", 1e300);
	message.AddString("string", "");
	message.AddString("string", "non-empty");
	message.AddPoint("point", BPoint(-1, 7.5));
	message.AddRect("rect", BRect(0, 0, 99, 49));
	message.AddPointer("pointer", &message);
	entry_ref ref(12, 345, "file");
	message.AddRef("refs", &ref);
	entry_ref unnamed;
	message.AddRef("refs", &unnamed);
	message.AddData("raw", B_RAW_TYPE, "\0\1\2", 3, false);
	message.AddData("raw", B_RAW_TYPE, "\3", 1, false);
	BMessage nested('nest');
	nested.AddString("deep", "value");
	message.AddMessage("message", &nested);
	message.AddSpecifier("Window", 2);
	BPrivate::MessageAccess::SetDropped(&message, BPoint(10, 20), BPoint(3, 4));
	return message;
}

}	// namespace

TEST(FlattenTest, EveryFieldTypeSurvivesARoundTrip)
{
	BMessage original = EveryType();
	std::vector<char> flat = Flatten(original);
	BMessage copy;
	ASSERT_EQ(UnflattenExact(flat.data(), flat.size(), &copy), B_OK);

	EXPECT_EQ(copy.what, original.what);
	EXPECT_TRUE(copy.HasSameData(original));
	EXPECT_EQ(copy.CountNames(B_ANY_TYPE), original.CountNames(B_ANY_TYPE));
	EXPECT_EQ(copy.GetInt32("int32", 0), INT32_MIN);
	EXPECT_STREQ(copy.GetString("string"), "");

	entry_ref ref;
	ASSERT_EQ(copy.FindRef("refs", &ref), B_OK);
	EXPECT_EQ(ref, entry_ref(12, 345, "file"));
	ASSERT_EQ(copy.FindRef("refs", 1, &ref), B_OK);
	EXPECT_EQ(ref.name, nullptr);

	BMessage nested;
	ASSERT_EQ(copy.FindMessage("message", &nested), B_OK);
	EXPECT_STREQ(nested.GetString("deep"), "value");

	EXPECT_TRUE(copy.WasDropped());
	BPoint offset;
	EXPECT_EQ(copy.DropPoint(&offset), BPoint(10, 20));
	EXPECT_EQ(offset, BPoint(3, 4));
	int32 index;
	EXPECT_EQ(copy.GetCurrentSpecifier(&index), B_OK);
	EXPECT_EQ(index, 0);

	// The size-less form trusts the size in the header.
	BMessage again;
	ASSERT_EQ(again.Unflatten(flat.data()), B_OK);
	EXPECT_TRUE(again.HasSameData(original));
}

TEST(FlattenTest, MessengersFlattenAsAddresses)
{
	BMessage message;
	BMessenger empty;
	ASSERT_EQ(message.AddMessenger("target", empty), B_OK);
	std::vector<char> flat = Flatten(message);
	BMessage copy;
	ASSERT_EQ(UnflattenExact(flat.data(), flat.size(), &copy), B_OK);
	BMessenger found;
	ASSERT_EQ(copy.FindMessenger("target", &found), B_OK);
	EXPECT_EQ(found, empty);
}

TEST(FlattenTest, EveryTruncationIsRefused)
{
	std::vector<char> flat = Flatten(EveryType());
	for (size_t size = 0; size < flat.size(); size++) {
		BMessage message('keep');
		message.AddInt32("kept", 1);
		ASSERT_NE(UnflattenExact(flat.data(), size, &message), B_OK) << size;
		// A refused buffer leaves the message as it was.
		EXPECT_EQ(message.what, static_cast<uint32>('keep'));
		EXPECT_EQ(message.GetInt32("kept", 0), 1);
	}
}

TEST(FlattenTest, InconsistentHeadersAreRefused)
{
	BMessage small('smal');
	small.AddString("s", "x");
	std::vector<char> flat = Flatten(small);
	auto patched = [&](size_t offset, uint32 value) {
		std::vector<char> copy = flat;
		memcpy(copy.data() + offset, &value, sizeof(value));
		BMessage message;
		return UnflattenExact(copy.data(), copy.size(), &message);
	};
	EXPECT_EQ(patched(0, 0x12345678), B_NOT_A_MESSAGE);
	EXPECT_NE(patched(4, flat.size() + 1), B_OK);		// total size
	EXPECT_NE(patched(12, 2), B_OK);					// unknown flag
	EXPECT_NE(patched(16, 5), B_OK);					// specifier that does not exist
	EXPECT_NE(patched(20, 0xffffffff), B_OK);			// field count
	EXPECT_NE(patched(24 + 6 + 1, 0x7fffffff), B_OK);	// item count

	// A string without its NUL, and a name given twice.
	std::vector<char> noNul = flat;
	noNul.back() = 'y';
	BMessage message;
	EXPECT_NE(UnflattenExact(noNul.data(), noNul.size(), &message), B_OK);

	BMessage twice;
	twice.AddInt32("a", 1);
	twice.AddInt32("b", 2);
	std::vector<char> duplicate = Flatten(twice);
	size_t second = std::string(duplicate.begin(), duplicate.end()).rfind('b');
	duplicate[second] = 'a';
	EXPECT_NE(UnflattenExact(duplicate.data(), duplicate.size(), &message), B_OK);
}

TEST(FlattenTest, DeepNestingIsRefused)
{
	BMessage message('deep');
	for (int depth = 0; depth < 40; depth++) {
		BMessage outer('deep');
		// Nesting past the limit cannot even be built.
		if (outer.AddMessage("inner", &message) != B_OK) {
			EXPECT_GT(depth, 30);
			return;
		}
		message = outer;
	}
	FAIL() << "nesting of 40 was accepted";
}
