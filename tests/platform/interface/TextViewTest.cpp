#include <gtest/gtest.h>

#include <cctype>
#include <chrono>
#include <string>

#include <Application.h>
#include <Clipboard.h>
#include <Message.h>
#include <MessageFilter.h>
#include <Region.h>
#include <ScrollBar.h>
#include <ScrollView.h>
#include <TextView.h>
#include <Window.h>
#include <WindowTester.h>

using BPrivate::WindowTester;

namespace {

// A text view at the window's origin, so that view and window points agree.
class TextWindow : public BWindow {
public:
	TextWindow()
		: BWindow(BRect(100, 100, 499, 399), "Text", B_TITLED_WINDOW, 0)
	{
		view = new BTextView(Bounds(), "text", BRect(4, 4, 395, 295), B_FOLLOW_ALL);
		AddChild(view);
		view->MakeFocus(true);
	}

	BTextView* view;
};

// Runs body with a text window shown and its view holding text.
template<typename Body>
void
WithTextWindow(const char* text, Body body)
{
	WindowTester::RunHeadless([&] {
		TextWindow* window = new TextWindow;
		window->view->SetText(text);
		window->Show();
		WindowTester tester(window);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		body(window, tester);
	});
}

std::string
Selection(TextWindow* window, WindowTester& tester)
{
	EXPECT_EQ(B_OK, tester.WaitForIdle());
	if (!window->Lock())
		return "not locked";
	int32 start, end;
	window->view->GetSelection(&start, &end);
	std::string text = window->view->Text();
	window->Unlock();
	return std::to_string(start) + "-" + std::to_string(end) + " " + text;
}

// Where the character at offset is drawn, a little inside its cell.
BPoint
PointIn(TextWindow* window, int32 offset)
{
	window->Lock();
	float height;
	BPoint point = window->view->PointAt(offset, &height);
	window->Unlock();
	return point + BPoint(1, height / 2);
}

// Logs every edit that reaches the hooks and keeps the first two bytes.
class GuardedTextView : public BTextView {
public:
	GuardedTextView()
		: BTextView(BRect(0, 0, 199, 99), "guarded", BRect(0, 0, 199, 99), B_FOLLOW_NONE)
	{
	}

	std::string log;

protected:
	void InsertText(const char* text, int32 length, int32 offset,
		const text_run_array* runs) override
	{
		log += "+" + std::to_string(offset) + ":" + std::string(text, length) + "|";
		BTextView::InsertText(text, length, offset, runs);
	}

	void DeleteText(int32 from, int32 to) override
	{
		log += "-" + std::to_string(from) + "," + std::to_string(to) + "|";
		BTextView::DeleteText(std::max(from, int32(2)), to);
	}
};

}	// namespace

TEST(TextViewTest, EditsChangeTheTextAndMoveTheSelectionWithIt)
{
	BTextView view(BRect(0, 0, 199, 99), "text", BRect(0, 0, 199, 99), B_FOLLOW_NONE);
	view.SetText("hello world");
	int32 start, end;
	view.Select(6, 11);
	view.Insert(", big");
	EXPECT_STREQ("hello , bigworld", view.Text());
	view.GetSelection(&start, &end);
	EXPECT_EQ(11, start) << "the selection follows the inserted text";
	EXPECT_EQ(16, end);
	view.Delete(5, 6);
	EXPECT_STREQ("hello, bigworld", view.Text());
	view.Insert(10, " ", 1);
	view.Delete();
	EXPECT_STREQ("hello, big ", view.Text());

	EXPECT_EQ('h', view.ByteAt(0));
	EXPECT_EQ(0, view.ByteAt(-1));
	EXPECT_EQ(0, view.ByteAt(11));
	char buffer[8];
	view.GetText(7, 20, buffer);
	EXPECT_STREQ("big ", buffer);

	view.SelectAll();
	view.Clear();
	EXPECT_STREQ("", view.Text());
	view.SetText("abc", 2);
	EXPECT_STREQ("ab", view.Text());
}

