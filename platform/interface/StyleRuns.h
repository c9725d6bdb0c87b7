#ifndef _STYLE_RUNS_H
#define _STYLE_RUNS_H

#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include <Font.h>
#include <GraphicsDefs.h>

namespace BPrivate {

// The font and colour of a stretch of text.
struct TextStyle {
	BFont font;
	rgb_color color;

	bool operator==(const TextStyle& other) const
	{
		return font == other.font && color == other.color;
	}
};

// The styles of a text as runs: each run starts at a byte offset and lasts up
// to the next one. The first run always starts at 0, neighbours differ, and
// styles are shared by index so that character widths are measured once per
// style.
class StyleRuns {
public:
	struct Run {
		int32 offset;
		int32 style;
	};

	explicit StyleRuns(const TextStyle& initial);

	int32 CountRuns() const { return static_cast<int32>(fRuns.size()); }
	const Run& RunAt(int32 index) const { return fRuns[index]; }
	// The index of the run that holds offset.
	int32 RunIndexAt(int32 offset) const;
	int32 StyleIndexAt(int32 offset) const { return fRuns[RunIndexAt(offset)].style; }
	const TextStyle& Style(int32 index) const { return fStyles[index]->style; }
	const TextStyle& StyleAt(int32 offset) const { return Style(StyleIndexAt(offset)); }
	const font_height& Height(int32 index) const { return fStyles[index]->height; }
	// The advance of the UTF-8 character of length bytes in style index.
	float CharWidth(int32 index, const char* bytes, int32 length) const;

	// length bytes inserted at offset take style, or with none the style of
	// the character before them (of the first one at the start).
	void Insert(int32 offset, int32 length, const TextStyle* style);
	// The bytes from..to removed from a text now textLength long.
	void Remove(int32 from, int32 to, int32 textLength);
	// Each style in from..to becomes what change makes of it.
	void Change(int32 from, int32 to,
		const std::function<TextStyle(const TextStyle&)>& change);
	// One style for everything.
	void Reset(const TextStyle& style);

private:
	struct Entry {
		TextStyle style;
		font_height height;
		mutable float ascii[128];
		mutable std::unordered_map<uint32, float> others;
	};

	int32 pvStyleIndex(const TextStyle& style);
	void pvSplitAt(int32 offset);
	void pvNormalize();

	std::vector<Run> fRuns;
	std::vector<std::unique_ptr<Entry>> fStyles;
};

}	// namespace BPrivate

#endif
