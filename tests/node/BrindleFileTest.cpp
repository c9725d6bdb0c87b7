#include <sys/stat.h>
#include <unistd.h>

#include <BrindleFile.h>
#include <TypeConstants.h>

#include "platform/storage/TempFolder.h"

TEST(BrindleFile, WritesReplaceAndRemoveAttributes)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	std::string path = folder.File("node");
	BrindleFile file(path.c_str());
	EXPECT_STREQ(file.Name(), "node");

	// Closed, each call opens the node for itself.
	int32 value = 5;
	ASSERT_EQ(file.WriteAttr("a", B_INT32_TYPE, 0, &value, 4), 4);
	ASSERT_EQ(file.WriteAttr("a", B_STRING_TYPE, 0, "five", 4), 4);
	EXPECT_EQ(file.CountAttrs(), 1);
	EXPECT_EQ(RunCommand("getfattr --absolute-names -d " + path),
		"# file: " + path + "\nuser.haiku.a#CSTR=\"five\"\n\n");

	ASSERT_TRUE(file.OpenOK(true));
	ASSERT_TRUE(file.LockOK());
	ASSERT_EQ(file.RenameAttr("a", "b"), B_OK);
	attr_info info;
	ASSERT_EQ(file.GetAttrInfo("b", &info), B_OK);
	EXPECT_EQ(info.type, uint32(B_STRING_TYPE));
	ASSERT_EQ(file.RewindAttrs(), B_OK);
	char name[B_ATTR_NAME_LENGTH];
	ASSERT_EQ(file.GetNextAttrName(name), B_OK);
	EXPECT_STREQ(name, "b");
	EXPECT_EQ(file.GetNextAttrName(name), B_ENTRY_NOT_FOUND);
	// Type 0 without data removes, as a rename of an edited row relies on.
	EXPECT_EQ(file.WriteAttr("b", 0, 0, nullptr, 0), 0);
	file.Close();
	EXPECT_EQ(file.CountAttrs(), 0);
	EXPECT_EQ(file.RemoveAttr("b"), B_ENTRY_NOT_FOUND);
}

TEST(BrindleFile, CopiesCompareAndFollowRenames)
{
	TempFolder folder;
	std::string path = folder.File("node", "1234");
	entry_ref ref;
	ASSERT_EQ(get_ref_for_path(path.c_str(), &ref), B_OK);
	BrindleFile file(&ref, false);
	BrindleFile copy(file);
	EXPECT_TRUE(copy == file);
	EXPECT_TRUE(copy == ref);
	off_t size;
	ASSERT_EQ(copy.GetSize(&size), B_OK);
	EXPECT_EQ(size, 4);
	EXPECT_TRUE(file.IsFile());

	ASSERT_EQ(file.Rename("renamed"), B_OK);
	EXPECT_STREQ(file.Name(), "renamed");
	EXPECT_FALSE(file == ref);
	ASSERT_TRUE(file.OpenOK(false));
	EXPECT_TRUE(file.IsOpen());
}

TEST(BrindleFile, LinksShowTheirTargetOrAreBroken)
{
	TempFolder folder;
	std::string target = folder.File("target");
	std::string link = folder.Path("link");
	ASSERT_EQ(symlink(target.c_str(), link.c_str()), 0);
	BrindleFile file(link.c_str());
	EXPECT_TRUE(file.IsSymLink());
	BPath path;
	ASSERT_EQ(file.GetLink(&path), B_OK);
	EXPECT_TRUE(path == target.c_str());
	EXPECT_TRUE(BrindleFile(link.c_str(), true).IsFile());

	unlink(target.c_str());
	EXPECT_EQ(file.GetLink(&path), B_ENTRY_NOT_FOUND);
	EXPECT_EQ(BrindleFile(folder.File("plain").c_str()).GetLink(&path), B_BAD_VALUE);
}

TEST(BrindleFile, ReadOnlyNodeDoesNotOpenWritable)
{
	TempFolder folder;
	std::string path = folder.File("locked");
	chmod(path.c_str(), 0444);
	BrindleFile file(path.c_str());
	if (geteuid() != 0) {
		EXPECT_FALSE(file.OpenOK(true));
	}
	EXPECT_TRUE(file.OpenOK(false));
	EXPECT_FALSE(BrindleFile(folder.Path("missing").c_str()).OpenOK(false));
}
