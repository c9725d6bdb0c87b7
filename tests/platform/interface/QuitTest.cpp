// The application owns its windows: quitting or deleting it ends every window
// thread first, also that of a window waiting in a modal alert.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include <Alert.h>
#include <Application.h>
#include <Window.h>

#include "../../../platform/kernel/Threads.h"

namespace {

const uint32 kAsk = 'ask ';

// The names of the process's threads, as the system lists them.
std::vector<std::string>
ThreadNames()
{
	std::vector<std::string> names;
	for (const auto& entry : std::filesystem::directory_iterator("/proc/self/task")) {
		std::string name;
		std::getline(std::ifstream(entry.path() / "comm"), name);
		names.push_back(name);
	}
	return names;
}

bool
HasThreadNamed(const std::string& prefix)
{
	for (const std::string& name : ThreadNames()) {
		if (name.rfind(prefix, 0) == 0)
			return true;
	}
	return false;
}

// A window that, asked, waits in a modal alert of its own.
class AskingWindow : public BWindow {
public:
	explicit AskingWindow(float left)
		: BWindow(BRect(left, 100, left + 199, 199), "quit-test", B_TITLED_WINDOW, 0)
	{
	}

	void MessageReceived(BMessage* message) override
	{
		if (message->what == kAsk) {
			BAlert* alert = new BAlert("quit-alert", "Really?", "Cancel", "OK");
			answer = alert->Go();
		} else
			BWindow::MessageReceived(message);
	}

	int32 answer = -2;
};

// Waits on its own thread until the application has count windows, then does
// what it is given.
std::thread
WhenWindowsAre(int32 count, std::function<void()> action)
{
	return std::thread([count, action] {
		while (be_app->CountWindows() < count)
			std::this_thread::yield();
		action();
	});
}

}	// namespace

TEST(QuitTest, QuittingEndsEveryWindowAlsoOneWaitingInAnAlert)
{
	setenv("QT_QPA_PLATFORM", "offscreen", 1);
	// This thread's own identity is not the run's.
	find_thread(nullptr);
	size_t known = BPrivate::CountKnownThreads();
	{
		BApplication app("application/x-vnd.Vellum-QuitTest");
		AskingWindow* asking = nullptr;
		for (float left : {0, 220, 440}) {
			AskingWindow* window = new AskingWindow(left);
			window->Show();
			asking = window;
		}
		asking->PostMessage(kAsk);
		// Three windows and the alert: the application is asked to quit.
		std::thread quitter = WhenWindowsAre(4, [] { be_app->PostMessage(B_QUIT_REQUESTED); });
		app.Run();
		quitter.join();
		EXPECT_EQ(0, app.CountWindows());
		EXPECT_FALSE(HasThreadNamed("quit-")) << "a window thread outlived the run";
	}
	BPrivate::JoinFinishedThreads();
	EXPECT_EQ(known, BPrivate::CountKnownThreads());
	EXPECT_EQ(nullptr, be_app);
}
