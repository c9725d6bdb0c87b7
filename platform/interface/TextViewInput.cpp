#include <TextView.h>

#include <algorithm>
#include <cctype>
#include <cstring>

#include <Clipboard.h>
#include <Message.h>
#include <Window.h>

#include "TextLayout.h"

using BPrivate::NextCharacter;
using BPrivate::PreviousCharacter;

// Keys, the mouse, words and the clipboard.

namespace {

enum CharacterClass {
	kWordClass,
	kSpaceClass,
	kOtherClass
};

CharacterClass
ClassOf(char byte)
{
	if (byte == ' ' || byte == '\t')
		return kSpaceClass;
	if (isalnum(uchar(byte)) || byte == '_' || uchar(byte) >= 0x80)
		return kWordClass;
	return kOtherClass;
}

}	// namespace

// #pragma mark - words

void
BTextView::FindWord(int32 offset, int32* outFromOffset, int32* outToOffset)
{
	offset = pvPin(offset);
	if (offset == TextLength() && offset > 0)
		offset = PreviousCharacter(fText, offset);
	int32 from = offset, to = NextCharacter(fText, offset);
	CharacterClass type = offset < TextLength() ? ClassOf(fText[offset]) : kOtherClass;
	if (type != kOtherClass) {
		while (from > 0 && ClassOf(fText[from - 1]) == type)
			from = PreviousCharacter(fText, from);
		while (to < TextLength() && ClassOf(fText[to]) == type)
			to = NextCharacter(fText, to);
	}
	if (outFromOffset != nullptr)
		*outFromOffset = from;
	if (outToOffset != nullptr)
		*outToOffset = to;
}

// #pragma mark - clipboard

void
BTextView::Cut(BClipboard* clipboard)
{
	Copy(clipboard);
	if (fEditable && fSelStart < fSelEnd) {
		DeleteText(fSelStart, fSelEnd);
		Select(fSelStart, fSelStart);
		ScrollToSelection();
	}
}

void
BTextView::Copy(BClipboard* clipboard)
{
	if (clipboard == nullptr || fSelStart == fSelEnd || !clipboard->Lock())
		return;
	clipboard->Clear();
	clipboard->Data()->AddData("text/plain", B_MIME_TYPE, fText.data() + fSelStart,
		fSelEnd - fSelStart);
	clipboard->Commit();
	clipboard->Unlock();
}

void
BTextView::Paste(BClipboard* clipboard)
{
	if (clipboard == nullptr || !fEditable || !clipboard->Lock())
		return;
	const void* data = nullptr;
	ssize_t size = 0;
	std::string text;
	if (clipboard->Data()->FindData("text/plain", B_MIME_TYPE, &data, &size) == B_OK)
		text.assign(static_cast<const char*>(data), size_t(size));
	clipboard->Unlock();
	if (!text.empty())
		pvReplaceSelection(text.data(), static_cast<int32>(text.size()));
}

void
BTextView::Clear()
{
	if (fSelStart == fSelEnd)
		return;
	DeleteText(fSelStart, fSelEnd);
	Select(fSelStart, fSelStart);
}

bool
BTextView::AcceptsPaste(BClipboard* clipboard)
{
	if (clipboard == nullptr || !fEditable || !clipboard->Lock())
		return false;
	bool text = clipboard->Data()->HasData("text/plain", B_MIME_TYPE);
	clipboard->Unlock();
	return text;
}

// #pragma mark - input

uint32
BTextView::pvCurrentModifiers() const
{
	int32 held = int32(modifiers());
	if (Window() != nullptr) {
		if (BMessage* message = Window()->CurrentMessage())
			message->FindInt32("modifiers", &held);
	}
	return uint32(held);
}

void
BTextView::KeyDown(const char* bytes, int32 numBytes)
{
	uint32 held = pvCurrentModifiers();
	uint32 key = uchar(bytes[0]);
	bool movement = key == B_LEFT_ARROW || key == B_RIGHT_ARROW || key == B_UP_ARROW
		|| key == B_DOWN_ARROW || key == B_HOME || key == B_END || key == B_PAGE_UP
		|| key == B_PAGE_DOWN;
	if (movement) {
		if (fSelectable || fEditable)
			pvKeyMove(key, held);
		return;
	}
	if ((held & B_COMMAND_KEY) != 0) {
		if (!pvCommandKey(key))
			BView::KeyDown(bytes, numBytes);
		return;
	}
	switch (key) {
		case B_BACKSPACE:
			if (fEditable)
				pvBackspace();
			break;
		case B_DELETE:
			if (fEditable)
				pvForwardDelete();
			break;
		case B_TAB:
			if (fEditable && (Flags() & B_NAVIGABLE) == 0)
				pvTypeCharacters(bytes, 1);
			else
				BView::KeyDown(bytes, numBytes);
			break;
		case B_ENTER:
			if (fEditable)
				pvNewLine();
			else
				BView::KeyDown(bytes, numBytes);
			break;
		default:
			if (fEditable && key >= ' ' && key != B_DELETE)
				pvTypeCharacters(bytes, numBytes);
			else
				BView::KeyDown(bytes, numBytes);
			break;
	}
}

