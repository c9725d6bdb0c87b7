#include "TextLayout.h"

#include <algorithm>
#include <cmath>

#include "StyleRuns.h"

namespace BPrivate {

namespace {

int32
SequenceLength(uchar lead)
{
	if (lead >= 0xf0 && lead < 0xf8)
		return 4;
	if (lead >= 0xe0)
		return lead < 0xf0 ? 3 : 1;
	if (lead >= 0xc0)
		return 2;
	return 1;
}

bool
IsContinuation(char byte)
{
	return (uchar(byte) & 0xc0) == 0x80;
}

}	// namespace

int32
NextCharacter(const std::string& text, int32 offset)
{
	int32 length = static_cast<int32>(text.size());
	if (offset >= length)
		return length;
	int32 next = offset + 1;
	int32 end = std::min(length, offset + SequenceLength(uchar(text[offset])));
	while (next < end && IsContinuation(text[next]))
		next++;
	return next;
}

int32
PreviousCharacter(const std::string& text, int32 offset)
{
	if (offset <= 0)
		return 0;
	return CharacterStart(text, offset - 1);
}

int32
CharacterStart(const std::string& text, int32 offset)
{
	int32 length = static_cast<int32>(text.size());
	offset = std::clamp(offset, int32(0), length);
	if (offset == length)
		return offset;
	// At most three continuation bytes belong to one lead byte.
	int32 start = offset;
	while (start > 0 && offset - start < 3 && IsContinuation(text[start]))
		start--;
	return NextCharacter(text, start) > offset ? start : offset;
}

TextLayout::TextLayout(const std::string& text, const StyleRuns& styles)
	: fText(text),
	fStyles(styles)
{
	Layout();
}

void
TextLayout::SetWrap(bool wrap, float width)
{
	fWrap = wrap;
	fWidth = width;
}

void
TextLayout::SetTabWidth(float width)
{
	fTabWidth = std::max(width, 1.0f);
}

float
TextLayout::pvAdvance(int32 offset, int32 next, int32 style, float x) const
{
	char byte = fText[offset];
	if (byte == '\n')
		return 0;
	if (byte == '\t')
		return (std::floor(x / fTabWidth) + 1) * fTabWidth - x;
	return fStyles.CharWidth(style, fText.data() + offset, next - offset);
}

void
TextLayout::pvAddLine(int32 start, int32 end, float width, std::vector<Line>& lines) const
{
	// The line is as high as the tallest style in it.
	float ascent = 0, descent = 0, leading = 0;
	int32 run = fStyles.RunIndexAt(start);
	do {
		const font_height& height = fStyles.Height(fStyles.RunAt(run).style);
		ascent = std::max(ascent, height.ascent);
		descent = std::max(descent, height.descent);
		leading = std::max(leading, height.leading);
		run++;
	} while (run < fStyles.CountRuns() && fStyles.RunAt(run).offset < end);
	lines.push_back(Line{start, 0, std::ceil(ascent + descent + leading), std::ceil(ascent),
		width});
}

void
TextLayout::pvLayoutParagraphs(int32 from, int32 to, std::vector<Line>& lines) const
{
	int32 lineStart = from;
	float x = 0, ink = 0, inkAtBreak = 0;
	int32 breakAt = -1;
	int32 run = fStyles.RunIndexAt(from);
	int32 i = from;
	while (i < to) {
		while (run + 1 < fStyles.CountRuns() && fStyles.RunAt(run + 1).offset <= i)
			run++;
		char byte = fText[i];
		int32 next = NextCharacter(fText, i);
		bool space = byte == ' ' || byte == '\t';
		float advance = pvAdvance(i, next, fStyles.RunAt(run).style, x);
		if (fWrap && !space && byte != '\n' && x + advance > fWidth && i > lineStart) {
			// Break after the last spaces, or before this character if there are none.
			bool atSpace = breakAt > lineStart;
			int32 end = atSpace ? breakAt : i;
			pvAddLine(lineStart, end, atSpace ? inkAtBreak : x, lines);
			lineStart = i = end;
			x = ink = 0;
			breakAt = -1;
			run = fStyles.RunIndexAt(i);
			continue;
		}
		x += advance;
		if (space) {
			breakAt = next;
			inkAtBreak = ink;
		} else
			ink = x;
		i = next;
		if (byte == '\n') {
			pvAddLine(lineStart, i, x, lines);
			lineStart = i;
			x = ink = 0;
			breakAt = -1;
		}
	}
	if (lineStart < to)
		pvAddLine(lineStart, to, x, lines);
}

void
TextLayout::Layout()
{
	fLines.clear();
	Update(0, 0, static_cast<int32>(fText.size()));
}

void
TextLayout::Update(int32 from, int32 removed, int32 added)
{
	fCachedLine = -1;
	int32 length = static_cast<int32>(fText.size());
	if (fLines.empty())
		fLines.push_back(Line{length, 0, 0, 0, 0});
	// The paragraph of the edit starts a line before and after it.
	int32 start = std::clamp(from, int32(0), length);
	while (start > 0 && fText[start - 1] != '\n')
		start--;
	int32 first = LineOf(start);
	int32 delta = added - removed;
	size_t feed = fText.find('\n', size_t(std::clamp(from + added, int32(0), length)));
	int32 end = feed == std::string::npos ? length : int32(feed) + 1;
	int32 kept = CountLines();
	if (feed != std::string::npos) {
		auto lines = fLines.begin();
		kept = int32(std::lower_bound(lines + first, lines + CountLines(), end - delta,
			[](const Line& line, int32 offset) { return line.offset < offset; }) - lines);
	}

	std::vector<Line> fresh;
	pvLayoutParagraphs(start, end, fresh);
	// Text that ends with a line feed, or no text, has an empty last line.
	if (feed == std::string::npos && (length == 0 || fText[length - 1] == '\n'))
		pvAddLine(length, length, 0, fresh);
	fLines.erase(fLines.begin() + first, fLines.begin() + kept);
	fLines.insert(fLines.begin() + first, fresh.begin(), fresh.end());
	for (size_t i = first + fresh.size(); i < fLines.size(); i++)
		fLines[i].offset += delta;
	fLines.back().offset = length;
	pvFixTops(first);
}

void
TextLayout::pvFixTops(int32 from)
{
	for (size_t i = std::max(from, int32(1)); i < fLines.size(); i++)
		fLines[i].top = fLines[i - 1].top + fLines[i - 1].height;
	fLines.back().height = 0;
}

int32
TextLayout::LineOf(int32 offset) const
{
	auto lines = fLines.begin();
	auto after = std::upper_bound(lines, lines + CountLines(), offset,
		[](int32 value, const Line& line) { return value < line.offset; });
	return std::max(int32(after - lines) - 1, int32(0));
}

int32
TextLayout::LineAtY(float y) const
{
	auto lines = fLines.begin();
	auto after = std::upper_bound(lines, lines + CountLines(), y,
		[](float value, const Line& line) { return value < line.top; });
	return std::clamp(int32(after - lines) - 1, int32(0), CountLines() - 1);
}

float
TextLayout::MaxWidth() const
{
	float widest = 0;
	for (int32 i = 0; i < CountLines(); i++)
		widest = std::max(widest, fLines[i].width);
	return widest;
}

void
TextLayout::pvCacheLine(int32 line) const
{
	if (line == fCachedLine)
		return;
	int32 start = fLines[line].offset;
	int32 end = LineEnd(line);
	fCachedX.assign(size_t(end - start + 1), 0.0f);
	float x = 0;
	int32 run = fStyles.RunIndexAt(start);
	for (int32 i = start; i < end;) {
		while (run + 1 < fStyles.CountRuns() && fStyles.RunAt(run + 1).offset <= i)
			run++;
		int32 next = std::min(NextCharacter(fText, i), end);
		for (int32 byte = i; byte < next; byte++)
			fCachedX[byte - start] = x;
		x += pvAdvance(i, next, fStyles.RunAt(run).style, x);
		i = next;
	}
	fCachedX[end - start] = x;
	fCachedLine = line;
}

float
TextLayout::XOf(int32 offset) const
{
	int32 line = LineOf(offset);
	pvCacheLine(line);
	int32 start = fLines[line].offset;
	return fCachedX[std::clamp(offset - start, int32(0), LineEnd(line) - start)];
}

float
TextLayout::WidthOf(int32 offset) const
{
	int32 line = LineOf(offset);
	int32 start = fLines[line].offset;
	int32 end = LineEnd(line);
	if (offset >= end)
		return 0;
	pvCacheLine(line);
	int32 first = CharacterStart(fText, offset);
	int32 next = std::min(NextCharacter(fText, first), end);
	return fCachedX[next - start] - fCachedX[first - start];
}

}	// namespace BPrivate
