#include <TextView.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <new>

#include <Message.h>
#include <Region.h>
#include <ScrollBar.h>
#include <ScrollView.h>
#include <Window.h>

#include "StyleRuns.h"
#include "TextLayout.h"

using BPrivate::CharacterStart;
using BPrivate::NextCharacter;
using BPrivate::PreviousCharacter;
using BPrivate::StyleRuns;
using BPrivate::TextLayout;
using BPrivate::TextStyle;

BTextView::BTextView(BRect frame, const char* name, BRect textRect, uint32 resizingMode,
	uint32 flags)
	: BView(frame, name, resizingMode, flags | B_FRAME_EVENTS | B_PULSE_NEEDED)
{
	pvInit(textRect, nullptr, nullptr);
}

BTextView::BTextView(BRect frame, const char* name, BRect textRect, const BFont* initialFont,
	const rgb_color* initialColor, uint32 resizingMode, uint32 flags)
	: BView(frame, name, resizingMode, flags | B_FRAME_EVENTS | B_PULSE_NEEDED)
{
	pvInit(textRect, initialFont, initialColor);
}

BTextView::~BTextView() = default;

void
BTextView::pvInit(BRect textRect, const BFont* font, const rgb_color* color)
{
	fTextRect = textRect;
	BFont initial = font != nullptr ? *font : *be_plain_font;
	BView::SetFont(&initial);
	TextStyle style{initial, color != nullptr ? *color : ui_color(B_DOCUMENT_TEXT_COLOR)};
	fStyles = std::make_unique<StyleRuns>(style);
	fLayout = std::make_unique<TextLayout>(fText, *fStyles);
	SetViewColor(ui_color(B_DOCUMENT_BACKGROUND_COLOR));
	SetLowColor(ViewColor());
	pvLayout();
}

// #pragma mark - hooks

void
BTextView::AttachedToWindow()
{
	BView::AttachedToWindow();
	pvUpdateScrollBars();
}

void
BTextView::DetachedFromWindow()
{
	fTracking = false;
	BView::DetachedFromWindow();
}

void
BTextView::FrameResized(float, float)
{
	pvUpdateScrollBars();
}

void
BTextView::MakeFocus(bool focus)
{
	// Losing the focus is told after the window moved it on.
	if (focus && IsFocus())
		return;
	BView::MakeFocus(focus);
	fCaretVisible = focus;
	pvInvalidateSelection();
	if (BScrollView* scrollView = dynamic_cast<BScrollView*>(Parent()))
		scrollView->SetBorderHighlighted(focus);
}

void
BTextView::WindowActivated(bool active)
{
	fCaretVisible = active;
	pvInvalidateSelection();
}

void
BTextView::Pulse()
{
	// A drag held outside the view goes on scrolling the selection along.
	if (fTracking) {
		BPoint where;
		uint32 buttons;
		GetMouse(&where, &buttons, false);
		if (buttons != 0 && !Bounds().Contains(where))
			pvTrackTo(where);
	}
	// The caret blinks while the view takes typing.
	if (!IsActiveTextView() || !fEditable || fSelStart != fSelEnd)
		return;
	fCaretVisible = !fCaretVisible;
	Invalidate(pvCaretFrame(fSelEnd));
}

void
BTextView::SetFlags(uint32 flags)
{
	BView::SetFlags(flags | B_FRAME_EVENTS | B_PULSE_NEEDED);
}

void
BTextView::SetFont(const BFont* font, uint32 mask)
{
	BView::SetFont(font, mask);
	if (!fStylable)
		SetFontAndColor(font, mask);
}

void
BTextView::GetPreferredSize(float* width, float* height)
{
	float insetX = fTextRect.left;
	float insetY = fTextRect.top;
	if (width != nullptr) {
		*width = fWordWrap ? Bounds().Width()
			: std::ceil(fLayout->MaxWidth()) + 2 * insetX;
	}
	if (height != nullptr)
		*height = std::ceil(fLayout->Height()) + 2 * insetY - 1;
}

// #pragma mark - text

