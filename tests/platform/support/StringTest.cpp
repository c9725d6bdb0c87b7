#include <String.h>

#include <gtest/gtest.h>

TEST(BStringTest, NeverNullAndBoundedConstruction)
{
	BString empty;
	EXPECT_STREQ("", empty.String());
	BString fromNull(nullptr);
	EXPECT_EQ(0, fromNull.Length());
	EXPECT_STREQ("abc", BString("abcdef", 3).String());
	EXPECT_STREQ("ab", BString("ab", 10).String());
	EXPECT_STREQ("", BString("abc", -1).String());
}

TEST(BStringTest, AppendInsertAndRemoveClampTheirArguments)
{
	BString s("world");
	s.Prepend("hello ").Append("!!!", 1);
	EXPECT_STREQ("hello world!", s.String());
	s.Insert("big ", 6);
	EXPECT_STREQ("hello big world!", s.String());
	s.Insert("<", 100);
	EXPECT_STREQ("hello big world!<", s.String());
	s.Remove(5, 4).Remove(100, 3).Remove(-1, 2);
	EXPECT_STREQ(" world!<", BString(s.String() + 5).String());
	s.Truncate(5);
	EXPECT_STREQ("hello", s.String());
	s.Truncate(50);
	EXPECT_EQ(5, s.Length());
}

TEST(BStringTest, FindReturnsErrorWhenAbsent)
{
	BString s("one two one");
	EXPECT_EQ(0, s.FindFirst("one"));
	EXPECT_EQ(8, s.FindFirst("one", 1));
	EXPECT_EQ(8, s.FindLast("one"));
	EXPECT_EQ(0, s.FindLast("one", 8));
	EXPECT_EQ(B_ERROR, s.FindFirst("three"));
	EXPECT_EQ(B_ERROR, s.FindFirst('x'));
	EXPECT_EQ(4, s.IFindFirst("TWO"));
	EXPECT_EQ(10, s.FindLast('e'));
	EXPECT_EQ(2, s.FindLast('e', 8));
}

TEST(BStringTest, ReplaceAndCase)
{
	BString s("a-b-c");
	s.ReplaceAll("-", "--");
	EXPECT_STREQ("a--b--c", s.String());
	s.ReplaceFirst("--", "+").ReplaceLast("--", "*");
	EXPECT_STREQ("a+b*c", s.String());
	s.ReplaceAll('+', ' ');
	EXPECT_STREQ("a b*c", s.String());
	BString word("hELLO wORLD");
	EXPECT_STREQ("Hello world", BString(word).Capitalize().String());
	EXPECT_STREQ("Hello World", BString(word).CapitalizeEachWord().String());
	EXPECT_STREQ("HELLO WORLD", word.ToUpper().String());
	BString mixed("AbC");
	mixed.IReplaceAll("b", "x");
	EXPECT_STREQ("AxC", mixed.String());
}

TEST(BStringTest, StreamOperatorsFormatAsTheKitDoes)
{
	BString s;
	s << "n=" << 42 << ' ' << -7LL << ' ' << 3.14159f << ' ' << 2u;
	EXPECT_STREQ("n=42 -7 3.14 2", s.String());
}

TEST(BStringTest, LockBufferWritesDirectly)
{
	BString s("keep");
	char* buffer = s.LockBuffer(16);
	strcpy(buffer, "written");
	s.UnlockBuffer();
	EXPECT_STREQ("written", s.String());
	EXPECT_EQ(7, s.Length());
	buffer = s.LockBuffer(16);
	memcpy(buffer, "ab\0cd", 5);
	s.UnlockBuffer(5);
	EXPECT_EQ(5, s.Length());
}

TEST(BStringTest, CopyMoveAndEscape)
{
	BString source("0123456789");
	BString part;
	source.CopyInto(part, 2, 3);
	EXPECT_STREQ("234", part.String());
	source.MoveInto(part, 8, 10);
	EXPECT_STREQ("89", part.String());
	EXPECT_STREQ("01234567", source.String());
	BString path("a b\"c");
	path.CharacterEscape(" \"", '\\');
	EXPECT_STREQ("a\\ b\\\"c", path.String());
	path.CharacterDeescape('\\');
	EXPECT_STREQ("a b\"c", path.String());
	EXPECT_EQ(3, BString("h\xc3\xa9!").CountChars());
	EXPECT_EQ('\0', source.ByteAt(100));
	EXPECT_STREQ("x y", BString("  x y \n").Trim().String());
}
