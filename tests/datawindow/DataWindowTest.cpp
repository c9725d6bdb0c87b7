// The data window on real files: opening rows in their views, editing and
// saving values, names and types, and adding attributes.

#include "attrlist/EditorTestSupport.h"

#include <OS.h>
#include <RadioButton.h>

#include "BrindleFile.h"
#include "DataWindow.h"
#include "Formatting.h"
#include "StringAttrView.h"
#include "Utils.h"

using BPrivate::WindowTester;

namespace {

enum {
	kCancel = 0,
	kDiscard = 1,
	kSave = 2
};

const int32 kAdd = 1;

// Option-double-clicks the row and returns the data window it opened.
DataWindow*
OpenFromRow(Inspector& w, const char* name)
{
	w.Click(name, CMultiTextItem::kNameColumn, kOptionKeys, 2);
	thread_id opener = find_thread("OpenWin");
	status_t result;
	if (opener >= 0)
		wait_for_thread(opener, &result);
	DataWindow* window = DataWindow::FindDataWindow("file", name);
	if (window != nullptr) {
		EXPECT_EQ(B_OK, WindowTester(window).WaitForIdle());
	}
	return window;
}

StringAttrView*
ViewOf(DataWindow* window, const char* viewName)
{
	return dynamic_cast<StringAttrView*>(window->FindView(viewName));
}

// The text of a field of one of the window's views.
std::string
FieldOf(DataWindow* window, const char* viewName, const char* field)
{
	EXPECT_TRUE(window->Lock());
	const char* text = ViewOf(window, viewName)->GetTextString(field);
	std::string result = text != nullptr ? text : "";
	window->Unlock();
	return result;
}

void
SetField(DataWindow* window, const char* viewName, const char* field, const char* text)
{
	ASSERT_TRUE(window->Lock());
	auto control = dynamic_cast<BTextControl*>(ViewOf(window, viewName)->FindView(field));
	ASSERT_NE(nullptr, control) << field;
	control->SetText(text);
	window->Unlock();
}

// Closes the window as its close box does; true when it closed. The
// inspector window has re-read the node by the time this returns.
bool
Close(Inspector& w, DataWindow* window)
{
	EXPECT_TRUE(window->Lock());
	bool closes = window->QuitRequested();
	if (closes)
		window->Quit();
	else
		window->Unlock();
	EXPECT_EQ(B_OK, w.tester.WaitForIdle());
	return closes;
}

std::string
RowValue(Inspector& w, const char* name)
{
	EXPECT_TRUE(w.window->Lock());
	int32 index = w.IndexOf(name);
	auto row = dynamic_cast<CMultiTextItem*>(w.List()->ItemAt(index));
	std::string value = row != nullptr ? row->GetString(CMultiTextItem::kValueColumn) : "";
	w.window->Unlock();
	return value;
}

}	// namespace

TEST(DataWindowTest, EachTypeOpensInItsViewAndTheViewsSwitch)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	std::string path = folder.File("file");
	const char bytes[16] = {1};
	const struct {
		uint32 type;
		size_t size;
		long view;
	} kCases[] = {
		{'CSTR', 2, DataWindow::kStringView}, {'LONG', 4, DataWindow::kNumView},
		{'ULNG', 4, DataWindow::kStringView}, {'BOOL', 1, DataWindow::kBoolView},
		{'TIME', 4, DataWindow::kDateView}, {'RECT', 16, DataWindow::kRectView},
		{'BYTE', 1, DataWindow::kHexView}, {'FLOT', 4, DataWindow::kHexView},
		{'DBLE', 8, DataWindow::kHexView}
	};
	for (const auto& entry : kCases)
		WriteAttr(path, ASCII(entry.type), entry.type, bytes, entry.size);
	WindowTester::RunHeadless([&] {
		Inspector w(path);
		for (const auto& entry : kCases) {
			String name = ASCII(entry.type);
			DataWindow* window = OpenFromRow(w, name);
			ASSERT_NE(nullptr, window) << name;
			EXPECT_EQ(entry.view, window->CurrentViewNum()) << name;
		}
		EXPECT_EQ(9, CountSubsidiaryWindows("DataWindow", nullptr));
		// A second request brings the open window back instead of another.
		DataWindow* numbers = OpenFromRow(w, "LONG");
		EXPECT_EQ(9, CountSubsidiaryWindows("DataWindow", nullptr));
		EXPECT_STREQ("file: LONG", numbers->Title());

		WindowTester tester(numbers);
		numbers->PostMessage('swWv');
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_EQ(DataWindow::kHexView, numbers->CurrentViewNum());
		numbers->PostMessage('swWv');
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_EQ(DataWindow::kNumView, numbers->CurrentViewNum());
		numbers->SetView(9L);
		EXPECT_EQ(DataWindow::kHexView, numbers->CurrentViewNum());
		numbers->SetView(-3L);
		EXPECT_EQ(DataWindow::kStringView, numbers->CurrentViewNum());
	});
}