void
BTextView::SetText(const char* text, const text_run_array* runs)
{
	SetText(text, text != nullptr ? static_cast<int32>(strlen(text)) : 0, runs);
}

void
BTextView::SetText(const char* text, int32 length, const text_run_array* runs)
{
	if (TextLength() > 0)
		DeleteText(0, TextLength());
	if (text != nullptr && length > 0)
		InsertText(text, length, 0, runs);
	Select(0, 0);
	ScrollToOffset(0);
}

void
BTextView::Insert(const char* text, const text_run_array* runs)
{
	Insert(text, text != nullptr ? static_cast<int32>(strlen(text)) : 0, runs);
}

void
BTextView::Insert(const char* text, int32 length, const text_run_array* runs)
{
	Insert(fSelStart, text, length, runs);
}

void
BTextView::Insert(int32 offset, const char* text, int32 length, const text_run_array* runs)
{
	if (text != nullptr && length > 0)
		InsertText(text, length, pvPin(offset), runs);
}

void
BTextView::Delete()
{
	Delete(fSelStart, fSelEnd);
}

void
BTextView::Delete(int32 startOffset, int32 endOffset)
{
	startOffset = pvPin(startOffset);
	endOffset = pvPin(endOffset);
	if (startOffset < endOffset)
		DeleteText(startOffset, endOffset);
}

const char*
BTextView::Text() const
{
	return fText.c_str();
}

int32
BTextView::TextLength() const
{
	return static_cast<int32>(fText.size());
}

void
BTextView::GetText(int32 offset, int32 length, char* buffer) const
{
	if (buffer == nullptr)
		return;
	offset = std::clamp(offset, int32(0), TextLength());
	length = std::clamp(length, int32(0), TextLength() - offset);
	memcpy(buffer, fText.data() + offset, size_t(length));
	buffer[length] = '\0';
}

uchar
BTextView::ByteAt(int32 offset) const
{
	if (offset < 0 || offset >= TextLength())
		return 0;
	return uchar(fText[offset]);
}

int32
BTextView::pvPin(int32 offset) const
{
	return CharacterStart(fText, offset);
}

int32
BTextView::pvFitToMax(const char* text, int32 length) const
{
	int32 room = std::max(fMaxBytes - TextLength(), int32(0));
	if (length <= room)
		return length;
	// Cut before the character that would not fit whole.
	std::string head(text, size_t(room + 1));
	return CharacterStart(head, room);
}

void
BTextView::InsertText(const char* text, int32 length, int32 offset, const text_run_array* runs)
{
	if (text == nullptr || length <= 0)
		return;
	length = pvFitToMax(text, static_cast<int32>(strnlen(text, size_t(length))));
	if (length <= 0)
		return;
	offset = pvPin(offset);
	fText.insert(size_t(offset), text, size_t(length));
	const TextStyle* style = fPendingStyle != nullptr && fPendingOffset == offset
		? fPendingStyle.get() : nullptr;
	fStyles->Insert(offset, length, fStylable ? style : nullptr);
	if (runs != nullptr)
		SetRunArray(offset, offset + length, runs);
	// What lies at or after the new text moves with it.
	for (int32* mark : {&fSelStart, &fSelEnd, &fAnchor}) {
		if (*mark >= offset)
			*mark += length;
	}
	pvTextChanged(offset, 0, length);
}

void
BTextView::DeleteText(int32 fromOffset, int32 toOffset)
{
	fromOffset = pvPin(fromOffset);
	toOffset = pvPin(toOffset);
	if (fromOffset >= toOffset)
		return;
	fText.erase(size_t(fromOffset), size_t(toOffset - fromOffset));
	fStyles->Remove(fromOffset, toOffset, TextLength());
	for (int32* mark : {&fSelStart, &fSelEnd, &fAnchor}) {
		if (*mark >= toOffset)
			*mark -= toOffset - fromOffset;
		else if (*mark > fromOffset)
			*mark = fromOffset;
	}
	pvTextChanged(fromOffset, toOffset - fromOffset, 0);
}

