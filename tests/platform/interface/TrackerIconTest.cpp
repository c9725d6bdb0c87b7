#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include <AppFileInfo.h>
#include <Bitmap.h>
#include <File.h>
#include <Node.h>
#include <NodeInfo.h>
#include <WindowTester.h>

#include "platform/storage/TempFolder.h"

using BPrivate::WindowTester;

namespace {

bool
HasOpaquePixel(const BBitmap& bitmap)
{
	for (int32 y = 0; y <= bitmap.Bounds().IntegerHeight(); y++) {
		for (int32 x = 0; x <= bitmap.Bounds().IntegerWidth(); x++) {
			if (bitmap.ColorAt(x, y).alpha == 255)
				return true;
		}
	}
	return false;
}

}	// namespace

TEST(TrackerIconTest, OwnIconAttributesWinElseTheTypeGivesOne)
{
	WindowTester::RunHeadless([] {
		TempFolder folder;
		std::string file = folder.File("painted");

		BNode node(file.c_str());
		ASSERT_EQ(B_OK, node.InitCheck());
		std::vector<uint8> large(32 * 32, B_TRANSPARENT_MAGIC_CMAP8);
		large[0] = index_for_color(make_color(255, 0, 0));
		if (node.WriteAttr("BEOS:L:STD_ICON", 'ICON', 0, large.data(), large.size()) < 0) {
			GTEST_SKIP() << folder.XattrProblem();
		}
		std::vector<uint8> mini(16 * 16, index_for_color(make_color(0, 0, 0)));
		ASSERT_EQ(ssize_t(mini.size()),
			node.WriteAttr("BEOS:M:STD_ICON", 'MICN', 0, mini.data(), mini.size()));

		BNodeInfo info(&node);
		BBitmap icon(BRect(0, 0, 31, 31), B_CMAP8);
		ASSERT_EQ(B_OK, info.GetTrackerIcon(&icon, B_LARGE_ICON));
		EXPECT_EQ(make_color(255, 0, 0), icon.ColorAt(0, 0));
		EXPECT_EQ(0, icon.ColorAt(31, 31).alpha);
		BBitmap small(BRect(0, 0, 15, 15), B_CMAP8);
		ASSERT_EQ(B_OK, info.GetTrackerIcon(&small, B_MINI_ICON));
		EXPECT_EQ(make_color(0, 0, 0), small.ColorAt(15, 15));
		// The size of the bitmap must be the size asked for.
		EXPECT_EQ(B_BAD_VALUE, info.GetTrackerIcon(&small, B_LARGE_ICON));

		// A folder without icon attributes still has an icon.
		BNode folderNode(folder.Root().c_str());
		BNodeInfo folderInfo(&folderNode);
		BBitmap folderIcon(BRect(0, 0, 31, 31), B_CMAP8);
		ASSERT_EQ(B_OK, folderInfo.GetTrackerIcon(&folderIcon, B_LARGE_ICON));
		EXPECT_TRUE(HasOpaquePixel(folderIcon));
	});
}

TEST(TrackerIconTest, TheRunningProgramHasItsOwnIconAndVersion)
{
	WindowTester::RunHeadless([] {
		char path[PATH_MAX] = {};
		ASSERT_GT(readlink("/proc/self/exe", path, sizeof(path) - 1), 0);
		BFile program(path, B_READ_ONLY);
		BAppFileInfo info(&program);
		ASSERT_EQ(B_OK, info.InitCheck());

		BBitmap icon(BRect(0, 0, 31, 31), B_CMAP8);
		ASSERT_EQ(B_OK, info.GetIcon(&icon, B_LARGE_ICON));
		EXPECT_TRUE(HasOpaquePixel(icon));
		// The file manager shows the same icon for the program's file.
		BBitmap tracker(BRect(0, 0, 31, 31), B_CMAP8);
		ASSERT_EQ(B_OK, info.GetTrackerIcon(&tracker, B_LARGE_ICON));
		EXPECT_EQ(0, memcmp(icon.Bits(), tracker.Bits(), icon.BitsLength()));

		version_info version;
		ASSERT_EQ(B_OK, info.GetVersionInfo(&version, B_APP_VERSION_KIND));
		char expected[64];
		snprintf(expected, sizeof(expected), "%u.%u.%u", unsigned(version.major),
			unsigned(version.middle), unsigned(version.minor));
		EXPECT_STREQ(expected, version.short_info);

		// Any other file has no version unless an attribute gives one.
		TempFolder folder;
		std::string other = folder.File("tool");
		BFile file(other.c_str(), B_READ_WRITE);
		BAppFileInfo otherInfo(&file);
		EXPECT_EQ(B_ENTRY_NOT_FOUND, otherInfo.GetVersionInfo(&version, B_APP_VERSION_KIND));
		version_info stored[2] = {};
		stored[0].major = 2;
		strcpy(stored[0].short_info, "2.0");
		if (file.WriteAttr("BEOS:APP_VERSION", 'APPV', 0, stored, sizeof(stored)) > 0) {
			ASSERT_EQ(B_OK, otherInfo.GetVersionInfo(&version, B_APP_VERSION_KIND));
			EXPECT_EQ(2u, version.major);
			EXPECT_STREQ("2.0", version.short_info);
		}
	});
}
