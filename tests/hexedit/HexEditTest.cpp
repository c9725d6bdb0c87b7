// The hex editor in the data window on real files, checked with getfattr.

#include "HexEditTestSupport.h"

#include <Clipboard.h>

namespace {

const uint32 kRaw = 'RAWT';

void
PutOnClipboard(const std::string& text)
{
	ASSERT_TRUE(be_clipboard->Lock());
	be_clipboard->Clear();
	be_clipboard->Data()->AddData("text/plain", B_MIME_TYPE, text.data(), ssize_t(text.size()));
	be_clipboard->Commit();
	be_clipboard->Unlock();
}

std::string
ClipboardText()
{
	std::string text;
	EXPECT_TRUE(be_clipboard->Lock());
	const void* data;
	ssize_t size;
	if (be_clipboard->Data()->FindData("text/plain", B_MIME_TYPE, &data, &size) == B_OK)
		text.assign(static_cast<const char*>(data), size_t(size));
	be_clipboard->Unlock();
	return text;
}

}	// namespace

TEST(HexEditTest, TypingOverTheFirstByteWritesItAndKeepsTheCaret)
{
	WindowTester::RunHeadless([] {
		HexWindow w("raw", kRaw, "hello");
		ASSERT_NE(w.Editor(), nullptr);
		EXPECT_EQ(DataWindow::kHexView, w.window->CurrentViewNum());
		// Read-only at first: typing beeps and changes nothing.
		int32 beeps = WindowTester::CountBeeps();
		w.Type("4");
		EXPECT_EQ(beeps + 1, WindowTester::CountBeeps());
		EXPECT_EQ(Hex("hello"), w.FileHex());

		w.Key(B_RETURN);
		EXPECT_TRUE(w.Editor()->IsEditable());
		w.Type("4");
		EXPECT_EQ("48656c6c6f", w.FileHex());
		EXPECT_EQ(1, w.Caret());
		w.Type("1");
		EXPECT_EQ(Hex("Aello"), w.FileHex());
		// The re-read value came back and the caret stayed at the second byte.
		EXPECT_GE(w.parent->fRereads, 2);
		EXPECT_EQ(2, w.Caret());
		EXPECT_EQ('A', w.Editor()->Data()[0]);
		w.Key(B_ESCAPE);
		EXPECT_FALSE(w.Editor()->IsEditable());
	});
}

TEST(HexEditTest, TheLastByteIsOverwrittenAndTypingAtTheEndAppends)
{
	WindowTester::RunHeadless([] {
		HexWindow w("raw", kRaw, "abc");
		w.Key(B_RETURN);
		w.Key(B_END, B_COMMAND_KEY);
		w.Key(B_LEFT_ARROW);
		w.Key(B_LEFT_ARROW);
		w.Type("ff");
		EXPECT_EQ("6162ff", w.FileHex());
		w.Type("1");
		EXPECT_EQ("6162ff10", w.FileHex());
		w.Type("2");
		EXPECT_EQ("6162ff12", w.FileHex());
		EXPECT_NE(std::string::npos, w.Header().find("4 bytes"));
		// In the ASCII column a character overwrites, and appends at the end.
		w.Key(B_TAB);
		w.Key(B_HOME);
		w.Type("xyz!?");
		EXPECT_EQ(Hex("xyz!?"), w.FileHex());
	});
}

