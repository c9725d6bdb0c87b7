#ifndef HEX_EDIT_VIEW_H
#define HEX_EDIT_VIEW_H

#include <vector>

#include <StorageDefs.h>
#include <View.h>

class BStringView;
class SpecialTextView;

// The hex editor: an offset column, the hex column and the ASCII column of an
// attribute value, 16 bytes a line. One caret (in nibbles, two to a byte) and
// one selection (in bytes) are shown in both columns; the column with the
// focus is the active one. The editor starts read-only; Return or a double
// click starts editing, Return or Escape ends it. Every edit is written to
// the node through the data window at once.
//
// The editor is as tall as its lines and sits in a scroll view; its columns
// draw only the lines that are visible.
class HexEditView : public BView {
public:
	static const int32 kBytesPerLine = 16;

	HexEditView(BRect frame, const char* name, uint32 resizingMode, uint32 flags);

	virtual void AttachedToWindow();
	virtual void Draw(BRect updateRect);
	virtual void FrameResized(float width, float height);
	virtual void KeyDown(const char* bytes, int32 numBytes);
	virtual void MakeFocus(bool focus = true);
	virtual void MessageReceived(BMessage* message);

	// The content, changed without writing anything: a value replaced as a
	// whole (SelectAll, Clear, InsertData at 0) keeps the caret, the selection
	// and the scroll position.
	void InsertData(const char* data, int32 size, int32 offset);
	void SelectAll();
	void Clear();
	const uchar* Data() const { return fData.data(); }
	int32 Size() const { return int32(fData.size()); }
	// The lines of the bytes and of the caret's place past the end.
	int32 CountLines() const { return Size() / kBytesPerLine + 1; }

	bool IsEditable() const { return fEditable; }
	void MakeEditable(bool editable);
	// A label that tells the user whether the editor is editing.
	void SetModeLabel(BStringView* label);

	int32 Caret() const { return fCaret; }
	void GetSelection(int32* start, int32* end) const;
	void Select(int32 start, int32 end);

	// From the columns.
	bool IsActiveColumn(const SpecialTextView* column) const { return column == fActive; }
	void SetActiveColumn(SpecialTextView* column);
	void ColumnClicked(int32 position, int32 clicks, bool extend);
	void ColumnDragged(int32 position);

private:
	struct Place {
		int32 caret;
		int32 anchor;
		int32 selStart;
		int32 selEnd;
		float scroll;
	};

	void pvLayoutColumns();
	void pvFitHeight();
	float pvViewportHeight() const;
	float pvMaxScroll() const;
	void pvScrollToCaret();
	int32 pvOffsetDigits() const;

	void pvMoveCaret(int32 position, bool extend);
	void pvSelectCells(int32 anchor, int32 byte);
	bool pvNavigate(uint32 key, uint32 modifiers);
	int32 pvTargetOf(uint32 key, bool command, bool extend) const;
	int32 pvPageLines() const;

	void pvType(const char* bytes, int32 numBytes);
	void pvTypeNibble(int32 digit);
	void pvTypeBytes(const char* bytes, int32 numBytes);
	void pvBackspace();
	void pvForwardDelete();
	bool pvReplace(int32 from, int32 to, const uchar* bytes, int32 count, int32 caret);
	bool pvStore(std::vector<uchar>& bytes);
	bool pvWrite(const std::vector<uchar>& bytes);
	void pvRefreshHeader();
	void pvRememberAttribute();
	bool pvIsEarlierReread(const char* data, int32 size);

	void pvCopy();
	void pvPaste();
	void pvRemoveSelection();
	void pvShowMode();

	std::vector<uchar> fData;
	// The caret in nibbles, 0 to twice the size.
	int32 fCaret = 0;
	// The byte a selection grows from, and the selection in bytes.
	int32 fAnchor = 0;
	int32 fSelStart = 0;
	int32 fSelEnd = 0;
	bool fEditable = false;
	SpecialTextView* fHex = nullptr;
	SpecialTextView* fAscii = nullptr;
	SpecialTextView* fActive = nullptr;
	BStringView* fModeLabel = nullptr;
	// Where the user was when SelectAll began a whole replacement.
	Place fKept = {};
	bool fKeeping = false;
	// The bytes shown before the replacement, and how many writes have not
	// come back as a re-read value yet.
	std::vector<uchar> fReplaced;
	int32 fUnconfirmed = 0;
	// The attribute the bytes are written to; the name stays in place for
	// the header refresh message that points at it.
	char fName[B_ATTR_NAME_LENGTH] = {};
	uint32 fType = 0;
	float fCellWidth = 7;
	float fLineHeight = 14;
	float fAscent = 11;
};

// One column of the editor: the hex column when hex is true, else the ASCII column.
SpecialTextView* MakeTextView(BRect frame, const char* name, bool hex);

#endif
