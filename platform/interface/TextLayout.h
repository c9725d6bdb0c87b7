#ifndef _TEXT_LAYOUT_H
#define _TEXT_LAYOUT_H

#include <string>
#include <vector>

#include <SupportDefs.h>

namespace BPrivate {

class StyleRuns;

// UTF-8 steps over a byte string.
int32 NextCharacter(const std::string& text, int32 offset);
int32 PreviousCharacter(const std::string& text, int32 offset);
int32 CharacterStart(const std::string& text, int32 offset);

// Breaks a styled text into lines: at each line feed, and with wrapping on at
// the last space (or else the last character) that fits the width. Lines are
// kept in text order with their tops; an edit lays out again only the
// paragraphs it touched and moves the lines after them.
class TextLayout {
public:
	struct Line {
		// The first byte; the line ends where the next one starts.
		int32 offset;
		float top;
		float height;
		float ascent;
		// Of the visible characters, without the line feed and the spaces a
		// wrap leaves at the end.
		float width;
	};

	TextLayout(const std::string& text, const StyleRuns& styles);

	void SetWrap(bool wrap, float width);
	void SetTabWidth(float width);

	// All lines again.
	void Layout();
	// After added bytes replaced removed ones at from.
	void Update(int32 from, int32 removed, int32 added);

	int32 CountLines() const { return static_cast<int32>(fLines.size()) - 1; }
	const Line& LineAt(int32 index) const { return fLines[index]; }
	int32 LineEnd(int32 index) const { return fLines[index + 1].offset; }
	// The line that holds offset, and the line at y (clamped to the lines).
	int32 LineOf(int32 offset) const;
	int32 LineAtY(float y) const;
	float Height() const { return fLines.back().top; }
	float MaxWidth() const;

	// The x of the byte at offset from the start of its line, and the width of
	// its character (a line feed has none).
	float XOf(int32 offset) const;
	float WidthOf(int32 offset) const;

private:
	float pvAdvance(int32 offset, int32 next, int32 style, float x) const;
	void pvLayoutParagraphs(int32 from, int32 to, std::vector<Line>& lines) const;
	void pvAddLine(int32 start, int32 end, float width, std::vector<Line>& lines) const;
	void pvFixTops(int32 from);
	void pvCacheLine(int32 line) const;

	const std::string& fText;
	const StyleRuns& fStyles;
	bool fWrap = true;
	float fWidth = 0;
	float fTabWidth = 28;
	// Lines, then one more that ends the last: the text's length and height.
	std::vector<Line> fLines;
	// The x of each byte of one line, and of its end.
	mutable int32 fCachedLine = -1;
	mutable std::vector<float> fCachedX;
};

}	// namespace BPrivate

#endif
