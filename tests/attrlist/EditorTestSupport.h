#ifndef EDITOR_TEST_SUPPORT_H
#define EDITOR_TEST_SUPPORT_H

// An inspector window on a real file, driven like a user, and the file's
// extended attributes as getfattr, an independent client, reads them.

#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include <Node.h>
#include <TextControl.h>
#include <TextView.h>
#include <Window.h>
#include <WindowTester.h>

#include "CMultiTextItem.h"
#include "GlWindow.h"
#include "ItemEditor.h"
#include "SpecialListView.h"
#include "app/AlertScript.h"
#include "inspector/InspectorTestSupport.h"
#include "platform/storage/TempFolder.h"

// Where a click lands in each column: just right of the column's tab stop.
const float kColumnX[CMultiTextItem::kColumnCount] = {16, 125, 170, 220};

const uint32 kOptionKeys = B_OPTION_KEY | B_LEFT_OPTION_KEY;

// The extended attributes of a file, name to value in hex digits, as
// "getfattr -d -m - -e hex" lists them.
inline std::map<std::string, std::string>
Xattrs(const std::string& path)
{
	std::map<std::string, std::string> attributes;
	std::string command = "getfattr --absolute-names -d -m - -e hex '" + path + "' 2>/dev/null";
	FILE* pipe = popen(command.c_str(), "r");
	if (pipe == nullptr)
		return attributes;
	char line[4096];
	while (fgets(line, sizeof(line), pipe) != nullptr) {
		std::string text(line);
		if (!text.empty() && text.back() == '\n')
			text.pop_back();
		size_t equals = text.find('=');
		if (text.empty() || text[0] == '#')
			continue;
		if (equals == std::string::npos)
			attributes[text] = "";
		else
			attributes[text.substr(0, equals)] = text.substr(equals + 3);
	}
	pclose(pipe);
	return attributes;
}

inline std::string
Hex(const void* data, size_t size)
{
	static const char kDigits[] = "0123456789abcdef";
	std::string hex;
	for (size_t index = 0; index < size; index++) {
		uint8 byte = static_cast<const uint8*>(data)[index];
		hex += kDigits[byte >> 4];
		hex += kDigits[byte & 0x0F];
	}
	return hex;
}

inline std::string
Hex(const std::string& bytes)
{
	return Hex(bytes.data(), bytes.size());
}

// An inspector window showing the file at path.
struct Inspector {
	explicit Inspector(const std::string& path)
		:
		window(new GlWindow(BRect(60, 60, 760, 560))),
		tester(window)
	{
		window->Show();
		BMessage refs = RefsMessage(B_REFS_RECEIVED, {path});
		window->PostMessage(&refs);
		EXPECT_EQ(B_OK, tester.WaitForIdle());
	}

	SpecialListView* List() const
	{
		return dynamic_cast<SpecialListView*>(window->FindView("attrList"));
	}

	int32 IndexOf(const char* name) const
	{
		for (int32 index = 0; index < List()->CountItems(); index++) {
			auto row = dynamic_cast<CMultiTextItem*>(List()->ItemAt(index));
			if (row != nullptr && std::string(row->GetString(0)) == name)
				return index;
		}
		return -1;
	}

	int32 CountRows() const
	{
		EXPECT_TRUE(window->Lock());
		int32 count = List()->CountItems();
		window->Unlock();
		return count;
	}

	ItemEditor* Editor() const
	{
		return dynamic_cast<ItemEditor*>(window->FindView("ItemEditor"));
	}

	// Clicks (twice for a double click) into a column of the named row.
	void Click(const char* name, uint32 column, uint32 modifiers = 0, int clicks = 1)
	{
		ASSERT_TRUE(window->Lock());
		int32 index = IndexOf(name);
		BPoint where = List()->ConvertToScreen(
			BPoint(kColumnX[column], List()->ItemFrame(index).top + 5))
			- window->Frame().LeftTop();
		window->Unlock();
		ASSERT_GE(index, 0) << name;
		WindowTester::HoldModifiers(modifiers);
		for (int click = 0; click < clicks; click++)
			tester.Click(where, modifiers);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		WindowTester::HoldModifiers(0);
	}

	// Replaces the text of the focused field, as typed, and presses Enter.
	void TypeAndEnter(const char* text)
	{
		tester.TypeText(text);
		tester.TypeKey(B_ENTER);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
	}

	// The name of the editor field that has the focus, or "" for none.
	std::string FocusedField() const
	{
		EXPECT_TRUE(window->Lock());
		BView* focus = window->CurrentFocus();
		std::string name = focus != nullptr && focus->Parent() != nullptr
			&& dynamic_cast<ItemEditor*>(focus->Parent()->Parent()) != nullptr
			? focus->Parent()->Name() : "";
		window->Unlock();
		return name;
	}

	// Posts an Edit command to the list, as the Edit menu does through the
	// window.
	void EditCommand(uint32 what)
	{
		ASSERT_TRUE(window->Lock());
		BMessage command(what);
		window->PostMessage(&command, List());
		window->Unlock();
		ASSERT_EQ(B_OK, tester.WaitForIdle());
	}

	GlWindow* window;
	WindowTester tester;
};

// Writes a typed attribute through the kits.
inline void
WriteAttr(const std::string& path, const char* name, uint32 type, const void* data, size_t size)
{
	BNode node(path.c_str());
	ASSERT_EQ(ssize_t(size), node.WriteAttr(name, type, 0, data, size)) << name;
}

// A file with a short text, "comment", and a number, "count".
inline std::string
CommentFile(const TempFolder& folder, const char* leaf = "file")
{
	std::string path = folder.File(leaf);
	WriteAttr(path, "comment", 'CSTR', "hello", 6);
	int32 five = 5;
	WriteAttr(path, "count", 'LONG', &five, sizeof(five));
	return path;
}

// Runs body headless with an inspector on a CommentFile and its path.
template<typename Body>
void
WithCommentFile(Body body)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	std::string path = CommentFile(folder);
	BPrivate::WindowTester::RunHeadless([&] {
		Inspector inspector(path);
		body(inspector, path);
	});
}

#endif
