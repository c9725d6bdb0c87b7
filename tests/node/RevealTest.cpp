#include <signal.h>
#include <sys/stat.h>

#include <atomic>
#include <cstdio>
#include <fstream>
#include <thread>

#include <gtest/gtest.h>

#include <AppDefs.h>
#include <Application.h>
#include <Entry.h>
#include <OS.h>

#include <FileManagerTester.h>
#include <RevealInTracker.h>
#include <WindowTester.h>

#include "../../platform/app/TrackerBridge.h"
#include "platform/storage/TempFolder.h"
#include "support/PrivateBus.h"

using BPrivate::FileManagerTester;
using BPrivate::WindowTester;

namespace {

// Plays the file manager inside the test: remembers the folder it is asked to
// open and the selection messages, and leaves the first `refusals` selections
// not understood, as a window that is not open yet does.
class FakeTracker : public BApplication {
public:
	explicit FakeTracker(int32 refusals)
		: BApplication("application/x-vnd.Be-TRAK"),
		fRefusals(refusals)
	{
	}

	void RefsReceived(BMessage* message) override
	{
		message->FindRef("refs", &fOpenedFolder);
		message->SendReply(B_REPLY);
	}

	BHandler* ResolveSpecifier(BMessage* message, int32 index, BMessage* specifier,
		int32 what, const char* property) override
	{
		if (fSelections++ == 0)
			fFirstSelection = *message;
		if (fSelections <= fRefusals)
			return BApplication::ResolveSpecifier(message, index, specifier, what, property);
		return this;
	}

	void MessageReceived(BMessage* message) override
	{
		if (message->what == B_CREATE_PROPERTY)
			message->SendReply(B_REPLY);
		else
			BApplication::MessageReceived(message);
	}

	// Reveals ref from another thread while the application runs.
	void Reveal(entry_ref ref)
	{
		std::thread revealer([ref]() mutable {
			RevealInTracker(&ref);
			be_app_messenger.SendMessage(B_QUIT_REQUESTED);
		});
		Run();
		revealer.join();
	}

	entry_ref fOpenedFolder;
	std::atomic<int32> fSelections{0};
	BMessage fFirstSelection;

private:
	int32 fRefusals;
};

entry_ref
RefOf(const std::string& path)
{
	entry_ref ref;
	EXPECT_EQ(get_ref_for_path(path.c_str(), &ref), B_OK);
	return ref;
}

// The property and the name (if any) of specifier `index` of message.
std::string
Specifier(const BMessage& message, int32 index)
{
	BMessage specifier;
	if (message.FindMessage("specifiers", index, &specifier) != B_OK)
		return "(none)";
	std::string text = specifier.GetString("property", "");
	const char* name;
	if (specifier.FindString("name", &name) == B_OK)
		text += std::string(" ") + name;
	return text;
}

// The reveal tests share one bus for the whole run: a process keeps its first
// session bus, so the bus outlives every test (and every repetition).
class RevealTest : public testing::Test {
protected:
	static void SetUpTestSuite()
	{
		setenv("DBUS_SESSION_BUS_ADDRESS", Bus().Address().c_str(), 1);
	}

	static const PrivateBus& Bus()
	{
		static TempFolder folder;
		static PrivateBus bus(folder);
		return bus;
	}

	void SetUp() override
	{
		ASSERT_FALSE(Bus().Address().empty()) << "dbus-daemon did not start";
		// The opener writes the folder it was given; it lives outside /dev/shm,
		// which may not allow running programs.
		fOpener = std::string(P_tmpdir) + "/vellum-opener-" + std::to_string(getpid());
		fOpened = fFolder.Path("opened");
		std::ofstream(fOpener) << "#!/bin/sh\necho \"$1\" >> '" << fOpened << "'\n";
		chmod(fOpener.c_str(), 0755);
		BPrivate::TrackerBridge::SetFolderOpener(fOpener.c_str());
	}

	void TearDown() override
	{
		BPrivate::TrackerBridge::SetFolderOpener(nullptr);
		remove(fOpener.c_str());
	}

