// The row editor on real files: clicks, edits confirmed, discarded and
// cancelled, renames and retypes, checked with getfattr.

#include "EditorTestSupport.h"

#include <sys/xattr.h>

#include <cstring>

using BPrivate::WindowTester;

namespace {

const int32 kCancel = 0;
const int32 kDiscard = 1;
const int32 kOK = 2;

const char* const kComment = "user.haiku.comment#CSTR";

std::string
Bytes(const char* text)
{
	return std::string(text, strlen(text) + 1);
}

}	// namespace

TEST(ItemEditorTest, APlainClickEditsTheClickedColumnAndOptionOnlySelects)
{
	WithCommentFile([](Inspector& w, const std::string&) {
		w.Click("comment", CMultiTextItem::kNameColumn);
		EXPECT_EQ("Name", w.FocusedField());
		ASSERT_TRUE(w.window->Lock());
		ItemEditor* editor = w.Editor();
		ASSERT_NE(nullptr, editor);
		EXPECT_STREQ("comment", editor->GetFieldText(0));
		EXPECT_STREQ("CSTR", editor->GetFieldText(1));
		EXPECT_STREQ("6", editor->GetFieldText(2));
		EXPECT_STREQ("hello", editor->GetFieldText(3));
		// Over the row, grown by 3 pixels on each side.
		BRect row = w.List()->ItemFrame(w.IndexOf("comment"));
		EXPECT_EQ(row.InsetByCopy(-3, -3), editor->Frame());
		auto size = dynamic_cast<BTextControl*>(editor->FindView("Size"));
		ASSERT_NE(nullptr, size);
		EXPECT_FALSE(size->TextView()->IsEditable());
		w.window->Unlock();

		w.Click("count", CMultiTextItem::kValueColumn);
		EXPECT_EQ("Data", w.FocusedField());
		w.Click("count", CMultiTextItem::kTypeColumn);
		EXPECT_EQ("Type", w.FocusedField());
		ASSERT_TRUE(w.window->Lock());
		EXPECT_EQ(w.List()->ItemFrame(w.IndexOf("count")).InsetByCopy(-3, -3),
			w.Editor()->Frame());
		int32 editors = 0;
		for (int32 index = 0; index < w.List()->CountChildren(); index++)
			editors += dynamic_cast<ItemEditor*>(w.List()->ChildAt(index)) != nullptr;
		EXPECT_EQ(1, editors);
		w.window->Unlock();

		for (uint32 option : {kOptionKeys, uint32(B_OPTION_KEY | B_RIGHT_OPTION_KEY)}) {
			w.Click("comment", CMultiTextItem::kValueColumn, option);
			ASSERT_TRUE(w.window->Lock());
			EXPECT_EQ(nullptr, w.Editor());
			EXPECT_EQ(w.IndexOf("comment"), w.List()->CurrentSelection());
			w.window->Unlock();
			w.Click("count", CMultiTextItem::kValueColumn);
			ASSERT_TRUE(w.window->Lock());
			EXPECT_NE(nullptr, w.Editor());
			w.window->Unlock();
		}
	});
}

TEST(ItemEditorTest, AValueEditIsWrittenOnlyWhenConfirmed)
{
	for (int32 answer : {kOK, kDiscard, kCancel}) {
		WithCommentFile([answer](Inspector& w, const std::string& path) {
			AlertScript alerts({answer});
			w.Click("comment", CMultiTextItem::kValueColumn);
			w.TypeAndEnter("world");

			ASSERT_EQ(1u, alerts.Seen().size()) << answer;
			EXPECT_EQ("Change value hello of \"comment\" to \n   value world?",
				alerts.Texts()[0]);
			std::string expected = answer == kOK ? Bytes("world") : Bytes("hello");
			auto attributes = Xattrs(path);
			EXPECT_EQ(2u, attributes.size());
			EXPECT_EQ(Hex(expected), attributes[kComment]) << answer;
			ASSERT_TRUE(w.window->Lock());
			auto row = dynamic_cast<CMultiTextItem*>(w.List()->ItemAt(w.IndexOf("comment")));
			ASSERT_NE(nullptr, row);
			EXPECT_EQ(expected.substr(0, expected.size() - 1), row->GetString(3));
			// The saved row is selected again, with an editor over it.
			EXPECT_EQ(w.IndexOf("comment"), w.List()->CurrentSelection());
			ASSERT_NE(nullptr, w.Editor());
			EXPECT_STREQ(row->GetString(3), w.Editor()->GetFieldText(3));
			w.window->Unlock();
		});
	}
}

