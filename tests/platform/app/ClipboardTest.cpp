// Named clipboards and the system clipboard on the desktop's clipboard.

#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <string>
#include <thread>

#include <Application.h>
#include <Clipboard.h>
#include "../../../platform/link/DesktopClipboard.h"
#include <WindowTester.h>

using BPrivate::DesktopClipboard;
using BPrivate::WindowTester;

namespace {

const char kMessageType[] = "application/x-vnd.Be-message";

// What the message of a locked clipboard holds as "text/plain" data.
std::string
PlainText(const BMessage* data)
{
	const void* bytes;
	ssize_t length;
	if (data->FindData("text/plain", B_MIME_TYPE, &bytes, &length) != B_OK)
		return "(none)";
	return std::string(static_cast<const char*>(bytes), size_t(length));
}

std::string
Flattened(const BMessage& message)
{
	std::string flat(size_t(message.FlattenedSize()), '\0');
	EXPECT_EQ(B_OK, message.Flatten(flat.data(), ssize_t(flat.size())));
	return flat;
}

void
CommitText(BClipboard* clipboard, const char* text, const void* pointer = nullptr)
{
	ASSERT_TRUE(clipboard->Lock());
	ASSERT_EQ(B_OK, clipboard->Clear());
	BMessage* data = clipboard->Data();
	data->what = B_SIMPLE_DATA;
	data->AddString("text", text);
	if (pointer != nullptr)
		data->AddPointer("VellumAttr", pointer);
	ASSERT_EQ(B_OK, clipboard->Commit());
	clipboard->Unlock();
}

}	// namespace

TEST(ClipboardTest, ClipboardsOfOneNameShareTheirContents)
{
	BClipboard writer("shared-contents"), reader("shared-contents"), other("elsewhere");
	EXPECT_STREQ("shared-contents", writer.Name());
	uint32 before = reader.SystemCount();
	uint32 readerBefore = reader.LocalCount();

	int marker = 0;
	CommitText(&writer, "first row\tLONG", &marker);
	EXPECT_EQ(before + 1, writer.LocalCount());
	EXPECT_EQ(before + 1, reader.SystemCount());
	// The reader's count changes only once it looks.
	EXPECT_EQ(readerBefore, reader.LocalCount());

	ASSERT_TRUE(reader.Lock());
	const char* text;
	ASSERT_EQ(B_OK, reader.Data()->FindString("text", &text));
	EXPECT_STREQ("first row\tLONG", text);
	void* pointer;
	ASSERT_EQ(B_OK, reader.Data()->FindPointer("VellumAttr", &pointer));
	EXPECT_EQ(&marker, pointer);
	EXPECT_EQ(uint32(B_SIMPLE_DATA), reader.Data()->what);
	EXPECT_EQ(before + 1, reader.LocalCount());
	reader.Unlock();

	ASSERT_TRUE(other.Lock());
	EXPECT_TRUE(other.Data()->IsEmpty());
	other.Unlock();
}

TEST(ClipboardTest, DataNeedsTheLock)
{
	BClipboard clipboard("locking");
	EXPECT_FALSE(clipboard.IsLocked());
	EXPECT_EQ(nullptr, clipboard.Data());
	EXPECT_EQ(B_NOT_ALLOWED, clipboard.Clear());
	EXPECT_EQ(B_NOT_ALLOWED, clipboard.Commit());
	EXPECT_EQ(B_NOT_ALLOWED, clipboard.Revert());

	ASSERT_TRUE(clipboard.Lock());
	EXPECT_TRUE(clipboard.IsLocked());
	// The lock belongs to this thread: another thread neither holds it nor gets it.
	std::atomic<bool> lockedThere{false}, heldThere{true};
	std::thread other([&] {
		heldThere = clipboard.IsLocked();
		lockedThere = clipboard.Lock();
		clipboard.Unlock();
	});
	clipboard.Data()->AddString("text", "kept");
	// A nested lock keeps what the outer one is working on.
	ASSERT_TRUE(clipboard.Lock());
	EXPECT_TRUE(clipboard.Data()->HasString("text"));
	clipboard.Unlock();
	EXPECT_TRUE(clipboard.IsLocked());
	clipboard.Unlock();
	other.join();
	EXPECT_FALSE(heldThere);
	EXPECT_TRUE(lockedThere);
	EXPECT_FALSE(clipboard.IsLocked());
}

TEST(ClipboardTest, ApplicationMakesTheSystemClipboard)
{
	EXPECT_EQ(nullptr, be_clipboard);
	{
		BApplication application("application/x-vnd.Vellum-Test");
		ASSERT_NE(nullptr, be_clipboard);
		EXPECT_STREQ("system", be_clipboard->Name());
		CommitText(be_clipboard, "without a display");
		EXPECT_EQ(be_app_messenger, be_clipboard->DataSource());
	}
	EXPECT_EQ(nullptr, be_clipboard);
}

