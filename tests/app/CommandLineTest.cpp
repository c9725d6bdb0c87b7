// The program on the command line: help and a missing display answer at once,
// a picture goes where it is told, and one Vellum runs at a time: a later start
// hands its nodes to the running one over the session bus and ends.
#include <gtest/gtest.h>

#include <spawn.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <string>

#include <Application.h>
#include <Window.h>
#include <WindowTester.h>

#include "GlintApplication.h"
#include "Utils.h"
#include "app/AppTestSupport.h"
#include "support/PrivateBus.h"

extern char** environ;

using BPrivate::WindowTester;

namespace {

// Starts the program with arguments in folder and waits for its exit status;
// with display false, without any display in its environment. usage, when
// given, receives what the program used.
int
RunProgram(const std::string& folder, const std::vector<std::string>& arguments,
	bool display = true, struct rusage* usage = nullptr)
{
	std::vector<char*> environment;
	for (char** variable = environ; *variable != nullptr; variable++) {
		std::string entry = *variable;
		if (display || (entry.rfind("DISPLAY=", 0) != 0 && entry.rfind("WAYLAND_DISPLAY=", 0) != 0
				&& entry.rfind("QT_QPA_PLATFORM=", 0) != 0))
			environment.push_back(*variable);
	}
	environment.push_back(nullptr);
	std::vector<char*> argv;
	for (const std::string& argument : arguments)
		argv.push_back(const_cast<char*>(argument.c_str()));
	argv.push_back(nullptr);
	posix_spawn_file_actions_t actions;
	posix_spawn_file_actions_init(&actions);
	posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
	pid_t child;
	int failed = posix_spawn(&child, argv[0], &actions, nullptr, argv.data(),
		environment.data());
	posix_spawn_file_actions_destroy(&actions);
	if (failed != 0)
		return -1;
	int status;
	struct rusage used;
	wait4(child, &status, 0, &used);
	if (usage != nullptr)
		*usage = used;
	return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// Whether a window titled title shows up within ten seconds.
bool
WindowTitledShowsUp(const char* title)
{
	for (int32 tries = 0; tries < 10000; tries++) {
		if (FindFrontWindow(nullptr, title) != nullptr)
			return true;
		snooze(1000);
	}
	return false;
}

}	// namespace

TEST(CommandLineTest, ALaterLaunchHandsItsNodesToTheRunningOne)
{
	TempFolder folder;
	PrivateBus bus(folder);
	ASSERT_FALSE(bus.Address().empty()) << "dbus-daemon did not start";
	setenv("DBUS_SESSION_BUS_ADDRESS", bus.Address().c_str(), 1);
	setenv("QT_QPA_PLATFORM", "offscreen", 1);
	std::string second = folder.File("second.txt", "2");
	folder.File("third.txt", "3");
	WindowTester::HoldModifiers(B_SHIFT_KEY);

	// The first launch claims the signature and runs.
	const char* first[] = {"vellum"};
	ASSERT_FALSE(BApplication::HandOverLaunch(kSignature, 1, first));
	WindowTester::RunApplicationHeadless([] { return new GlintApplication; }, [&] {
		// Later ones hand over their refs, or their plain arguments, and end.
		EXPECT_EQ(0, RunProgram(folder.Root(), {VELLUM_PROGRAM, "--refs", second}));
		EXPECT_TRUE(WindowTitledShowsUp("Vellum: second.txt"));
		EXPECT_EQ(0, RunProgram(folder.Root(), {VELLUM_PROGRAM, "third.txt", "ignored"}));
		EXPECT_TRUE(WindowTitledShowsUp("Vellum: third.txt"))
			<< "plain arguments are read in the folder of the later launch";
	});
	unsetenv("DBUS_SESSION_BUS_ADDRESS");
}

TEST(CommandLineTest, HelpAnswersAndAMissingDisplayIsSaidAtOnce)
{
	TempFolder folder;
	EXPECT_EQ(0, RunProgram(folder.Root(), {VELLUM_PROGRAM, "--help"}, false));
	EXPECT_EQ(1, RunProgram(folder.Root(), {VELLUM_PROGRAM}, false));
	EXPECT_EQ(1, RunProgram(folder.Root(), {VELLUM_PROGRAM, "--refs", folder.Root()}, false));
}

TEST(CommandLineTest, APictureIsWrittenUnderExactlyTheBytesOfItsName)
{
	TempFolder folder;
	std::string picture = folder.Path("window-\xff\xfe.png");
	EXPECT_EQ(0, RunProgram(folder.Root(), {VELLUM_PROGRAM, "--screenshot", picture}, false));
	EXPECT_EQ(0, access(picture.c_str(), R_OK)) << "not written under its own name";
}

TEST(CommandLineTest, HostileSettingsNeitherStallNorExhaustTheStart)
{
	// A pipe, an endless device, and a window of 60,000 by 60,000 pixels.
	const std::vector<std::function<void(const std::string&)>> settings = {
		[](const std::string& path) { mkfifo(path.c_str(), 0600); },
		[](const std::string& path) { symlink("/dev/zero", path.c_str()); },
		[](const std::string& path) { std::ofstream(path) << "0\n0 0 60000 60000\n"; }};
	for (size_t i = 0; i < settings.size(); i++) {
		TempFolder folder;
		settings[i](folder.Path("Vellum_Settings"));
		setenv("XDG_CONFIG_HOME", folder.Root().c_str(), 1);
		bigtime_t start = system_time();
		struct rusage used;
		EXPECT_EQ(0, RunProgram(folder.Root(),
			{VELLUM_PROGRAM, "--screenshot", folder.Path("window.png")}, false, &used)) << i;
		EXPECT_LT(system_time() - start, 1000000) << i;
		EXPECT_LT(used.ru_maxrss, 100 * 1024) << i << ": kilobytes at most";
		unsetenv("XDG_CONFIG_HOME");
	}
}
