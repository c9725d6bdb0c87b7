#include "SettingsFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>

#include <FindDirectory.h>
#include <Path.h>

#include "Formatting.h"

namespace {

const char kSettingsName[] = "Vellum_Settings";
const long kSettingsVersion = 0;
const size_t kMostFolderBytes = 100;
// Six short lines: anything past this is not a settings file of ours.
const size_t kMostSettingsBytes = 4096;

// The settings file's path, with the settings folder created when missing. A
// folder path of 100 bytes or more is not used, as the settings always were.
bool
SettingsPath(std::string* path)
{
	BPath folder;
	if (find_directory(B_USER_SETTINGS_DIRECTORY, &folder, true) != B_OK
		|| strlen(folder.Path()) >= kMostFolderBytes)
		return false;
	*path = std::string(folder.Path()) + "/" + kSettingsName;
	return true;
}

// The beginning of the settings file, as one text: only a regular file counts
// (a pipe or a device in its place is never waited for), and no more than a
// settings file ever holds is read. The descriptor stays open through file.
bool
ReadSettingsText(const std::string& path, int* file, std::string* text)
{
	*file = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
	struct stat st;
	if (*file < 0)
		return false;
	if (fstat(*file, &st) != 0 || !S_ISREG(st.st_mode)) {
		close(*file);
		return false;
	}
	char buffer[kMostSettingsBytes];
	ssize_t length;
	while ((length = read(*file, buffer, sizeof(buffer))) < 0 && errno == EINTR) {
	}
	text->assign(buffer, length > 0 ? size_t(length) : 0);
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
ReadVersion(std::istringstream& lines)
{
	std::string line;
	if (!std::getline(lines, line))
		return false;
	char* end;
	long version = strtol(line.c_str(), &end, 10);
	return end != line.c_str() && version == kSettingsVersion;
}

void
ReadRects(std::istringstream& lines, BRect* rects, int32 count)
{
	// Shared by all lines, so that a short line keeps the values before it.
	int edges[4] = {int(rects[0].left), int(rects[0].top), int(rects[0].right),
		int(rects[0].bottom)};
	std::string line;
	for (int32 slot = 0; slot < count; slot++) {
		if (!std::getline(lines, line) || ScanIntegers(line.c_str(), edges, 4) < 2)
			break;
		rects[slot].Set(edges[0], edges[1], edges[2], edges[3]);
	}
}

}	// namespace

void
ReadWindowRects(BRect* rects, int32 count)
{
	std::string path, text;
	int file;
	if (count <= 0 || !SettingsPath(&path) || !ReadSettingsText(path, &file, &text))
		return;
	// A file of another version is not ours to read; it stays open, untouched.
	if (ParseWindowRects(text, rects, count))
		close(file);
}

bool
ParseWindowRects(const std::string& text, BRect* rects, int32 count)
{
	std::istringstream lines(text);
	if (!ReadVersion(lines))
		return false;
	if (count > 0)
		ReadRects(lines, rects, count);
	return true;
}

void
FitWindowRects(BRect* rects, int32 count, BRect screen)
{
	for (int32 slot = 0; slot < count; slot++) {
		rects[slot].right = rects[slot].left + std::min(rects[slot].Width(), screen.Width());
		rects[slot].bottom = rects[slot].top + std::min(rects[slot].Height(), screen.Height());
	}
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