void
BTextView::pvReplaceSelection(const char* text, int32 length)
{
	int32 start = fSelStart;
	if (fSelEnd > start)
		DeleteText(start, fSelEnd);
	if (pvFitToMax(text, length) < length)
		beep();
	InsertText(text, length, start, nullptr);
	Select(fSelEnd, fSelEnd);
	ScrollToSelection();
}

// #pragma mark - selection

void
BTextView::Select(int32 startOffset, int32 endOffset)
{
	startOffset = pvPin(startOffset);
	endOffset = pvPin(endOffset);
	if (startOffset > endOffset)
		std::swap(startOffset, endOffset);
	if (startOffset != fSelStart || endOffset != fSelEnd) {
		pvInvalidateSelection();
		fSelStart = startOffset;
		fSelEnd = endOffset;
		fPendingStyle.reset();
		fCaretVisible = true;
		pvInvalidateSelection();
	}
	fAnchor = startOffset;
}

void
BTextView::SelectAll()
{
	Select(0, TextLength());
}

void
BTextView::GetSelection(int32* outStart, int32* outEnd) const
{
	if (outStart != nullptr)
		*outStart = fSelStart;
	if (outEnd != nullptr)
		*outEnd = fSelEnd;
}

// #pragma mark - styles

TextStyle
BTextView::pvApplyFont(const TextStyle& style, const BFont* font, uint32 mode,
	const rgb_color* color)
{
	// The view's own font setter knows how to apply part of a font.
	TextStyle result = style;
	if (font != nullptr) {
		PushState();
		BView::SetFont(&style.font);
		BView::SetFont(font, mode);
		GetFont(&result.font);
		PopState();
	}
	if (color != nullptr)
		result.color = *color;
	return result;
}

void
BTextView::pvChangeStyles(int32 from, int32 to, const BFont* font, uint32 mode,
	const rgb_color* color)
{
	if (!fStylable) {
		fStyles->Reset(pvApplyFont(fStyles->StyleAt(0), font, mode, color));
		pvLayout();
		return;
	}
	fStyles->Change(from, to, [&](const TextStyle& style) {
		return pvApplyFont(style, font, mode, color);
	});
	pvTextChanged(from, to - from, to - from);
}

void
BTextView::SetFontAndColor(const BFont* font, uint32 mode, const rgb_color* color)
{
	if (fStylable && fSelStart == fSelEnd) {
		// Typing at the caret takes the style.
		TextStyle next = fPendingStyle != nullptr ? *fPendingStyle
			: fStyles->StyleAt(fSelStart > 0 ? PreviousCharacter(fText, fSelStart) : 0);
		fPendingStyle = std::make_unique<TextStyle>(pvApplyFont(next, font, mode, color));
		fPendingOffset = fSelStart;
		return;
	}
	pvChangeStyles(fSelStart, fSelEnd, font, mode, color);
}

void
BTextView::SetFontAndColor(int32 startOffset, int32 endOffset, const BFont* font,
	uint32 mode, const rgb_color* color)
{
	startOffset = pvPin(startOffset);
	endOffset = pvPin(endOffset);
	if (startOffset < endOffset || !fStylable)
		pvChangeStyles(startOffset, endOffset, font, mode, color);
}

void
BTextView::GetFontAndColor(int32 offset, BFont* outFont, rgb_color* outColor) const
{
	const TextStyle& style = fStyles->StyleAt(pvPin(offset));
	if (outFont != nullptr)
		*outFont = style.font;
	if (outColor != nullptr)
		*outColor = style.color;
}

void
BTextView::GetFontAndColor(BFont* outFont, uint32* outMode, rgb_color* outColor,
	bool* outEqColor) const
{
	const TextStyle& first = fStyles->StyleAt(fSelStart);
	bool sameFont = true, sameColor = true;
	for (int32 i = fStyles->RunIndexAt(fSelStart) + 1;
			i < fStyles->CountRuns() && fStyles->RunAt(i).offset < fSelEnd; i++) {
		const TextStyle& style = fStyles->Style(fStyles->RunAt(i).style);
		sameFont = sameFont && style.font == first.font;
		sameColor = sameColor && style.color == first.color;
	}
	if (outFont != nullptr)
		*outFont = first.font;
	if (outMode != nullptr)
		*outMode = sameFont ? B_FONT_ALL : 0;
	if (outColor != nullptr)
		*outColor = first.color;
	if (outEqColor != nullptr)
		*outEqColor = sameColor;
}

