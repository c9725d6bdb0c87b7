// Fields of a message: adding, finding, replacing, removing, errors; specifiers.

#include <gtest/gtest.h>

#include <Message.h>
#include <Messenger.h>

#include <cstring>

TEST(MessageTest, TypedFieldsKeepTheirValuesAndOrder)
{
	BMessage message('test');
	ASSERT_EQ(message.AddBool("bool", true), B_OK);
	ASSERT_EQ(message.AddInt8("int8", -8), B_OK);
	ASSERT_EQ(message.AddInt16("int16", -16), B_OK);
	ASSERT_EQ(message.AddInt32("int32", -32), B_OK);
	ASSERT_EQ(message.AddInt64("int64", -64), B_OK);
	ASSERT_EQ(message.AddFloat("float", 1.5f), B_OK);
	ASSERT_EQ(message.AddDouble("double", 2.25), B_OK);
	ASSERT_EQ(message.AddString("string", "one"), B_OK);
	ASSERT_EQ(message.AddString("string", BString("two")), B_OK);
	ASSERT_EQ(message.AddPoint("point", BPoint(1, 2)), B_OK);
	ASSERT_EQ(message.AddRect("rect", BRect(1, 2, 3, 4)), B_OK);
	ASSERT_EQ(message.AddPointer("pointer", &message), B_OK);

	bool flag;
	int8 i8;
	int16 i16;
	int32 i32;
	int64 i64;
	float f;
	double d;
	BPoint point;
	BRect rect;
	void* pointer;
	EXPECT_TRUE(message.FindBool("bool", &flag) == B_OK && flag);
	EXPECT_TRUE(message.FindInt8("int8", &i8) == B_OK && i8 == -8);
	EXPECT_TRUE(message.FindInt16("int16", &i16) == B_OK && i16 == -16);
	EXPECT_TRUE(message.FindInt32("int32", &i32) == B_OK && i32 == -32);
	EXPECT_TRUE(message.FindInt64("int64", &i64) == B_OK && i64 == -64);
	EXPECT_TRUE(message.FindFloat("float", &f) == B_OK && f == 1.5f);
	EXPECT_TRUE(message.FindDouble("double", &d) == B_OK && d == 2.25);
	EXPECT_TRUE(message.FindPoint("point", &point) == B_OK && point == BPoint(1, 2));
	EXPECT_TRUE(message.FindRect("rect", &rect) == B_OK && rect == BRect(1, 2, 3, 4));
	EXPECT_TRUE(message.FindPointer("pointer", &pointer) == B_OK && pointer == &message);

	const char* string;
	BString second;
	EXPECT_EQ(message.FindString("string", &string), B_OK);
	EXPECT_STREQ(string, "one");
	EXPECT_EQ(message.FindString("string", 1, &second), B_OK);
	EXPECT_EQ(second, "two");

	const char* name;
	type_code type;
	int32 count;
	ASSERT_EQ(message.GetInfo(B_ANY_TYPE, 7, &name, &type, &count), B_OK);
	EXPECT_STREQ(name, "string");
	EXPECT_EQ(type, static_cast<type_code>(B_STRING_TYPE));
	EXPECT_EQ(count, 2);
	EXPECT_EQ(message.CountNames(B_ANY_TYPE), 11);
	EXPECT_EQ(message.CountNames(B_STRING_TYPE), 1);
}

TEST(MessageTest, ErrorsNameTheFault)
{
	BMessage message;
	int32 value = 7;
	EXPECT_EQ(message.FindInt32("missing", &value), B_NAME_NOT_FOUND);
	EXPECT_EQ(value, 7);
	ASSERT_EQ(message.AddInt32("number", 1), B_OK);
	EXPECT_EQ(message.FindInt32("number", 1, &value), B_BAD_INDEX);
	EXPECT_EQ(message.FindInt32("number", -1, &value), B_BAD_INDEX);
	const char* text;
	EXPECT_EQ(message.FindString("number", &text), B_BAD_TYPE);
	EXPECT_EQ(message.AddString("number", "text"), B_BAD_TYPE);
	EXPECT_EQ(message.ReplaceInt32("number", 3, 5), B_BAD_INDEX);
	EXPECT_EQ(message.AddString(NULL, "text"), B_BAD_VALUE);
	EXPECT_EQ(message.AddString("text", NULL), B_BAD_VALUE);
	EXPECT_EQ(message.AddData("raw", B_RAW_TYPE, "abc", 0), B_BAD_VALUE);
	EXPECT_EQ(message.AddData("int", B_INT32_TYPE, "abc", 3), B_BAD_VALUE);

	ASSERT_EQ(message.AddData("fixed", 'FIXD', "abcd", 4, true), B_OK);
	EXPECT_EQ(message.AddData("fixed", 'FIXD', "abc", 3, true), B_BAD_VALUE);

	const char* name;
	EXPECT_EQ(message.GetInfo(B_STRING_TYPE, 0, &name, NULL), B_BAD_TYPE);
	EXPECT_EQ(message.GetInfo(B_INT32_TYPE, 1, &name, NULL), B_BAD_INDEX);
	EXPECT_FALSE(message.HasInt32("number", 1));
	EXPECT_TRUE(message.HasInt32("number"));
	EXPECT_FALSE(message.HasString("number"));
}

