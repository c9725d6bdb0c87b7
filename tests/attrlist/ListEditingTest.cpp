// Deleting, cutting, copying and pasting attributes, and the icon window,
// on real files.

#include "EditorTestSupport.h"

#include <sys/xattr.h>

#include <Clipboard.h>
#include <OS.h>

#include "../../platform/link/DesktopClipboard.h"
#include "AttrPackage.h"
#include "IconView.h"
#include "Utils.h"

using BPrivate::DesktopClipboard;
using BPrivate::WindowTester;

namespace {

const int32 kCancel = 0;
const int32 kOK = 1;

const char* const kComment = "user.haiku.comment#CSTR";
const char* const kNotRemoved = "\n\nThe operation did not succeed:\n\n   "
	"The attribute was not removed.";

// Selects a row without opening its editor.
void
SelectOnly(Inspector& w, const char* name)
{
	w.Click(name, CMultiTextItem::kValueColumn, kOptionKeys);
}

// The attribute on the clipboard, or an empty package.
std::unique_ptr<AttrPackage>
ClipboardAttribute()
{
	auto package = std::make_unique<AttrPackage>();
	EXPECT_TRUE(be_clipboard->Lock());
	const void* flattened;
	ssize_t size;
	if (be_clipboard->Data()->FindData("VellumAttr", B_RAW_TYPE, &flattened, &size) == B_OK) {
		EXPECT_EQ(B_OK, package->Unflatten(flattened, size));
	}
	be_clipboard->Unlock();
	return package;
}

// Waits until the "OpenWin" thread, if it still runs, has opened its window.
void
WaitForOpenWin()
{
	thread_id thread = find_thread("OpenWin");
	status_t result;
	if (thread >= 0)
		wait_for_thread(thread, &result);
}

}	// namespace

TEST(ListEditingTest, DeletingAsksFirstAndRemovesFromTheNode)
{
	WithCommentFile([](Inspector& w, const std::string& path) {
		{
			// Nothing selected: nothing to ask.
			AlertScript alerts;
			w.EditCommand(B_DELETE);
			EXPECT_TRUE(alerts.Seen().empty());
		}
		SelectOnly(w, "comment");
		{
			AlertScript alerts({kCancel});
			w.EditCommand(B_DELETE);
			ASSERT_EQ(1u, alerts.Seen().size());
			EXPECT_EQ("Delete the attribute \"comment\"?", alerts.Texts()[0]);
			EXPECT_EQ((std::vector<std::string>{"Cancel", "OK"}), alerts.Seen()[0].buttons);
			EXPECT_EQ(1u, Xattrs(path).count(kComment));
		}
		{
			AlertScript alerts({kOK});
			w.EditCommand(B_DELETE);
			EXPECT_EQ(1u, alerts.Seen().size());
			auto attributes = Xattrs(path);
			EXPECT_EQ(1u, attributes.size());
			EXPECT_EQ(0u, attributes.count(kComment));
			EXPECT_EQ(1, w.CountRows());
			ASSERT_TRUE(w.window->Lock());
			auto panel = dynamic_cast<BBox*>(w.window->FindView("Attributes"));
			ASSERT_NE(nullptr, panel);
			EXPECT_STREQ("Attributes (1)", panel->Label());
			w.window->Unlock();
		}
	});
}

TEST(ListEditingTest, ACutThatCannotRemoveStillCopiesAndSaysSo)
{
	WithCommentFile([](Inspector& w, const std::string& path) {
		SelectOnly(w, "comment");
		// Another program removed it meanwhile: the removal fails.
		ASSERT_EQ(0, removexattr(path.c_str(), kComment));
		AlertScript alerts({kOK, 0});
		w.EditCommand('CCUT');
		EXPECT_EQ((std::vector<std::string>{"Delete the attribute \"comment\"?", kNotRemoved}),
			alerts.Texts());
		EXPECT_EQ(2, w.CountRows());

		auto package = ClipboardAttribute();
		EXPECT_STREQ("comment", package->Name());
		EXPECT_EQ(uint32('CSTR'), package->Type());
		ASSERT_EQ(6u, package->Size());
		EXPECT_STREQ("hello", static_cast<const char*>(package->Data()));
		ASSERT_TRUE(be_clipboard->Lock());
		const char* text = nullptr;
		be_clipboard->Data()->FindString("text", &text);
		EXPECT_STREQ("comment\tCSTR\t6\thello", text);
		be_clipboard->Unlock();
	});
}

