// Alerts: the tester's responder, modal and asynchronous answers, keys, layout,
// the waiting window's redrawing; the shelf; the bell.

#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <future>
#include <mutex>
#include <thread>
#include <vector>

#include <Alert.h>
#include <Application.h>
#include <Button.h>
#include <Invoker.h>
#include <Screen.h>
#include <View.h>
#include <Window.h>
#include <WindowTester.h>

#include "../../../platform/interface/AlertView.h"

using BPrivate::AlertInfo;
using BPrivate::WindowTester;

namespace {

// Takes the responder away again whatever the test does.
struct ResponderScope {
	explicit ResponderScope(std::function<int32(const AlertInfo&)> responder)
	{
		WindowTester::SetAlertResponder(std::move(responder));
	}
	~ResponderScope() { WindowTester::SetAlertResponder(nullptr); }
};

// Makes an alert and runs its Go() on a thread of its own, as a program thread
// would (a looper belongs to the thread that made it until it runs).
class GoThread {
public:
	explicit GoThread(std::function<BAlert*()> make)
		: fThread([this, make] {
			BAlert* alert = make();
			fAlert.set_value(alert);
			fResult = alert->Go();
		})
	{
	}

	// The alert, once made.
	BAlert* Alert() { return fAlert.get_future().get(); }

	int32 Result()
	{
		fThread.join();
		return fResult;
	}

private:
	std::promise<BAlert*> fAlert;
	std::atomic<int32> fResult{-2};
	std::thread fThread;
};

BPoint
CentreOf(BAlert* alert, int32 index)
{
	EXPECT_TRUE(alert->Lock());
	BRect frame = alert->ButtonAt(index)->Frame();
	alert->Unlock();
	return BPoint((frame.left + frame.right) / 2, (frame.top + frame.bottom) / 2);
}

BAlert*
ThreeButtonAlert()
{
	return new BAlert("Changed", "Change it?", "Cancel", "Discard", "OK");
}

// Counts its drawing; asks an alert when told to.
class AskingWindow : public BWindow {
public:
	AskingWindow()
		: BWindow(BRect(40, 40, 239, 139), "Asking", B_TITLED_WINDOW, 0)
	{
		fCanvas = new CountingView(Bounds(), this);
		AddChild(fCanvas);
	}

	void MessageReceived(BMessage* message) override
	{
		if (message->what != 'Ask!') {
			BWindow::MessageReceived(message);
			return;
		}
		BAlert* alert = ThreeButtonAlert();
		fCanvas->Invalidate();
		alertShown.set_value(alert);
		answer = alert->Go();
	}

	void NoteDraw()
	{
		std::lock_guard<std::mutex> guard(fLock);
		fDraws++;
		fDrawn.notify_all();
	}

	int32 Draws()
	{
		std::lock_guard<std::mutex> guard(fLock);
		return fDraws;
	}

	bool WaitForDrawsAbove(int32 count)
	{
		std::unique_lock<std::mutex> guard(fLock);
		return fDrawn.wait_for(guard, std::chrono::seconds(10),
			[&] { return fDraws > count; });
	}

	std::promise<BAlert*> alertShown;
	std::atomic<int32> answer{-2};

private:
	class CountingView : public BView {
	public:
		CountingView(BRect frame, AskingWindow* window)
			: BView(frame, "canvas", B_FOLLOW_ALL, B_WILL_DRAW), fOwner(window) {}
		void Draw(BRect) override { fOwner->NoteDraw(); }
		AskingWindow* fOwner;
	};

	CountingView* fCanvas;
	std::mutex fLock;
	std::condition_variable fDrawn;
	int32 fDraws = 0;
};

}	// namespace

