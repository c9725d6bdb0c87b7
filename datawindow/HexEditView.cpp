#include "HexEditView.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>

#include <Clipboard.h>
#include <ScrollBar.h>
#include <StringView.h>
#include <Window.h>

#include "AsciiView.h"
#include "AttrTypes.h"
#include "DataWindow.h"
#include "GenericAlerts.h"
#include "HexText.h"
#include "NewScroller.h"

namespace {

const float kMargin = 4;
// What pvTargetOf() answers for a key that does not move the caret.
const int32 kNoMove = INT32_MIN;
const rgb_color kOffsetColor = {120, 120, 120, 255};

int32
HexDigit(char c)
{
	if (c >= '0' && c <= '9')
		return c - '0';
	c = char(c | 0x20);
	if (c >= 'a' && c <= 'f')
		return c - 'a' + 10;
	return -1;
}

// Hex digits in pairs, blanks and line breaks between them allowed; false
// for anything else.
bool
ParseHex(const char* text, ssize_t length, std::vector<uchar>& out)
{
	int32 pending = -1;
	for (ssize_t i = 0; i < length; i++) {
		if (strchr(" \t\r\n", text[i]) != nullptr && text[i] != '\0') {
			if (pending >= 0)
				return false;
			continue;
		}
		int32 digit = HexDigit(text[i]);
		if (digit < 0)
			return false;
		if (pending < 0) {
			pending = digit;
		} else {
			out.push_back(uchar(pending << 4 | digit));
			pending = -1;
		}
	}
	return pending < 0;
}

}	// namespace

SpecialTextView*
MakeTextView(BRect frame, const char* name, bool hex)
{
	BRect textRect(0, 0, frame.Width(), frame.Height());
	uint32 flags = B_WILL_DRAW | B_NAVIGABLE;
	SpecialTextView* view;
	if (hex)
		view = new HexText(frame, name, textRect, B_FOLLOW_NONE, flags);
	else
		view = new AsciiView(frame, name, textRect, B_FOLLOW_NONE, flags);
	BFont font(be_fixed_font);
	font.SetSize(12);
	view->SetFont(&font);
	return view;
}

HexEditView::HexEditView(BRect frame, const char* name, uint32 resizingMode, uint32 flags)
	: BView(frame, name, resizingMode, flags | B_WILL_DRAW | B_FRAME_EVENTS)
{
}

// #pragma mark - layout

void
HexEditView::AttachedToWindow()
{
	BView::AttachedToWindow();
	if (fHex == nullptr) {
		fHex = MakeTextView(BRect(0, 0, 10, 10), "HexText", true);
		fAscii = MakeTextView(BRect(0, 0, 10, 10), "AsciiView", false);
		AddChild(fHex);
		AddChild(fAscii);
		fActive = fHex;
	}
	// The offsets are drawn like the columns.
	BFont font;
	fHex->GetFont(&font);
	SetFont(&font);
	fCellWidth = fHex->CellWidth();
	fLineHeight = fHex->LineHeight();
	fAscent = fHex->Ascent();
	pvLayoutColumns();
	pvFitHeight();
}

int32
HexEditView::pvOffsetDigits() const
{
	int32 digits = 4;
	while (digits < 8 && (uint32(Size()) >> (digits * 4)) != 0)
		digits++;
	return digits;
}

void
HexEditView::pvLayoutColumns()
{
	if (fHex == nullptr)
		return;
	float height = CountLines() * fLineHeight;
	float left = kMargin + (pvOffsetDigits() + 2) * fCellWidth;
	fHex->MoveTo(left, kMargin);
	fHex->ResizeTo(fHex->LineWidth(), height);
	left += fHex->LineWidth() + 2 * fCellWidth;
	fAscii->MoveTo(left, kMargin);
	fAscii->ResizeTo(fAscii->LineWidth(), height);
}

float
HexEditView::pvViewportHeight() const
{
	BScrollView* scroller = dynamic_cast<BScrollView*>(Parent());
	if (scroller != nullptr && scroller->ScrollBar(B_VERTICAL) != nullptr)
		return scroller->ScrollBar(B_VERTICAL)->Frame().Height();
	return Bounds().Height();
}

float
HexEditView::pvMaxScroll() const
{
	float min = 0, max = 0;
	if (BScrollBar* bar = ScrollBar(B_VERTICAL))
		bar->GetRange(&min, &max);
	return max;
}

