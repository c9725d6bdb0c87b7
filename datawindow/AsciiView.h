#ifndef ASCII_VIEW_H
#define ASCII_VIEW_H

#include "SpecialTextView.h"

// The ASCII column: one character a byte, a dot for every byte that is not
// printable ASCII; the caret moves by byte.
class AsciiView : public SpecialTextView {
public:
	AsciiView(BRect frame, const char* name, BRect textRect, uint32 resizingMode,
		uint32 flags);

	virtual bool StepsByNibble() const { return false; }

protected:
	virtual int32 CellOf(int32 column) const { return column; }
	virtual int32 CellsPerByte() const { return 1; }
	virtual int32 FormatLine(const uchar* bytes, int32 count, char* out) const;
	virtual int32 PositionInLine(int32 cell) const { return cell * 2; }
};

#endif
