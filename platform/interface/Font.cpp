#include <Font.h>

#include <cstdio>
#include <cstring>

#include "CanvasLink.h"

namespace {

// The system fonts: a sans with Helvetica's metrics at 10 (the size the
// windows' geometry is laid out for), its bold at 12, a monospace at 12. The
// Liberation fonts have those metrics; where they are missing the desktop's
// font matching picks its nearest sans and monospace.
const char kSansFamily[] = "Liberation Sans";
const char kFixedFamily[] = "Liberation Mono";
const float kPlainSize = 10.0f;
const float kBoldSize = 12.0f;
const float kFixedSize = 12.0f;

BFont
MakeFont(const char* family, const char* style, float size)
{
	BFont font;
	font.SetFamilyAndStyle(family, style);
	font.SetSize(size);
	return font;
}

const BFont sPlainFont = MakeFont(kSansFamily, "Regular", kPlainSize);
const BFont sBoldFont = MakeFont(kSansFamily, "Bold", kBoldSize);
const BFont sFixedFont = MakeFont(kFixedFamily, "Regular", kFixedSize);

}	// namespace

const BFont* be_plain_font = &sPlainFont;
const BFont* be_bold_font = &sBoldFont;
const BFont* be_fixed_font = &sFixedFont;

BFont::BFont()
	: fFamily(kSansFamily),
	fStyle("Regular"),
	fSize(kPlainSize),
	fFace(B_REGULAR_FACE)
{
}

BFont::BFont(const BFont* font)
	: BFont(font != nullptr ? *font : BFont())
{
}

status_t
BFont::SetFamilyAndStyle(const font_family family, const font_style style)
{
	// Checking the family needs the font engine; the built-in fonts are known.
	if (family != nullptr && strcmp(family, kSansFamily) != 0
		&& strcmp(family, kFixedFamily) != 0 && !BPrivate::FontFamilyExists(family))
		return B_NAME_NOT_FOUND;
	if (family != nullptr)
		fFamily = family;
	if (style != nullptr) {
		fStyle = style;
		bool bold = strstr(style, "Bold") != nullptr;
		bool italic = strstr(style, "Oblique") != nullptr || strstr(style, "Italic") != nullptr;
		fFace = (bold ? B_BOLD_FACE : 0) | (italic ? B_ITALIC_FACE : 0);
		if (fFace == 0)
			fFace = B_REGULAR_FACE;
	}
	return B_OK;
}

void
BFont::SetFamilyAndFace(const font_family family, uint16 face)
{
	if (family != nullptr)
		fFamily = family;
	SetFace(face);
}

void
BFont::GetFamilyAndStyle(font_family* family, font_style* style) const
{
	if (family != nullptr)
		snprintf(*family, sizeof(font_family), "%s", fFamily.c_str());
	if (style != nullptr)
		snprintf(*style, sizeof(font_style), "%s", fStyle.c_str());
}

void
BFont::SetSize(float size)
{
	if (size > 0)
		fSize = size;
}

void
BFont::SetFace(uint16 face)
{
	fFace = face != 0 ? face : uint16(B_REGULAR_FACE);
	bool bold = (fFace & B_BOLD_FACE) != 0;
	bool italic = (fFace & B_ITALIC_FACE) != 0;
	fStyle = bold ? (italic ? "Bold Italic" : "Bold") : (italic ? "Italic" : "Regular");
}

bool
BFont::IsFixed() const
{
	return fSpacing == B_FIXED_SPACING || fFamily == kFixedFamily
		|| BPrivate::FontIsFixed(BPrivate::FontSpecOf(*this));
}

float
BFont::StringWidth(const char* string) const
{
	return string != nullptr ? StringWidth(string, static_cast<int32>(strlen(string))) : 0;
}

float
BFont::StringWidth(const char* string, int32 length) const
{
	return BPrivate::FontStringWidth(BPrivate::FontSpecOf(*this), string, length);
}

void
BFont::GetStringWidths(const char* stringArray[], const int32 lengthArray[],
	int32 numStrings, float widthArray[]) const
{
	for (int32 i = 0; i < numStrings; i++)
		widthArray[i] = StringWidth(stringArray[i], lengthArray[i]);
}

void
BFont::GetHeight(font_height* height) const
{
	if (height != nullptr)
		BPrivate::FontGetHeight(BPrivate::FontSpecOf(*this), &height->ascent,
			&height->descent, &height->leading);
}

bool
BFont::operator==(const BFont& other) const
{
	return fFamily == other.fFamily && fStyle == other.fStyle && fSize == other.fSize
		&& fFace == other.fFace && fSpacing == other.fSpacing;
}

void
BFont::PrintToStream() const
{
	printf("BFont: %s %s %g\n", fFamily.c_str(), fStyle.c_str(), fSize);
}
