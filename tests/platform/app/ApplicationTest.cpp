// The application object: launch messages, pulse, quitting, app info, display loop.

#include <gtest/gtest.h>

#include <Application.h>

#include <unistd.h>

#include <climits>
#include <condition_variable>
#include <cstring>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "../../../platform/link/DisplayLoop.h"

using BPrivate::WaitForLooperIdle;

namespace {

const char* kSignature = "application/x-vnd.Vellum-Test";

// Records the hooks it sees, in order.
class TestApp : public BApplication {
public:
	TestApp(std::vector<const char*> arguments = {"test"})
		: BApplication(kSignature)
	{
		SetLaunchArguments(arguments.size(), arguments.data());
		fPulseSem = create_sem(0, "pulses");
	}

	~TestApp() { delete_sem(fPulseSem); }

	void ArgvReceived(int32 argc, char** argv) override
	{
		std::string event = "argv";
		for (int32 i = 0; i < argc; i++)
			event += std::string(" ") + argv[i];
		events.push_back(event);
	}

	void RefsReceived(BMessage* message) override
	{
		entry_ref ref;
		message->FindRef("refs", &ref);
		events.push_back(std::string("refs ") + ref.name);
	}

	void ReadyToRun() override
	{
		events.push_back("ready");
		if (quitWhenReady)
			PostMessage(B_QUIT_REQUESTED);
	}

	void AboutRequested() override { events.push_back("about"); }

	void Pulse() override { release_sem(fPulseSem); }

	bool QuitRequested() override
	{
		events.push_back("quit?");
		return refusals-- <= 0;
	}

	// Waits for the next pulse for at most timeout.
	status_t NextPulse(bigtime_t timeout)
	{
		return acquire_sem_etc(fPulseSem, 1, B_RELATIVE_TIMEOUT, timeout);
	}

	std::vector<std::string> events;
	bool quitWhenReady = true;
	int refusals = 0;

private:
	sem_id fPulseSem;
};

}	// namespace

TEST(ApplicationTest, LaunchMessagesComeBeforeReadyToRun)
{
	TestApp app({"program", "one", "two"});
	ASSERT_EQ(app.InitCheck(), B_OK);
	EXPECT_EQ(be_app, &app);
	EXPECT_TRUE(app.IsLaunching());

	BMessage refs(B_REFS_RECEIVED);
	entry_ref ref(1, 2, "document");
	refs.AddRef("refs", &ref);
	app.PostMessage(&refs);
	app.PostMessage(B_ABOUT_REQUESTED);
	app.refusals = 1;
	app.PostMessage(B_QUIT_REQUESTED);

	app.Run();
	EXPECT_EQ(app.events, (std::vector<std::string>{"argv program one two", "refs document",
		"about", "quit?", "ready", "quit?"}));
	EXPECT_FALSE(app.IsLaunching());
	EXPECT_FALSE(be_app_messenger.IsValid());
}

TEST(ApplicationTest, DesktopLaunchHandsOverRefsInsteadOfArguments)
{
	{
		TestApp app({"program", "--refs", "/etc/passwd", "/no/such/entry"});
		app.Run();
		EXPECT_EQ(app.events, (std::vector<std::string>{"refs passwd", "ready", "quit?"}));
	}
	TestApp missing({"program", "--refs", "/no/such/entry"});
	missing.Run();
	EXPECT_EQ(missing.events, (std::vector<std::string>{"ready", "quit?"}));
}

TEST(ApplicationTest, SignatureAndAppInfo)
{
	status_t error;
	BApplication bad("text/plain", &error);
	EXPECT_EQ(error, B_BAD_VALUE);
	EXPECT_EQ(be_app, nullptr);

	TestApp app;
	app_info info;
	ASSERT_EQ(app.GetAppInfo(&info), B_OK);
	EXPECT_STREQ(info.signature, kSignature);
	EXPECT_EQ(info.team, current_team());

	char path[PATH_MAX];
	ssize_t length = readlink("/proc/self/exe", path, sizeof(path) - 1);
	ASSERT_GT(length, 0);
	path[length] = '\0';
	EXPECT_STREQ(info.ref.name, strrchr(path, '/') + 1);

	status_t status;
	BMessenger bySignature(kSignature, -1, &status);
	EXPECT_EQ(status, B_OK);
	EXPECT_EQ(bySignature, be_app_messenger);
	BMessenger(("application/x-vnd.Other"), -1, &status);
	EXPECT_EQ(status, B_BAD_VALUE);
}

namespace {

// Stands in for the display server: runs in Run()'s thread until told to quit.
class FakeDisplay : public BPrivate::DisplayLoop {
public:
	void Run() override
	{
		ranIn = find_thread(NULL);
		std::unique_lock<std::mutex> guard(fLock);
		fQuit.wait(guard, [this] { return fQuitting; });
	}

	void Quit() override
	{
		std::lock_guard<std::mutex> guard(fLock);
		fQuitting = true;
		fQuit.notify_all();
	}

	thread_id ranIn = -1;

private:
	std::mutex fLock;
	std::condition_variable fQuit;
	bool fQuitting = false;
};

}	// namespace

TEST(ApplicationTest, DisplayLoopRunsInTheCallingThread)
{
	FakeDisplay display;
	BPrivate::DisplayLoop* previous = BPrivate::GetDisplayLoop();
	BPrivate::SetDisplayLoop(&display);
	TestApp app;
	thread_id looper = app.Run();
	BPrivate::SetDisplayLoop(previous);

	EXPECT_EQ(display.ranIn, find_thread(NULL));
	EXPECT_NE(looper, find_thread(NULL));
	EXPECT_EQ(app.events, (std::vector<std::string>{"ready", "quit?"}));
}
