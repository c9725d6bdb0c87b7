#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <vector>

#include <Box.h>
#include <ListView.h>
#include <Node.h>
#include <Path.h>
#include <TextView.h>

#include "CMultiTextItem.h"
#include "Formatting.h"
#include "IconView.h"
#include "GlintView.h"
#include "InspectorTestSupport.h"
#include "StatusError.h"
#include "platform/storage/TempFolder.h"

namespace {

// Which of the panel's optional views are shown, as "Info Panel,Inst2,...".
std::string
ShownViews(BWindow* window)
{
	std::string shown;
	for (const char* name : {"Instructions", "Info Panel", "Inst2", "NewAttr", "Target Path",
			"SetTargetPath"}) {
		if (IsShown(window, name))
			shown += std::string(name) + ",";
	}
	return shown;
}

bool
FieldEditable(BWindow* window, const char* name)
{
	EXPECT_TRUE(window->Lock());
	BTextControl* field = dynamic_cast<BTextControl*>(window->FindView(name));
	bool editable = field != nullptr && field->TextView()->IsEditable();
	window->Unlock();
	return editable;
}

BRect
FrameOf(BWindow* window, const char* name)
{
	EXPECT_TRUE(window->Lock());
	BView* view = window->FindView(name);
	BRect frame = view != nullptr ? view->Frame() : BRect();
	window->Unlock();
	return frame;
}

GlintView*
PanelOf(BWindow* window)
{
	return dynamic_cast<GlintView*>(window->FindView("GlintView"));
}

// A window titled like a data window of an attribute of the named node.
BWindow*
ShowDataWindow(const char* nodeName)
{
	std::string title = std::string(nodeName) + ": comment";
	BWindow* window = new BWindow(BRect(500, 100, 700, 200), title.c_str(), B_TITLED_WINDOW, 0);
	window->SetName("DataWindow");
	window->Show();
	return window;
}

bool
StillOpen(BWindow* window)
{
	for (int32 i = 0; BWindow* open = be_app->WindowAt(i); i++) {
		if (open == window)
			return true;
	}
	return false;
}

bool
WaitUntilClosed(BWindow* window)
{
	for (int32 tries = 0; tries < 5000 && StillOpen(window); tries++)
		snooze(1000);
	return !StillOpen(window);
}

}	// namespace

TEST(GlintViewTest, AFileShowsItsNameSizeDateAndPath)
{
	TempFolder folder;
	std::string file = folder.File("report.txt", std::string(1234, 'r'));
	struct stat info;
	ASSERT_EQ(stat(file.c_str(), &info), 0);
	WindowTester::RunHeadless([&] {
		GlWindow* window = ShowInspector();
		DropOnInspector(window, {file});
		EXPECT_EQ(FieldText(window, "Name"), "report.txt");
		EXPECT_EQ(FieldText(window, "Size"), "1,234 bytes");
		EXPECT_EQ(FieldText(window, "Date"), std::string(datetostring(info.st_mtime)));
		EXPECT_EQ(FieldText(window, "Path"), file);
		EXPECT_EQ(FieldText(window, "Target Path"), "");
		EXPECT_EQ(ShownViews(window), "Info Panel,Inst2,NewAttr,");
		EXPECT_TRUE(FieldEditable(window, "Size"));
		EXPECT_TRUE(FieldEditable(window, "Name"));

		// The icon well shows the node instead of the application.
		ASSERT_TRUE(window->Lock());
		IconView* icon = dynamic_cast<IconView*>(window->FindView("Icon"));
		ASSERT_NE(icon, nullptr);
		BPath shown;
		ASSERT_EQ(icon->Entry()->GetPath(&shown), B_OK);
		EXPECT_EQ(std::string(shown.Path()), file);
		window->Unlock();
	});
}

TEST(GlintViewTest, AFolderCannotBeResized)
{
	TempFolder folder;
	std::string inner = folder.Path("inner");
	ASSERT_EQ(mkdir(inner.c_str(), 0755), 0);
	WindowTester::RunHeadless([&] {
		GlWindow* window = ShowInspector();
		DropOnInspector(window, {inner});
		EXPECT_EQ(FieldText(window, "Name"), "inner");
		EXPECT_EQ(FieldText(window, "Path"), inner);
		EXPECT_FALSE(FieldEditable(window, "Size"));
		EXPECT_TRUE(FieldEditable(window, "Path"));
		EXPECT_EQ(ShownViews(window), "Info Panel,Inst2,NewAttr,");
	});
}