TEST(AlertTest, ResponderSeesTheAlertAndChoosesTheButton)
{
	WindowTester::RunHeadless([] {
		std::vector<AlertInfo> seen;
		ResponderScope scope([&](const AlertInfo& alert) {
			seen.push_back(alert);
			return int32(seen.size() == 1 ? 1 : 0);
		});
		int32 windowsBefore = be_app->CountWindows();

		EXPECT_EQ(1, ThreeButtonAlert()->Go());
		EXPECT_EQ(0, (new BAlert("", "Vellum cannot continue.", "Quit", NULL, NULL,
			B_WIDTH_AS_USUAL, B_STOP_ALERT))->Go());

		ASSERT_EQ(2u, seen.size());
		EXPECT_EQ("Changed", seen[0].title);
		EXPECT_EQ("Change it?", seen[0].text);
		EXPECT_EQ((std::vector<std::string>{"Cancel", "Discard", "OK"}), seen[0].buttons);
		EXPECT_EQ(B_INFO_ALERT, seen[0].type);
		EXPECT_EQ("", seen[1].title);
		EXPECT_EQ(std::vector<std::string>{"Quit"}, seen[1].buttons);
		EXPECT_EQ(B_STOP_ALERT, seen[1].type);
		// Answered alerts are gone without ever showing.
		EXPECT_EQ(windowsBefore, be_app->CountWindows());
	});
}

TEST(AlertTest, UnansweredAlertsTakeClicksEscapeAndEnter)
{
	WindowTester::RunHeadless([] {
		struct Case {
			const char* what;
			std::function<void(BAlert*, WindowTester&)> answer;
			int32 expected;
		} cases[] = {
			{"click", [](BAlert* alert, WindowTester& tester) {
				tester.Click(CentreOf(alert, 1)); }, 1},
			{"escape", [](BAlert*, WindowTester& tester) { tester.TypeKey(B_ESCAPE); }, 0},
			{"enter", [](BAlert*, WindowTester& tester) { tester.TypeKey(B_ENTER); }, 2},
			{"escape moved", [](BAlert* alert, WindowTester& tester) {
				ASSERT_TRUE(alert->Lock());
				alert->SetShortcut(1, B_ESCAPE);
				alert->Unlock();
				tester.TypeKey(B_ESCAPE); }, 1},
			{"letter", [](BAlert* alert, WindowTester& tester) {
				ASSERT_TRUE(alert->Lock());
				alert->SetShortcut(2, 'o');
				alert->Unlock();
				tester.TypeKey('x');
				tester.TypeKey('o'); }, 2},
		};
		for (Case& each : cases) {
			GoThread go(ThreeButtonAlert);
			BAlert* alert = go.Alert();
			WindowTester tester(alert);
			ASSERT_EQ(B_OK, tester.WaitForIdle()) << each.what;
			each.answer(alert, tester);
			EXPECT_EQ(each.expected, go.Result()) << each.what;
		}

		// A single button has no Escape of its own; Enter chooses it.
		GoThread go([] { return new BAlert("", "Done.", "OK"); });
		BAlert* alert = go.Alert();
		WindowTester tester(alert);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(alert->Lock());
		EXPECT_EQ(0, alert->Shortcut(0));
		alert->Unlock();
		tester.TypeKey(B_ESCAPE);
		tester.TypeKey(B_ENTER);
		EXPECT_EQ(0, go.Result());
	});
}

TEST(AlertTest, WaitingWindowKeepsRedrawing)
{
	WindowTester::RunHeadless([] {
		AskingWindow* window = new AskingWindow;
		window->Show();
		WindowTester tester(window);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		int32 before = window->Draws();

		std::future<BAlert*> shown = window->alertShown.get_future();
		BMessenger(window).SendMessage('Ask!');
		ASSERT_EQ(std::future_status::ready, shown.wait_for(std::chrono::seconds(10)));
		BAlert* alert = shown.get();
		// What became invalid before Go() is drawn while the alert waits.
		EXPECT_TRUE(window->WaitForDrawsAbove(before));
		EXPECT_EQ(-2, window->answer);

		WindowTester alertTester(alert);
		ASSERT_EQ(B_OK, alertTester.WaitForIdle());
		alertTester.TypeKey(B_ENTER);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_EQ(2, window->answer);
	});
}

