#include <sys/stat.h>

#include <cstring>
#include <set>

#include <Directory.h>
#include <Entry.h>
#include <File.h>
#include <FindDirectory.h>
#include <NodeInfo.h>
#include <Path.h>
#include <SymLink.h>

#include "TempFolder.h"

TEST(Path, NormalisesAndSplits)
{
	BPath path("/a//b/./c/../d/");
	EXPECT_STREQ(path.Path(), "/a/b/d");
	EXPECT_STREQ(path.Leaf(), "d");
	BPath parent;
	ASSERT_EQ(path.GetParent(&parent), B_OK);
	EXPECT_TRUE(parent == "/a/b");
	ASSERT_EQ(parent.Append("e/f"), B_OK);
	EXPECT_STREQ(parent.Path(), "/a/b/e/f");
	BPath root("/");
	EXPECT_EQ(root.GetParent(&parent), B_ENTRY_NOT_FOUND);
	EXPECT_EQ(BPath().Path(), nullptr);
}

TEST(Entry, RefsTurnBackIntoPaths)
{
	TempFolder folder;
	std::string path = folder.File("file");
	entry_ref ref;
	ASSERT_EQ(get_ref_for_path(path.c_str(), &ref), B_OK);
	EXPECT_STREQ(ref.name, "file");
	BPath back(&ref);
	EXPECT_TRUE(back == path.c_str());
	BEntry entry(&ref);
	EXPECT_TRUE(entry.Exists());
	EXPECT_TRUE(entry == BEntry(path.c_str()));
	EXPECT_FALSE(entry == BEntry(folder.Path("other").c_str()));

	// An entry need not exist, but its folder must.
	EXPECT_EQ(BEntry(folder.Path("absent").c_str()).InitCheck(), B_OK);
	EXPECT_EQ(BEntry(folder.Path("no/such").c_str()).InitCheck(), B_ENTRY_NOT_FOUND);
}

TEST(Entry, RenameMovesAcrossFoldersAndRefusesToClobber)
{
	TempFolder folder;
	std::string path = folder.File("a", "x");
	folder.File("b");
	mkdir(folder.Path("sub").c_str(), 0755);
	BEntry entry(path.c_str());
	EXPECT_EQ(entry.Rename("b"), B_FILE_EXISTS);
	EXPECT_TRUE(entry.Exists());
	ASSERT_EQ(entry.Rename("c"), B_OK);
	char name[B_FILE_NAME_LENGTH];
	ASSERT_EQ(entry.GetName(name), B_OK);
	EXPECT_STREQ(name, "c");
	ASSERT_EQ(entry.Rename(folder.Path("sub/d").c_str()), B_OK);
	BPath moved;
	entry.GetPath(&moved);
	EXPECT_TRUE(moved == folder.Path("sub/d").c_str());
	EXPECT_TRUE(entry.Exists());
	BDirectory parent;
	ASSERT_EQ(entry.GetParent(&parent), B_OK);
	BDirectory top(folder.Path("").c_str());
	ASSERT_EQ(entry.MoveTo(&top), B_OK);
	EXPECT_TRUE(BEntry(folder.Path("d").c_str()).Exists());
	EXPECT_EQ(entry.Rename(folder.Path("nowhere/x").c_str()), B_ENTRY_NOT_FOUND);
	ASSERT_EQ(entry.Remove(), B_OK);
	EXPECT_FALSE(entry.Exists());
}

TEST(Entry, LinksAreNotTraversedUnlessAsked)
{
	TempFolder folder;
	std::string target = folder.File("target", "12345");
	BDirectory dir(folder.Path("").c_str());
	BSymLink link;
	ASSERT_EQ(dir.CreateSymLink("link", "target", &link), B_OK);
	char buffer[64];
	EXPECT_EQ(link.ReadLink(buffer, sizeof(buffer)), 6);
	EXPECT_STREQ(buffer, "target");
	EXPECT_FALSE(link.IsAbsolute());

	BEntry plain(folder.Path("link").c_str());
	EXPECT_TRUE(plain.IsSymLink());
	BEntry traversed(folder.Path("link").c_str(), true);
	EXPECT_TRUE(traversed.IsFile());
	EXPECT_TRUE(traversed == BEntry(target.c_str()));
	off_t size;
	ASSERT_EQ(traversed.GetSize(&size), B_OK);
	EXPECT_EQ(size, 5);

	// A broken link traverses to an entry that does not exist.
	ASSERT_EQ(dir.CreateSymLink("broken", "missing", nullptr), B_OK);
	BEntry broken(folder.Path("broken").c_str(), true);
	EXPECT_EQ(broken.InitCheck(), B_OK);
	EXPECT_FALSE(broken.Exists());
}