TEST(GlintViewTest, ALinkShowsItsTargetOrThatItIsBroken)
{
	TempFolder folder;
	std::string target = folder.File("target");
	std::string link = folder.Path("link");
	std::string broken = folder.Path("broken");
	ASSERT_EQ(symlink(target.c_str(), link.c_str()), 0);
	ASSERT_EQ(symlink(folder.Path("missing").c_str(), broken.c_str()), 0);
	WindowTester::RunHeadless([&] {
		GlWindow* window = ShowInspector();
		DropOnInspector(window, {link});
		// The link itself is shown, not what it points to.
		EXPECT_EQ(FieldText(window, "Name"), "link");
		EXPECT_EQ(FieldText(window, "Path"), link);
		EXPECT_EQ(FieldText(window, "Target Path"), target);
		EXPECT_FALSE(FieldEditable(window, "Size"));
		EXPECT_EQ(ShownViews(window), "Info Panel,Inst2,NewAttr,Target Path,SetTargetPath,");

		DropOnInspector(window, {broken});
		EXPECT_EQ(FieldText(window, "Name"), "broken");
		EXPECT_EQ(FieldText(window, "Target Path"), "<Broken Link>");

		BRect linkBox = FrameOf(window, "NodeBox");
		BRect linkAttributes = FrameOf(window, "Attributes");

		// A plain file after a link hides the target again, and its row leaves
		// the height to the attributes.
		DropOnInspector(window, {target});
		EXPECT_EQ(FieldText(window, "Target Path"), "");
		EXPECT_EQ(ShownViews(window), "Info Panel,Inst2,NewAttr,");
		BRect fileBox = FrameOf(window, "NodeBox");
		BRect fileAttributes = FrameOf(window, "Attributes");
		EXPECT_LT(fileBox.Height(), linkBox.Height());
		EXPECT_EQ(fileAttributes.Height() - linkAttributes.Height(),
			linkBox.Height() - fileBox.Height());
		EXPECT_EQ(fileAttributes.bottom, linkAttributes.bottom);
	});
}

TEST(GlintViewTest, AnotherNodeClosesTheDataWindowsOfTheOldOne)
{
	TempFolder folder;
	std::string first = folder.File("first");
	std::string second = folder.File("second");
	WindowTester::RunHeadless([&] {
		GlWindow* window = ShowInspector();
		DropOnInspector(window, {first});
		BWindow* ofFirst = ShowDataWindow("First");
		BWindow* ofSecond = ShowDataWindow("second");

		// The same node again keeps its data windows.
		DropOnInspector(window, {first});
		WindowTester(ofFirst).WaitForIdle();
		EXPECT_TRUE(StillOpen(ofFirst));

		DropOnInspector(window, {second});
		EXPECT_TRUE(WaitUntilClosed(ofFirst));
		WindowTester(ofSecond).WaitForIdle();
		EXPECT_TRUE(StillOpen(ofSecond));
		EXPECT_EQ(FieldText(window, "Name"), "second");
	});
}

TEST(GlintViewTest, AMessageWithoutRefsKeepsTheNode)
{
	TempFolder folder;
	std::string file = folder.File("kept");
	WindowTester::RunHeadless([&] {
		GlWindow* window = ShowInspector();
		BMessage empty(B_SIMPLE_DATA);
		window->PostMessage(&empty);
		WindowTester(window).WaitForIdle();
		EXPECT_FALSE(window->Loaded());
		EXPECT_EQ(ShownViews(window), "Instructions,");

		DropOnInspector(window, {file});
		window->PostMessage(&empty);
		WindowTester(window).WaitForIdle();
		EXPECT_EQ(FieldText(window, "Name"), "kept");
		EXPECT_EQ(ShownViews(window), "Info Panel,Inst2,NewAttr,");
	});
}

TEST(GlintViewTest, FieldsAreFoundByNameAndMultiByteKeysBeep)
{
	WindowTester::RunHeadless([] {
		GlWindow* window = ShowInspector();
		ASSERT_TRUE(window->Lock());
		GlintView* panel = PanelOf(window);
		ASSERT_NE(panel, nullptr);
		panel->SetEntry("Date", "yesterday");
		EXPECT_STREQ(dynamic_cast<BTextControl*>(window->FindView("Date"))->Text(), "yesterday");
		EXPECT_THROW(panel->SetEntry("Colour", "red"), StatusError);
		EXPECT_THROW(panel->SetEntry("NodeBox", "red"), StatusError);

		int32 beeps = WindowTester::CountBeeps();
		panel->KeyDown("a", 1);
		EXPECT_EQ(WindowTester::CountBeeps(), beeps);
		panel->KeyDown("\xc3\xa9", 2);
		EXPECT_EQ(WindowTester::CountBeeps(), beeps + 1);
		window->Unlock();
	});
}