void
HexEditView::pvFitHeight()
{
	float height = std::max(CountLines() * fLineHeight + 2 * kMargin, pvViewportHeight());
	if (Bounds().Height() != height)
		ResizeTo(Bounds().Width(), height);
	pvLayoutColumns();
	if (NewScroller* scroller = dynamic_cast<NewScroller*>(Parent()))
		scroller->Sync();
	// The arrows and the wheel scroll by lines, the track by pages.
	if (BScrollBar* bar = ScrollBar(B_VERTICAL))
		bar->SetSteps(fLineHeight, pvPageLines() * fLineHeight);
}

void
HexEditView::FrameResized(float, float)
{
	pvFitHeight();
}

void
HexEditView::Draw(BRect updateRect)
{
	int32 first = std::max(int32((updateRect.top - kMargin) / fLineHeight), int32(0));
	int32 last = std::min(int32((updateRect.bottom - kMargin) / fLineHeight),
		(Size() - 1) / kBytesPerLine);
	int32 digits = pvOffsetDigits();
	SetHighColor(kOffsetColor);
	char text[16];
	for (int32 line = first; line <= last; line++) {
		int32 length = snprintf(text, sizeof(text), "%0*X", int(digits),
			unsigned(line * kBytesPerLine));
		DrawString(text, length, BPoint(kMargin, kMargin + line * fLineHeight + fAscent));
	}
}

void
HexEditView::pvScrollToCaret()
{
	float top = kMargin + fCaret / 2 / kBytesPerLine * fLineHeight;
	float bottom = top + fLineHeight;
	float visible = Bounds().top;
	float height = pvViewportHeight();
	float target = visible;
	if (top - kMargin < visible)
		target = top - kMargin;
	else if (bottom + kMargin > visible + height)
		target = bottom + kMargin - height;
	target = std::clamp(target, 0.0f, std::max(pvMaxScroll(), 0.0f));
	if (target != visible)
		ScrollTo(0, target);
}

// #pragma mark - content

void
HexEditView::InsertData(const char* data, int32 size, int32 offset)
{
	bool whole = fKeeping && fData.empty();
	fKeeping = false;
	offset = std::clamp(offset, int32(0), Size());
	if (whole && pvIsEarlierReread(data, size))
		fData.swap(fReplaced);
	else if (data != nullptr && size > 0)
		fData.insert(fData.begin() + offset, data, data + size);
	fReplaced.clear();
	pvRememberAttribute();
	pvFitHeight();
	if (whole) {
		fAnchor = std::min(fKept.anchor, Size());
		fSelStart = std::min(fKept.selStart, Size());
		fSelEnd = std::min(fKept.selEnd, Size());
		fCaret = std::min(fKept.caret, 2 * Size());
		ScrollTo(0, std::clamp(fKept.scroll, 0.0f, std::max(pvMaxScroll(), 0.0f)));
	} else if (fCaret / 2 >= offset && size > 0) {
		fCaret += 2 * size;
		fAnchor += size;
	}
	Invalidate();
}

// Whether a value that replaces the bytes shown is the re-read of a write
// that a later write has overtaken: then the bytes shown stay, lest the
// later edit be undone on screen and by the next write.
bool
HexEditView::pvIsEarlierReread(const char* data, int32 size)
{
	bool same = size == int32(fReplaced.size())
		&& (size <= 0 || memcmp(data, fReplaced.data(), size_t(size)) == 0);
	bool earlier = fUnconfirmed > 1 && !same;
	fUnconfirmed = earlier ? fUnconfirmed - 1 : 0;
	return earlier;
}

void
HexEditView::SelectAll()
{
	fKept = Place{fCaret, fAnchor, fSelStart, fSelEnd, Bounds().top};
	fKeeping = true;
	fReplaced = fData;
	Select(0, Size());
}

void
HexEditView::Clear()
{
	fData.erase(fData.begin() + fSelStart, fData.begin() + fSelEnd);
	fCaret = 2 * fSelStart;
	fAnchor = fSelEnd = fSelStart;
	pvFitHeight();
	Invalidate();
}

void
HexEditView::GetSelection(int32* start, int32* end) const
{
	*start = fSelStart;
	*end = fSelEnd;
}

void
HexEditView::Select(int32 start, int32 end)
{
	fSelStart = std::clamp(std::min(start, end), int32(0), Size());
	fSelEnd = std::clamp(std::max(start, end), int32(0), Size());
	fAnchor = fSelStart;
	fCaret = 2 * fSelEnd;
	Invalidate();
}