void
BTextView::pvTypeCharacters(const char* bytes, int32 numBytes)
{
	std::string typed(bytes, strnlen(bytes, size_t(numBytes)));
	for (int32 offset = 0; offset < int32(typed.size()); offset = NextCharacter(typed, offset)) {
		uint32 code = uchar(typed[offset]);
		if ((fDisallowed[code / 32] & (1u << (code % 32))) != 0) {
			beep();
			return;
		}
	}
	pvReplaceSelection(typed.data(), static_cast<int32>(typed.size()));
}

void
BTextView::pvNewLine()
{
	// With autoindent the new line starts with the spaces and tabs of this one.
	std::string line = "\n";
	if (fAutoindent) {
		int32 start = fSelStart;
		while (start > 0 && fText[start - 1] != '\n')
			start--;
		for (int32 i = start; i < fSelStart && ClassOf(fText[i]) == kSpaceClass; i++)
			line += fText[i];
	}
	pvTypeCharacters(line.data(), static_cast<int32>(line.size()));
}

bool
BTextView::pvCommandKey(uint32 key)
{
	switch (key) {
		case 'x':
			Cut(be_clipboard);
			return true;
		case 'c':
			Copy(be_clipboard);
			return true;
		case 'v':
			Paste(be_clipboard);
			return true;
		case 'a':
			if (fSelectable)
				SelectAll();
			return true;
		default:
			return false;
	}
}

void
BTextView::pvBackspace()
{
	if (fSelStart == fSelEnd && fSelStart > 0)
		DeleteText(PreviousCharacter(fText, fSelStart), fSelStart);
	else
		DeleteText(fSelStart, fSelEnd);
	Select(fSelStart, fSelStart);
	ScrollToSelection();
}

void
BTextView::pvForwardDelete()
{
	if (fSelStart == fSelEnd)
		DeleteText(fSelStart, NextCharacter(fText, fSelStart));
	else
		DeleteText(fSelStart, fSelEnd);
	Select(fSelStart, fSelStart);
	ScrollToSelection();
}

int32
BTextView::pvWordBoundary(int32 offset, bool forward) const
{
	auto isWord = [this](int32 at) { return ClassOf(fText[at]) == kWordClass; };
	if (forward) {
		while (offset < TextLength() && !isWord(offset))
			offset = NextCharacter(fText, offset);
		while (offset < TextLength() && isWord(offset))
			offset = NextCharacter(fText, offset);
		return offset;
	}
	while (offset > 0 && !isWord(PreviousCharacter(fText, offset)))
		offset = PreviousCharacter(fText, offset);
	while (offset > 0 && isWord(PreviousCharacter(fText, offset)))
		offset = PreviousCharacter(fText, offset);
	return offset;
}

int32
BTextView::pvVerticalTarget(int32 offset, int32 lines)
{
	BRect caret = pvCaretFrame(offset);
	if (fCaretX < 0)
		fCaretX = caret.left;
	int32 line = fLayout->LineOf(offset) + lines;
	if (line < 0)
		return 0;
	if (line >= CountLines())
		return TextLength();
	BRect start = ByteCell(fLayout->LineAt(line).offset);
	return OffsetAt(BPoint(fCaretX, start.top));
}

void
BTextView::pvMoveCaret(int32 offset, bool extend)
{
	if (!extend) {
		Select(offset, offset);
		return;
	}
	int32 anchor = fAnchor;
	Select(std::min(anchor, offset), std::max(anchor, offset));
	fAnchor = anchor;
}

