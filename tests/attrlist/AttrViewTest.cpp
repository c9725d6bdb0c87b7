#include <gtest/gtest.h>

#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <string>
#include <vector>

#include <Entry.h>
#include <Node.h>
#include <ScrollView.h>
#include <Window.h>
#include <WindowTester.h>

#include "AttrView.h"
#include "CMultiTextItem.h"
#include "DisplayStrings.h"
#include "GlintView.h"
#include "SpecialListView.h"
#include "platform/storage/TempFolder.h"

using BPrivate::WindowTester;

namespace {

// The colour-map index the test icons are painted with.
const uint8 kIconIndex = 42;

using Columns = std::array<std::string, 4>;

// A shown window holding one attribute panel.
struct PanelWindow {
	PanelWindow()
		:
		window(new BWindow(BRect(100, 100, 699, 499), "Panel", B_TITLED_WINDOW, 0)),
		panel(new AttrView(BRect(0, 0, 599, 399), "Attributes", B_FOLLOW_ALL,
			B_WILL_DRAW | B_FRAME_EVENTS)),
		tester(window)
	{
		window->AddChild(panel);
		window->Show();
	}

	// Lists the attributes of the node at path and waits for the redraw.
	void Show(const std::string& path)
	{
		entry_ref ref;
		get_ref_for_path(path.c_str(), &ref);
		ASSERT_TRUE(window->Lock());
		panel->AddAttrInfo(&ref);
		window->Unlock();
		ASSERT_EQ(B_OK, tester.WaitForIdle());
	}

	SpecialListView* List() const
	{
		return dynamic_cast<SpecialListView*>(panel->FindView("attrList"));
	}

	CMultiTextItem* Row(int32 index) const
	{
		return dynamic_cast<CMultiTextItem*>(List()->ItemAt(index));
	}

	int32 IndexOf(const char* name) const
	{
		for (int32 index = 0; index < List()->CountItems(); index++) {
			if (std::string(Row(index)->GetString(0)) == name)
				return index;
		}
		return -1;
	}

	Columns ColumnsOf(const char* name) const
	{
		Columns columns;
		int32 index = IndexOf(name);
		if (index < 0)
			return columns;
		for (short column = 0; column < 4; column++)
			columns[column] = Row(index)->GetString(column);
		return columns;
	}

	// A point of the list's row index, in window coordinates.
	BPoint InRow(int32 index, float x, float dy) const
	{
		BPoint point(x, List()->ItemFrame(index).top + dy);
		return List()->ConvertToScreen(point) - window->Frame().LeftTop();
	}

	BWindow* window;
	AttrView* panel;
	WindowTester tester;
};

// A file with typed attributes of several kinds, written through the kits,
// and one extended attribute written by another program.
std::string
TypedFile(const TempFolder& folder)
{
	std::string path = folder.File("typed");
	BNode node(path.c_str());
	node.WriteAttr("comment", 'CSTR', 0, "hello", 6);
	int32 count = 1234;
	node.WriteAttr("count", 'LONG', 0, &count, sizeof(count));
	bool flag = true;
	node.WriteAttr("flag", 'BOOL', 0, &flag, sizeof(flag));
	std::vector<uint8> raw(2000, 7);
	node.WriteAttr("raw", 'RAWT', 0, raw.data(), raw.size());
	std::vector<uint8> large(1024, kIconIndex);
	node.WriteAttr("BEOS:L:STD_ICON", 'ICON', 0, large.data(), large.size());
	std::vector<uint8> mini(256, kIconIndex);
	node.WriteAttr("BEOS:M:STD_ICON", 'MICN', 0, mini.data(), mini.size());
	setxattr(path.c_str(), "user.xdg.comment", "note", 4, 0);
	return path;
}

// Runs body headless with a shown panel window and the path of a TypedFile.
template<typename Body>
void
WithTypedFile(Body body)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	std::string path = TypedFile(folder);
	WindowTester::RunHeadless([&] {
		PanelWindow w;
		body(w, path);
	});
}

}	// namespace