void
HexEditView::pvRememberAttribute()
{
	// While a write waits for its re-read the window has forgotten the value;
	// the attribute stays the one last shown.
	DataWindow* window = dynamic_cast<DataWindow*>(Window());
	if (window == nullptr || window->GetDataType() == 0)
		return;
	snprintf(fName, sizeof(fName), "%s", static_cast<const char*>(window->GetDataName()));
	fType = window->GetDataType();
}

// #pragma mark - mode

void
HexEditView::MakeEditable(bool editable)
{
	fEditable = editable;
	pvShowMode();
	Invalidate();
	if (DataWindow* window = dynamic_cast<DataWindow*>(Window()))
		window->AdjustMenus();
}

void
HexEditView::SetModeLabel(BStringView* label)
{
	fModeLabel = label;
	pvShowMode();
}

void
HexEditView::pvShowMode()
{
	if (fModeLabel == nullptr)
		return;
	fModeLabel->SetText(fEditable ? "Editing: typing overwrites; Return or Escape ends editing"
		: "Read-only: Return or a double-click starts editing");
}

// #pragma mark - caret and selection

void
HexEditView::MakeFocus(bool focus)
{
	if (fActive != nullptr)
		fActive->MakeFocus(focus);
	else
		BView::MakeFocus(focus);
}

void
HexEditView::SetActiveColumn(SpecialTextView* column)
{
	fActive = column;
	if (!column->StepsByNibble())
		fCaret &= ~1;
	Invalidate();
}

void
HexEditView::pvMoveCaret(int32 position, bool extend)
{
	position = std::clamp(position, int32(0), 2 * Size());
	if (extend) {
		int32 byte = position / 2;
		fSelStart = std::min(fAnchor, byte);
		fSelEnd = std::max(fAnchor, byte);
		fCaret = 2 * byte;
	} else {
		fCaret = position;
		fAnchor = fSelStart = fSelEnd = position / 2;
	}
	pvScrollToCaret();
	Invalidate();
}

// The bytes from the anchor's cell to the cell of byte, both included.
void
HexEditView::pvSelectCells(int32 anchor, int32 byte)
{
	fSelStart = std::min(anchor, byte);
	fSelEnd = std::min(std::max(anchor, byte) + 1, Size());
	fCaret = 2 * (byte >= anchor ? fSelEnd : fSelStart);
	pvScrollToCaret();
	Invalidate();
}

void
HexEditView::ColumnClicked(int32 position, int32 clicks, bool extend)
{
	position = std::clamp(position, int32(0), 2 * Size());
	if (extend)
		pvSelectCells(fAnchor, position / 2);
	else
		pvMoveCaret(position, false);
	if (clicks >= 2 && !fEditable)
		MakeEditable(true);
}

void
HexEditView::ColumnDragged(int32 position)
{
	int32 byte = std::clamp(position / 2, int32(0), Size());
	if (byte == fAnchor && fSelStart == fSelEnd)
		return;
	pvSelectCells(fAnchor, byte);
}

int32
HexEditView::pvPageLines() const
{
	return std::max(int32(pvViewportHeight() / fLineHeight) - 1, int32(1));
}

int32
HexEditView::pvTargetOf(uint32 key, bool command, bool extend) const
{
	int32 step = fActive->StepsByNibble() && !extend ? 1 : 2;
	int32 caret = extend ? fCaret & ~1 : fCaret;
	int32 lineStart = fCaret / 2 / kBytesPerLine * kBytesPerLine;
	switch (key) {
		case B_LEFT_ARROW:
			return fSelStart != fSelEnd && !extend ? 2 * fSelStart : caret - step;
		case B_RIGHT_ARROW:
			return fSelStart != fSelEnd && !extend ? 2 * fSelEnd : caret + step;
		case B_UP_ARROW:
			return caret - 2 * kBytesPerLine;
		case B_DOWN_ARROW:
			return caret + 2 * kBytesPerLine;
		case B_PAGE_UP:
			return caret - 2 * kBytesPerLine * pvPageLines();
		case B_PAGE_DOWN:
			return caret + 2 * kBytesPerLine * pvPageLines();
		case B_HOME:
			return command ? 0 : 2 * lineStart;
		case B_END:
			if (command)
				return 2 * Size();
			return 2 * std::min(lineStart + kBytesPerLine - (extend ? 0 : 1), Size());
	}
	return kNoMove;
}