TEST(ListEditingTest, CopiedAttributesPasteIntoAnotherNodeAlsoFromAnotherProgram)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	std::string source = CommentFile(folder, "source");
	std::string sameProgram = folder.File("same");
	std::string otherProgram = folder.File("other");
	std::string plainText = folder.File("text");
	WindowTester::RunHeadless([&] {
		Inspector from(source);
		SelectOnly(from, "count");
		from.EditCommand('COPY');

		Inspector to(sameProgram);
		to.EditCommand('PSTE');
		int32 five = 5;
		auto attributes = Xattrs(sameProgram);
		EXPECT_EQ(1u, attributes.size());
		EXPECT_EQ(Hex(&five, sizeof(five)), attributes["user.haiku.count#LONG"]);
		ASSERT_TRUE(to.window->Lock());
		EXPECT_EQ(0, to.IndexOf("count"));
		EXPECT_STREQ("Attributes (1)",
			dynamic_cast<BBox*>(to.window->FindView("Attributes"))->Label());
		to.window->Unlock();

		// What another copy of the program finds on the desktop's clipboard:
		// the flattened message, without anything of this process.
		DesktopClipboard::Formats formats;
		ASSERT_EQ(B_OK, DesktopClipboard::Read({"text/plain",
			"application/x-vnd.Be-message"}, &formats));
		EXPECT_EQ("count\tLONG\t4\t5 '....' 0x00000005", formats["text/plain"]);
		ASSERT_EQ(B_OK, DesktopClipboard::Write(formats));
		Inspector other(otherProgram);
		other.EditCommand('PSTE');
		EXPECT_EQ(Hex(&five, sizeof(five)), Xattrs(otherProgram)["user.haiku.count#LONG"]);

		// Text of another program pastes nothing.
		ASSERT_EQ(B_OK, DesktopClipboard::Write({{"text/plain", "count\tLONG\t4\t5"}}));
		Inspector text(plainText);
		text.EditCommand('PSTE');
		EXPECT_TRUE(Xattrs(plainText).empty());
		EXPECT_EQ(0, text.CountRows());
	});
}

TEST(ListEditingTest, AnOptionDoubleClickOpensOneIconWindowPerAttribute)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	std::string path = folder.File("icons");
	const uint8 kIndex = 42;
	std::vector<uint8> large(1024, kIndex);
	WriteAttr(path, "BEOS:L:STD_ICON", 'ICON', large.data(), large.size());
	std::vector<uint8> mini(256, kIndex);
	WriteAttr(path, "BEOS:M:STD_ICON", 'MICN', mini.data(), mini.size());
	WindowTester::RunHeadless([&] {
		Inspector w(path);
		// Any double click on a value of 256 bytes or more opens its window,
		// an option-double-click on any other; a second one brings it back.
		for (const char* name : {"BEOS:M:STD_ICON", "BEOS:L:STD_ICON", "BEOS:L:STD_ICON"}) {
			w.Click(name, CMultiTextItem::kNameColumn,
				strcmp(name, "BEOS:M:STD_ICON") == 0 ? 0 : kOptionKeys, 2);
			WaitForOpenWin();
			ASSERT_TRUE(w.window->Lock());
			EXPECT_EQ(nullptr, w.Editor());
			w.window->Unlock();
		}
		EXPECT_EQ(2, CountSubsidiaryWindows("IconWindow", nullptr));
		EXPECT_EQ(1, CountSubsidiaryWindows("IconWindow", "BEOS:L:STD_ICON"));

		for (auto [name, side] : {std::pair("BEOS:L:STD_ICON", 32u),
				std::pair("BEOS:M:STD_ICON", 16u)}) {
			BWindow* window = FindFrontWindow("IconWindow", name);
			ASSERT_NE(nullptr, window) << name;
			ASSERT_TRUE(window->Lock());
			auto icon = dynamic_cast<IconView*>(window->FindView("Icon"));
			ASSERT_NE(nullptr, icon);
			EXPECT_EQ(side, icon->BitmapSize());
			BRect frame = icon->Frame();
			BPoint middle((frame.left + frame.right) / 2, (frame.top + frame.bottom) / 2);
			// Four times magnified: the icon reaches twice its side from the middle.
			BPoint corner = middle - BPoint(2.0f * side - 1, 2.0f * side - 1);
			BPoint outside = middle - BPoint(2.0f * side + 3, 0);
			window->Unlock();
			WindowTester tester(window);
			ASSERT_EQ(B_OK, tester.WaitForIdle());
			rgb_color painted = system_colors()->color_list[kIndex];
			EXPECT_EQ(painted, tester.PixelAt(middle)) << name;
			EXPECT_EQ(painted, tester.PixelAt(corner)) << name;
			EXPECT_NE(painted, tester.PixelAt(outside)) << name;
		}
	});
}