	// What the opener was given, waiting a while for the detached process.
	std::string OpenedFolders()
	{
		for (int i = 0; i < 500; i++) {
			std::ifstream file(fOpened);
			std::string text((std::istreambuf_iterator<char>(file)),
				std::istreambuf_iterator<char>());
			if (!text.empty())
				return text;
			snooze(10000);
		}
		return std::string();
	}

	TempFolder fFolder;
	std::string fOpener;
	std::string fOpened;
};


}	// namespace

TEST(RevealInTracker, OpensTheFolderThenSelectsTheNodeInItsWindow)
{
	TempFolder folder;
	mkdir(folder.Path("sub").c_str(), 0755);
	std::string node = folder.File("sub/node");
	FakeTracker tracker(2);
	tracker.Reveal(RefOf(node));

	EXPECT_TRUE(tracker.fOpenedFolder == RefOf(folder.Path("sub")));
	// Not understood twice (the window was not open yet), then answered.
	EXPECT_EQ(tracker.fSelections, 3);
	const BMessage& selection = tracker.fFirstSelection;
	EXPECT_EQ(selection.what, uint32(B_CREATE_PROPERTY));
	EXPECT_EQ(Specifier(selection, 0), "Selection");
	EXPECT_EQ(Specifier(selection, 1), "Poses");
	EXPECT_EQ(Specifier(selection, 2), "Window sub");
	entry_ref data;
	ASSERT_EQ(selection.FindRef("data", &data), B_OK);
	EXPECT_TRUE(data == RefOf(node));
}

TEST(RevealInTracker, ALinkRevealsItsTargetAndAWindowThatNeverOpensEndsTheTries)
{
	TempFolder folder;
	mkdir(folder.Path("targets").c_str(), 0755);
	std::string target = folder.File("targets/file");
	ASSERT_EQ(symlink(target.c_str(), folder.Path("link").c_str()), 0);
	FakeTracker tracker(1000000);
	tracker.Reveal(RefOf(folder.Path("link")));

	EXPECT_TRUE(tracker.fOpenedFolder == RefOf(folder.Path("targets")));
	EXPECT_EQ(tracker.fSelections, 1000);
	entry_ref data;
	ASSERT_EQ(tracker.fFirstSelection.FindRef("data", &data), B_OK);
	EXPECT_TRUE(data == RefOf(target));
}

TEST(RevealInTracker, NothingToRevealWithoutAnEntry)
{
	FakeTracker tracker(0);
	std::thread revealer([] {
		RevealInTracker(static_cast<BEntry*>(nullptr));
		BEntry unset;
		RevealInTracker(&unset);
		be_app_messenger.SendMessage(B_QUIT_REQUESTED);
	});
	tracker.Run();
	revealer.join();
	EXPECT_EQ(tracker.fSelections, 0);
	EXPECT_EQ(tracker.fOpenedFolder.name, nullptr);
}

TEST_F(RevealTest, TheDesktopFileManagerShowsTheNodeSelected)
{
	std::string node = fFolder.File("a node");
	std::vector<std::string> shown;
	status_t registered = B_NO_INIT;
	WindowTester::RunHeadless([&] {
		FileManagerTester fileManager(Bus().Address().c_str());
		registered = fileManager.InitCheck();
		BEntry entry(node.c_str());
		RevealInTracker(&entry);
		shown = fileManager.ShownItems();
	});
	ASSERT_EQ(registered, B_OK);
	EXPECT_EQ(shown, std::vector<std::string>{"file://" + fFolder.Root() + "/a%20node"});
}

TEST_F(RevealTest, WithoutAFileManagerTheFolderIsOpened)
{
	std::string node = fFolder.File("node");
	WindowTester::RunHeadless([&] {
		BEntry entry(node.c_str());
		RevealInTracker(&entry);
	});
	EXPECT_EQ(OpenedFolders(), fFolder.Root() + "\n");
}

TEST_F(RevealTest, WithoutTheDisplayServerTheFolderIsOpened)
{
	std::string node = fFolder.File("node");
	BEntry entry(node.c_str());
	RevealInTracker(&entry);
	EXPECT_EQ(OpenedFolders(), fFolder.Root() + "\n");
}
