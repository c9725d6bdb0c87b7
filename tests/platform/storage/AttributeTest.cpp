#include <sys/stat.h>
#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <string>
#include <vector>

#include <Node.h>
#include <TypeConstants.h>

#include "TempFolder.h"

namespace {

std::string
ReadString(BNode& node, const char* name)
{
	char buffer[256] = {};
	ssize_t read = node.ReadAttr(name, 0, 0, buffer, sizeof(buffer) - 1);
	return read >= 0 ? std::string(buffer, read) : std::string("<missing>");
}

std::vector<std::string>
AttrNames(BNode& node)
{
	std::vector<std::string> names;
	char name[B_ATTR_NAME_LENGTH];
	node.RewindAttrs();
	while (node.GetNextAttrName(name) == B_OK)
		names.push_back(name);
	return names;
}

}	// namespace

TEST(Attribute, SetfattrWritesWhatBNodeReads)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	std::string path = folder.File("a");
	RunCommand("setfattr -n 'user.haiku.count#LONG' -v 0x2a000000 " + path);
	RunCommand("setfattr -n 'user.haiku.odd#0000001f' -v 0x01 " + path);
	RunCommand("setfattr -n user.xdg.comment -v hello " + path);

	BNode node(path.c_str());
	attr_info info;
	ASSERT_EQ(node.GetAttrInfo("count", &info), B_OK);
	EXPECT_EQ(info.type, uint32(B_INT32_TYPE));
	EXPECT_EQ(info.size, 4);
	int32 count = 0;
	EXPECT_EQ(node.ReadAttr("count", B_INT32_TYPE, 0, &count, 4), 4);
	EXPECT_EQ(count, 42);
	ASSERT_EQ(node.GetAttrInfo("odd", &info), B_OK);
	EXPECT_EQ(info.type, 0x1fu);
	ASSERT_EQ(node.GetAttrInfo("user.xdg.comment", &info), B_OK);
	EXPECT_EQ(info.type, uint32(B_XATTR_TYPE));
	EXPECT_EQ(ReadString(node, "user.xdg.comment"), "hello");
}

TEST(Attribute, BNodeWritesWhatGetfattrReads)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	std::string path = folder.File("a");
	BNode node(path.c_str());
	EXPECT_EQ(node.WriteAttr("title", B_STRING_TYPE, 0, "Vellum", 6), 6);
	EXPECT_EQ(node.WriteAttr("raw", 0x01020304, 0, "x", 1), 1);
	EXPECT_EQ(node.WriteAttr("user.note", B_XATTR_TYPE, 0, "n", 1), 1);
	std::string dump = RunCommand("getfattr -d -m - " + path + " 2>/dev/null");
	EXPECT_NE(dump.find("user.haiku.title#CSTR=\"Vellum\""), std::string::npos) << dump;
	EXPECT_NE(dump.find("user.haiku.raw#01020304=\"x\""), std::string::npos) << dump;
	EXPECT_NE(dump.find("user.note=\"n\""), std::string::npos) << dump;
}

TEST(Attribute, RetypeRenameAndRemoveLeaveOneAttribute)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	std::string path = folder.File("a");
	BNode node(path.c_str());
	int32 value = 7;
	ASSERT_EQ(node.WriteAttr("n", B_INT32_TYPE, 0, &value, 4), 4);
	ASSERT_EQ(node.WriteAttr("n", B_STRING_TYPE, 0, "seven", 5), 5);
	EXPECT_EQ(AttrNames(node), std::vector<std::string>{"n"});
	attr_info info;
	ASSERT_EQ(node.GetAttrInfo("n", &info), B_OK);
	EXPECT_EQ(info.type, uint32(B_STRING_TYPE));

	// A same-type rewrite replaces the value.
	ASSERT_EQ(node.WriteAttr("n", B_STRING_TYPE, 0, "six", 3), 3);
	EXPECT_EQ(ReadString(node, "n"), "six");

	ASSERT_EQ(node.RenameAttr("n", "m"), B_OK);
	EXPECT_EQ(AttrNames(node), std::vector<std::string>{"m"});
	EXPECT_EQ(ReadString(node, "m"), "six");
	EXPECT_EQ(node.GetAttrInfo("n", &info), B_ENTRY_NOT_FOUND);

	// A write of type 0 and no data removes.
	EXPECT_EQ(node.WriteAttr("m", 0, 0, nullptr, 0), 0);
	EXPECT_TRUE(AttrNames(node).empty());
	EXPECT_EQ(node.RemoveAttr("m"), B_ENTRY_NOT_FOUND);
	EXPECT_EQ(RunCommand("getfattr -d " + path + " 2>/dev/null"), "");
}

