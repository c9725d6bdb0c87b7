#ifndef HEX_EDIT_TEST_SUPPORT_H
#define HEX_EDIT_TEST_SUPPORT_H

// A data window on an attribute of a real file, in the hex view, with a
// stand-in for the inspector window that re-reads the attribute after each
// write and refreshes the data window, as the inspector does.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include <Node.h>
#include <TextView.h>
#include <Window.h>
#include <WindowTester.h>

#include "BrindleFile.h"
#include "DataWindow.h"
#include "HexEditView.h"
#include "HexView.h"
#include "SpecialTextView.h"
#include "attrlist/EditorTestSupport.h"
#include "platform/storage/TempFolder.h"

using BPrivate::AlertInfo;
using BPrivate::WindowTester;

// Re-reads one attribute of the node on every B_REFS_RECEIVED and refreshes
// the data window with it.
class ReReader : public BWindow {
public:
	ReReader(const std::string& path, const std::string& name)
		:
		BWindow(BRect(0, 0, 50, 50), "ReReader", B_TITLED_WINDOW, 0),
		fPath(path),
		fName(name)
	{
	}

	virtual void MessageReceived(BMessage* message)
	{
		if (message->what != B_REFS_RECEIVED) {
			BWindow::MessageReceived(message);
			return;
		}
		BNode node(fPath.c_str());
		attr_info info;
		if (node.GetAttrInfo(fName.c_str(), &info) != B_OK)
			return;
		fValue.assign(size_t(info.size) + 1, '\0');
		node.ReadAttr(fName.c_str(), info.type, 0, fValue.data(), size_t(info.size));
		fData->Refresh(fName.c_str(), info.type, fValue.data(), uint32(info.size));
		fRereads++;
	}

	DataWindow* fData = nullptr;
	int32 fRereads = 0;

private:
	std::string fPath;
	std::string fName;
	std::vector<char> fValue;
};

// A file with one attribute, open in a data window.
struct HexWindow {
	HexWindow(const std::string& name, uint32 type, const std::string& value)
		:
		path(folder.File("node")),
		attribute(name),
		parent(new ReReader(path, name))
	{
		BNode node(path.c_str());
		node.WriteAttr(name.c_str(), type, 0, value.data(), value.size());
		window = new DataWindow(BRect(100, 100, 616, 400), "node: attr", B_TITLED_WINDOW, 0);
		brindle = std::make_unique<BrindleFile>(path.c_str());
		window->SetFile(brindle.get());
		window->SetParent(parent);
		parent->fData = window;
		parent->Show();
		parentTester = std::make_unique<WindowTester>(parent);
		window->Refresh(name.c_str(), type, value.data(), uint32(value.size()));
		tester = std::make_unique<WindowTester>(window);
		Settle();
	}

	~HexWindow()
	{
		window->Lock();
		window->Quit();
		parent->Lock();
		parent->Quit();
	}

	// Until the window, the re-read and the refresh are done.
	void Settle()
	{
		for (int round = 0; round < 2; round++) {
			EXPECT_EQ(B_OK, tester->WaitForIdle());
			EXPECT_EQ(B_OK, parentTester->WaitForIdle());
		}
		EXPECT_EQ(B_OK, tester->WaitForIdle());
	}

	HexEditView* Editor() const
	{
		return dynamic_cast<HexEditView*>(window->FindView("HexEditView"));
	}

	// The value as getfattr reads it, in lower-case hex digits.
	std::string FileHex() const
	{
		std::string command = "getfattr --absolute-names -e hex -m '^user\\.haiku\\."
			+ attribute + "#' -d '" + path + "' 2>/dev/null";
		FILE* pipe = popen(command.c_str(), "r");
		std::string output;
		char buffer[4096];
		size_t length;
		while ((length = fread(buffer, 1, sizeof(buffer), pipe)) > 0)
			output.append(buffer, length);
		pclose(pipe);
		size_t start = output.find("=0x");
		if (start == std::string::npos)
			return "(none)";
		start += 3;
		return output.substr(start, output.find('\n', start) - start);
	}

	std::string Header() const
	{
		window->Lock();
		BView* header = window->FindView("HexView")->FindView("Header");
		std::string text = dynamic_cast<BTextView*>(header)->Text();
		window->Unlock();
		return text;
	}

	// The point of a column's cell, in window coordinates.
	BPoint CellPoint(const char* column, int32 line, float cell) const
	{
		window->Lock();
		BView* view = window->FindView(column);
		float width = dynamic_cast<SpecialTextView*>(view)->CellWidth();
		float height = dynamic_cast<SpecialTextView*>(view)->LineHeight();
		BPoint where = view->ConvertToScreen(BPoint((cell + 0.5f) * width,
			(line + 0.5f) * height)) - window->Frame().LeftTop();
		window->Unlock();
		return where;
	}

	void Type(const char* text)
	{
		tester->TypeText(text);
		Settle();
	}

	void Key(uint32 key, uint32 modifiers = 0)
	{
		tester->TypeKey(key, modifiers);
		Settle();
	}

	void Command(uint32 what)
	{
		window->PostMessage(what);
		Settle();
	}

	int32 Caret() const
	{
		window->Lock();
		int32 caret = Editor()->Caret();
		window->Unlock();
		return caret;
	}

	TempFolder folder;
	std::string path;
	std::string attribute;
	ReReader* parent;
	std::unique_ptr<BrindleFile> brindle;
	DataWindow* window = nullptr;
	std::unique_ptr<WindowTester> tester;
	std::unique_ptr<WindowTester> parentTester;
};

#endif
