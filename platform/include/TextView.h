#ifndef _TEXT_VIEW_H
#define _TEXT_VIEW_H

#include <memory>
#include <string>
#include <vector>

#include <Font.h>
#include <View.h>

class BClipboard;
class BMessage;

namespace BPrivate {
class StyleRuns;
class TextLayout;
struct TextStyle;
}

// One style run: from offset on (up to the next run), text in this font and colour.
struct text_run {
	int32 offset;
	BFont font;
	rgb_color color;
};

// A count followed by that many runs. Since a run holds a BFont, arrays of more
// than one run come from BTextView::AllocRunArray() and go back through
// BTextView::FreeRunArray(); a one-run array may live on the stack.
struct text_run_array {
	int32 count;
	text_run runs[1];
};

// Text that the user can select and edit: UTF-8 bytes with a caret and a
// selection, mouse and keyboard editing, style runs (font and colour per run),
// word wrap, alignment and clipboard commands.
//
// Offsets are byte offsets into Text(). Every edit, whatever made it (typing,
// the clipboard, Insert(), Delete(), SetText()), goes through the protected
// hooks InsertText() and DeleteText(), and every selection the user makes
// through Select(), so that a subclass can take over editing. The selection
// moves along with the text that edits insert or remove before it.
//
// Keys: the arrows move by character (Command: by word), Up and Down by line,
// Home and End to the ends of the line (Command: of the text), Page Up and Page
// Down by a view's height; Shift extends the selection. Backspace and Delete
// remove the selection or one character. Return inserts a line feed (with
// autoindent followed by the spaces and tabs that start the line). Tab
// inserts a tab when the view is editable and not B_NAVIGABLE; otherwise it
// moves the keyboard focus like in any view. Command+X, C, V and A cut, copy,
// paste (with be_clipboard) and select all when no window shortcut takes them.
//
// Mouse: a click places the caret, a drag selects, a double click selects a
// word, a triple click a line; shift-click extends the selection. A drag held
// outside the view scrolls on with each pulse.
class BTextView : public BView {
public:
	BTextView(BRect frame, const char* name, BRect textRect, uint32 resizingMode,
		uint32 flags = B_WILL_DRAW | B_PULSE_NEEDED);
	BTextView(BRect frame, const char* name, BRect textRect, const BFont* initialFont,
		const rgb_color* initialColor, uint32 resizingMode, uint32 flags);
	virtual ~BTextView();

	// Hooks.
	virtual void AttachedToWindow();
	virtual void DetachedFromWindow();
	virtual void Draw(BRect updateRect);
	virtual void MouseDown(BPoint where);
	virtual void MouseUp(BPoint where);
	virtual void MouseMoved(BPoint where, uint32 transit, const BMessage* dragMessage);
	virtual void WindowActivated(bool active);
	virtual void KeyDown(const char* bytes, int32 numBytes);
	virtual void Pulse();
	virtual void FrameResized(float width, float height);
	virtual void MakeFocus(bool focus = true);
	virtual void MessageReceived(BMessage* message);
	// The view keeps its frame events and pulse.
	virtual void SetFlags(uint32 flags);
	// A view that is not stylable takes the font for all its text.
	virtual void SetFont(const BFont* font, uint32 mask = B_FONT_ALL);
	virtual void GetPreferredSize(float* width, float* height);

	// Text.
	void SetText(const char* text, const text_run_array* runs = NULL);
	void SetText(const char* text, int32 length, const text_run_array* runs = NULL);
	// At the selection; the selection then follows the inserted text.
	void Insert(const char* text, const text_run_array* runs = NULL);
	void Insert(const char* text, int32 length, const text_run_array* runs = NULL);
	void Insert(int32 offset, const char* text, int32 length,
		const text_run_array* runs = NULL);
	// The selection, or the bytes from start to end.
	void Delete();
	void Delete(int32 startOffset, int32 endOffset);
	const char* Text() const;
	int32 TextLength() const;
	// Copies length bytes from offset (cut at the end of the text) and a NUL.
	void GetText(int32 offset, int32 length, char* buffer) const;
	// The byte at offset, 0 outside the text.
	uchar ByteAt(int32 offset) const;