TEST(Attribute, OffsetReadsAndWrites)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	std::string path = folder.File("a");
	BNode node(path.c_str());
	ASSERT_EQ(node.WriteAttr("s", B_RAW_TYPE, 0, "abcdef", 6), 6);
	EXPECT_EQ(node.WriteAttr("s", B_RAW_TYPE, 2, "XY", 2), 2);
	EXPECT_EQ(ReadString(node, "s"), "abXYef");
	EXPECT_EQ(node.WriteAttr("s", B_RAW_TYPE, 8, "Z", 1), 1);
	EXPECT_EQ(ReadString(node, "s"), std::string("abXYef\0\0Z", 9));
	char part[4] = {};
	EXPECT_EQ(node.ReadAttr("s", B_RAW_TYPE, 3, part, 3), 3);
	EXPECT_EQ(std::string(part, 3), "Yef");
	EXPECT_EQ(node.ReadAttr("s", B_RAW_TYPE, 20, part, 3), 0);
	// A short buffer gets the start of the value.
	EXPECT_EQ(node.ReadAttr("s", B_RAW_TYPE, 0, part, 2), 2);
	EXPECT_EQ(std::string(part, 2), "ab");
}

TEST(Attribute, RefusalsAreStatuses)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	std::string path = folder.File("a");
	BNode node(path.c_str());
	std::string longName(250, 'x');
	EXPECT_EQ(node.WriteAttr(longName.c_str(), B_STRING_TYPE, 0, "v", 1), B_NAME_TOO_LONG);
	EXPECT_EQ(node.WriteAttr("", B_STRING_TYPE, 0, "v", 1), B_BAD_VALUE);
	EXPECT_EQ(node.ReadAttr("absent", 0, 0, nullptr, 0), B_ENTRY_NOT_FOUND);
	EXPECT_TRUE(AttrNames(node).empty());

	// A link is opened as itself; Linux refuses user attributes on it.
	std::string link = folder.Path("link");
	ASSERT_EQ(symlink(path.c_str(), link.c_str()), 0);
	BNode linkNode(link.c_str());
	ASSERT_EQ(linkNode.InitCheck(), B_OK);
	EXPECT_TRUE(linkNode.IsSymLink());
	EXPECT_LT(linkNode.WriteAttr("t", B_STRING_TYPE, 0, "v", 1), 0);
	EXPECT_TRUE(AttrNames(node).empty());
}

TEST(Attribute, ReadOnlyFileIsNotChanged)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	std::string path = folder.File("a");
	RunCommand("setfattr -n 'user.haiku.keep#CSTR' -v old " + path);
	chmod(path.c_str(), 0444);
	// Root may write anything: check as an ordinary user in a child process.
	pid_t child = fork();
	if (child == 0) {
		if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0))
			_exit(2);
		BNode node(path.c_str());
		status_t write = node.WriteAttr("keep", B_STRING_TYPE, 0, "new", 3);
		status_t remove = node.RemoveAttr("keep");
		bool refused = (write == B_PERMISSION_DENIED || write == B_NOT_ALLOWED)
			&& (remove == B_PERMISSION_DENIED || remove == B_NOT_ALLOWED);
		_exit(refused ? 0 : 1);
	}
	int status = -1;
	waitpid(child, &status, 0);
	EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
	BNode node(path.c_str());
	EXPECT_EQ(ReadString(node, "keep"), "old");
}

// Linux lists at most 64 KiB of xattr names, so 2,500 attributes is about as many as
// a node can show; reading them must stay linear.
TEST(Attribute, ManyAttributesReadInLinearTime)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	auto fill = [&](int count) {
		std::string path = folder.File("n" + std::to_string(count));
		for (int i = 0; i < count; i++) {
			std::string name = "user.haiku.a" + std::to_string(i) + "#LONG";
			setxattr(path.c_str(), name.c_str(), &i, sizeof(i), 0);
		}
		return path;
	};
	auto readAll = [&](int count) {
		std::string path = fill(count);
		auto start = std::chrono::steady_clock::now();
		BNode node(path.c_str());
		char name[B_ATTR_NAME_LENGTH];
		char value[16];
		int seen = 0;
		attr_info info;
		while (node.GetNextAttrName(name) == B_OK) {
			if (node.GetAttrInfo(name, &info) == B_OK
				&& node.ReadAttr(name, info.type, 0, value, info.size) == 4)
				seen++;
		}
		EXPECT_EQ(seen, count);
		return std::chrono::duration<double>(std::chrono::steady_clock::now() - start)
			.count();
	};
	double small = readAll(250);
	double large = readAll(2500);
	EXPECT_LT(large, 0.5);
	// Ten times the attributes may take ten times as long, with room for noise.
	EXPECT_LT(large, 30 * small + 0.02);

	// Beyond what Linux can list, the node says so instead of showing a part.
	BNode crowded(fill(10000).c_str());
	char name[B_ATTR_NAME_LENGTH];
	EXPECT_EQ(crowded.GetNextAttrName(name), B_BAD_DATA);
}