TEST(TextViewTest, OffsetsKeepToWholeUtf8Characters)
{
	BTextView view(BRect(0, 0, 199, 99), "text", BRect(0, 0, 199, 99), B_FOLLOW_NONE);
	// "a" "é" (2 bytes) "€" (3 bytes) "b"
	view.SetText("a\xc3\xa9\xe2\x82\xac" "b");
	int32 start, end;
	view.Select(2, 4);
	view.GetSelection(&start, &end);
	EXPECT_EQ(1, start);
	EXPECT_EQ(3, end);
	view.Select(9, -4);
	view.GetSelection(&start, &end);
	EXPECT_EQ(0, start);
	EXPECT_EQ(7, end);
	view.Delete(2, 5);
	EXPECT_STREQ("a\xe2\x82\xac" "b", view.Text());

	// Too long for the maximum: cut before the character that would not fit.
	view.SetMaxBytes(7);
	view.Insert(0, "\xc3\xa9\xc3\xa9", 4);
	EXPECT_STREQ("\xc3\xa9" "a\xe2\x82\xac" "b", view.Text());
	view.SetMaxBytes(4);
	EXPECT_STREQ("\xc3\xa9" "a", view.Text());

	int32 from, to;
	view.SetMaxBytes(100);
	view.SetText("one two_3  ,x");
	view.FindWord(5, &from, &to);
	EXPECT_EQ(4, from);
	EXPECT_EQ(9, to);
	view.FindWord(9, &from, &to);
	EXPECT_EQ(9, from);
	EXPECT_EQ(11, to);
	view.FindWord(11, &from, &to);
	EXPECT_EQ(11, from);
	EXPECT_EQ(12, to);
}

TEST(TextViewTest, LinesWrapAtSpacesAndBreakAtLineFeeds)
{
	BFont font(be_plain_font);
	float word = font.StringWidth("word ");
	// Room for two words on a line, not three.
	BRect textRect(0, 0, word * 2.5f, 200);
	BTextView view(BRect(0, 0, 299, 199), "text", textRect, B_FOLLOW_NONE);
	view.SetText("word word word word word");
	EXPECT_EQ(3, view.CountLines());
	EXPECT_EQ(0, view.OffsetAt(int32(0)));
	EXPECT_EQ(10, view.OffsetAt(int32(1)));
	EXPECT_EQ(20, view.OffsetAt(int32(2)));
	EXPECT_EQ(24, view.OffsetAt(int32(3)));
	EXPECT_EQ(1, view.LineAt(12));
	EXPECT_EQ(2, view.LineAt(24));

	// A word longer than the line breaks inside itself.
	view.SetText("wordwordwordwordwordword");
	EXPECT_GE(view.CountLines(), 2);
	view.SetText("a\n\nb\n");
	EXPECT_EQ(4, view.CountLines()) << "a line feed at the end starts an empty line";
	EXPECT_EQ(3, view.OffsetAt(int32(2)));

	view.SetWordWrap(false);
	view.SetText("word word word word word\nword");
	EXPECT_EQ(2, view.CountLines());
	view.SetWordWrap(true);
	EXPECT_EQ(4, view.CountLines());
	float line = view.LineHeight(0);
	EXPECT_GT(line, 0);
	EXPECT_FLOAT_EQ(4 * line, view.TextHeight(0, 3));

	// Edits in the middle lay out again the lines they touch.
	view.Insert(0, "word ", 5);
	EXPECT_EQ(4, view.CountLines());
	view.Insert(0, "word\n", 5);
	EXPECT_EQ(5, view.CountLines());
	EXPECT_EQ(5, view.OffsetAt(int32(1)));
	view.Delete(0, 10);
	EXPECT_EQ(4, view.CountLines());
	EXPECT_STREQ("word word word word word\nword", view.Text());
}