	// Clipboard: the text goes as "text/plain" (B_MIME_TYPE) data.
	virtual void Cut(BClipboard* clipboard);
	virtual void Copy(BClipboard* clipboard);
	virtual void Paste(BClipboard* clipboard);
	// Deletes the selection.
	void Clear();
	virtual bool AcceptsPaste(BClipboard* clipboard);

	// Selection: start and end are byte offsets, pinned to the text and moved
	// back to the start of the UTF-8 character they fall into.
	virtual void Select(int32 startOffset, int32 endOffset);
	void SelectAll();
	void GetSelection(int32* outStart, int32* outEnd) const;
	// The word (letters, digits, '_' and non-ASCII characters), run of spaces or
	// single other character at offset.
	virtual void FindWord(int32 offset, int32* outFromOffset, int32* outToOffset);

	// Styles. A view that is not stylable has one font and colour for all its
	// text. In a stylable view the calls apply to the selection; with an empty
	// selection they set the style of the next text inserted there.
	void SetFontAndColor(const BFont* font, uint32 mode = B_FONT_ALL,
		const rgb_color* color = NULL);
	void SetFontAndColor(int32 startOffset, int32 endOffset, const BFont* font,
		uint32 mode = B_FONT_ALL, const rgb_color* color = NULL);
	void GetFontAndColor(int32 offset, BFont* outFont, rgb_color* outColor = NULL) const;
	void GetFontAndColor(BFont* outFont, uint32* outMode, rgb_color* outColor = NULL,
		bool* outEqColor = NULL) const;
	// Runs are given relative to startOffset.
	void SetRunArray(int32 startOffset, int32 endOffset, const text_run_array* runs);
	// The runs from startOffset to endOffset, offsets relative to startOffset;
	// release with FreeRunArray().
	text_run_array* RunArray(int32 startOffset, int32 endOffset, int32* outSize = NULL) const;
	static text_run_array* AllocRunArray(int32 entryCount, int32* outSize = NULL);
	static void FreeRunArray(text_run_array* array);
	void SetStylable(bool stylable);
	bool IsStylable() const { return fStylable; }

	// Lines and geometry, in the view's coordinates.
	int32 CountLines() const;
	int32 CurrentLine() const;
	void GoToLine(int32 lineNumber);
	int32 LineAt(int32 offset) const;
	int32 LineAt(BPoint point) const;
	// The top left of the character at offset, and the height of its line.
	BPoint PointAt(int32 offset, float* outHeight = NULL) const;
	// The offset of the character boundary nearest to point.
	int32 OffsetAt(BPoint point) const;
	// The first offset of line.
	int32 OffsetAt(int32 line) const;
	float LineWidth(int32 lineNumber = 0) const;
	float LineHeight(int32 lineNumber = 0) const;
	// The height of the lines from startLine to endLine, both included.
	float TextHeight(int32 startLine, int32 endLine) const;
	void GetTextRegion(int32 startOffset, int32 endOffset, BRegion* outRegion) const;
	virtual void ScrollToOffset(int32 offset);
	void ScrollToSelection();
	// The area the text is laid out in; lines wrap at its width.
	void SetTextRect(BRect rect);
	BRect TextRect() const { return fTextRect; }

	// Behaviour.
	void MakeSelectable(bool selectable = true);
	bool IsSelectable() const { return fSelectable; }
	void MakeEditable(bool editable = true);
	bool IsEditable() const { return fEditable; }
	void SetWordWrap(bool wrap);
	bool DoesWordWrap() const { return fWordWrap; }
	// Typing stops at max bytes; inserted text is cut to fit (at a character
	// boundary); a smaller maximum cuts the text.
	void SetMaxBytes(int32 max);
	int32 MaxBytes() const { return fMaxBytes; }
	// Typed characters that are refused (with a beep).
	void DisallowChar(uint32 character);
	void AllowChar(uint32 character);
	void SetAlignment(alignment flag);
	alignment Alignment() const { return fAlignment; }
	void SetTabWidth(float width);
	float TabWidth() const { return fTabWidth; }
	void SetAutoindent(bool state) { fAutoindent = state; }
	bool DoesAutoindent() const { return fAutoindent; }