void
BTextView::pvKeyMove(uint32 key, uint32 held)
{
	bool extend = (held & B_SHIFT_KEY) != 0;
	bool byWord = (held & B_COMMAND_KEY) != 0;
	bool backwards = key == B_LEFT_ARROW || key == B_UP_ARROW || key == B_HOME
		|| key == B_PAGE_UP;
	// Extending moves the free end; otherwise moves start from the side moved to.
	int32 from = extend ? (fAnchor == fSelStart ? fSelEnd : fSelStart)
		: (backwards ? fSelStart : fSelEnd);
	bool collapse = !extend && fSelStart != fSelEnd;
	float caretX = fCaretX;
	int32 page = std::max(int32(Bounds().Height() / std::max(LineHeight(0), 1.0f)),
		int32(1));
	int32 target = from;
	switch (key) {
		case B_LEFT_ARROW:
			target = collapse ? from : byWord ? pvWordBoundary(from, false)
				: PreviousCharacter(fText, from);
			break;
		case B_RIGHT_ARROW:
			target = collapse ? from : byWord ? pvWordBoundary(from, true)
				: NextCharacter(fText, from);
			break;
		case B_UP_ARROW:
		case B_DOWN_ARROW:
			target = pvVerticalTarget(from, backwards ? -1 : 1);
			caretX = fCaretX;
			break;
		case B_PAGE_UP:
		case B_PAGE_DOWN:
			target = pvVerticalTarget(from, backwards ? -page : page);
			caretX = fCaretX;
			break;
		case B_HOME:
			target = byWord ? 0 : fLayout->LineAt(fLayout->LineOf(from)).offset;
			break;
		case B_END:
			target = byWord ? TextLength() : pvLineEndOffset(from);
			break;
	}
	pvMoveCaret(target, extend);
	bool vertical = key == B_UP_ARROW || key == B_DOWN_ARROW || key == B_PAGE_UP
		|| key == B_PAGE_DOWN;
	fCaretX = vertical ? caretX : -1;
	ScrollToOffset(target);
}

// The end of the line of offset: before its line feed, at the end of the text,
// or, on a line that wraps on, where the wrapped line ends on screen.
int32
BTextView::pvLineEndOffset(int32 offset)
{
	int32 line = fLayout->LineOf(offset);
	int32 end = fLayout->LineEnd(line);
	if (end >= TextLength())
		return TextLength();
	if (end > 0 && fText[end - 1] == '\n')
		return end - 1;
	return OffsetAt(BPoint(fTextRect.right + 1, ByteCell(offset).top));
}

void
BTextView::pvUnitAt(int32 offset, int32 clicks, int32* outFrom, int32* outTo)
{
	*outFrom = *outTo = offset;
	if (clicks == 2)
		FindWord(offset, outFrom, outTo);
	else if (clicks == 3) {
		int32 line = fLayout->LineOf(offset);
		*outFrom = fLayout->LineAt(line).offset;
		*outTo = fLayout->LineEnd(line);
	}
}

void
BTextView::MouseDown(BPoint where)
{
	if (!fSelectable)
		return;
	if (!IsFocus())
		MakeFocus(true);
	int32 held = 0, clicks = 1;
	if (BMessage* message = Window()->CurrentMessage()) {
		message->FindInt32("modifiers", &held);
		message->FindInt32("clicks", &clicks);
	}
	fClicks = (std::max(clicks, int32(1)) - 1) % 3 + 1;
	fCaretX = -1;
	if ((held & B_SHIFT_KEY) != 0 && fClicks == 1) {
		// Extends the selection from its fixed end.
		fTrackStart = fTrackEnd = fAnchor;
	} else {
		pvUnitAt(OffsetAt(where), fClicks, &fTrackStart, &fTrackEnd);
	}
	pvTrackTo(where);
	fTracking = true;
	SetMouseEventMask(B_POINTER_EVENTS);
}

void
BTextView::pvTrackTo(BPoint where)
{
	int32 offset = OffsetAt(where);
	int32 from, to;
	pvUnitAt(offset, fClicks, &from, &to);
	bool before = from < fTrackStart;
	Select(std::min(from, fTrackStart), std::max(to, fTrackEnd));
	fAnchor = before ? fTrackEnd : fTrackStart;
	ScrollToOffset(offset);
}

void
BTextView::MouseMoved(BPoint where, uint32, const BMessage*)
{
	if (fTracking)
		pvTrackTo(where);
}

void
BTextView::MouseUp(BPoint)
{
	fTracking = false;
}

void
BTextView::MessageReceived(BMessage* message)
{
	switch (message->what) {
		case B_CUT:
			Cut(be_clipboard);
			break;
		case B_COPY:
			Copy(be_clipboard);
			break;
		case B_PASTE:
			Paste(be_clipboard);
			break;
		case B_SELECT_ALL:
			if (fSelectable)
				SelectAll();
			break;
		default:
			BView::MessageReceived(message);
			break;
	}
}