TEST(HexEditTest, DeletingAndClearingRemoveBytes)
{
	WindowTester::RunHeadless([] {
		HexWindow w("raw", kRaw, "0123456789");
		w.Key(B_RETURN);
		w.Key(B_RIGHT_ARROW);
		w.Key(B_RIGHT_ARROW);
		w.Key(B_RIGHT_ARROW, B_SHIFT_KEY);
		w.Key(B_RIGHT_ARROW, B_SHIFT_KEY);
		w.Key(B_DELETE);
		EXPECT_EQ(Hex("03456789"), w.FileHex());
		w.Key(B_BACKSPACE);
		EXPECT_EQ(Hex("3456789"), w.FileHex());
		// A click and a drag over three cells, then Clear from the menu.
		w.tester->MouseDown(w.CellPoint("AsciiView", 0, 2));
		w.tester->MouseMove(w.CellPoint("AsciiView", 0, 4), 1);
		w.tester->MouseUp(w.CellPoint("AsciiView", 0, 4));
		w.Settle();
		w.Command(127);
		EXPECT_EQ(Hex("3489"), w.FileHex());
		EXPECT_NE(std::string::npos, w.Header().find("4 bytes"));
	});
}

TEST(HexEditTest, PasteTakesHexDigitsWithBlanksAndRefusesAnythingElse)
{
	WindowTester::RunHeadless([] {
		HexWindow w("raw", kRaw, "ab");
		w.Key(B_RETURN);
		w.Key(B_RIGHT_ARROW);
		w.Key(B_RIGHT_ARROW);
		PutOnClipboard("de ad\nBE ef");
		w.Command(B_PASTE);
		EXPECT_EQ("61deadbeef62", w.FileHex());
		int32 beeps = WindowTester::CountBeeps();
		PutOnClipboard("12 3g");
		w.Command(B_PASTE);
		PutOnClipboard("123");
		w.Command(B_PASTE);
		EXPECT_EQ(beeps + 2, WindowTester::CountBeeps());
		EXPECT_EQ("61deadbeef62", w.FileHex());
		// The ASCII column pastes the text itself.
		w.Key(B_TAB);
		w.Key(B_END, B_COMMAND_KEY);
		PutOnClipboard("3g");
		w.Command(B_PASTE);
		EXPECT_EQ("61deadbeef623367", w.FileHex());
	});
}

TEST(HexEditTest, CopyGivesHexTextOrTextByColumn)
{
	WindowTester::RunHeadless([] {
		HexWindow w("raw", kRaw, "hi\x01z");
		w.Key(B_RIGHT_ARROW, B_SHIFT_KEY);
		w.Key(B_RIGHT_ARROW, B_SHIFT_KEY);
		w.Key(B_RIGHT_ARROW, B_SHIFT_KEY);
		// Copy works read-only; cut does not.
		w.Command(B_COPY);
		EXPECT_EQ("68 69 01", ClipboardText());
		w.Command(B_CUT);
		EXPECT_EQ(Hex("hi\x01z"), w.FileHex());
		w.Key(B_TAB);
		w.Command(B_COPY);
		EXPECT_EQ("hi\x01", ClipboardText());
		// What the ASCII column copied pastes back as the same bytes.
		w.Key(B_RETURN);
		w.Key(B_END, B_COMMAND_KEY);
		w.Command(B_PASTE);
		EXPECT_EQ(Hex("hi\x01zhi\x01"), w.FileHex());
		w.Key(B_TAB);
		w.Key(B_HOME, B_COMMAND_KEY);
		w.Key(B_RIGHT_ARROW, B_SHIFT_KEY);
		w.Command(B_CUT);
		EXPECT_EQ("68", ClipboardText());
		EXPECT_EQ(Hex("i\x01zhi\x01"), w.FileHex());
	});
}