// A path names the node the kernel would reach: ".." after a link leaves the
// link's target, a link leaf stays itself, and folders that do not exist are
// taken as written.
TEST(Entry, PathsResolveAsTheKernelResolvesThem)
{
	TempFolder folder;
	std::string sub = folder.Path("sub");
	ASSERT_EQ(mkdir(sub.c_str(), 0755), 0);
	ASSERT_EQ(mkdir(folder.Path("sub/inner").c_str(), 0755), 0);
	ASSERT_EQ(symlink("sub/inner", folder.Path("dl").c_str()), 0);
	std::string up = folder.Path("dl/..");

	EXPECT_TRUE(BPath(up.c_str()) == sub.c_str());
	EXPECT_TRUE(BPath(folder.Path("dl").c_str(), "../x") == folder.Path("sub/x").c_str());
	BPath path;
	ASSERT_EQ(BEntry(up.c_str()).GetPath(&path), B_OK);
	EXPECT_TRUE(path == sub.c_str());
	struct stat st;
	ASSERT_EQ(stat(sub.c_str(), &st), 0);
	struct stat reached;
	ASSERT_EQ(BNode(up.c_str()).GetStat(&reached), B_OK);
	EXPECT_EQ(reached.st_ino, st.st_ino);
	BDirectory dir(folder.Path("dl").c_str());
	EXPECT_TRUE(BEntry(&dir, "../inner").Exists());

	EXPECT_TRUE(BEntry(folder.Path("dl").c_str()).IsSymLink()) << "the leaf stays a link";
	EXPECT_TRUE(BEntry(folder.Path("dl/").c_str()).IsDirectory()) << "unless a slash follows";

	EXPECT_TRUE(BPath(folder.Path("none/../x").c_str()) == folder.Path("x").c_str());
	EXPECT_EQ(BPath(folder.Path("none").c_str(), "x", true).InitCheck(), B_ENTRY_NOT_FOUND)
		<< "normalising asks for the folder to exist";
	EXPECT_TRUE(BPath(folder.Path("").c_str(), "sub/x", true) == folder.Path("sub/x").c_str());
}

TEST(Entry, TimesAndSizes)
{
	TempFolder folder;
	std::string path = folder.File("f", "abc");
	BEntry entry(path.c_str());
	ASSERT_EQ(entry.SetModificationTime(1000000000), B_OK);
	time_t mtime;
	ASSERT_EQ(entry.GetModificationTime(&mtime), B_OK);
	EXPECT_EQ(mtime, 1000000000);
	time_t created;
	EXPECT_EQ(entry.GetCreationTime(&created), B_OK);

	BFile file(&entry, B_READ_WRITE);
	ASSERT_EQ(file.InitCheck(), B_OK);
	ASSERT_EQ(file.SetSize(10000), B_OK);
	off_t size;
	ASSERT_EQ(entry.GetSize(&size), B_OK);
	EXPECT_EQ(size, 10000);
	ASSERT_EQ(file.SetSize(2), B_OK);
	char data[8] = {};
	EXPECT_EQ(file.ReadAt(0, data, sizeof(data)), 2);
	EXPECT_STREQ(data, "ab");
	EXPECT_EQ(file.Seek(0, SEEK_END), 2);
	EXPECT_EQ(file.Write("Z", 1), 1);
	EXPECT_EQ(file.Position(), 3);

	BFile readOnly(path.c_str(), B_READ_ONLY);
	EXPECT_EQ(readOnly.SetSize(0), B_NOT_ALLOWED);
	EXPECT_EQ(BFile(path.c_str(), B_READ_WRITE | B_CREATE_FILE | B_FAIL_IF_EXISTS)
		.InitCheck(), B_FILE_EXISTS);
	EXPECT_EQ(BFile(folder.Path("").c_str(), B_READ_ONLY).InitCheck(), B_IS_A_DIRECTORY);
}