TEST(DataWindowTest, TypedViewsReadTheirValuesAsStated)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	std::string path = folder.File("file");
	int16 minusFive = -5;
	WriteAttr(path, "short", 'SHRT', &minusFive, sizeof(minusFive));
	float large = 3.0e10f;
	WriteAttr(path, "float", 'FLOT', &large, sizeof(large));
	double one = 1.0;
	WriteAttr(path, "double", 'DBLE', &one, sizeof(one));
	const char odd[3] = {1, 0, 0};
	WriteAttr(path, "odd", 'LONG', odd, sizeof(odd));
	const char twoBytes[2] = {1, 0};
	WriteAttr(path, "flag", 'BOOL', twoBytes, sizeof(twoBytes));
	WindowTester::RunHeadless([&] {
		Inspector w(path);
		EXPECT_EQ("-5", FieldOf(OpenFromRow(w, "short"), "NumView", "Data"));
		EXPECT_EQ("2147483648.00", FieldOf(OpenFromRow(w, "float"), "NumView", "Data"));
		// A double shows the integer that its bytes form.
		EXPECT_EQ("4,607,182,418,800,017,408",
			FieldOf(OpenFromRow(w, "double"), "NumView", "Data"));
		EXPECT_EQ("1", FieldOf(OpenFromRow(w, "odd"), "NumView", "Data"));
		// Only a one-byte value sets the buttons: neither is on.
		DataWindow* flag = OpenFromRow(w, "flag");
		ASSERT_TRUE(flag->Lock());
		for (const char* button : {"TrueBtn", "FalseBtn"})
			EXPECT_EQ(0, dynamic_cast<BRadioButton*>(flag->FindView(button))->Value());
		flag->Unlock();
	});
}

TEST(DataWindowTest, ANumberTypedInHexIsSavedOnCloseAndTheRowShowsIt)
{
	WithCommentFile([](Inspector& w, const std::string& path) {
		DataWindow* window = OpenFromRow(w, "count");
		ASSERT_NE(nullptr, window);
		EXPECT_EQ(DataWindow::kNumView, window->CurrentViewNum());
		SetField(window, "NumView", "Data", "0x10");
		AlertScript alerts({kSave});
		EXPECT_TRUE(Close(w, window));
		ASSERT_EQ(1u, alerts.Seen().size());
		EXPECT_EQ("10000000", Xattrs(path)["user.haiku.count#LONG"]);
		EXPECT_EQ(0u, RowValue(w, "count").find("16 "));
	});
}

TEST(DataWindowTest, RenameRetypeAndValueAreOneQuestionAndOneChange)
{
	WithCommentFile([](Inspector& w, const std::string& path) {
		DataWindow* window = OpenFromRow(w, "count");
		SetField(window, "NumView", "Name", "total");
		SetField(window, "NumView", "Type", "LLNG");
		SetField(window, "NumView", "Data", "-7");
		AlertScript alerts({kSave});
		EXPECT_TRUE(Close(w, window));
		ASSERT_EQ(1u, alerts.Seen().size());
		auto attributes = Xattrs(path);
		EXPECT_EQ(0u, attributes.count("user.haiku.count#LONG"));
		EXPECT_EQ("f9ffffffffffffff", attributes["user.haiku.total#LLNG"]);
		EXPECT_GE(w.IndexOf("total"), 0);
	});
}

