#include <unistd.h>

#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include <Bitmap.h>
#include <Entry.h>
#include <Node.h>
#include <TypeConstants.h>

#include <FixLink.h>
#include <GetRealTrackerIcon.h>

#include <WindowTester.h>

#include "platform/storage/TempFolder.h"

using BPrivate::WindowTester;

namespace {

std::string
LinkTarget(const std::string& path)
{
	char buffer[4096];
	ssize_t length = readlink(path.c_str(), buffer, sizeof(buffer));
	return length < 0 ? std::string() : std::string(buffer, length);
}

std::string
StringAttr(BNode& node, const char* name, type_code type)
{
	char buffer[256] = {};
	ssize_t length = node.ReadAttr(name, type, 0, buffer, sizeof(buffer));
	return length < 0 ? std::string("(missing)") : std::string(buffer, length);
}

int32
CountAttrs(BNode& node)
{
	node.RewindAttrs();
	char name[B_ATTR_NAME_LENGTH];
	int32 count = 0;
	while (node.GetNextAttrName(name) == B_OK)
		count++;
	return count;
}

}	// namespace

TEST(CopyLinkAttrs, CopiesEveryAttributeAndAddsTheLinkType)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	BNode from(folder.File("from").c_str());
	BNode to(folder.File("to").c_str());
	int32 number = 42;
	ASSERT_EQ(from.WriteAttr("number", B_INT32_TYPE, 0, &number, sizeof(number)), 4);
	ASSERT_EQ(from.WriteAttr("comment", B_STRING_TYPE, 0, "kept", 5), 5);
	ASSERT_EQ(from.WriteAttr("user.xdg.origin", B_XATTR_TYPE, 0, "web", 3), 3);
	// An empty value reads as nothing and is not written.
	ASSERT_EQ(from.WriteAttr("empty", B_RAW_TYPE, 0, "", 0), 0);

	EXPECT_EQ(CopyLinkAttrs(&from, &to), B_OK);
	EXPECT_EQ(CountAttrs(to), 4);
	int32 copied = 0;
	EXPECT_EQ(to.ReadAttr("number", B_INT32_TYPE, 0, &copied, sizeof(copied)), 4);
	EXPECT_EQ(copied, 42);
	EXPECT_EQ(StringAttr(to, "comment", B_STRING_TYPE), std::string("kept", 5));
	EXPECT_EQ(StringAttr(to, "user.xdg.origin", B_XATTR_TYPE), "web");
	attr_info info;
	EXPECT_NE(to.GetAttrInfo("empty", &info), B_OK);
	// The type is written without a terminating zero.
	ASSERT_EQ(to.GetAttrInfo("BEOS:TYPE", &info), B_OK);
	EXPECT_EQ(info.type, uint32(B_MIME_STRING_TYPE));
	EXPECT_EQ(StringAttr(to, "BEOS:TYPE", B_MIME_STRING_TYPE), "application/x-vnd.Be-symlink");
	// The source is left as it was.
	EXPECT_EQ(CountAttrs(from), 4);
}

TEST(CopyLinkAttrs, ANodeWithoutAttributesStillGetsTheLinkType)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	BNode from(folder.File("from").c_str());
	BNode to(folder.File("to").c_str());
	EXPECT_EQ(CopyLinkAttrs(&from, &to), B_OK);
	EXPECT_EQ(CountAttrs(to), 1);
	EXPECT_EQ(StringAttr(to, "BEOS:TYPE", B_MIME_STRING_TYPE), "application/x-vnd.Be-symlink");
}