TEST(ItemEditorTest, ACancelledSaveKeepsTheEditorAndTheWindow)
{
	WithCommentFile([](Inspector& w, const std::string& path) {
		// Another inspector, so that this one is not the application's last.
		ShowInspector();
		AlertScript alerts({kCancel});
		w.Click("comment", CMultiTextItem::kValueColumn);
		w.tester.TypeText("world");
		ASSERT_EQ(B_OK, w.tester.WaitForIdle());

		ASSERT_TRUE(w.window->Lock());
		EXPECT_FALSE(w.window->QuitRequested());
		ASSERT_EQ(1u, alerts.Seen().size());
		ASSERT_NE(nullptr, w.Editor());
		EXPECT_STREQ("world", w.Editor()->GetFieldText(3));

		// The editor offers its changes once: the next close discards them.
		EXPECT_TRUE(w.window->QuitRequested());
		EXPECT_EQ(1u, alerts.Seen().size());
		EXPECT_EQ(nullptr, w.Editor());
		w.window->Unlock();
		EXPECT_EQ(Hex(Bytes("hello")), Xattrs(path)[kComment]);
	});
}

TEST(ItemEditorTest, MovingToAnotherRowOffersThePendingEdit)
{
	WithCommentFile([](Inspector& w, const std::string& path) {
		AlertScript alerts({kOK});
		w.Click("comment", CMultiTextItem::kValueColumn);
		w.tester.TypeText("moved");
		w.Click("count", CMultiTextItem::kValueColumn);
		ASSERT_EQ(1u, alerts.Seen().size());
		EXPECT_EQ(Hex(Bytes("moved")), Xattrs(path)[kComment]);
	});
}

TEST(ItemEditorTest, TheTypeFieldTakesFourCharacters)
{
	WithCommentFile([](Inspector& w, const std::string&) {
		w.Click("count", CMultiTextItem::kTypeColumn);
		int32 beeps = WindowTester::CountBeeps();
		w.tester.TypeText("ULNGX");
		ASSERT_EQ(B_OK, w.tester.WaitForIdle());
		ASSERT_TRUE(w.window->Lock());
		EXPECT_STREQ("ULNG", w.Editor()->GetFieldText(1));
		w.window->Unlock();
		EXPECT_EQ(beeps + 1, WindowTester::CountBeeps());
	});
}

TEST(ItemEditorTest, RetypingRewritesTheValueUnderTheNewType)
{
	WithCommentFile([](Inspector& w, const std::string& path) {
		AlertScript alerts({kOK, kOK});
		w.Click("comment", CMultiTextItem::kValueColumn);
		w.tester.TypeText("42");
		// Into the type field: the value field commits its change.
		w.Click("comment", CMultiTextItem::kTypeColumn);
		ASSERT_EQ(1u, alerts.Seen().size());
		EXPECT_EQ(Hex(Bytes("42")), Xattrs(path)[kComment]);
		EXPECT_EQ("Type", w.FocusedField());
		w.TypeAndEnter("LONG");
		ASSERT_EQ(2u, alerts.Seen().size());
		EXPECT_EQ("Change type CSTR of \"comment\" to \n   type LONG?", alerts.Texts()[1]);

		auto attributes = Xattrs(path);
		int32 answer = 42;
		EXPECT_EQ(2u, attributes.size());
		EXPECT_EQ(Hex(&answer, sizeof(answer)), attributes["user.haiku.comment#LONG"]);
	});
}