TEST(MessageTest, ReplaceAndRemoveKeepTheOtherItems)
{
	BMessage message;
	for (const char* word : {"alpha", "beta", "gamma"})
		message.AddString("words", word);
	ASSERT_EQ(message.ReplaceString("words", 1, "a much longer second word"), B_OK);
	ASSERT_EQ(message.RemoveData("words", 0), B_OK);

	const char* word;
	ASSERT_EQ(message.FindString("words", 0, &word), B_OK);
	EXPECT_STREQ(word, "a much longer second word");
	ASSERT_EQ(message.FindString("words", 1, &word), B_OK);
	EXPECT_STREQ(word, "gamma");
	EXPECT_EQ(message.RemoveData("words", 2), B_BAD_INDEX);

	message.RemoveData("words", 0);
	message.RemoveData("words", 0);
	EXPECT_TRUE(message.IsEmpty());
	EXPECT_EQ(message.RemoveName("words"), B_NAME_NOT_FOUND);

	message.AddInt32("a", 1);
	message.AddInt32("b", 2);
	ASSERT_EQ(message.RemoveName("a"), B_OK);
	EXPECT_EQ(message.GetInt32("b", 0), 2);
	message.MakeEmpty();
	EXPECT_TRUE(message.IsEmpty());
	EXPECT_EQ(message.CountNames(B_ANY_TYPE), 0);
}

TEST(MessageTest, RefsMessagesAndRawData)
{
	BMessage message;
	entry_ref ref(3, 42, "leaf name");
	ASSERT_EQ(message.AddRef("refs", &ref), B_OK);
	entry_ref found;
	ASSERT_EQ(message.FindRef("refs", &found), B_OK);
	EXPECT_EQ(found, ref);
	EXPECT_STREQ(found.name, "leaf name");

	BMessage inner('innr');
	inner.AddString("text", "inside");
	ASSERT_EQ(message.AddMessage("inner", &inner), B_OK);
	BMessage copy;
	ASSERT_EQ(message.FindMessage("inner", &copy), B_OK);
	EXPECT_EQ(copy.what, static_cast<uint32>('innr'));
	EXPECT_STREQ(copy.GetString("text"), "inside");

	const uint8 bytes[] = {0, 1, 2, 0, 255};
	ASSERT_EQ(message.AddData("raw", B_RAW_TYPE, bytes, sizeof(bytes), false), B_OK);
	ASSERT_EQ(message.ReplaceData("raw", B_RAW_TYPE, bytes, 2), B_OK);
	const void* data;
	ssize_t size;
	ASSERT_EQ(message.FindData("raw", B_RAW_TYPE, &data, &size), B_OK);
	EXPECT_EQ(size, 2);
	EXPECT_EQ(memcmp(data, bytes, 2), 0);
	EXPECT_EQ(message.FindData("raw", B_ANY_TYPE, &data, &size), B_OK);
	EXPECT_EQ(message.FindData("raw", B_STRING_TYPE, &data, &size), B_BAD_TYPE);

	BMessage assigned;
	assigned = message;
	EXPECT_TRUE(assigned.HasSameData(message));
	assigned.ReplaceRef("refs", &found);
	EXPECT_EQ(message.Rename("raw", "inner"), B_NAME_IN_USE);
	EXPECT_EQ(message.Rename("raw", "bytes"), B_OK);
	EXPECT_TRUE(message.HasData("bytes", B_RAW_TYPE));
}

TEST(MessageTest, SpecifiersStackUp)
{
	BMessage message(B_GET_PROPERTY);
	int32 index;
	EXPECT_EQ(message.GetCurrentSpecifier(&index), B_BAD_SCRIPT_SYNTAX);
	message.AddSpecifier("View", "list");
	message.AddSpecifier("Item", 3);
	EXPECT_TRUE(message.HasSpecifiers());

	BMessage specifier;
	int32 what;
	const char* property;
	ASSERT_EQ(message.GetCurrentSpecifier(&index, &specifier, &what, &property), B_OK);
	EXPECT_EQ(index, 1);
	EXPECT_EQ(what, B_INDEX_SPECIFIER);
	EXPECT_STREQ(property, "Item");
	EXPECT_EQ(specifier.GetInt32("index", -1), 3);

	ASSERT_EQ(message.PopSpecifier(), B_OK);
	ASSERT_EQ(message.GetCurrentSpecifier(&index, NULL, &what, &property), B_OK);
	EXPECT_EQ(what, B_NAME_SPECIFIER);
	EXPECT_STREQ(property, "View");
	ASSERT_EQ(message.PopSpecifier(), B_OK);
	EXPECT_FALSE(message.HasSpecifiers());
}

TEST(MessageTest, ReplyWithoutASenderIsRefused)
{
	BMessage message('none');
	EXPECT_EQ(message.SendReply(B_REPLY), B_BAD_REPLY);
	EXPECT_FALSE(message.IsSourceWaiting());
	EXPECT_FALSE(message.ReturnAddress().IsValid());
	EXPECT_FALSE(message.WasDropped());
}