TEST(FixLink, RecreatesTheLinkUnderItsNameAtTheNewTarget)
{
	TempFolder folder;
	std::string oldTarget = folder.File("old");
	std::string newTarget = folder.File("new");
	std::string link = folder.Path("link");
	ASSERT_EQ(symlink(oldTarget.c_str(), link.c_str()), 0);
	// Linux keeps no user attributes on a link: the refusal is a status, and the
	// repair goes on without them.
	BNode linkNode(link.c_str());
	EXPECT_LT(linkNode.WriteAttr("comment", B_STRING_TYPE, 0, "x", 2), 0);
	linkNode.Unset();

	BEntry linkEntry(link.c_str());
	BEntry targetEntry(newTarget.c_str());
	EXPECT_EQ(FixLink(&linkEntry, &targetEntry), B_OK);
	EXPECT_EQ(LinkTarget(link), newTarget);
	BNode repaired(link.c_str());
	EXPECT_TRUE(repaired.IsSymLink());
	EXPECT_EQ(CountAttrs(repaired), 0);
	// The targets themselves are untouched.
	EXPECT_EQ(access(oldTarget.c_str(), F_OK), 0);
}

TEST(FixLink, AnUnresolvableTargetLeavesNoLinkAndStillSucceeds)
{
	TempFolder folder;
	std::string link = folder.Path("link");
	ASSERT_EQ(symlink(folder.File("old").c_str(), link.c_str()), 0);
	BEntry linkEntry(link.c_str());
	BEntry nowhere;
	EXPECT_EQ(FixLink(&linkEntry, &nowhere), B_OK);
	struct stat info;
	EXPECT_NE(lstat(link.c_str(), &info), 0);
}

TEST(FixLink, ALinkThatCannotBeOpenedIsLeftAlone)
{
	TempFolder folder;
	BEntry missing(folder.Path("missing").c_str());
	BEntry target(folder.File("target").c_str());
	EXPECT_EQ(FixLink(&missing, &target), B_OK);
	EXPECT_FALSE(missing.Exists());
}

TEST(GetRealTrackerIcon, ALinkShowsItsTargetsIconUnlessTheTargetIsMissing)
{
	// Icons of the desktop theme come from the display server.
	WindowTester::RunHeadless([] {
		TempFolder folder;
		ASSERT_XATTRS(folder);
		std::string folderLink = folder.Path("to-folder");
		std::string deadLink = folder.Path("dead");
		ASSERT_EQ(symlink(folder.Root().c_str(), folderLink.c_str()), 0);
		ASSERT_EQ(symlink(folder.Path("gone").c_str(), deadLink.c_str()), 0);

		auto iconOf = [](const std::string& path, BBitmap* icon) {
			entry_ref ref;
			EXPECT_EQ(get_ref_for_path(path.c_str(), &ref), B_OK);
			return GetRealTrackerIcon(&ref, icon, B_LARGE_ICON);
		};
		BRect bounds(0, 0, 31, 31);
		BBitmap throughLink(bounds, B_RGBA32), folderIcon(bounds, B_RGBA32),
			deadIcon(bounds, B_RGBA32), linkIcon(bounds, B_RGBA32);
		ASSERT_EQ(iconOf(folderLink, &throughLink), B_OK);
		ASSERT_EQ(iconOf(folder.Root(), &folderIcon), B_OK);
		ASSERT_EQ(iconOf(deadLink, &deadIcon), B_OK);
		BNode deadNode(deadLink.c_str());
		ASSERT_EQ(BNodeInfo(&deadNode).GetTrackerIcon(&linkIcon, B_LARGE_ICON), B_OK);
		EXPECT_EQ(memcmp(throughLink.Bits(), folderIcon.Bits(), folderIcon.BitsLength()), 0);
		EXPECT_EQ(memcmp(deadIcon.Bits(), linkIcon.Bits(), linkIcon.BitsLength()), 0);
		EXPECT_NE(memcmp(deadIcon.Bits(), folderIcon.Bits(), folderIcon.BitsLength()), 0);

		entry_ref missing;
		ASSERT_EQ(get_ref_for_path(folder.Path("absent").c_str(), &missing), B_OK);
		EXPECT_NE(GetRealTrackerIcon(&missing, &linkIcon, B_LARGE_ICON), B_OK);
	});
}
