#include <gtest/gtest.h>

#include <Bitmap.h>
#include <Region.h>

TEST(RegionTest, IncludeExcludeAndIntersectKeepExactPixelSets)
{
	BRegion region(BRect(0, 0, 9, 9));
	region.Include(BRect(5, 5, 14, 14));
	region.Exclude(BRect(3, 3, 6, 6));
	EXPECT_EQ(BRect(0, 0, 14, 14), region.Frame());
	EXPECT_TRUE(region.Contains(BPoint(2, 2)));
	EXPECT_FALSE(region.Contains(BPoint(4, 4)));
	EXPECT_TRUE(region.Contains(BPoint(7, 7)));
	EXPECT_FALSE(region.Contains(BPoint(12, 2)));
	int pixels = 0;
	for (int32 i = 0; i < region.CountRects(); i++) {
		BRect rect = region.RectAt(i);
		pixels += (rect.IntegerWidth() + 1) * (rect.IntegerHeight() + 1);
	}
	// 100 + 100 - 25 overlap - 16 cut out.
	EXPECT_EQ(159, pixels);

	BRegion other(BRect(8, 0, 20, 20));
	region.IntersectWith(&other);
	EXPECT_TRUE(region.Contains(BPoint(8, 0)));
	EXPECT_FALSE(region.Contains(BPoint(7, 7)));
	region.OffsetBy(-8, 0);
	EXPECT_TRUE(region.Contains(BPoint(0, 0)));
	EXPECT_FALSE(region.Intersects(BRect(50, 50, 60, 60)));
	// Fractional edges cover the pixels they touch.
	EXPECT_EQ(BRegion(BRect(0, 0, 2, 2)), BRegion(BRect(0.5, 0.5, 1.5, 1.5)));
}

TEST(BitmapTest, ColourSpacesConvertThroughTheSystemColourMap)
{
	BBitmap rgba(BRect(0, 0, 2, 1), B_RGBA32);
	ASSERT_EQ(B_OK, rgba.InitCheck());
	EXPECT_EQ(12, rgba.BytesPerRow());
	EXPECT_EQ(24, rgba.BitsLength());

	// Three CMAP8 pixels per row, rows padded to four bytes.
	const uint8 white = index_for_color(make_color(255, 255, 255));
	const uint8 black = index_for_color(make_color(0, 0, 0));
	uint8 indexed[] = {white, black, B_TRANSPARENT_MAGIC_CMAP8, 0, black, white, white, 0};
	rgba.SetBits(indexed, sizeof(indexed), 0, B_CMAP8);
	EXPECT_EQ(make_color(255, 255, 255), rgba.ColorAt(0, 0));
	EXPECT_EQ(make_color(0, 0, 0), rgba.ColorAt(1, 0));
	EXPECT_EQ(0, rgba.ColorAt(2, 0).alpha);
	EXPECT_EQ(make_color(0, 0, 0), rgba.ColorAt(0, 1));

	BBitmap cmap(BRect(0, 0, 2, 1), B_CMAP8);
	ASSERT_EQ(B_OK, cmap.ImportBits(&rgba));
	EXPECT_EQ(B_TRANSPARENT_MAGIC_CMAP8, static_cast<uint8*>(cmap.Bits())[2]);
	EXPECT_EQ(white, static_cast<uint8*>(cmap.Bits())[0]);

	BBitmap invalid(BRect(0, 0, -1, -1), B_RGB32);
	EXPECT_NE(B_OK, invalid.InitCheck());
	EXPECT_EQ(nullptr, invalid.Bits());
}