TEST(HexEditTest, AValueOf64KiBScrollsToItsEndAndIsEditedThere)
{
	WindowTester::RunHeadless([] {
		std::string value(65536, '\0');
		for (size_t i = 0; i < value.size(); i++)
			value[i] = char(i * 7);
		HexWindow w("big", kRaw, value);
		w.Key(B_RETURN);
		w.Key(B_END, B_COMMAND_KEY);
		w.Key(B_LEFT_ARROW);
		w.Key(B_LEFT_ARROW);
		w.window->Lock();
		float scrolled = w.Editor()->Bounds().top;
		w.window->Unlock();
		EXPECT_GT(scrolled, 50000);
		w.Type("5a");
		std::string hex = w.FileHex();
		ASSERT_EQ(2u * 65536, hex.size());
		EXPECT_EQ("5a", hex.substr(hex.size() - 2));
		EXPECT_EQ(Hex(value.substr(0, 100)), hex.substr(0, 200));
		// The re-read kept the scroll position and the caret.
		w.window->Lock();
		EXPECT_EQ(scrolled, w.Editor()->Bounds().top);
		w.window->Unlock();
		EXPECT_EQ(2 * 65536, w.Caret());
		// One byte more than an attribute holds: the change is refused.
		std::vector<AlertInfo> alerts;
		WindowTester::SetAlertResponder([&](const AlertInfo& alert) {
			alerts.push_back(alert);
			return 0;
		});
		w.Type("1");
		WindowTester::SetAlertResponder(nullptr);
		ASSERT_EQ(1u, alerts.size());
		EXPECT_NE(std::string::npos, alerts[0].text.find("The change was not recorded."));
		EXPECT_EQ(65536, w.Editor()->Size());
		EXPECT_EQ(2 * 65536, w.Caret());
	});
}

TEST(HexEditTest, AFixedSizeTypeKeepsItsSize)
{
	WindowTester::RunHeadless([] {
		HexWindow w("number", 'DBLE', std::string(8, '\x11'));
		EXPECT_EQ(DataWindow::kHexView, w.window->CurrentViewNum());
		w.Key(B_RETURN);
		int32 beeps = WindowTester::CountBeeps();
		w.Key(B_DELETE);
		w.Key(B_END, B_COMMAND_KEY);
		w.Type("7");
		EXPECT_EQ(beeps + 2, WindowTester::CountBeeps());
		w.Key(B_HOME);
		w.Type("7");
		EXPECT_EQ("7111111111111111", w.FileHex());
	});
}

TEST(HexEditTest, ANewAttributeWithoutANameIsNotWritten)
{
	WindowTester::RunHeadless([] {
		HexWindow w("", kRaw, "ab");
		std::vector<AlertInfo> alerts;
		WindowTester::SetAlertResponder([&](const AlertInfo& alert) {
			alerts.push_back(alert);
			return 0;
		});
		w.Key(B_RETURN);
		w.Type("4");
		WindowTester::SetAlertResponder(nullptr);
		ASSERT_EQ(1u, alerts.size());
		EXPECT_NE(std::string::npos, alerts[0].text.find("A new attribute needs a name."));
		w.window->Lock();
		EXPECT_EQ(2, w.Editor()->Size());
		EXPECT_EQ('a', w.Editor()->Data()[0]);
		w.window->Unlock();
	});
}

TEST(HexEditTest, AReReadOvertakenByALaterWriteDoesNotUndoIt)
{
	WindowTester::RunHeadless([] {
		HexWindow w("raw", kRaw, "hello");
		w.Key(B_RETURN);
		// The inspector is busy while two digits are typed.
		ASSERT_TRUE(w.parent->Lock());
		w.tester->TypeText("41");
		EXPECT_EQ(B_OK, w.tester->WaitForIdle());
		// The first write's re-read arrives late, with the first digit only.
		w.window->Refresh("raw", kRaw, "Hello", 5);
		w.window->Lock();
		EXPECT_EQ('A', w.Editor()->Data()[0]);
		EXPECT_EQ(2, w.Editor()->Caret());
		w.window->Unlock();
		w.parent->Unlock();
		w.Settle();
		EXPECT_EQ(Hex("Aello"), w.FileHex());
		EXPECT_EQ('A', w.Editor()->Data()[0]);
		// A value changed elsewhere still shows.
		w.window->Refresh("raw", kRaw, "other", 5);
		w.Settle();
		EXPECT_EQ('o', w.Editor()->Data()[0]);
	});
}