TEST(Directory, ListsCreatesAndContains)
{
	TempFolder folder;
	BDirectory dir(folder.Path("").c_str());
	ASSERT_EQ(dir.InitCheck(), B_OK);
	BFile file;
	ASSERT_EQ(dir.CreateFile("one", &file), B_OK);
	BDirectory sub;
	ASSERT_EQ(dir.CreateDirectory("sub", &sub), B_OK);
	ASSERT_EQ(sub.CreateFile("two", nullptr), B_OK);
	EXPECT_EQ(dir.CountEntries(), 2);
	EXPECT_TRUE(dir.Contains("one", B_FILE_NODE));
	EXPECT_FALSE(dir.Contains("one", B_DIRECTORY_NODE));
	EXPECT_TRUE(dir.Contains(folder.Path("sub/two").c_str()));
	EXPECT_FALSE(sub.Contains(folder.Path("one").c_str()));

	std::set<std::string> names;
	entry_ref ref;
	while (dir.GetNextRef(&ref) == B_OK)
		names.insert(ref.name);
	EXPECT_EQ(names, (std::set<std::string>{"one", "sub"}));
	ASSERT_EQ(dir.Rewind(), B_OK);
	BEntry entry;
	ASSERT_EQ(dir.GetNextEntry(&entry), B_OK);
	EXPECT_TRUE(entry.Exists());
}

TEST(NodeInfo, StoredTypeElseTheDesktopsGuess)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	BNode html(folder.File("page.html", "<html>").c_str());
	BNodeInfo info(&html);
	char type[B_MIME_TYPE_LENGTH];
	ASSERT_EQ(info.GetType(type), B_OK);
	EXPECT_STREQ(type, "text/html");
	ASSERT_EQ(info.SetType("text/x-vellum"), B_OK);
	ASSERT_EQ(info.GetType(type), B_OK);
	EXPECT_STREQ(type, "text/x-vellum");

	BNode text(folder.File("notes", "plain words\n").c_str());
	ASSERT_EQ(BNodeInfo(&text).GetType(type), B_OK);
	EXPECT_STREQ(type, "text/plain");
	// Content tells what a name does not: a PNG without an extension, a PDF
	// without one either.
	const char png[] = "\x89PNG\r\n\x1a\n\0\0\0\rIHDR";
	BNode picture(folder.File("picture", std::string(png, sizeof(png) - 1)).c_str());
	ASSERT_EQ(BNodeInfo(&picture).GetType(type), B_OK);
	EXPECT_STREQ(type, "image/png");
	BNode pdf(folder.File("paper", "%PDF-1.4\n%\xe2\xe3\xcf\xd3\n").c_str());
	ASSERT_EQ(BNodeInfo(&pdf).GetType(type), B_OK);
	EXPECT_STREQ(type, "application/pdf");
	BNode dir(folder.Path("").c_str());
	ASSERT_EQ(BNodeInfo(&dir).GetType(type), B_OK);
	EXPECT_STREQ(type, "application/x-vnd.Be-directory");
	symlink("notes", folder.Path("link").c_str());
	BNode link(folder.Path("link").c_str());
	ASSERT_EQ(BNodeInfo(&link).GetType(type), B_OK);
	EXPECT_STREQ(type, "application/x-vnd.Be-symlink");
}

TEST(FindDirectory, SettingsFolderFromTheEnvironment)
{
	TempFolder folder;
	std::string config = folder.Path("config/deep");
	setenv("XDG_CONFIG_HOME", config.c_str(), 1);
	char buffer[1024];
	EXPECT_EQ(find_directory(B_USER_SETTINGS_DIRECTORY, 0, false, buffer,
		sizeof(buffer)), B_OK);
	EXPECT_EQ(std::string(buffer), config);
	struct stat st;
	EXPECT_NE(stat(config.c_str(), &st), 0);
	EXPECT_EQ(find_directory(B_USER_SETTINGS_DIRECTORY, 0, true, buffer,
		sizeof(buffer)), B_OK);
	EXPECT_EQ(stat(config.c_str(), &st), 0);
	EXPECT_EQ(find_directory(B_USER_SETTINGS_DIRECTORY, 0, false, buffer, 4),
		B_NAME_TOO_LONG);
	unsetenv("XDG_CONFIG_HOME");
}
