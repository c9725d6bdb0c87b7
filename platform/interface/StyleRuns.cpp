#include "StyleRuns.h"

#include <algorithm>
#include <cstring>

namespace BPrivate {

namespace {

uint32
CodeOf(const char* bytes, int32 length)
{
	uint32 code = 0;
	for (int32 i = 0; i < length; i++)
		code = (code << 8) | uchar(bytes[i]);
	return code;
}

}	// namespace

StyleRuns::StyleRuns(const TextStyle& initial)
{
	fRuns.push_back(Run{0, pvStyleIndex(initial)});
}

int32
StyleRuns::RunIndexAt(int32 offset) const
{
	auto after = std::upper_bound(fRuns.begin(), fRuns.end(), offset,
		[](int32 value, const Run& run) { return value < run.offset; });
	return std::max(int32(after - fRuns.begin()) - 1, int32(0));
}

float
StyleRuns::CharWidth(int32 index, const char* bytes, int32 length) const
{
	const Entry& entry = *fStyles[index];
	if (length == 1 && uchar(bytes[0]) < 128) {
		float& width = entry.ascii[uchar(bytes[0])];
		if (width < 0)
			width = entry.style.font.StringWidth(bytes, 1);
		return width;
	}
	uint32 code = CodeOf(bytes, length);
	auto found = entry.others.find(code);
	if (found == entry.others.end())
		found = entry.others.emplace(code, entry.style.font.StringWidth(bytes, length)).first;
	return found->second;
}

int32
StyleRuns::pvStyleIndex(const TextStyle& style)
{
	for (size_t i = 0; i < fStyles.size(); i++) {
		if (fStyles[i]->style == style)
			return int32(i);
	}
	auto entry = std::make_unique<Entry>();
	entry->style = style;
	style.font.GetHeight(&entry->height);
	std::fill(std::begin(entry->ascii), std::end(entry->ascii), -1.0f);
	fStyles.push_back(std::move(entry));
	return int32(fStyles.size() - 1);
}

void
StyleRuns::pvSplitAt(int32 offset)
{
	int32 index = RunIndexAt(offset);
	if (fRuns[index].offset != offset)
		fRuns.insert(fRuns.begin() + index + 1, Run{offset, fRuns[index].style});
}

void
StyleRuns::pvNormalize()
{
	// Of runs at one offset the last counts; equal neighbours merge.
	std::vector<Run> runs;
	for (const Run& run : fRuns) {
		if (!runs.empty() && runs.back().offset == run.offset)
			runs.back().style = run.style;
		else
			runs.push_back(run);
		if (runs.size() > 1 && runs[runs.size() - 2].style == runs.back().style)
			runs.pop_back();
	}
	runs.front().offset = 0;
	fRuns = std::move(runs);
}

void
StyleRuns::Insert(int32 offset, int32 length, const TextStyle* style)
{
	if (length <= 0)
		return;
	// A run that starts at offset moves on; the new bytes extend the run before.
	for (size_t i = 1; i < fRuns.size(); i++) {
		if (fRuns[i].offset >= offset)
			fRuns[i].offset += length;
	}
	if (style != nullptr)
		Change(offset, offset + length, [style](const TextStyle&) { return *style; });
}

void
StyleRuns::Remove(int32 from, int32 to, int32 textLength)
{
	if (to <= from)
		return;
	for (size_t i = 1; i < fRuns.size(); i++) {
		if (fRuns[i].offset >= to)
			fRuns[i].offset -= to - from;
		else if (fRuns[i].offset > from)
			fRuns[i].offset = from;
	}
	// Runs left at the end of the text style nothing.
	while (fRuns.size() > 1 && fRuns.back().offset >= textLength)
		fRuns.pop_back();
	pvNormalize();
}

void
StyleRuns::Change(int32 from, int32 to,
	const std::function<TextStyle(const TextStyle&)>& change)
{
	if (to <= from)
		return;
	pvSplitAt(from);
	pvSplitAt(to);
	for (Run& run : fRuns) {
		if (run.offset >= from && run.offset < to)
			run.style = pvStyleIndex(change(Style(run.style)));
	}
	pvNormalize();
}

void
StyleRuns::Reset(const TextStyle& style)
{
	fRuns.assign(1, Run{0, pvStyleIndex(style)});
}

}	// namespace BPrivate