void
BTextView::SetRunArray(int32 startOffset, int32 endOffset, const text_run_array* runs)
{
	if (runs == nullptr || runs->count <= 0)
		return;
	startOffset = pvPin(startOffset);
	endOffset = pvPin(endOffset);
	// A plain view takes the first run for all its text.
	int32 count = fStylable ? runs->count : 1;
	for (int32 i = 0; i < count; i++) {
		const text_run& run = runs->runs[i];
		int32 from = startOffset + std::max(run.offset, int32(0));
		int32 to = i + 1 < count ? startOffset + runs->runs[i + 1].offset : endOffset;
		SetFontAndColor(from, std::min(to, endOffset), &run.font, B_FONT_ALL, &run.color);
	}
}

text_run_array*
BTextView::RunArray(int32 startOffset, int32 endOffset, int32* outSize) const
{
	startOffset = pvPin(startOffset);
	endOffset = std::max(pvPin(endOffset), startOffset);
	int32 first = fStyles->RunIndexAt(startOffset);
	int32 last = first;
	while (last + 1 < fStyles->CountRuns() && fStyles->RunAt(last + 1).offset < endOffset)
		last++;
	text_run_array* array = AllocRunArray(last - first + 1, outSize);
	for (int32 i = first; i <= last; i++) {
		text_run& run = array->runs[i - first];
		const TextStyle& style = fStyles->Style(fStyles->RunAt(i).style);
		run.offset = std::max(fStyles->RunAt(i).offset - startOffset, int32(0));
		run.font = style.font;
		run.color = style.color;
	}
	return array;
}

text_run_array*
BTextView::AllocRunArray(int32 entryCount, int32* outSize)
{
	entryCount = std::max(entryCount, int32(1));
	size_t size = sizeof(text_run_array) + sizeof(text_run) * size_t(entryCount - 1);
	void* memory = malloc(size);
	if (memory == nullptr)
		return nullptr;
	auto array = static_cast<text_run_array*>(memory);
	array->count = entryCount;
	for (int32 i = 0; i < entryCount; i++)
		new (&array->runs[i]) text_run{0, BFont(), make_color(0, 0, 0)};
	if (outSize != nullptr)
		*outSize = static_cast<int32>(size);
	return array;
}

void
BTextView::FreeRunArray(text_run_array* array)
{
	if (array == nullptr)
		return;
	for (int32 i = 0; i < array->count; i++)
		array->runs[i].~text_run();
	free(array);
}

void
BTextView::SetStylable(bool stylable)
{
	fStylable = stylable;
	if (!stylable)
		pvChangeStyles(0, TextLength(), nullptr, 0, nullptr);
}

// #pragma mark - lines and geometry

int32
BTextView::CountLines() const
{
	return fLayout->CountLines();
}

int32
BTextView::CurrentLine() const
{
	return LineAt(fSelStart);
}

void
BTextView::GoToLine(int32 lineNumber)
{
	int32 offset = OffsetAt(lineNumber);
	Select(offset, offset);
	ScrollToSelection();
}

int32
BTextView::LineAt(int32 offset) const
{
	return fLayout->LineOf(pvPin(offset));
}

int32
BTextView::pvLineAtY(float y) const
{
	// Lines are found by their cells, which a subclass may place elsewhere.
	int32 low = 0, high = CountLines() - 1;
	while (low < high) {
		int32 middle = (low + high + 1) / 2;
		if (ByteCell(fLayout->LineAt(middle).offset).top <= y)
			low = middle;
		else
			high = middle - 1;
	}
	return low;
}

int32
BTextView::LineAt(BPoint point) const
{
	return pvLineAtY(point.y);
}

