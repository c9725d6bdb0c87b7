#ifndef INSPECTOR_TEST_SUPPORT_H
#define INSPECTOR_TEST_SUPPORT_H

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <vector>

#include <AppDefs.h>
#include <Application.h>
#include <Entry.h>
#include <Menu.h>
#include <MenuBar.h>
#include <MenuItem.h>
#include <Message.h>
#include <MessageFilter.h>
#include <TextControl.h>
#include <Window.h>
#include <WindowTester.h>

#include "GlWindow.h"

using BPrivate::WindowTester;

// An inspector window at the default place, shown and drawn.
inline GlWindow*
ShowInspector()
{
	GlWindow* window = new GlWindow(BRect(60, 60, 460, 330));
	window->Show();
	WindowTester(window).WaitForIdle();
	return window;
}

// A message that names entries the way the file manager does.
inline BMessage
RefsMessage(uint32 what, const std::vector<std::string>& paths)
{
	BMessage message(what);
	for (const std::string& path : paths) {
		entry_ref ref;
		EXPECT_EQ(get_ref_for_path(path.c_str(), &ref), B_OK) << path;
		message.AddRef("refs", &ref);
	}
	return message;
}

// Drops the paths near the bottom left corner of the named view (the node box
// unless named), as from the file manager.
inline void
DropOnInspector(BWindow* window, const std::vector<std::string>& paths,
	const char* viewName = "NodeBox")
{
	ASSERT_TRUE(window->Lock());
	BView* box = window->FindView(viewName);
	ASSERT_NE(box, nullptr) << viewName;
	BRect bounds = box->Bounds();
	BPoint where = window->ConvertFromScreen(box->ConvertToScreen(
		BPoint(bounds.left + 4, bounds.bottom - 4)));
	window->Unlock();
	WindowTester tester(window);
	tester.DropFiles(where, paths);
	ASSERT_EQ(tester.WaitForIdle(), B_OK);
}

inline std::string
FieldText(BWindow* window, const char* name)
{
	EXPECT_TRUE(window->Lock());
	BTextControl* field = dynamic_cast<BTextControl*>(window->FindView(name));
	std::string text = field != nullptr ? field->Text() : "(no field)";
	window->Unlock();
	return text;
}

// Whether the named view is there and shown on screen.
inline bool
IsShown(BWindow* window, const char* name)
{
	EXPECT_TRUE(window->Lock());
	BView* view = window->FindView(name);
	bool shown = view != nullptr && !view->IsHidden();
	window->Unlock();
	return shown;
}

inline BMenuItem*
MenuItem(BWindow* window, const char* label)
{
	BMenuBar* bar = dynamic_cast<BMenuBar*>(window->ChildAt(0));
	return bar != nullptr ? bar->FindItem(label) : nullptr;
}

// For every label: whether its item is enabled; a missing item fails.
inline std::vector<bool>
ItemsEnabled(BWindow* window, const std::vector<const char*>& labels)
{
	std::vector<bool> enabled;
	EXPECT_TRUE(window->Lock());
	for (const char* label : labels) {
		BMenuItem* item = MenuItem(window, label);
		EXPECT_NE(item, nullptr) << label;
		enabled.push_back(item != nullptr && item->IsEnabled());
	}
	window->Unlock();
	return enabled;
}

// Keeps the application's quit requests from it while installed, and counts
// them.
class QuitCounter : public BMessageFilter {
public:
	QuitCounter()
		: BMessageFilter(B_QUIT_REQUESTED)
	{
		be_app->Lock();
		be_app->AddCommonFilter(this);
		be_app->Unlock();
	}

	~QuitCounter()
	{
		be_app->Lock();
		be_app->RemoveCommonFilter(this);
		be_app->Unlock();
	}

	filter_result Filter(BMessage*, BHandler**) override
	{
		fCount++;
		return B_SKIP_MESSAGE;
	}

	// Waits until the application has handled what was sent to it so far.
	int32 Count()
	{
		BMessage ping('ping'), reply;
		be_app_messenger.SendMessage(&ping, &reply);
		return fCount;
	}

private:
	std::atomic<int32> fCount{0};
};

#endif