TEST(TextViewTest, OffsetAtFindsWhatPointAtPlaces)
{
	BTextView view(BRect(0, 0, 299, 199), "text", BRect(5, 5, 295, 195), B_FOLLOW_NONE);
	const char* text = "first line\nsecond \xc3\xa9\xc3\xa9 line\n\nlast";
	view.SetText(text);
	for (int32 offset = 0; offset <= view.TextLength(); offset++) {
		int32 expected = offset;
		// Inside a character the offset is its start.
		if (offset == 19 || offset == 21)
			expected = offset - 1;
		float height;
		BPoint point = view.PointAt(offset, &height);
		EXPECT_EQ(expected, view.OffsetAt(point + BPoint(0.5f, height / 2))) << offset;
	}
	float height;
	BPoint second = view.PointAt(11, &height);
	EXPECT_FLOAT_EQ(5, second.x);
	EXPECT_FLOAT_EQ(5 + height, second.y);
	// Left of and right of a line, above and below the text.
	EXPECT_EQ(11, view.OffsetAt(BPoint(0, second.y + 1)));
	EXPECT_EQ(10, view.OffsetAt(BPoint(290, 6)));
	EXPECT_EQ(0, view.OffsetAt(BPoint(0, -50)));
	EXPECT_EQ(view.TextLength(), view.OffsetAt(BPoint(290, 190)));

	view.SetAlignment(B_ALIGN_RIGHT);
	BPoint end = view.PointAt(10);
	EXPECT_NEAR(295, end.x, 1) << "right aligned lines end at the text rect's edge";
}

TEST(TextViewTest, SubclassHooksSeeEveryEdit)
{
	GuardedTextView view;
	view.SetText("abcdef");
	view.Select(1, 3);
	view.Insert("X");
	view.Delete(0, 4);
	view.Select(0, 0);
	EXPECT_EQ("+0:abcdef|+1:X|-0,4|", view.log);
	EXPECT_STREQ("aXdef", view.Text()) << "the subclass keeps the first two bytes";
}

TEST(TextViewTest, StylesFollowTheirTextAndSetTheLineHeights)
{
	BTextView view(BRect(0, 0, 299, 199), "text", BRect(0, 0, 299, 199), B_FOLLOW_NONE);
	view.SetStylable(true);
	view.SetText("Title\nbody");
	float plain = view.LineHeight(1);
	BFont big(be_plain_font);
	big.SetSize(36);
	rgb_color red = make_color(255, 0, 0);
	view.SetFontAndColor(0, 6, &big, B_FONT_SIZE, &red);
	EXPECT_GT(view.LineHeight(0), 2 * plain);
	EXPECT_FLOAT_EQ(plain, view.LineHeight(1));
	BFont font;
	rgb_color color;
	view.GetFontAndColor(3, &font, &color);
	EXPECT_FLOAT_EQ(36, font.Size());
	EXPECT_EQ(red, color);
	view.GetFontAndColor(7, &font, &color);
	EXPECT_FLOAT_EQ(be_plain_font->Size(), font.Size());

	// Text typed inside a run takes its style; runs move with the text.
	view.Insert(2, "xx", 2);
	view.GetFontAndColor(3, &font);
	EXPECT_FLOAT_EQ(36, font.Size());
	int32 size;
	text_run_array* runs = view.RunArray(0, view.TextLength(), &size);
	ASSERT_EQ(2, runs->count);
	EXPECT_EQ(0, runs->runs[0].offset);
	EXPECT_EQ(8, runs->runs[1].offset);

	// Runs given with the text style it, relative to where it goes.
	view.SetText("");
	runs->runs[1].offset = 1;
	view.SetText("ab", runs);
	view.GetFontAndColor(0, &font);
	EXPECT_FLOAT_EQ(36, font.Size());
	view.GetFontAndColor(1, &font);
	EXPECT_FLOAT_EQ(be_plain_font->Size(), font.Size());
	BTextView::FreeRunArray(runs);

	// A plain view has one style for everything.
	view.SetStylable(false);
	view.GetFontAndColor(1, &font);
	EXPECT_FLOAT_EQ(36, font.Size());
}