bool
HexEditView::pvNavigate(uint32 key, uint32 modifiers)
{
	bool extend = (modifiers & B_SHIFT_KEY) != 0;
	int32 target = pvTargetOf(key, (modifiers & B_COMMAND_KEY) != 0, extend);
	if (target == kNoMove)
		return false;
	// Moving up from the first line keeps the caret's column; down from the
	// last line goes to the end.
	if (target < 0 && (key == B_UP_ARROW || key == B_PAGE_UP))
		target = (extend ? fCaret & ~1 : fCaret) % (2 * kBytesPerLine);
	if (key == B_PAGE_UP || key == B_PAGE_DOWN) {
		float by = (key == B_PAGE_UP ? -1 : 1) * pvPageLines() * fLineHeight;
		ScrollTo(0, std::clamp(Bounds().top + by, 0.0f, std::max(pvMaxScroll(), 0.0f)));
	}
	pvMoveCaret(target, extend);
	return true;
}

// #pragma mark - keys

void
HexEditView::KeyDown(const char* bytes, int32 numBytes)
{
	if (fActive == nullptr || numBytes <= 0)
		return;
	int32 held = 0;
	if (BMessage* message = Window()->CurrentMessage())
		message->FindInt32("modifiers", &held);
	uint32 key = uchar(bytes[0]);
	if (pvNavigate(key, uint32(held)))
		return;
	switch (key) {
		case B_TAB:
			(fActive == fHex ? fAscii : fHex)->MakeFocus(true);
			return;
		case B_RETURN:
			MakeEditable(!fEditable);
			return;
		case B_ESCAPE:
			MakeEditable(false);
			return;
	}
	if ((held & B_COMMAND_KEY) != 0) {
		if (key == 'a')
			Select(0, Size());
		return;
	}
	if (!fEditable) {
		beep();
		return;
	}
	pvType(bytes, numBytes);
}

void
HexEditView::pvType(const char* bytes, int32 numBytes)
{
	switch (uchar(bytes[0])) {
		case B_BACKSPACE:
			pvBackspace();
			return;
		case B_DELETE:
			pvForwardDelete();
			return;
	}
	if (uchar(bytes[0]) < 0x20) {
		beep();
		return;
	}
	// Typing overwrites from the start of a selection.
	if (fSelStart != fSelEnd)
		pvMoveCaret(2 * fSelStart, false);
	if (fActive == fHex) {
		int32 digit = numBytes == 1 ? HexDigit(bytes[0]) : -1;
		if (digit < 0)
			beep();
		else
			pvTypeNibble(digit);
	} else {
		pvTypeBytes(bytes, numBytes);
	}
}

void
HexEditView::pvTypeNibble(int32 digit)
{
	int32 byte = fCaret / 2;
	uchar value = byte < Size() ? fData[byte] : 0;
	if (fCaret % 2 == 0)
		value = uchar(digit << 4 | (value & 0x0f));
	else
		value = uchar((value & 0xf0) | digit);
	pvReplace(byte, std::min(byte + 1, Size()), &value, 1, fCaret + 1);
}

void
HexEditView::pvTypeBytes(const char* bytes, int32 numBytes)
{
	int32 byte = fCaret / 2;
	pvReplace(byte, std::min(byte + numBytes, Size()), reinterpret_cast<const uchar*>(bytes),
		numBytes, 2 * (byte + numBytes));
}

void
HexEditView::pvBackspace()
{
	if (fSelStart != fSelEnd) {
		pvRemoveSelection();
		return;
	}
	// Halfway through a byte, Backspace takes that byte back.
	int32 byte = fCaret % 2 != 0 ? fCaret / 2 : fCaret / 2 - 1;
	if (byte < 0 || byte >= Size()) {
		beep();
		return;
	}
	pvReplace(byte, byte + 1, nullptr, 0, 2 * byte);
}

void
HexEditView::pvForwardDelete()
{
	if (fSelStart != fSelEnd) {
		pvRemoveSelection();
		return;
	}
	int32 byte = fCaret / 2;
	if (byte >= Size()) {
		beep();
		return;
	}
	pvReplace(byte, byte + 1, nullptr, 0, 2 * byte);
}

// #pragma mark - writing

