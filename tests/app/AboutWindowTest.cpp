// The about window: its views and text, and closing on a click, a key or a
// drop, which goes on to the application.

#include <gtest/gtest.h>

#include <atomic>
#include <string>

#include <Application.h>
#include <Entry.h>
#include <Font.h>
#include <TextView.h>
#include <Window.h>
#include <WindowTester.h>

#include "AppTestSupport.h"
#include "BrindleUtils.h"
#include "Contact.h"
#include "GlAboutWindow.h"

using BPrivate::WindowTester;

namespace {

const uint32 kDrop = 'DATA';

// Remembers the dropped entries that reach it.
class DropRecordingApp : public BApplication {
public:
	DropRecordingApp() : BApplication("application/x-vnd.Vellum-Test") {}

	void MessageReceived(BMessage* msg) override
	{
		entry_ref ref;
		if (msg->what == kDrop) {
			std::string names;
			for (int32 i = 0; msg->FindRef("refs", i, &ref) == B_OK; i++)
				names += std::string(ref.name) + ";";
			dropped = names;
			drops++;
			return;
		}
		BApplication::MessageReceived(msg);
	}

	std::string dropped;
	std::atomic<int> drops{0};
};

GlAboutWindow*
ShowAboutWindow()
{
	GlAboutWindow* window = new GlAboutWindow(BRect(80, 55, 440, 335));
	window->Show();
	return window;
}

// The middle of the named view, in window coordinates.
BPoint
CentreOf(BWindow* window, const char* name)
{
	EXPECT_TRUE(window->Lock());
	BView* view = window->FindView(name);
	BRect frame = view->ConvertToScreen(view->Bounds());
	window->Unlock();
	frame = window->ConvertFromScreen(frame);
	return BPoint((frame.left + frame.right) / 2, (frame.top + frame.bottom) / 2);
}

}	// namespace

TEST(AboutWindowTest, ViewsAndText)
{
	WindowTester::RunHeadless([] {
		GlAboutWindow* window = ShowAboutWindow();
		WindowTester tester(window);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		EXPECT_STREQ("About Vellum", window->Title());
		BTextView* titles = dynamic_cast<BTextView*>(window->FindView("Titles"));
		ASSERT_NE(nullptr, titles);
		EXPECT_GT(titles->Frame().left, window->FindView("Icon")->Frame().right);

		app_info info;
		ASSERT_EQ(B_OK, be_app->GetAppInfo(&info));
		time_t built = 0;
		ASSERT_EQ(B_OK, BEntry(&info.ref).GetModificationTime(&built));
		char date[64];
		std::string text = titles->Text();
		std::string expectedStart = std::string("Vellum\n") + VELLUM_VERSION + " (x86)\n";
		EXPECT_EQ(expectedStart, text.substr(0, expectedStart.size()));
		for (const char* line : {kAuthorName, kAuthorMail, static_cast<const char*>(DateString(date, built)), kMakerName,
				kMakerPhone, kMakerSlogan})
			EXPECT_NE(std::string::npos, text.find(std::string("\n") + line)) << line;

		BFont font;
		titles->GetFontAndColor(0, &font);
		EXPECT_EQ(36, font.Size());
		titles->GetFontAndColor(int32(expectedStart.size()) - 2, &font);
		EXPECT_LT(font.Size(), 36) << "only the first line is large";
		window->Unlock();
	});
}

TEST(AboutWindowTest, AKeyOrAClickOnTheIconOrTextCloses)
{
	enum Way { kKey, kIconClick, kTextClick };
	for (Way way : {kKey, kIconClick, kTextClick}) {
		WindowTester::RunHeadless([way] {
			GlAboutWindow* window = ShowAboutWindow();
			BMessenger messenger(window);
			WindowTester tester(window);
			ASSERT_EQ(B_OK, tester.WaitForIdle());
			if (way == kKey)
				tester.TypeKey('x');
			else
				tester.Click(CentreOf(window, way == kIconClick ? "Icon" : "Titles"));
			EXPECT_TRUE(WaitUntilGone(messenger)) << "way " << way;
		});
	}
}

TEST(AboutWindowTest, DroppedFilesGoOnToTheApplicationAndTheWindowCloses)
{
	DropRecordingApp* app = nullptr;
	WindowTester::RunApplicationHeadless(
		[&app] { return app = new DropRecordingApp; },
		[&app] {
			GlAboutWindow* window = ShowAboutWindow();
			BMessenger messenger(window);
			WindowTester tester(window);
			ASSERT_EQ(B_OK, tester.WaitForIdle());
			tester.DropFiles(CentreOf(window, "Titles"), {"/etc/hostname", "/tmp"});
			EXPECT_TRUE(WaitUntilGone(messenger));
			ASSERT_EQ(B_OK, BPrivate::WaitForLooperIdle(be_app, 10000000));
			EXPECT_EQ(1, app->drops.load());
			EXPECT_EQ("hostname;tmp;", app->dropped);
		});
}