TEST(ItemEditorTest, RenamesRemoveTheOldNameAlsoForAChangeOfCase)
{
	WithCommentFile([](Inspector& w, const std::string& path) {
		AlertScript alerts({kOK, kOK});
		w.Click("comment", CMultiTextItem::kNameColumn);
		w.TypeAndEnter("remark");
		auto attributes = Xattrs(path);
		EXPECT_EQ(2u, attributes.size());
		EXPECT_EQ(0u, attributes.count(kComment));
		EXPECT_EQ(Hex(Bytes("hello")), attributes["user.haiku.remark#CSTR"]);

		// Enter offers only real changes; a change of case alone is saved
		// when the field commits it. The saved row has its editor again.
		EXPECT_EQ("Name", w.FocusedField());
		w.tester.TypeText("Remark");
		w.tester.TypeKey(B_TAB);
		ASSERT_EQ(B_OK, w.tester.WaitForIdle());
		ASSERT_EQ(2u, alerts.Seen().size());
		EXPECT_EQ("Change name \"remark\" to \n   name \"Remark\"?", alerts.Texts()[1]);
		attributes = Xattrs(path);
		EXPECT_EQ(2u, attributes.size());
		EXPECT_EQ(Hex(Bytes("hello")), attributes["user.haiku.Remark#CSTR"]);
		ASSERT_TRUE(w.window->Lock());
		EXPECT_EQ(w.IndexOf("Remark"), w.List()->CurrentSelection());
		w.window->Unlock();
	});
}

// Every value whose display form is the program's own survives a rename
// byte for byte; a punctuated number is re-read as its parser decides.
TEST(ItemEditorTest, ARenameKeepsTheBytesOfEveryValueItShows)
{
	auto raw = [](size_t size) {
		std::string bytes;
		for (size_t index = 0; index < size; index++)
			bytes += char(index * 7 + 1);
		return bytes;
	};
	auto of = [](auto value) {
		return std::string(reinterpret_cast<const char*>(&value), sizeof(value));
	};
	const float rect[4] = {1, 2.5f, 300.125f, 0.1f};
	const float point[2] = {0.3f, 1e-3f};
	struct Case {
		const char* label;
		uint32 type;
		std::string bytes;
		std::string expected;
	} cases[] = {
		{"raw 0", 'RAWT', "", ""},
		{"raw 1", 'RAWT', raw(1), ""},
		{"raw 112", 'RAWT', raw(112), ""},
		{"raw 113", 'RAWT', raw(113), ""},
		{"raw 200", 'RAWT', raw(200), ""},
		{"raw 255", 'RAWT', raw(255), ""},
		{"string", 'CSTR', Bytes("a text, with 0x12 in it"), ""},
		{"mime", 'MIMS', Bytes("text/plain"), ""},
		{"rect", 'RECT', std::string(reinterpret_cast<const char*>(rect), sizeof(rect)), ""},
		{"point", 'BPNT', std::string(reinterpret_cast<const char*>(point), sizeof(point)), ""},
		{"true", 'BOOL', std::string(1, '\1'), ""},
		{"false", 'BOOL', std::string(1, '\0'), ""},
		{"float", 'FLOT', of(3.14159f), ""},
		{"double", 'DBLE', of(0.1), ""},
		{"small number", 'LONG', of(int32(-42)), ""},
		{"date", 'TIME', of(int32(1700000000)), ""},
		// "1,234 ..." read whole in decimal stops at the comma.
		{"punctuated number", 'LONG', of(int32(1234)), of(int32(1))},
	};
	for (const Case& test : cases) {
		TempFolder folder;
		ASSERT_XATTRS(folder);
		std::string path = folder.File("file");
		WriteAttr(path, "before", test.type, test.bytes.data(), test.bytes.size());
		WindowTester::RunHeadless([&] {
			AlertScript alerts({kOK});
			Inspector w(path);
			w.Click("before", CMultiTextItem::kNameColumn);
			w.TypeAndEnter("after");
			EXPECT_EQ(1u, alerts.Seen().size()) << test.label;
		});
		auto attributes = Xattrs(path);
		std::string name = "user.haiku.after#";
		for (int shift = 24; shift >= 0; shift -= 8)
			name += char(test.type >> shift);
		EXPECT_EQ(1u, attributes.size()) << test.label;
		ASSERT_EQ(1u, attributes.count(name)) << test.label << " " << name;
		std::string expected = test.expected.empty() ? test.bytes : test.expected;
		EXPECT_EQ(Hex(expected), attributes[name]) << test.label;
	}
}