float
BTextView::pvLineLeft(int32 line) const
{
	float room = std::max(fTextRect.Width() - fLayout->LineAt(line).width, 0.0f);
	switch (fAlignment) {
		case B_ALIGN_RIGHT:
			return fTextRect.left + std::floor(room);
		case B_ALIGN_CENTER:
			return fTextRect.left + std::floor(room / 2);
		default:
			return fTextRect.left;
	}
}

BRect
BTextView::ByteCell(int32 offset) const
{
	int32 line = fLayout->LineOf(offset);
	const TextLayout::Line& info = fLayout->LineAt(line);
	float left = pvLineLeft(line) + fLayout->XOf(offset);
	float top = fTextRect.top + info.top;
	return BRect(left, top, left + fLayout->WidthOf(offset) - 1, top + info.height - 1);
}

BPoint
BTextView::PointAt(int32 offset, float* outHeight) const
{
	BRect caret = pvCaretFrame(pvPin(offset));
	if (outHeight != nullptr)
		*outHeight = caret.Height() + 1;
	return caret.LeftTop();
}

BRect
BTextView::pvCaretFrame(int32 offset) const
{
	// After the last character of the text the caret stands at its right edge;
	// it is drawn on whole pixels.
	BRect cell = ByteCell(offset);
	float x = cell.left;
	if (offset == TextLength() && offset > 0 && fText.back() != '\n') {
		cell = ByteCell(PreviousCharacter(fText, offset));
		x = cell.right + 1;
	}
	x = std::round(x);
	return BRect(x, cell.top, x, cell.bottom);
}

int32
BTextView::OffsetAt(BPoint point) const
{
	int32 line = pvLineAtY(point.y);
	int32 start = fLayout->LineAt(line).offset;
	int32 end = fLayout->LineEnd(line);
	// The first byte whose cell centre lies right of the point.
	int32 low = start, high = end;
	while (low < high) {
		int32 middle = (low + high) / 2;
		BRect cell = ByteCell(middle);
		if ((cell.left + cell.right + 1) / 2 > point.x)
			high = middle;
		else
			low = middle + 1;
	}
	if (low < end)
		return pvPin(low);
	// Right of a line: before its line feed or the space it wrapped at.
	if (end == TextLength() && (end == start || fText[end - 1] != '\n'))
		return end;
	return end > start ? PreviousCharacter(fText, end) : start;
}

int32
BTextView::OffsetAt(int32 line) const
{
	if (line < 0)
		return 0;
	if (line >= CountLines())
		return TextLength();
	return fLayout->LineAt(line).offset;
}

float
BTextView::LineWidth(int32 lineNumber) const
{
	if (lineNumber < 0 || lineNumber >= CountLines())
		return 0;
	return fLayout->LineAt(lineNumber).width;
}

float
BTextView::LineHeight(int32 lineNumber) const
{
	lineNumber = std::clamp(lineNumber, int32(0), CountLines() - 1);
	return fLayout->LineAt(lineNumber).height;
}

float
BTextView::TextHeight(int32 startLine, int32 endLine) const
{
	startLine = std::clamp(startLine, int32(0), CountLines() - 1);
	endLine = std::clamp(endLine, int32(0), CountLines() - 1);
	if (endLine < startLine)
		return 0;
	return fLayout->LineAt(endLine + 1).top - fLayout->LineAt(startLine).top;
}

void
BTextView::GetTextRegion(int32 startOffset, int32 endOffset, BRegion* outRegion) const
{
	if (outRegion == nullptr)
		return;
	outRegion->MakeEmpty();
	startOffset = pvPin(startOffset);
	endOffset = pvPin(endOffset);
	for (int32 offset = startOffset; offset < endOffset; offset = NextCharacter(fText, offset)) {
		BRect cell = ByteCell(offset);
		if (cell.IsValid())
			outRegion->Include(cell);
	}
}

