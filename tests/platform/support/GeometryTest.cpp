#include <Rect.h>

#include <gtest/gtest.h>

TEST(BRectTest, InclusiveEdgesGiveWidthAsDifference)
{
	BRect r(0, 0, 9, 19);
	EXPECT_FLOAT_EQ(9, r.Width());
	EXPECT_EQ(9, r.IntegerWidth());
	EXPECT_EQ(20, BRect(0, 0.5f, 0, 20).IntegerHeight());
	EXPECT_TRUE(r.Contains(BPoint(9, 19)));
	EXPECT_FALSE(r.Contains(BPoint(9.5f, 0)));
	EXPECT_FALSE(BRect().IsValid());
	EXPECT_TRUE(BRect(5, 5, 5, 5).IsValid());
}

TEST(BRectTest, IntersectionAndUnion)
{
	BRect a(0, 0, 10, 10);
	BRect b(5, 5, 20, 20);
	EXPECT_TRUE(a.Intersects(b));
	EXPECT_EQ(BRect(5, 5, 10, 10), a & b);
	EXPECT_EQ(BRect(0, 0, 20, 20), a | b);
	BRect touching(10, 10, 12, 12);
	EXPECT_TRUE(a.Intersects(touching));
	BRect apart(11, 0, 12, 10);
	EXPECT_FALSE(a.Intersects(apart));
	EXPECT_FALSE((a & apart).IsValid());
	EXPECT_TRUE(a.Contains(BRect(1, 1, 10, 10)));
	EXPECT_FALSE(a.Contains(b));
}
