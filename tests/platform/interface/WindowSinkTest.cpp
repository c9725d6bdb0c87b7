#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <AppDefs.h>
#include <Entry.h>
#include <Looper.h>
#include <Message.h>
#include <Messenger.h>

#include "../../../platform/interface/WindowSink.h"
#include "platform/storage/TempFolder.h"

using BPrivate::InputEvent;
using BPrivate::WindowSink;

namespace {

const uint32 kSync = 'sync';

// Keeps what reaches it; a kSync message is answered once everything sent
// before it has been handled.
class Catcher : public BLooper {
public:
	Catcher() : BLooper("catcher") { Run(); }

	void MessageReceived(BMessage* message) override
	{
		if (message->what == kSync)
			message->SendReply(B_REPLY);
		else
			received.push_back(*message);
	}

	// A close request is kept like any other message; the catcher stays.
	bool QuitRequested() override
	{
		received.push_back(BMessage(B_QUIT_REQUESTED));
		return false;
	}

	// What arrived so far; only read after Sync().
	std::vector<BMessage> Sync()
	{
		BMessage reply;
		EXPECT_EQ(B_OK, BMessenger(this).SendMessage(kSync, &reply));
		return received;
	}

	void End()
	{
		Lock();
		Quit();
	}

	std::vector<BMessage> received;
};

// A sink whose window and key targets are two catchers.
class WindowSinkTest : public testing::Test {
protected:
	void SetUp() override
	{
		fWindow = new Catcher;
		fKeys = new Catcher;
		fDrops = new Catcher;
		fSink = std::make_unique<WindowSink>(BMessenger(fWindow), BMessenger(fKeys),
			BMessenger(fDrops));
	}

	void TearDown() override
	{
		fWindow->End();
		fKeys->End();
		fDrops->End();
	}

	Catcher* fWindow;
	Catcher* fKeys;
	Catcher* fDrops;
	std::unique_ptr<WindowSink> fSink;
};

BPoint
PointOf(const BMessage& message, const char* name)
{
	BPoint point(-1, -1);
	message.FindPoint(name, &point);
	return point;
}

}	// namespace

TEST_F(WindowSinkTest, KeysGoToTheFocusAndTheRestToTheWindow)
{
	InputEvent key(InputEvent::kKeyDown);
	key.bytes = "\xc3\xa9";
	key.key = 38;
	key.modifiers = B_SHIFT_KEY;
	key.repeat = true;
	key.when = 1234;
	fSink->Deliver(key);
	InputEvent mouse(InputEvent::kMouseDown);
	mouse.where = BPoint(3, 4);
	mouse.screenWhere = BPoint(103, 204);
	mouse.buttons = B_PRIMARY_MOUSE_BUTTON;
	mouse.clicks = 2;
	fSink->Deliver(mouse);
	mouse.kind = InputEvent::kMouseMoved;
	fSink->Deliver(mouse);

	std::vector<BMessage> keys = fKeys->Sync();
	ASSERT_EQ(1u, keys.size());
	EXPECT_EQ(uint32(B_KEY_DOWN), keys[0].what);
	EXPECT_STREQ("\xc3\xa9", keys[0].GetString("bytes", ""));
	EXPECT_EQ(0xc3, keys[0].GetInt32("raw_char", 0));
	int8 second = 0;
	EXPECT_EQ(B_OK, keys[0].FindInt8("byte", 1, &second));
	EXPECT_EQ(int8(0xa9), second);
	EXPECT_EQ(38, keys[0].GetInt32("key", 0));
	EXPECT_EQ(int32(B_SHIFT_KEY), keys[0].GetInt32("modifiers", 0));
	EXPECT_EQ(1, keys[0].GetInt32("be:key_repeat", 0));
	EXPECT_EQ(1234, keys[0].GetInt64("when", 0));

	std::vector<BMessage> window = fWindow->Sync();
	ASSERT_EQ(2u, window.size());
	EXPECT_EQ(uint32(B_MOUSE_DOWN), window[0].what);
	EXPECT_EQ(BPoint(3, 4), PointOf(window[0], "where"));
	EXPECT_EQ(BPoint(3, 4), PointOf(window[0], "be:view_where"));
	EXPECT_EQ(BPoint(103, 204), PointOf(window[0], "screen_where"));
	EXPECT_EQ(int32(B_PRIMARY_MOUSE_BUTTON), window[0].GetInt32("buttons", 0));
	EXPECT_EQ(2, window[0].GetInt32("clicks", 0));
	EXPECT_EQ(uint32(B_MOUSE_MOVED), window[1].what);
	EXPECT_FALSE(window[1].HasInt32("clicks")) << "only presses count clicks";
}

TEST_F(WindowSinkTest, DropsCarryTheRefsOfWhatCanBeReachedAtTheDropPoint)
{
	TempFolder folder;
	std::string file = folder.File("dropped", "x");
	InputEvent drop(InputEvent::kDrop);
	drop.paths = {file, folder.Path("gone/missing")};
	drop.where = BPoint(5, 6);
	drop.screenWhere = BPoint(105, 206);
	fSink->Deliver(drop);
	// Nothing that can be reached: no drop at all.
	drop.paths = {folder.Path("gone/missing")};
	fSink->Deliver(drop);

	EXPECT_TRUE(fWindow->Sync().empty());
	std::vector<BMessage> window = fDrops->Sync();
	ASSERT_EQ(1u, window.size());
	EXPECT_EQ(uint32(B_SIMPLE_DATA), window[0].what);
	EXPECT_TRUE(window[0].WasDropped());
	EXPECT_EQ(BPoint(105, 206), window[0].DropPoint());
	entry_ref ref, expected;
	ASSERT_EQ(B_OK, window[0].FindRef("refs", 0, &ref));
	ASSERT_EQ(B_OK, get_ref_for_path(file.c_str(), &expected));
	EXPECT_EQ(expected, ref);
	EXPECT_NE(B_OK, window[0].FindRef("refs", 1, &ref));
}