void
BTextView::ScrollToOffset(int32 offset)
{
	if (Window() == nullptr)
		return;
	float height;
	BPoint point = PointAt(offset, &height);
	BRect bounds = Bounds();
	BPoint target = bounds.LeftTop();
	if (point.y < bounds.top)
		target.y = point.y - fTextRect.top;
	else if (point.y + height - 1 > bounds.bottom)
		target.y = point.y + height - 1 - bounds.Height() + fTextRect.top;
	if (point.x < bounds.left)
		target.x = point.x - fTextRect.left;
	else if (point.x > bounds.right - fTextRect.left)
		target.x = point.x - bounds.Width() + fTextRect.left;
	target.x = std::max(target.x, 0.0f);
	target.y = std::max(target.y, 0.0f);
	if (target != bounds.LeftTop())
		ScrollTo(target);
}

void
BTextView::ScrollToSelection()
{
	ScrollToOffset(fSelEnd);
	if (fSelStart != fSelEnd)
		ScrollToOffset(fSelStart);
}

void
BTextView::SetTextRect(BRect rect)
{
	fTextRect = rect;
	pvLayout();
}

// #pragma mark - behaviour

void
BTextView::MakeSelectable(bool selectable)
{
	if (selectable == fSelectable)
		return;
	fSelectable = selectable;
	Invalidate();
}

void
BTextView::MakeEditable(bool editable)
{
	if (editable == fEditable)
		return;
	fEditable = editable;
	Invalidate();
}

void
BTextView::SetWordWrap(bool wrap)
{
	if (wrap == fWordWrap)
		return;
	fWordWrap = wrap;
	pvLayout();
}

void
BTextView::SetMaxBytes(int32 max)
{
	fMaxBytes = std::max(max, int32(0));
	if (TextLength() > fMaxBytes)
		DeleteText(pvPin(fMaxBytes), TextLength());
}

void
BTextView::DisallowChar(uint32 character)
{
	if (character < 256)
		fDisallowed[character / 32] |= 1u << (character % 32);
}

void
BTextView::AllowChar(uint32 character)
{
	if (character < 256)
		fDisallowed[character / 32] &= ~(1u << (character % 32));
}

void
BTextView::SetAlignment(alignment flag)
{
	if (flag == fAlignment)
		return;
	fAlignment = flag;
	Invalidate();
}

void
BTextView::SetTabWidth(float width)
{
	fTabWidth = width;
	pvLayout();
}

bool
BTextView::IsActiveTextView() const
{
	return IsFocus() && Window()->IsActive();
}

// #pragma mark - layout and drawing

void
BTextView::pvLayout()
{
	fLayout->SetWrap(fWordWrap, fTextRect.Width());
	fLayout->SetTabWidth(fTabWidth);
	fLayout->Layout();
	Invalidate();
	pvUpdateScrollBars();
}

void
BTextView::pvTextChanged(int32 from, int32 removed, int32 added)
{
	int32 firstLine = std::max(fLayout->LineOf(from) - 1, int32(0));
	fLayout->Update(from, removed, added);
	fCaretX = -1;
	if (Window() == nullptr)
		return;
	// A wrap may pull text back to the line before; lines below may move.
	BRect bounds = Bounds();
	firstLine = std::min(firstLine, CountLines() - 1);
	float top = ByteCell(fLayout->LineAt(firstLine).offset).top;
	Invalidate(BRect(bounds.left, std::max(top, bounds.top), bounds.right, bounds.bottom));
	pvUpdateScrollBars();
}

void
BTextView::pvUpdateScrollBars()
{
	if (Window() == nullptr)
		return;
	BRect bounds = Bounds();
	if (BScrollBar* bar = ScrollBar(B_VERTICAL)) {
		float total = std::ceil(fLayout->Height()) + 2 * fTextRect.top;
		float page = bounds.Height() + 1;
		bar->SetRange(0, std::max(0.0f, total - page));
		bar->SetProportion(total > page ? page / total : 1);
		float step = std::max(LineHeight(0), 1.0f);
		bar->SetSteps(step, std::max(page - step, 1.0f));
	}
	if (BScrollBar* bar = ScrollBar(B_HORIZONTAL)) {
		float total = std::max(std::ceil(fLayout->MaxWidth()), fTextRect.Width())
			+ 2 * fTextRect.left;
		float page = bounds.Width() + 1;
		bar->SetRange(0, std::max(0.0f, total - page));
		bar->SetProportion(total > page ? page / total : 1);
		bar->SetSteps(10, std::max(page - 10, 1.0f));
	}
}