TEST(TextViewTest, TypingEditsAtTheCaretAndArrowsStepOverWholeCharacters)
{
	WithTextWindow("", [](TextWindow* window, WindowTester& tester) {
		tester.TypeText("h\xc3\xa9llo");
		EXPECT_EQ("6-6 h\xc3\xa9llo", Selection(window, tester));
		tester.TypeKey(B_LEFT_ARROW);
		tester.TypeKey(B_LEFT_ARROW);
		tester.TypeKey(B_LEFT_ARROW);
		EXPECT_EQ("3-3 h\xc3\xa9llo", Selection(window, tester));
		tester.TypeKey(B_LEFT_ARROW);
		EXPECT_EQ("1-1 h\xc3\xa9llo", Selection(window, tester)) << "é is one step";
		tester.TypeKey(B_RIGHT_ARROW, B_SHIFT_KEY);
		tester.TypeKey(B_RIGHT_ARROW, B_SHIFT_KEY);
		EXPECT_EQ("1-4 h\xc3\xa9llo", Selection(window, tester));
		tester.TypeKey(B_LEFT_ARROW, B_SHIFT_KEY);
		EXPECT_EQ("1-3 h\xc3\xa9llo", Selection(window, tester));
		tester.TypeText("e");
		EXPECT_EQ("2-2 hello", Selection(window, tester));
		tester.TypeKey(B_BACKSPACE);
		tester.TypeKey(B_DELETE);
		EXPECT_EQ("1-1 hlo", Selection(window, tester));
		tester.TypeKey(B_END);
		tester.TypeKey(B_ENTER);
		tester.TypeText("x");
		EXPECT_EQ("5-5 hlo\nx", Selection(window, tester));
		tester.TypeKey(B_UP_ARROW);
		EXPECT_EQ("1-1 hlo\nx", Selection(window, tester));
		tester.TypeKey(B_DOWN_ARROW, B_SHIFT_KEY);
		EXPECT_EQ("1-5 hlo\nx", Selection(window, tester));
		tester.TypeKey(B_DOWN_ARROW);
		tester.TypeKey(B_HOME);
		EXPECT_EQ("4-4 hlo\nx", Selection(window, tester));
		tester.TypeKey(B_HOME, B_COMMAND_KEY);
		EXPECT_EQ("0-0 hlo\nx", Selection(window, tester));
		tester.TypeKey(B_END, B_SHIFT_KEY);
		EXPECT_EQ("0-3 hlo\nx", Selection(window, tester));
		tester.TypeKey(B_RIGHT_ARROW);
		EXPECT_EQ("3-3 hlo\nx", Selection(window, tester)) << "an arrow collapses the selection";
		tester.TypeKey('a', B_COMMAND_KEY);
		EXPECT_EQ("0-5 hlo\nx", Selection(window, tester));
	});
}

TEST(TextViewTest, TabTypesATabOnlyWhereTheViewIsNotNavigable)
{
	WithTextWindow("", [](TextWindow* window, WindowTester& tester) {
		tester.TypeKey(B_TAB);
		EXPECT_EQ("1-1 \t", Selection(window, tester));
		ASSERT_TRUE(window->Lock());
		window->view->SetFlags(window->view->Flags() | B_NAVIGABLE);
		BView* other = new BView(BRect(0, 0, 9, 9), "other", B_FOLLOW_NONE, B_NAVIGABLE);
		window->AddChild(other);
		window->Unlock();
		tester.TypeKey(B_TAB);
		EXPECT_EQ("1-1 \t", Selection(window, tester));
		ASSERT_TRUE(window->Lock());
		EXPECT_TRUE(other->IsFocus());
		window->Unlock();
	});
}