TEST(DataWindowTest, CancelKeepsTheWindowAndDiscardPutsTheValueBack)
{
	WithCommentFile([](Inspector& w, const std::string& path) {
		DataWindow* window = OpenFromRow(w, "comment");
		SetField(window, "StringView", "Data", "changed");
		{
			AlertScript alerts({kCancel});
			EXPECT_FALSE(Close(w, window));
			EXPECT_EQ("changed", FieldOf(window, "StringView", "Data"));
		}
		{
			AlertScript alerts({kDiscard});
			ASSERT_TRUE(window->Lock());
			EXPECT_TRUE(ViewOf(window, "StringView")->SaveChanges());
			window->Unlock();
			EXPECT_EQ("hello", FieldOf(window, "StringView", "Data"));
		}
		// Nothing edited: nothing asked.
		AlertScript alerts;
		EXPECT_TRUE(Close(w, window));
		EXPECT_TRUE(alerts.Seen().empty());
		EXPECT_EQ(Hex("hello", 6), Xattrs(path)["user.haiku.comment#CSTR"]);
	});
}

TEST(DataWindowTest, OnlyTheDataFieldIsCutAndElsewhereTheFieldsComeBack)
{
	WithCommentFile([](Inspector& w, const std::string&) {
		DataWindow* window = OpenFromRow(w, "comment");
		WindowTester tester(window);
		auto cutIn = [&](const char* field) {
			ASSERT_TRUE(window->Lock());
			auto control = dynamic_cast<BTextControl*>(window->FindView(field));
			control->MakeFocus(true);
			control->TextView()->SelectAll();
			window->Unlock();
			BMessage cut(B_CUT);
			cut.AddPointer("source", window);
			window->PostMessage(&cut);
			ASSERT_EQ(B_OK, tester.WaitForIdle());
		};
		SetField(window, "StringView", "Name", "renamed");
		{
			AlertScript alerts;
			cutIn("Name");
			ASSERT_EQ(1u, alerts.Seen().size());
			EXPECT_EQ("NotYetImplementedAlert", alerts.Seen()[0].title);
			EXPECT_EQ("comment", FieldOf(window, "StringView", "Name"));
		}
		AlertScript alerts;
		cutIn("Data");
		EXPECT_TRUE(alerts.Seen().empty());
		EXPECT_EQ("", FieldOf(window, "StringView", "Data"));
	});
}

TEST(DataWindowTest, AFailedWriteSaysSoAndKeepsTheValue)
{
	WithCommentFile([](Inspector& w, const std::string& path) {
		DataWindow* window = OpenFromRow(w, "count");
		ASSERT_EQ(0, remove(path.c_str()));
		AlertScript alerts;
		ASSERT_TRUE(window->Lock());
		window->ChangeComposite(nullptr, 'LONG', "\x09\0\0\0", 4);
		EXPECT_STREQ("count", window->GetDataName());
		EXPECT_NE(nullptr, window->GetMasterData());
		window->Unlock();
		ASSERT_EQ(1u, alerts.Seen().size());
		EXPECT_NE(std::string::npos, alerts.Texts()[0].find("The change was not recorded."));
	});
}

TEST(DataWindowTest, AnInlineEditRefreshesTheOpenDataWindow)
{
	WithCommentFile([](Inspector& w, const std::string&) {
		DataWindow* window = OpenFromRow(w, "comment");
		AlertScript alerts({kSave});
		w.Click("comment", CMultiTextItem::kValueColumn);
		w.TypeAndEnter("bye");
		ASSERT_EQ(B_OK, WindowTester(window).WaitForIdle());
		EXPECT_EQ("bye", FieldOf(window, "StringView", "Data"));
	});
}

TEST(DataWindowTest, AddAttributeOpensAnEmptyStringThatClosingAdds)
{
	WithCommentFile([](Inspector& w, const std::string& path) {
		w.window->PostMessage('AddA');
		ASSERT_EQ(B_OK, w.tester.WaitForIdle());
		DataWindow* window = DataWindow::FindDataWindow("file", "");
		ASSERT_NE(nullptr, window);
		ASSERT_EQ(B_OK, WindowTester(window).WaitForIdle());
		EXPECT_EQ(DataWindow::kStringView, window->CurrentViewNum());
		SetField(window, "StringView", "Name", "added");
		SetField(window, "StringView", "Data", "new text");
		AlertScript alerts({kAdd});
		EXPECT_TRUE(Close(w, window));
		ASSERT_EQ(1u, alerts.Seen().size());
		EXPECT_EQ("AddAttr", alerts.Seen()[0].title);
		EXPECT_EQ(Hex("new text", 9), Xattrs(path)["user.haiku.added#CSTR"]);
		EXPECT_GE(w.IndexOf("added"), 0);
	});
}