void
BTextView::pvInvalidateLines(int32 from, int32 to)
{
	if (Window() == nullptr)
		return;
	BRect bounds = Bounds();
	int32 first = fLayout->LineOf(from);
	int32 last = fLayout->LineOf(to);
	float top = ByteCell(fLayout->LineAt(first).offset).top;
	float bottom = ByteCell(fLayout->LineAt(last).offset).bottom;
	Invalidate(BRect(bounds.left, top, bounds.right, bottom));
}

void
BTextView::pvInvalidateSelection()
{
	if (Window() == nullptr)
		return;
	if (fSelStart == fSelEnd)
		Invalidate(pvCaretFrame(fSelEnd).InsetByCopy(-1, 0));
	else
		pvInvalidateLines(fSelStart, fSelEnd);
}

void
BTextView::Draw(BRect updateRect)
{
	PushState();
	SetDrawingMode(B_OP_OVER);
	int32 first = pvLineAtY(updateRect.top);
	int32 last = pvLineAtY(updateRect.bottom);
	for (int32 line = first; line <= last; line++) {
		pvDrawSelection(line, updateRect);
		pvDrawLine(line, updateRect);
	}
	if (fCaretVisible && fEditable && fSelStart == fSelEnd && IsActiveTextView()) {
		SetHighColor(fStyles->StyleAt(fSelStart).color);
		FillRect(pvCaretFrame(fSelEnd));
	}
	PopState();
}

int32
BTextView::pvFirstCellRightOf(int32 line, float x) const
{
	// Cells run left to right along a line.
	int32 low = fLayout->LineAt(line).offset, high = fLayout->LineEnd(line);
	while (low < high) {
		int32 middle = (low + high) / 2;
		if (ByteCell(middle).right >= x)
			high = middle;
		else
			low = middle + 1;
	}
	return pvPin(low);
}

void
BTextView::pvDrawSelection(int32 line, BRect updateRect)
{
	int32 start = std::max(pvFirstCellRightOf(line, updateRect.left), fSelStart);
	int32 end = std::min(fLayout->LineEnd(line), fSelEnd);
	if (start >= end || !fSelectable)
		return;
	SetHighColor(tint_color(ViewColor(),
		IsActiveTextView() ? B_DARKEN_2_TINT : B_DARKEN_1_TINT));
	for (int32 offset = start; offset < end; offset = NextCharacter(fText, offset)) {
		BRect cell = ByteCell(offset);
		if (cell.left > updateRect.right)
			break;
		// A selected line feed reaches to the edge of the text.
		if (fText[offset] == '\n')
			cell.right = std::max(cell.left, fTextRect.right);
		FillRect(cell);
	}
}

void
BTextView::pvDrawLine(int32 line, BRect updateRect)
{
	const TextLayout::Line& info = fLayout->LineAt(line);
	int32 end = fLayout->LineEnd(line);
	int32 offset = pvFirstCellRightOf(line, updateRect.left);
	int32 run = fStyles->RunIndexAt(offset);
	int32 style = -1;
	while (offset < end) {
		int32 next = NextCharacter(fText, offset);
		while (run + 1 < fStyles->CountRuns() && fStyles->RunAt(run + 1).offset <= offset)
			run++;
		BRect cell = ByteCell(offset);
		if (cell.left > updateRect.right)
			break;
		if (uchar(fText[offset]) >= ' ') {
			if (fStyles->RunAt(run).style != style) {
				style = fStyles->RunAt(run).style;
				BView::SetFont(&fStyles->Style(style).font);
				SetHighColor(fStyles->Style(style).color);
			}
			DrawString(fText.data() + offset, next - offset,
				BPoint(cell.left, cell.top + info.ascent));
		}
		offset = next;
	}
}