// Two extended attributes that map to one name: the first listed keeps it, the
// other is listed under its own full name as a foreign attribute, and neither
// is changed or removed through the other's name.
TEST(Attribute, ExtendedAttributesOfOneNameAreAllReachable)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	std::string path = folder.File("a");
	int32 number = 42;
	ASSERT_EQ(0, setxattr(path.c_str(), "user.haiku.k#LONG", &number, 4, 0));
	ASSERT_EQ(0, setxattr(path.c_str(), "user.haiku.k#CSTR", "text", 4, 0));
	ASSERT_EQ(0, setxattr(path.c_str(), "user.haiku.c#LONG", "four", 4, 0));
	ASSERT_EQ(0, setxattr(path.c_str(), "user.haiku.c#4c4f4e47", "hex!", 4, 0));
	char listing[256];
	ssize_t length = listxattr(path.c_str(), listing, sizeof(listing));
	ASSERT_GT(length, 0);
	std::vector<std::string> xattrs;
	for (ssize_t offset = 0; offset < length; offset += strlen(listing + offset) + 1)
		xattrs.emplace_back(listing + offset);
	auto second = [&](const char* one, const char* other) {
		return std::find(xattrs.begin(), xattrs.end(), one)
			< std::find(xattrs.begin(), xattrs.end(), other) ? other : one;
	};
	std::string kAlias = second("user.haiku.k#LONG", "user.haiku.k#CSTR");
	std::string cAlias = second("user.haiku.c#LONG", "user.haiku.c#4c4f4e47");

	BNode node(path.c_str());
	std::vector<std::string> names = AttrNames(node);
	std::sort(names.begin(), names.end());
	std::vector<std::string> expected{"c", "k", kAlias, cAlias};
	std::sort(expected.begin(), expected.end());
	EXPECT_EQ(names, expected);
	attr_info info;
	ASSERT_EQ(node.GetAttrInfo(kAlias.c_str(), &info), B_OK);
	EXPECT_EQ(info.type, uint32(B_XATTR_TYPE));
	std::string kValue = kAlias == "user.haiku.k#CSTR" ? "text" : std::string("*\0\0\0", 4);
	EXPECT_EQ(ReadString(node, kAlias.c_str()), kValue);
	EXPECT_NE(ReadString(node, "k"), kValue);

	// A write of k as a string never takes the place of the other one unasked.
	node.WriteAttr("k", B_STRING_TYPE, 0, "new", 3);
	char value[8];
	for (const char* xattr : {"user.haiku.k#LONG", "user.haiku.k#CSTR"})
		EXPECT_EQ(4, getxattr(path.c_str(), xattr, value, sizeof(value))) << xattr;
	// Removing one by its name leaves the other, which then takes the name.
	ASSERT_EQ(node.RemoveAttr(cAlias.c_str()), B_OK);
	EXPECT_EQ(-1, getxattr(path.c_str(), cAlias.c_str(), value, sizeof(value)));
	EXPECT_EQ(ReadString(node, "c"), cAlias == "user.haiku.c#LONG" ? "hex!" : "four");
	ASSERT_EQ(node.RemoveAttr("c"), B_OK);
	EXPECT_EQ(node.GetAttrInfo("c", &info), B_ENTRY_NOT_FOUND);
}

// Linux cannot list the names of a node beyond 64 KiB, but each attribute is
// still read, written and removed by its name.
TEST(Attribute, ANodeWithMoreNamesThanLinuxListsIsReachedByName)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	std::string path = folder.File("crowded");
	std::string filler(200, 'f');
	for (int i = 0; i < 400; i++) {
		std::string xattr = "user.haiku." + std::to_string(i) + filler + "#LONG";
		ASSERT_EQ(0, setxattr(path.c_str(), xattr.c_str(), &i, sizeof(i), 0));
	}
	ASSERT_EQ(0, setxattr(path.c_str(), "user.xdg.comment", "hi", 2, 0));
	BNode node(path.c_str());
	ASSERT_EQ(node.RewindAttrs(), B_BAD_DATA);

	attr_info info;
	std::string first = "7" + filler;
	ASSERT_EQ(node.GetAttrInfo(first.c_str(), &info), B_OK);
	EXPECT_EQ(info.type, uint32(B_INT32_TYPE));
	int32 number = 0;
	EXPECT_EQ(node.ReadAttr(first.c_str(), 0, 0, &number, 4), 4);
	EXPECT_EQ(number, 7);
	EXPECT_EQ(ReadString(node, "user.xdg.comment"), "hi");

	// Retyping still replaces the attribute of the other type.
	ASSERT_EQ(node.WriteAttr(first.c_str(), B_STRING_TYPE, 0, "seven", 5), 5);
	ASSERT_EQ(node.GetAttrInfo(first.c_str(), &info), B_OK);
	EXPECT_EQ(info.type, uint32(B_STRING_TYPE));
	char value[8];
	EXPECT_EQ(-1, getxattr(path.c_str(), ("user.haiku." + first + "#LONG").c_str(), value,
		sizeof(value)));
	ASSERT_EQ(node.RemoveAttr(first.c_str()), B_OK);
	EXPECT_EQ(node.GetAttrInfo(first.c_str(), &info), B_ENTRY_NOT_FOUND);
	EXPECT_EQ(node.RemoveAttr("absent"), B_ENTRY_NOT_FOUND);
}