// Replaces the bytes from..to by count bytes and puts the caret at caret;
// nothing changes when the node refuses the new value.
bool
HexEditView::pvReplace(int32 from, int32 to, const uchar* bytes, int32 count, int32 caret)
{
	std::vector<uchar> value;
	value.reserve(fData.size() - (to - from) + count);
	value.insert(value.end(), fData.begin(), fData.begin() + from);
	value.insert(value.end(), bytes, bytes + count);
	value.insert(value.end(), fData.begin() + to, fData.end());
	if (!pvStore(value))
		return false;
	pvMoveCaret(caret, false);
	return true;
}

bool
HexEditView::pvStore(std::vector<uchar>& bytes)
{
	// A type of fixed size keeps its size.
	long size = long(bytes.size());
	CalculateSize(fType, &size);
	if (size != long(bytes.size())) {
		beep();
		return false;
	}
	if (!pvWrite(bytes))
		return false;
	bool resized = bytes.size() != fData.size();
	fData.swap(bytes);
	if (resized) {
		pvFitHeight();
		pvRefreshHeader();
	}
	Invalidate();
	return true;
}

bool
HexEditView::pvWrite(const std::vector<uchar>& bytes)
{
	DataWindow* window = dynamic_cast<DataWindow*>(Window());
	if (window == nullptr || fType == 0)
		return true;
	// A new attribute gets its name in the string view, where closing adds it.
	if (fName[0] == '\0') {
		FailureAlert("A new attribute needs a name.");
		return false;
	}
	uint32 size = uint32(bytes.size());
	ssize_t written = window->WriteAttribute(fName, fType, bytes.data(), size);
	// An empty value writes no bytes either way; the window forgets its
	// value only after a write that worked.
	if (written == ssize_t(size) && (size > 0 || window->GetDataType() == 0)) {
		fUnconfirmed++;
		return true;
	}
	FailureAlert("The change was not recorded.");
	return false;
}

void
HexEditView::pvRefreshHeader()
{
	BView* hexView = Window() != nullptr ? Window()->FindView("HexView") : nullptr;
	if (hexView == nullptr)
		return;
	BMessage message('RfsH');
	message.AddInt32("type", int32(fType));
	message.AddInt32("size", Size());
	message.AddPointer("name", fName);
	Window()->PostMessage(&message, hexView);
}

// #pragma mark - clipboard

void
HexEditView::MessageReceived(BMessage* message)
{
	switch (message->what) {
		case B_COPY:
			pvCopy();
			return;
		case B_CUT:
		case B_PASTE:
		case 127:
			if (!fEditable) {
				beep();
				return;
			}
			if (message->what == B_CUT)
				pvCopy();
			if (message->what == B_PASTE)
				pvPaste();
			else
				pvRemoveSelection();
			return;
	}
	BView::MessageReceived(message);
}

void
HexEditView::pvCopy()
{
	if (fSelStart == fSelEnd || !be_clipboard->Lock())
		return;
	std::string text;
	if (fActive == fHex) {
		char digits[4];
		for (int32 i = fSelStart; i < fSelEnd; i++) {
			snprintf(digits, sizeof(digits), i > fSelStart ? " %02X" : "%02X", fData[i]);
			text += digits;
		}
	} else {
		text.assign(fData.begin() + fSelStart, fData.begin() + fSelEnd);
	}
	be_clipboard->Clear();
	be_clipboard->Data()->AddData("text/plain", B_MIME_TYPE, text.data(), ssize_t(text.size()));
	be_clipboard->Commit();
	be_clipboard->Unlock();
}

void
HexEditView::pvPaste()
{
	const void* data = nullptr;
	ssize_t length = 0;
	std::vector<uchar> bytes;
	bool found = false;
	if (be_clipboard->Lock()) {
		found = be_clipboard->Data()->FindData("text/plain", B_MIME_TYPE, &data, &length)
			== B_OK;
		if (found && fActive == fHex)
			found = ParseHex(static_cast<const char*>(data), length, bytes);
		else if (found)
			bytes.assign(static_cast<const uchar*>(data),
				static_cast<const uchar*>(data) + length);
		be_clipboard->Unlock();
	}
	if (!found || bytes.empty()) {
		beep();
		return;
	}
	int32 from = fSelStart != fSelEnd ? fSelStart : fCaret / 2;
	int32 to = fSelStart != fSelEnd ? fSelEnd : from;
	pvReplace(from, to, bytes.data(), int32(bytes.size()), 2 * (from + int32(bytes.size())));
}

void
HexEditView::pvRemoveSelection()
{
	if (fSelStart == fSelEnd) {
		beep();
		return;
	}
	pvReplace(fSelStart, fSelEnd, nullptr, 0, 2 * fSelStart);
}