TEST(TextViewTest, ReadOnlyViewsRefuseTypingAndKeepSelecting)
{
	WithTextWindow("fixed", [](TextWindow* window, WindowTester& tester) {
		ASSERT_TRUE(window->Lock());
		window->view->MakeEditable(false);
		window->Unlock();
		tester.TypeText("x");
		tester.TypeKey(B_BACKSPACE);
		tester.TypeKey(B_ENTER);
		tester.TypeKey(B_RIGHT_ARROW, B_SHIFT_KEY);
		EXPECT_EQ("0-1 fixed", Selection(window, tester));
		ASSERT_TRUE(window->Lock());
		window->view->DisallowChar('x');
		window->view->MakeEditable(true);
		window->Unlock();
		int32 beeps = WindowTester::CountBeeps();
		tester.TypeText("x");
		EXPECT_EQ("0-1 fixed", Selection(window, tester));
		EXPECT_EQ(beeps + 1, WindowTester::CountBeeps());
	});
}

TEST(TextViewTest, ClicksPlaceTheCaretAndDragsDoubleAndTripleClicksSelect)
{
	WithTextWindow("alpha beta gamma\nsecond line", [](TextWindow* window,
			WindowTester& tester) {
		tester.Click(PointIn(window, 7));
		EXPECT_EQ("7-7", Selection(window, tester).substr(0, 3));
		// A drag selects from the press to the release, in either direction.
		tester.MouseDown(PointIn(window, 13));
		tester.MouseMove(PointIn(window, 8), B_PRIMARY_MOUSE_BUTTON);
		tester.MouseMove(PointIn(window, 3), B_PRIMARY_MOUSE_BUTTON);
		tester.MouseUp(PointIn(window, 3));
		EXPECT_EQ("3-13", Selection(window, tester).substr(0, 4));
		// Shift-click moves the free end, the press point stays.
		tester.Click(PointIn(window, 15), B_SHIFT_KEY);
		EXPECT_EQ("13-15", Selection(window, tester).substr(0, 5));

		BPoint word = PointIn(window, 7);
		tester.Click(word);
		tester.Click(word);
		EXPECT_EQ("6-10", Selection(window, tester).substr(0, 4));
		tester.Click(word);
		EXPECT_EQ("0-17", Selection(window, tester).substr(0, 4)) << "a line with its feed";
	});
}

TEST(TextViewTest, ClipboardCommandsCutCopyAndPasteText)
{
	WithTextWindow("copy me", [](TextWindow* window, WindowTester& tester) {
		ASSERT_TRUE(window->Lock());
		window->view->Select(0, 4);
		window->Unlock();
		tester.TypeKey('c', B_COMMAND_KEY);
		tester.TypeKey(B_END);
		tester.TypeKey('v', B_COMMAND_KEY);
		EXPECT_EQ("11-11 copy mecopy", Selection(window, tester));

		ASSERT_TRUE(window->Lock());
		window->view->Select(4, 7);
		window->view->Cut(be_clipboard);
		EXPECT_STREQ("copycopy", window->view->Text());
		EXPECT_TRUE(window->view->AcceptsPaste(be_clipboard));
		ASSERT_TRUE(be_clipboard->Lock());
		const void* data;
		ssize_t size;
		ASSERT_EQ(B_OK, be_clipboard->Data()->FindData("text/plain", B_MIME_TYPE, &data,
			&size));
		EXPECT_EQ(" me", std::string(static_cast<const char*>(data), size_t(size)));
		be_clipboard->Unlock();
		window->view->Select(0, 0);
		window->view->Paste(be_clipboard);
		EXPECT_STREQ(" mecopycopy", window->view->Text());
		window->view->MakeEditable(false);
		EXPECT_FALSE(window->view->AcceptsPaste(be_clipboard));
		window->Unlock();
	});
}

