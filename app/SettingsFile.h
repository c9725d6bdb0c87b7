#ifndef SETTINGS_FILE_H
#define SETTINGS_FILE_H

#include <Rect.h>
#include <SupportDefs.h>

#include <string>

// The settings file "Vellum_Settings" in the user settings folder: a version
// line "0", then one line "left top right bottom" per remembered window.

// Reads up to count rectangles into rects in order. Reading ends at the first
// line with fewer than two numbers; a line with two or three numbers keeps the
// trailing values of the line before it (of rects[0] for the first line). A
// missing file or another version leaves rects as they are.
void ReadWindowRects(BRect* rects, int32 count);

// Cuts every rectangle larger than screen down to its size, keeping its
// top-left corner: a damaged file or one from a larger screen never asks for
// a window larger than can be shown.
void FitWindowRects(BRect* rects, int32 count, BRect screen);

// Reads the rectangles from text, the file's contents, as ReadWindowRects
// does; false, leaving rects as they are, when text does not begin with the
// version line of this program.
bool ParseWindowRects(const std::string& text, BRect* rects, int32 count);

// Writes the version line and count rectangles; failures are silent.
void WriteWindowRects(const BRect* rects, int32 count);

#endif
