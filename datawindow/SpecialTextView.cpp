#include "SpecialTextView.h"

#include <algorithm>
#include <cmath>

#include <Window.h>

#include "HexEditView.h"

namespace {

const rgb_color kActiveSelection = {176, 196, 255, 255};
const rgb_color kOtherSelection = {214, 222, 242, 255};
const rgb_color kEditCaret = {255, 170, 80, 255};
const rgb_color kReadCaret = {0, 0, 0, 255};
const rgb_color kOtherCaret = {128, 128, 128, 255};
const rgb_color kText = {0, 0, 0, 255};

}	// namespace

SpecialTextView::SpecialTextView(BRect frame, const char* name, BRect textRect,
	uint32 resizingMode, uint32 flags)
	: BView(frame, name, resizingMode, flags),
	fTextRect(textRect)
{
	pvMeasure();
}

void
SpecialTextView::AttachedToWindow()
{
	BView::AttachedToWindow();
	AdoptParentColors();
	pvMeasure();
}

void
SpecialTextView::SetFont(const BFont* font, uint32 mask)
{
	BView::SetFont(font, mask);
	pvMeasure();
}

void
SpecialTextView::pvMeasure()
{
	font_height height;
	GetFontHeight(&height);
	fCellWidth = StringWidth("0");
	fAscent = std::ceil(height.ascent);
	fLineHeight = std::ceil(height.ascent + height.descent + height.leading);
}

float
SpecialTextView::LineWidth() const
{
	return (CellOf(HexEditView::kBytesPerLine - 1) + CellsPerByte()) * fCellWidth;
}

HexEditView*
SpecialTextView::pvEditor() const
{
	return dynamic_cast<HexEditView*>(Parent());
}

BRect
SpecialTextView::pvByteFrame(int32 offset) const
{
	int32 line = offset / HexEditView::kBytesPerLine;
	float left = fTextRect.left + CellOf(offset % HexEditView::kBytesPerLine) * fCellWidth;
	float top = fTextRect.top + line * fLineHeight;
	return BRect(left, top, left + CellsPerByte() * fCellWidth - 1, top + fLineHeight - 1);
}

BRect
SpecialTextView::pvCaretFrame(int32 position) const
{
	BRect frame = pvByteFrame(position / 2);
	if (!StepsByNibble())
		return frame;
	frame.left += (position % 2) * fCellWidth;
	frame.right = frame.left + fCellWidth - 1;
	return frame;
}

int32
SpecialTextView::PositionAt(BPoint point) const
{
	int32 line = int32(std::floor((point.y - fTextRect.top) / fLineHeight));
	int32 cell = int32(std::floor((point.x - fTextRect.left) / fCellWidth));
	int32 last = CellOf(HexEditView::kBytesPerLine - 1) + CellsPerByte() - 1;
	cell = std::clamp(cell, int32(0), last);
	int32 inLine = PositionInLine(cell);
	return std::max(line, int32(0)) * HexEditView::kBytesPerLine * 2 + inLine;
}

void
SpecialTextView::Draw(BRect updateRect)
{
	HexEditView* editor = pvEditor();
	if (editor == nullptr)
		return;
	int32 size = editor->Size();
	int32 lines = editor->CountLines();
	int32 first = std::max(int32((updateRect.top - fTextRect.top) / fLineHeight), int32(0));
	int32 last = std::min(int32((updateRect.bottom - fTextRect.top) / fLineHeight), lines - 1);
	int32 selStart, selEnd;
	editor->GetSelection(&selStart, &selEnd);
	bool active = editor->IsActiveColumn(this);
	if (active && editor->IsEditable() && selStart == selEnd) {
		SetHighColor(kEditCaret);
		FillRect(pvCaretFrame(editor->Caret()));
	}
	const uchar* data = editor->Data();
	char text[HexEditView::kBytesPerLine * 3];
	SetHighColor(kText);
	for (int32 line = first; line <= last; line++) {
		int32 start = line * HexEditView::kBytesPerLine;
		int32 count = std::min(size - start, HexEditView::kBytesPerLine);
		pvDrawSelection(line, selStart, selEnd);
		if (count <= 0)
			continue;
		int32 length = FormatLine(data + start, count, text);
		SetHighColor(kText);
		DrawString(text, length, BPoint(fTextRect.left,
			fTextRect.top + line * fLineHeight + fAscent));
	}
	pvDrawCaret();
}

void
SpecialTextView::pvDrawSelection(int32 line, int32 start, int32 end)
{
	int32 lineStart = line * HexEditView::kBytesPerLine;
	start = std::max(start, lineStart);
	end = std::min(end, lineStart + HexEditView::kBytesPerLine);
	if (start >= end)
		return;
	BRect area = pvByteFrame(start) | pvByteFrame(end - 1);
	HexEditView* editor = pvEditor();
	SetHighColor(editor->IsActiveColumn(this) ? kActiveSelection : kOtherSelection);
	FillRect(area);
}

void
SpecialTextView::pvDrawCaret()
{
	HexEditView* editor = pvEditor();
	int32 selStart, selEnd;
	editor->GetSelection(&selStart, &selEnd);
	if (selStart != selEnd)
		return;
	if (!editor->IsActiveColumn(this)) {
		SetHighColor(kOtherCaret);
		StrokeRect(pvByteFrame(editor->Caret() / 2));
	} else if (!editor->IsEditable()) {
		BRect caret = pvCaretFrame(editor->Caret());
		caret.right = caret.left + 1;
		SetHighColor(kReadCaret);
		FillRect(caret);
	}
}

void
SpecialTextView::KeyDown(const char* bytes, int32 numBytes)
{
	if (HexEditView* editor = pvEditor())
		editor->KeyDown(bytes, numBytes);
}

void
SpecialTextView::MakeFocus(bool focus)
{
	BView::MakeFocus(focus);
	if (HexEditView* editor = pvEditor(); editor != nullptr && focus)
		editor->SetActiveColumn(this);
}

void
SpecialTextView::MouseDown(BPoint where)
{
	HexEditView* editor = pvEditor();
	if (editor == nullptr)
		return;
	int32 clicks = 1;
	int32 held = 0;
	if (BMessage* message = Window()->CurrentMessage()) {
		message->FindInt32("clicks", &clicks);
		message->FindInt32("modifiers", &held);
	}
	MakeFocus(true);
	fTracking = true;
	SetMouseEventMask(B_POINTER_EVENTS);
	editor->ColumnClicked(PositionAt(where), clicks, (held & B_SHIFT_KEY) != 0);
}

void
SpecialTextView::MouseMoved(BPoint where, uint32, const BMessage*)
{
	if (!fTracking)
		return;
	if (HexEditView* editor = pvEditor())
		editor->ColumnDragged(PositionAt(where));
}

void
SpecialTextView::MouseUp(BPoint)
{
	fTracking = false;
}