TEST(GlintViewTest, TheAttributePanelTakesTheHeightLeftAfterAResize)
{
	TempFolder folder;
	std::string file = folder.File("wide");
	WindowTester::RunHeadless([&] {
		GlWindow* window = ShowInspector();
		DropOnInspector(window, {file});
		WindowTester tester(window);
		tester.UserResize(700, 500);
		ASSERT_EQ(tester.WaitForIdle(), B_OK);
		ASSERT_TRUE(window->Lock());
		GlintView* panel = PanelOf(window);
		BRect bounds = panel->Bounds();
		BRect attributes = window->FindView("Attributes")->Frame();
		BRect nodeBox = window->FindView("NodeBox")->Frame();
		BRect infoPanel = window->FindView("Info Panel")->Frame();
		BRect path = window->FindView("Path")->Frame();
		window->Unlock();
		EXPECT_EQ(attributes.right, bounds.right);
		EXPECT_EQ(attributes.bottom, bounds.bottom);
		EXPECT_GT(attributes.top, nodeBox.bottom);
		EXPECT_EQ(nodeBox.right, bounds.right);
		EXPECT_EQ(path.right, infoPanel.Width());
	});
}

TEST(GlintViewTest, TheAttributePanelListsTheNodesAttributesAndSelectsOneByName)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	std::string file = folder.File("tagged");
	BNode node(file.c_str());
	int32 rating = 5;
	ASSERT_EQ(node.WriteAttr("comment", B_STRING_TYPE, 0, "fine", 5), 5);
	ASSERT_EQ(node.WriteAttr("rating", B_INT32_TYPE, 0, &rating, sizeof(rating)), 4);
	WindowTester::RunHeadless([&] {
		GlWindow* window = ShowInspector();
		DropOnInspector(window, {file});
		ASSERT_TRUE(window->Lock());
		BBox* attributes = dynamic_cast<BBox*>(window->FindView("Attributes"));
		ASSERT_NE(attributes, nullptr);
		EXPECT_STREQ(attributes->Label(), "Attributes (2)");
		BListView* list = dynamic_cast<BListView*>(window->FindView("attrList"));
		ASSERT_NE(list, nullptr);
		EXPECT_EQ(list->CurrentSelection(), -1);
		window->Unlock();

		// The item editor's request after a save reaches the list through the
		// window and the panel.
		BMessage select('SelI');
		select.AddString("attrName", "rating");
		window->PostMessage(&select);
		WindowTester(window).WaitForIdle();
		ASSERT_TRUE(window->Lock());
		int32 selected = list->CurrentSelection();
		ASSERT_GE(selected, 0);
		EXPECT_STREQ(static_cast<CMultiTextItem*>(list->ItemAt(selected))->GetString(CMultiTextItem::kNameColumn), "rating");
		window->Unlock();
	});
}

TEST(GlintViewTest, EditedFieldsAndTheSetButtonReachTheNodeEdits)
{
	TempFolder folder;
	std::string target = folder.File("target");
	std::string link = folder.Path("link");
	ASSERT_EQ(symlink(target.c_str(), link.c_str()), 0);
	std::vector<std::string> alerts;
	WindowTester::SetAlertResponder([&alerts](const BPrivate::AlertInfo& alert) {
		alerts.push_back(alert.text);
		return 0;
	});
	WindowTester::RunHeadless([&] {
		GlWindow* window = ShowInspector();
		DropOnInspector(window, {link});
		ASSERT_TRUE(window->Lock());
		BTextView* name = dynamic_cast<BTextControl*>(window->FindView("Name"))->TextView();
		name->MakeFocus(true);
		name->SelectAll();
		window->Unlock();
		WindowTester tester(window);
		tester.TypeText("renamed");
		tester.TypeKey(B_ENTER);
		ASSERT_EQ(tester.WaitForIdle(), B_OK);
		// Cancelled: the name stands as it was.
		ASSERT_EQ(alerts.size(), 1u);
		EXPECT_NE(alerts[0].find("Change the name of"), std::string::npos);
		EXPECT_EQ(FieldText(window, "Name"), "link");

		ASSERT_TRUE(window->Lock());
		BView* button = window->FindView("SetTargetPath");
		BPoint where = window->ConvertFromScreen(button->ConvertToScreen(
			button->Bounds().LeftTop() + BPoint(5, 5)));
		window->Unlock();
		tester.Click(where);
		ASSERT_EQ(tester.WaitForIdle(), B_OK);
		BWindow* panel = nullptr;
		for (int32 i = 0; BWindow* open = be_app->WindowAt(i); i++) {
			if (std::string(open->Title()) == "Select a node to link \"link\" to:")
				panel = open;
		}
		EXPECT_NE(panel, nullptr);
	});
	WindowTester::SetAlertResponder(nullptr);
}