TEST(ClipboardTest, SystemClipboardIsTheDesktopsClipboard)
{
	WindowTester::RunHeadless([] {
		int marker = 0;
		CommitText(be_clipboard, "row\tCSTR\t5", &marker);

		// Other programs see the text and the whole message.
		DesktopClipboard::Formats formats;
		ASSERT_EQ(B_OK, DesktopClipboard::Read({"text/plain", kMessageType}, &formats));
		EXPECT_EQ("row\tCSTR\t5", formats["text/plain"]);
		BMessage flat;
		ASSERT_EQ(B_OK, flat.Unflatten(formats[kMessageType].data(),
			ssize_t(formats[kMessageType].size())));
		EXPECT_TRUE(flat.HasString("text"));

		// Within the program the message comes back whole, pointer included.
		BClipboard again("system");
		ASSERT_TRUE(again.Lock());
		void* pointer = nullptr;
		EXPECT_EQ(B_OK, again.Data()->FindPointer("VellumAttr", &pointer));
		EXPECT_EQ(&marker, pointer);
		EXPECT_EQ(be_app_messenger, again.DataSource());
		again.Unlock();

		// "text/plain" data, as text views store it, is the text others see.
		ASSERT_TRUE(be_clipboard->Lock());
		be_clipboard->Clear();
		be_clipboard->Data()->AddData("text/plain", B_MIME_TYPE, "grüße", strlen("grüße"));
		ASSERT_EQ(B_OK, be_clipboard->Commit());
		be_clipboard->Unlock();
		ASSERT_EQ(B_OK, DesktopClipboard::Read({"text/plain"}, &formats));
		EXPECT_EQ("grüße", formats["text/plain"]);
	});
}

TEST(ClipboardTest, TextFromOtherProgramsArrivesAsText)
{
	// The desktop's clipboard outlives the test: each run copies new text, so
	// that it is a change even after an earlier run.
	static int sRuns = 0;
	std::string copied = "from a terminal " + std::to_string(++sRuns);
	WindowTester::RunHeadless([&copied] {
		uint32 before = be_clipboard->SystemCount();
		ASSERT_EQ(B_OK, DesktopClipboard::Write({{"text/plain", copied}}));
		EXPECT_EQ(before + 1, be_clipboard->SystemCount());

		ASSERT_TRUE(be_clipboard->Lock());
		BMessage* data = be_clipboard->Data();
		EXPECT_EQ(copied, PlainText(data));
		const char* text;
		ASSERT_EQ(B_OK, data->FindString("text", &text));
		EXPECT_EQ(copied, text);
		EXPECT_FALSE(data->HasPointer("VellumAttr"));
		EXPECT_FALSE(be_clipboard->DataSource().IsValid());
		be_clipboard->Unlock();
		// Looking again is no new change.
		EXPECT_EQ(before + 1, be_clipboard->SystemCount());
	});
}

TEST(ClipboardTest, MessagesFromOtherProgramsAreCheckedAndLoseTheirPointers)
{
	WindowTester::RunHeadless([] {
		// Another copy of the program: its pointer means nothing here.
		BMessage theirs('DATA');
		theirs.AddString("text", "name\tLONG");
		theirs.AddPointer("VellumAttr", reinterpret_cast<void*>(0x1234));
		ASSERT_EQ(B_OK, DesktopClipboard::Write({{kMessageType, Flattened(theirs)},
			{"text/plain", "name\tLONG"}}));
		ASSERT_TRUE(be_clipboard->Lock());
		EXPECT_EQ(uint32('DATA'), be_clipboard->Data()->what);
		EXPECT_TRUE(be_clipboard->Data()->HasString("text"));
		EXPECT_FALSE(be_clipboard->Data()->HasPointer("VellumAttr"));
		be_clipboard->Unlock();

		// A damaged message is refused; the text still arrives.
		std::string damaged = Flattened(theirs);
		damaged.resize(damaged.size() / 2);
		for (const std::string& bad : {damaged, std::string("not a message at all")}) {
			ASSERT_EQ(B_OK, DesktopClipboard::Write({{kMessageType, bad},
				{"text/plain", "just text"}}));
			ASSERT_TRUE(be_clipboard->Lock());
			BMessage* data = be_clipboard->Data();
			EXPECT_EQ("just text", PlainText(data));
			EXPECT_FALSE(data->HasPointer("VellumAttr"));
			EXPECT_EQ(2, data->CountNames(B_ANY_TYPE));
			be_clipboard->Unlock();
		}

		// An emptied desktop clipboard is an empty clipboard.
		ASSERT_EQ(B_OK, DesktopClipboard::Write({}));
		ASSERT_TRUE(be_clipboard->Lock());
		EXPECT_TRUE(be_clipboard->Data()->IsEmpty());
		be_clipboard->Unlock();
	});
}