TEST(AttrViewTest, ListsTheTypedAttributesOfAFile)
{
	WithTypedFile([](PanelWindow& w, const std::string& path) {
		ASSERT_TRUE(w.window->Lock());
		EXPECT_TRUE(w.panel->FindView("Headers")->IsHidden());
		EXPECT_TRUE(w.panel->FindView("ScrollList")->IsHidden());
		w.window->Unlock();

		w.Show(path);
		ASSERT_TRUE(w.window->Lock());
		EXPECT_STREQ("Attributes (7)", w.panel->Label());
		EXPECT_EQ(7, w.List()->CountItems());
		EXPECT_EQ((Columns{"comment", "CSTR", "6", "hello"}), w.ColumnsOf("comment"));
		EXPECT_EQ((Columns{"count", "LONG", "4", "1,234 '....' 0x000004D2"}),
			w.ColumnsOf("count"));
		EXPECT_EQ((Columns{"flag", "BOOL", "1", "true"}), w.ColumnsOf("flag"));
		EXPECT_EQ((Columns{"raw", "RAWT", "2,000", kTooLargeText}), w.ColumnsOf("raw"));
		EXPECT_EQ((Columns{"BEOS:L:STD_ICON", "ICON", "1,024", "32 x 32 icon"}),
			w.ColumnsOf("BEOS:L:STD_ICON"));
		EXPECT_EQ((Columns{"BEOS:M:STD_ICON", "MICN", "256", "16 x 16 icon"}),
			w.ColumnsOf("BEOS:M:STD_ICON"));
		EXPECT_EQ((Columns{"user.xdg.comment", "XATR", "4", "note"}),
			w.ColumnsOf("user.xdg.comment"));
		EXPECT_FALSE(w.panel->FindView("Headers")->IsHidden());
		EXPECT_FALSE(w.panel->FindView("ScrollList")->IsHidden());
		w.window->Unlock();
	});
}

TEST(AttrViewTest, IconRowsAreAsTallAsTheirBitmapsAndShowThem)
{
	WithTypedFile([](PanelWindow& w, const std::string& path) {
		w.Show(path);
		ASSERT_TRUE(w.window->Lock());
		int32 large = w.IndexOf("BEOS:L:STD_ICON");
		int32 mini = w.IndexOf("BEOS:M:STD_ICON");
		int32 text = w.IndexOf("comment");
		ASSERT_GE(large, 0);
		ASSERT_GE(mini, 0);
		ASSERT_GE(text, 0);
		EXPECT_EQ(32.0f, w.Row(large)->Height());
		EXPECT_EQ(16.0f, w.Row(mini)->Height());
		font_height height;
		w.List()->GetFontHeight(&height);
		EXPECT_EQ(std::ceil(height.ascent + height.descent + height.leading),
			w.Row(text)->Height());
		EXPECT_EQ(31.0f, w.List()->ItemFrame(large).Height());
		BPoint inLarge = w.InRow(large, 200 + 20, 25);
		BPoint inMini = w.InRow(mini, 200 + 8, 8);
		BPoint pastMini = w.InRow(mini, 200 + 20, 8);
		w.window->Unlock();

		rgb_color painted = system_colors()->color_list[kIconIndex];
		EXPECT_EQ(painted, w.tester.PixelAt(inLarge));
		EXPECT_EQ(painted, w.tester.PixelAt(inMini));
		EXPECT_NE(painted, w.tester.PixelAt(pastMini));
	});
}

TEST(AttrViewTest, ANodeThatCannotBeReadLeavesTheListEmpty)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	std::string path = TypedFile(folder);
	std::string bare = folder.File("bare");
	WindowTester::RunHeadless([&] {
		PanelWindow w;
		w.Show(path);
		unlink(path.c_str());
		w.Show(path);
		ASSERT_TRUE(w.window->Lock());
		EXPECT_EQ(0, w.List()->CountItems());
		EXPECT_STREQ("Attributes (0)", w.panel->Label());
		EXPECT_FALSE(w.panel->FindView("Headers")->IsHidden());
		w.window->Unlock();

		w.Show(bare);
		ASSERT_TRUE(w.window->Lock());
		EXPECT_EQ(0, w.List()->CountItems());
		EXPECT_STREQ("Attributes (0)", w.panel->Label());
		w.window->Unlock();
	});
}

TEST(AttrViewTest, NewRowsGoAtTheEndWithTheHeightOfTheirType)
{
	WindowTester::RunHeadless([] {
		PanelWindow w;
		std::vector<uint8> pixels(2048, kIconIndex);
		struct {
			const char* name;
			uint32 type;
			int32 size;
			float height;
		} rows[] = {
			{"small icon", 'ICON', 256, 32},
			{"large mini icon", 'MICN', 1024, 16},
			{"small colour", 'CLRB', 256, 16},
			{"large colour", 'CLRB', 1024, 32},
			{"a text", 'CSTR', 2, 0},
		};
		ASSERT_TRUE(w.window->Lock());
		for (auto& row : rows) {
			AttrData data(row.name, row.type, pixels.data(), row.size);
			w.panel->AddNewAttribute(data);
		}
		ASSERT_EQ(5, w.List()->CountItems());
		for (int32 index = 0; index < 5; index++) {
			EXPECT_STREQ(rows[index].name, w.Row(index)->GetString(0));
			if (rows[index].height > 0) {
				EXPECT_EQ(rows[index].height, w.Row(index)->Height())
					<< rows[index].name;
			}
		}
		EXPECT_LT(w.Row(4)->Height(), 16.0f + 8.0f);
		EXPECT_GT(w.Row(4)->Height(), 0.0f);

		w.panel->UpdateTitle(12345);
		EXPECT_STREQ("Attributes (12,345)", w.panel->Label());
		// Without a hosting inspector there is no node to count or write.
		w.panel->UpdateTitle(-1);
		EXPECT_STREQ("Attributes (0)", w.panel->Label());
		EXPECT_EQ(nullptr, w.panel->File());
		EXPECT_EQ(B_NO_INIT, w.panel->WriteAttribute("x", 'LONG', pixels.data(), 4));
		w.window->Unlock();
	});
}

