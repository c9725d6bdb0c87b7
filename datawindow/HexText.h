#ifndef HEX_TEXT_H
#define HEX_TEXT_H

#include "SpecialTextView.h"

// The hex column: two digits a byte, the bytes of a line in groups of four
// with a blank between the groups; the caret moves by nibble.
class HexText : public SpecialTextView {
public:
	HexText(BRect frame, const char* name, BRect textRect, uint32 resizingMode, uint32 flags);

	virtual bool StepsByNibble() const { return true; }

protected:
	virtual int32 CellOf(int32 column) const;
	virtual int32 CellsPerByte() const { return 2; }
	virtual int32 FormatLine(const uchar* bytes, int32 count, char* out) const;
	virtual int32 PositionInLine(int32 cell) const;
};

#endif
