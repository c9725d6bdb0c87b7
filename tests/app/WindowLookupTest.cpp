// Finding windows by name and title, the fatal error and the Shift key of the
// message being handled.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <Application.h>
#include <View.h>
#include <Window.h>
#include <WindowTester.h>

#include "AppTestSupport.h"
#include "Utils.h"

using BPrivate::AlertInfo;
using BPrivate::WindowTester;

namespace {

const uint32 kAskShift = 'aShf';
const uint32 kFail = 'fail';

BWindow*
NamedWindow(const char* name, const char* title)
{
	BWindow* window = new BWindow(BRect(10, 10, 200, 120), title, B_TITLED_WINDOW, 0);
	window->SetName(name);
	return window;
}

// Answers kAskShift with what ShiftKeyPressedInMsg says, and kFail with
// ErrorQuit of the message's "error".
class ProbeWindow : public BWindow {
public:
	ProbeWindow()
		: BWindow(BRect(10, 10, 200, 120), "Probe", B_TITLED_WINDOW, 0),
		fView(new BView(Bounds(), "probe", B_FOLLOW_ALL, B_WILL_DRAW))
	{
		AddChild(fView);
	}

	void MessageReceived(BMessage* message) override
	{
		if (message->what == kAskShift) {
			answers.push_back(ShiftKeyPressedInMsg(fView));
		} else if (message->what == kFail) {
			int32 error = B_OK;
			message->FindInt32("error", &error);
			ErrorQuit(error);
		} else {
			BWindow::MessageReceived(message);
		}
	}

	BView* View() const { return fView; }

	std::vector<bool> answers;

private:
	BView* fView;
};

}	// namespace

TEST(WindowLookupTest, NamesAndTitlesMatchWholeIgnoringCase)
{
	WindowTester::RunHeadless([] {
		BWindow* first = NamedWindow("Vellum", "Vellum: notes.txt");
		BWindow* data = NamedWindow("DataWindow for notes.txt", "notes.txt: comment");
		BWindow* second = NamedWindow("Vellum", "About Vellum");

		EXPECT_EQ(first, FindFrontWindow(nullptr, nullptr));
		EXPECT_EQ(first, FindFrontWindow("vellum", nullptr));
		EXPECT_EQ(second, FindFrontWindow(nullptr, "ABOUT VELLUM"));
		EXPECT_EQ(second, FindFrontWindow("Vellum", "About Vellum"));
		EXPECT_EQ(data, FindFrontWindow("DataWindow for NOTES.TXT", nullptr));
		EXPECT_EQ(nullptr, FindFrontWindow("DataWindow for ", nullptr)) << "no prefixes";
		EXPECT_EQ(nullptr, FindFrontWindow("Vellu", nullptr));
		EXPECT_EQ(nullptr, FindFrontWindow("Vellum", "About"));
		EXPECT_EQ(nullptr, FindFrontWindow("IconWindow", nullptr));
	});
}

TEST(WindowLookupTest, NextWindowsFollowTheWindowList)
{
	WindowTester::RunHeadless([] {
		BWindow* first = NamedWindow("Vellum", "one");
		BWindow* data = NamedWindow("DataWindow for x", "x");
		BWindow* second = NamedWindow("Vellum", "two");

		EXPECT_EQ(first, FindNextWindow(nullptr, "Vellum", nullptr));
		EXPECT_EQ(second, FindNextWindow(first, "Vellum", nullptr));
		EXPECT_EQ(nullptr, FindNextWindow(second, "Vellum", nullptr));
		EXPECT_EQ(second, FindNextWindow(data, nullptr, nullptr));
		EXPECT_EQ(nullptr, FindNextWindow(second, nullptr, nullptr));

		int outsider = 0;
		EXPECT_EQ(nullptr, FindNextWindow(reinterpret_cast<BWindow*>(&outsider), nullptr,
			nullptr)) << "a window that is not listed has no next window";

		EXPECT_EQ(2, CountSubsidiaryWindows("Vellum", nullptr));
		EXPECT_EQ(1, CountSubsidiaryWindows("datawindow for X", nullptr));
		EXPECT_EQ(3, CountSubsidiaryWindows(nullptr, nullptr));
		EXPECT_EQ(0, CountSubsidiaryWindows("IconWindow", nullptr));
	});
}

TEST(WindowLookupTest, ShiftComesFromTheMessageBeingHandled)
{
	WindowTester::RunHeadless([] {
		ProbeWindow* window = new ProbeWindow;
		window->Show();
		WindowTester tester(window);
		ASSERT_EQ(B_OK, tester.WaitForIdle());

		BMessage shifted(kAskShift);
		shifted.AddInt32("modifiers", B_SHIFT_KEY | B_OPTION_KEY);
		BMessage plain(kAskShift);
		plain.AddInt32("modifiers", B_OPTION_KEY);
		BMessage bare(kAskShift);
		BMessage mistyped(kAskShift);
		mistyped.AddInt64("modifiers", B_SHIFT_KEY);
		// Shift held now does not count for a message without the field.
		tester.MouseMove(BPoint(20, 20), 0, B_SHIFT_KEY);
		for (BMessage* message : {&shifted, &plain, &bare, &mistyped})
			window->PostMessage(message);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		EXPECT_EQ((std::vector<bool>{true, false, false, false}), window->answers);

		// Outside a message the keys held now count.
		EXPECT_TRUE(ShiftKeyPressedInMsg(window->View()));
		window->Unlock();
		tester.MouseMove(BPoint(30, 30), 0, 0);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		EXPECT_FALSE(ShiftKeyPressedInMsg(window->View()));
		window->Unlock();
	});
}

TEST(WindowLookupTest, ErrorQuitTellsTheUserAndQuitsTheCallingWindow)
{
	std::vector<AlertInfo> alerts;
	WindowTester::SetAlertResponder([&alerts](const AlertInfo& alert) {
		alerts.push_back(alert);
		return 0;
	});
	WindowTester::RunHeadless([] {
		for (int32 error : {int32(B_NO_MEMORY), int32(B_ENTRY_NOT_FOUND)}) {
			ProbeWindow* window = new ProbeWindow;
			window->Show();
			BMessenger messenger(window);
			BMessage fail(kFail);
			fail.AddInt32("error", error);
			window->PostMessage(&fail);
			EXPECT_TRUE(WaitUntilGone(messenger));
		}
		EXPECT_TRUE(be_app_messenger.IsValid()) << "only the window quits";
	});
	WindowTester::SetAlertResponder({});
	ASSERT_EQ(2u, alerts.size());
	EXPECT_EQ("Vellum cannot continue because there is not enough memory.", alerts[0].text);
	EXPECT_EQ("Vellum cannot continue because error 80006003 occurred.", alerts[1].text);
	for (const AlertInfo& alert : alerts) {
		EXPECT_EQ("", alert.title);
		EXPECT_EQ(std::vector<std::string>{"Quit"}, alert.buttons);
		EXPECT_EQ(B_STOP_ALERT, alert.type);
	}
}