TEST(AttrViewTest, WritesReplacesAndRemovesOnTheNodeOfItsInspector)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	std::string path = folder.File("written");
	WindowTester::RunHeadless([&] {
		BWindow* window = new BWindow(BRect(100, 100, 699, 599), "Inspector",
			B_TITLED_WINDOW, 0);
		GlintView* inspector = new GlintView(window->Bounds());
		window->AddChild(inspector);
		window->Show();
		WindowTester tester(window);

		entry_ref ref;
		ASSERT_EQ(B_OK, get_ref_for_path(path.c_str(), &ref));
		BMessage refs(B_REFS_RECEIVED);
		refs.AddRef("refs", &ref);
		ASSERT_TRUE(window->Lock());
		inspector->SetEntry(&refs, 0);
		auto panel = dynamic_cast<AttrView*>(inspector->FindView("Attributes"));
		ASSERT_NE(nullptr, panel);
		ASSERT_NE(nullptr, panel->File());
		EXPECT_EQ(inspector->File(), panel->File());
		EXPECT_TRUE(panel->QuitRequested());

		int32 five = 5;
		char text[] = "five";
		EXPECT_EQ(4, panel->WriteAttribute("number", 'LONG', &five, 4));
		EXPECT_EQ(5, panel->WriteAttribute("number", 'CSTR', text, 5));
		EXPECT_EQ(4, panel->WriteAttribute("other", 'LONG', &five, 4));
		panel->UpdateTitle(-1);
		EXPECT_STREQ("Attributes (2)", panel->Label());
		window->Unlock();

		BNode node(path.c_str());
		attr_info info;
		ASSERT_EQ(B_OK, node.GetAttrInfo("number", &info));
		EXPECT_EQ(uint32('CSTR'), info.type);
		EXPECT_EQ(5, info.size);
		char read[8] = {};
		EXPECT_EQ(5, node.ReadAttr("number", 'CSTR', 0, read, sizeof(read)));
		EXPECT_STREQ("five", read);
		// One extended attribute per name: the replaced type left nothing behind.
		const char listing[] = "user.haiku.number#CSTR\0user.haiku.other#LONG";
		EXPECT_EQ(ssize_t(sizeof(listing)), llistxattr(path.c_str(), nullptr, 0));

		ASSERT_TRUE(window->Lock());
		EXPECT_EQ(0, panel->WriteAttribute("number", 0, nullptr, 0));
		EXPECT_EQ(B_BAD_VALUE, panel->WriteAttribute("other", 'LONG', &five, -1));
		panel->UpdateTitle(-1);
		EXPECT_STREQ("Attributes (1)", panel->Label());
		window->Unlock();
		EXPECT_EQ(B_ENTRY_NOT_FOUND, node.GetAttrInfo("number", &info));
		EXPECT_EQ(B_OK, node.GetAttrInfo("other", &info));
	});
}

TEST(AttrViewTest, NoAttributeIsHiddenNorANodeTooCrowdedToListShownEmpty)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	std::string twice = folder.File("twice");
	setxattr(twice.c_str(), "user.haiku.k#LONG", "\x2a\0\0\0", 4, 0);
	setxattr(twice.c_str(), "user.haiku.k#CSTR", "text", 4, 0);
	std::string crowded = folder.File("crowded");
	for (int i = 0; i < 400; i++) {
		std::string xattr = "user.haiku." + std::to_string(i) + std::string(200, 'f') + "#CSTR";
		setxattr(crowded.c_str(), xattr.c_str(), "v", 1, 0);
	}
	WindowTester::RunHeadless([&] {
		PanelWindow w;
		w.Show(twice);
		ASSERT_TRUE(w.window->Lock());
		EXPECT_STREQ("Attributes (2)", w.panel->Label());
		EXPECT_EQ((Columns{"k", "LONG", "4", "42 '...*' 0x0000002A"}), w.ColumnsOf("k"));
		EXPECT_EQ((Columns{"user.haiku.k#CSTR", "XATR", "4", "text"}),
			w.ColumnsOf("user.haiku.k#CSTR"));
		w.window->Unlock();

		w.Show(crowded);
		ASSERT_TRUE(w.window->Lock());
		EXPECT_STREQ("Attributes (more names than Linux can list)", w.panel->Label());
		w.window->Unlock();
	});
}
