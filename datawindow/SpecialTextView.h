#ifndef SPECIAL_TEXT_VIEW_H
#define SPECIAL_TEXT_VIEW_H

#include <View.h>

class HexEditView;

// One column of the hex editor: a text view of fixed-width character cells
// that shows the editor's bytes, 16 to a line, with the editor's caret and
// selection. It keeps no text of its own; it draws only the lines that need
// drawing, straight from the editor's bytes, and hands keys and clicks to the
// editor, which is its parent.
class SpecialTextView : public BView {
public:
	SpecialTextView(BRect frame, const char* name, BRect textRect, uint32 resizingMode,
		uint32 flags);

	virtual void AttachedToWindow();
	virtual void SetFont(const BFont* font, uint32 mask = B_FONT_ALL);
	virtual void Draw(BRect updateRect);
	virtual void KeyDown(const char* bytes, int32 numBytes);
	virtual void MakeFocus(bool focus = true);
	virtual void MouseDown(BPoint where);
	virtual void MouseMoved(BPoint where, uint32 transit, const BMessage* dragMessage);
	virtual void MouseUp(BPoint where);

	float CellWidth() const { return fCellWidth; }
	float LineHeight() const { return fLineHeight; }
	float Ascent() const { return fAscent; }
	// The width of a full line of this column.
	float LineWidth() const;
	// The caret position (in nibbles, two to a byte) of the cell at point; a
	// column that steps by bytes answers the first nibble.
	int32 PositionAt(BPoint point) const;
	// Whether the caret moves by nibble (the hex column) or by byte.
	virtual bool StepsByNibble() const = 0;

protected:
	// Where byte column (0 to 15) of a line starts, in cells, and how many
	// cells it takes.
	virtual int32 CellOf(int32 column) const = 0;
	virtual int32 CellsPerByte() const = 0;
	// Writes the text of count bytes (count <= 16) into out; returns its length.
	virtual int32 FormatLine(const uchar* bytes, int32 count, char* out) const = 0;
	// The column (0 to 15) and nibble of the cell index of a line.
	virtual int32 PositionInLine(int32 cell) const = 0;

private:
	HexEditView* pvEditor() const;
	void pvMeasure();
	BRect pvByteFrame(int32 offset) const;
	BRect pvCaretFrame(int32 position) const;
	void pvDrawSelection(int32 line, int32 start, int32 end);
	void pvDrawCaret();

	BRect fTextRect;
	float fCellWidth = 7;
	float fLineHeight = 14;
	float fAscent = 11;
	bool fTracking = false;
};

#endif
