#include "SettingsFile.h"

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <string>

#include <FindDirectory.h>

#include "Formatting.h"

namespace {

const char kSettingsName[] = "Vellum_Settings";
const long kSettingsVersion = 0;

// The settings file's path, with the settings folder created when missing.
bool
SettingsPath(std::string* path)
{
	char folder[100];
	if (find_directory(B_USER_SETTINGS_DIRECTORY, 0, true, folder, sizeof(folder)) != B_OK)
		return false;
	*path = std::string(folder) + "/" + kSettingsName;
	return true;
}

// Reads up to count integers separated by white space from the start of text
// into values; returns how many were read. Values beyond the range of int are
// clamped to it.
int
ScanIntegers(const char* text, int* values, int count)
{
	int read = 0;
	while (read < count) {
		char* end;
		long value = strtol(text, &end, 10);
		if (end == text)
			break;
		if (value > INT_MAX)
			value = INT_MAX;
		else if (value < INT_MIN)
			value = INT_MIN;
		values[read++] = static_cast<int>(value);
		text = end;
	}
	return read;
}

// True when the next line holds the version this program writes.
bool
ReadVersion(FILE* file)
{
	char* line = nullptr;
	size_t capacity = 0;
	bool known = false;
	if (getline(&line, &capacity, file) >= 0) {
		char* end;
		long version = strtol(line, &end, 10);
		known = end != line && version == kSettingsVersion;
	}
	free(line);
	return known;
}

void
ReadRects(FILE* file, BRect* rects, int32 count)
{
	// Shared by all lines, so that a short line keeps the values before it.
	int edges[4] = {int(rects[0].left), int(rects[0].top), int(rects[0].right),
		int(rects[0].bottom)};
	char* line = nullptr;
	size_t capacity = 0;
	for (int32 slot = 0; slot < count; slot++) {
		if (getline(&line, &capacity, file) < 0 || ScanIntegers(line, edges, 4) < 2)
			break;
		rects[slot].Set(edges[0], edges[1], edges[2], edges[3]);
	}
	free(line);
}

}	// namespace

void
ReadWindowRects(BRect* rects, int32 count)
{
	std::string path;
	if (count <= 0 || !SettingsPath(&path))
		return;
	FILE* file = fopen(path.c_str(), "r");
	if (file == nullptr)
		return;
	// A file of another version is not ours to read; it stays open, untouched.
	if (!ReadVersion(file))
		return;
	ReadRects(file, rects, count);
	fclose(file);
}

void
WriteWindowRects(const BRect* rects, int32 count)
{
	std::string path;
	if (!SettingsPath(&path))
		return;
	FILE* file = fopen(path.c_str(), "w");
	if (file == nullptr)
		return;
	fprintf(file, "%d\n", int(kSettingsVersion));
	for (int32 slot = 0; slot < count; slot++)
		fprintf(file, "%s\n", static_cast<const char*>(IntegerRectString(rects[slot])));
	fclose(file);
}