namespace {

filter_result
RefuseDigits(BMessage* message, BHandler**, BMessageFilter*)
{
	const char* bytes;
	if (message->FindString("bytes", &bytes) == B_OK && isdigit(uchar(bytes[0])))
		return B_SKIP_MESSAGE;
	return B_DISPATCH_MESSAGE;
}

}	// namespace

TEST(TextViewTest, KeysPassTheFocusViewsFiltersAndComposedTextIsTyped)
{
	WithTextWindow("", [](TextWindow* window, WindowTester& tester) {
		ASSERT_TRUE(window->Lock());
		window->view->AddFilter(new BMessageFilter(B_KEY_DOWN, RefuseDigits));
		window->Unlock();
		tester.TypeText("a1b2");
		tester.TypeComposed("\xe6\x97\xa5\xe6\x9c\xac");
		EXPECT_EQ("8-8 ab\xe6\x97\xa5\xe6\x9c\xac", Selection(window, tester));
		tester.TypeKey(B_LEFT_ARROW);
		EXPECT_EQ("5-5 ab\xe6\x97\xa5\xe6\x9c\xac", Selection(window, tester));

		// Commands for the window's preferred handler reach the focus view.
		BMessenger(nullptr, window).SendMessage(B_SELECT_ALL);
		EXPECT_EQ("0-8 ab\xe6\x97\xa5\xe6\x9c\xac", Selection(window, tester));
	});
}

TEST(TextViewTest, A64KiBTextLaysOutAndEditsQuickly)
{
	BTextView view(BRect(0, 0, 399, 299), "big", BRect(0, 0, 399, 299), B_FOLLOW_NONE);
	std::string text;
	while (text.size() < 65536)
		text += "0123456789abcdef 0123456789abcdef 0123456789abcdef 0123456789abcdef\n";
	auto start = std::chrono::steady_clock::now();
	view.SetText(text.c_str());
	for (int32 i = 0; i < 200; i++)
		view.Insert(30000 + i, "x", 1);
	view.Delete(100, 40000);
	auto elapsed = std::chrono::steady_clock::now() - start;
	EXPECT_LT(elapsed, std::chrono::seconds(2));
	EXPECT_EQ(int32(text.size()) + 200 - 39900, view.TextLength());
	// Lines stay in step with a layout made from scratch.
	int32 lines = view.CountLines();
	view.SetWordWrap(false);
	view.SetWordWrap(true);
	EXPECT_EQ(lines, view.CountLines());
}

TEST(TextViewTest, CommandArrowsStepOverWordsAndEditsStopAtTheEnds)
{
	WithTextWindow("one, two_2 three", [](TextWindow* window, WindowTester& tester) {
		tester.TypeKey(B_RIGHT_ARROW, B_COMMAND_KEY);
		EXPECT_EQ("3-3", Selection(window, tester).substr(0, 3));
		tester.TypeKey(B_RIGHT_ARROW, B_COMMAND_KEY);
		EXPECT_EQ("10-10", Selection(window, tester).substr(0, 5));
		tester.TypeKey(B_RIGHT_ARROW, B_COMMAND_KEY | B_SHIFT_KEY);
		EXPECT_EQ("10-16", Selection(window, tester).substr(0, 5));
		tester.TypeKey(B_LEFT_ARROW, B_COMMAND_KEY);
		EXPECT_EQ("10-10", Selection(window, tester).substr(0, 5)) << "first to the selection's start";
		tester.TypeKey(B_LEFT_ARROW, B_COMMAND_KEY);
		EXPECT_EQ("5-5", Selection(window, tester).substr(0, 3));

		// Nothing to delete before the start or after the end.
		tester.TypeKey(B_HOME);
		tester.TypeKey(B_BACKSPACE);
		tester.TypeKey(B_END);
		tester.TypeKey(B_DELETE);
		EXPECT_EQ("16-16 one, two_2 three", Selection(window, tester));
	});
}