TEST(AlertTest, AnAlertTakesTheSizeOfItsTextOverItsWindowUnderTheApplicationsName)
{
	// A window that makes an alert on its own thread and shows it.
	class Owner : public BWindow {
	public:
		Owner() : BWindow(BRect(200, 150, 599, 449), "Owner", B_TITLED_WINDOW, 0) {}

		void MessageReceived(BMessage* message) override
		{
			if (message->what != 'make') {
				BWindow::MessageReceived(message);
				return;
			}
			alert = new BAlert("a1", message->GetString("text", ""), "Cancel", "OK");
			alert->Go(nullptr);
		}

		BAlert* alert = nullptr;
	};

	WindowTester::RunHeadless([] {
		Owner* owner = new Owner;
		owner->Show();
		WindowTester ownerTester(owner);
		std::string longText;
		for (int32 i = 0; i < 40; i++)
			longText += "A long explanation of what went wrong. ";
		for (const std::string& text : {std::string("Short."), longText}) {
			BMessage make('make');
			make.AddString("text", text.c_str());
			owner->PostMessage(&make);
			ASSERT_EQ(B_OK, ownerTester.WaitForIdle());
			BAlert* alert = owner->alert;
			WindowTester tester(alert);
			ASSERT_EQ(B_OK, tester.WaitForIdle());
			ASSERT_TRUE(alert->Lock());
			BRect frame = alert->Frame();
			BRect lastButton = alert->ButtonAt(1)->Frame();
			EXPECT_STREQ("a1", alert->Title());
			alert->Unlock();
			// The desktop shows it whole, at the size its text and buttons need.
			EXPECT_EQ(BPoint(frame.Width() + 1, frame.Height() + 1), tester.ShownSize()) << text;
			EXPECT_LT(lastButton.bottom, frame.Height()) << text;
			EXPECT_EQ("Test", tester.ShownTitle());
			// Over the window it belongs to.
			EXPECT_NEAR(400, (frame.left + frame.right) / 2, 1);
			EXPECT_EQ(190, frame.top);
			tester.TypeKey(B_ESCAPE);
			ASSERT_EQ(B_OK, ownerTester.WaitForIdle());
		}
	});
}

TEST(AlertTest, TextWrapsBetweenWordsAtNewlinesAndInsideLongWords)
{
	const BFont& font = *be_plain_font;
	float width = font.StringWidth("Change the name of");
	EXPECT_EQ((std::vector<std::string>{"Change the name of", "   /home/a", "",
		"to \"b\"?"}),
		BPrivate::AlertView::Wrap("Change the name of\n   /home/a\n\nto \"b\"?", width, font));
	EXPECT_EQ((std::vector<std::string>{"Change the", "name of it"}),
		BPrivate::AlertView::Wrap("Change the name of it",
			font.StringWidth("Change the nam"), font));

	std::string longWord(200, 'x');
	std::vector<std::string> lines = BPrivate::AlertView::Wrap("a " + longWord, width, font);
	ASSERT_GE(lines.size(), 3u);
	EXPECT_EQ("a", lines[0].substr(0, 1));
	std::string joined;
	for (size_t i = 1; i < lines.size(); i++) {
		EXPECT_LE(font.StringWidth(lines[i].c_str()), width);
		joined += lines[i];
	}
	EXPECT_EQ(longWord, joined);
	// Multi-byte characters are never split, even when nothing fits.
	for (const std::string& line : BPrivate::AlertView::Wrap("äöü", 0, font))
		EXPECT_EQ(2u, line.size()) << line;
}

TEST(AlertTest, ABeepRingsTheBellAndFlashesTheWindowThatBeeped)
{
	int32 before = WindowTester::CountBeeps();
	beep();
	beep();
	EXPECT_EQ(before + 2, WindowTester::CountBeeps());

	// A window that beeps when told.
	class Refusing : public BWindow {
	public:
		Refusing() : BWindow(BRect(10, 10, 109, 59), "Refusing", B_TITLED_WINDOW, 0) {}

		void MessageReceived(BMessage* message) override
		{
			if (message->what == 'beep')
				beep();
			else
				BWindow::MessageReceived(message);
		}
	};
	WindowTester::RunHeadless([] {
		Refusing* refusing = new Refusing;
		BWindow* other = new BWindow(BRect(200, 10, 299, 59), "Other", B_TITLED_WINDOW, 0);
		refusing->Show();
		other->Show();
		refusing->PostMessage('beep');
		WindowTester tester(refusing);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		EXPECT_EQ(1, tester.CountFlashes());
		EXPECT_EQ(0, WindowTester(other).CountFlashes());
	});
}