	BTextView(const BTextView&) = delete;
	BTextView& operator=(const BTextView&) = delete;

protected:
	// Every insertion and deletion ends here: the text is changed, laid out
	// again and redrawn. runs, when given, are relative to offset.
	virtual void InsertText(const char* text, int32 length, int32 offset,
		const text_run_array* runs);
	virtual void DeleteText(int32 fromOffset, int32 toOffset);

	// The character cell that the byte at offset occupies, in the view's
	// coordinates: the height of its line and the width of the character the
	// byte belongs to (the bytes of one UTF-8 character share one cell; a line
	// feed's cell is empty). Drawing puts each character at its cell's left
	// edge, the selection is highlighted over the cells, the caret stands at the
	// left edge of the cell at the caret offset (or at the right edge of the
	// last cell of its line) and clicks are hit-tested against the cells. A
	// character-cell view (a hex column) overrides it to place bytes on a grid
	// of its own; the line breaks stay those of the laid-out text.
	virtual BRect ByteCell(int32 offset) const;

	// Whether the selection and caret are shown as active (focus in an active window).
	bool IsActiveTextView() const;

private:
	void pvInit(BRect textRect, const BFont* font, const rgb_color* color);
	void pvReplaceSelection(const char* text, int32 length);
	void pvTypeCharacters(const char* bytes, int32 numBytes);
	void pvNewLine();
	void pvMoveCaret(int32 offset, bool extend);
	void pvKeyMove(uint32 key, uint32 modifiers);
	int32 pvVerticalTarget(int32 offset, int32 lines);
	int32 pvWordBoundary(int32 offset, bool forward) const;
	void pvBackspace();
	void pvForwardDelete();
	bool pvCommandKey(uint32 key);
	void pvTrackTo(BPoint where);
	int32 pvLineEndOffset(int32 offset);
	void pvUnitAt(int32 offset, int32 clicks, int32* outFrom, int32* outTo);
	int32 pvFitToMax(const char* text, int32 length) const;
	void pvLayout();
	void pvTextChanged(int32 from, int32 removed, int32 added);
	void pvUpdateScrollBars();
	void pvInvalidateLines(int32 from, int32 to);
	void pvInvalidateSelection();
	int32 pvFirstCellRightOf(int32 line, float x) const;
	void pvDrawLine(int32 line, BRect updateRect);
	void pvDrawSelection(int32 line, BRect updateRect);
	BRect pvCaretFrame(int32 offset) const;
	float pvLineLeft(int32 line) const;
	int32 pvLineAtY(float y) const;
	uint32 pvCurrentModifiers() const;
	int32 pvPin(int32 offset) const;
	BPrivate::TextStyle pvApplyFont(const BPrivate::TextStyle& style, const BFont* font,
		uint32 mode, const rgb_color* color);
	void pvChangeStyles(int32 from, int32 to, const BFont* font, uint32 mode,
		const rgb_color* color);

	std::string fText;
	std::unique_ptr<BPrivate::StyleRuns> fStyles;
	std::unique_ptr<BPrivate::TextLayout> fLayout;
	BRect fTextRect;
	int32 fSelStart = 0;
	int32 fSelEnd = 0;
	// The fixed end of a selection made by shift or the mouse.
	int32 fAnchor = 0;
	// The x that Up and Down keep to, or negative.
	float fCaretX = -1;
	bool fCaretVisible = false;
	bool fSelectable = true;
	bool fEditable = true;
	bool fStylable = false;
	bool fWordWrap = true;
	bool fAutoindent = false;
	alignment fAlignment = B_ALIGN_LEFT;
	float fTabWidth = 28;
	int32 fMaxBytes = INT32_MAX;
	// The bytes that typing refuses, one bit each.
	uint32 fDisallowed[8] = {};
	// Mouse tracking: clicks of the press (1 character, 2 words, 3 lines) and
	// the unit range that the press started on.
	bool fTracking = false;
	int32 fClicks = 0;
	int32 fTrackStart = 0;
	int32 fTrackEnd = 0;
	// The style of the next insertion at the caret, when set there.
	std::unique_ptr<BPrivate::TextStyle> fPendingStyle;
	int32 fPendingOffset = -1;
};

#endif
