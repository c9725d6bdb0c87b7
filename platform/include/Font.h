#ifndef _FONT_H
#define _FONT_H

#include <string>

#include <GraphicsDefs.h>

#define B_FONT_FAMILY_LENGTH 63
#define B_FONT_STYLE_LENGTH 63
typedef char font_family[B_FONT_FAMILY_LENGTH + 1];
typedef char font_style[B_FONT_STYLE_LENGTH + 1];

enum {
	B_ITALIC_FACE = 0x0001,
	B_UNDERSCORE_FACE = 0x0002,
	B_NEGATIVE_FACE = 0x0004,
	B_OUTLINED_FACE = 0x0008,
	B_STRIKEOUT_FACE = 0x0010,
	B_BOLD_FACE = 0x0020,
	B_REGULAR_FACE = 0x0040
};

enum {
	B_FONT_FAMILY_AND_STYLE = 0x0001,
	B_FONT_SIZE = 0x0002,
	B_FONT_SHEAR = 0x0004,
	B_FONT_ROTATION = 0x0008,
	B_FONT_SPACING = 0x0010,
	B_FONT_ENCODING = 0x0020,
	B_FONT_FACE = 0x0040,
	B_FONT_FLAGS = 0x0080,
	B_FONT_ALL = 0x00ff
};

enum {
	B_CHAR_SPACING = 0,
	B_STRING_SPACING = 1,
	B_BITMAP_SPACING = 2,
	B_FIXED_SPACING = 3
};

struct font_height {
	float ascent;
	float descent;
	float leading;
};

// A font by family, style and size in pixels. Plain and bold are the desktop's
// sans serif (DejaVu Sans), the fixed font is DejaVu Sans Mono.
class BFont {
public:
	BFont();
	BFont(const BFont& font) = default;
	BFont(const BFont* font);
	BFont& operator=(const BFont& font) = default;

	status_t SetFamilyAndStyle(const font_family family, const font_style style);
	void SetFamilyAndFace(const font_family family, uint16 face);
	void GetFamilyAndStyle(font_family* family, font_style* style) const;
	void SetSize(float size);
	float Size() const { return fSize; }
	void SetFace(uint16 face);
	uint16 Face() const { return fFace; }
	void SetSpacing(uint8 spacing) { fSpacing = spacing; }
	uint8 Spacing() const { return fSpacing; }
	bool IsFixed() const;

	float StringWidth(const char* string) const;
	float StringWidth(const char* string, int32 length) const;
	void GetStringWidths(const char* stringArray[], const int32 lengthArray[],
		int32 numStrings, float widthArray[]) const;
	void GetHeight(font_height* height) const;

	const char* Family() const { return fFamily.c_str(); }
	const char* Style() const { return fStyle.c_str(); }

	bool operator==(const BFont& other) const;
	bool operator!=(const BFont& other) const { return !(*this == other); }

	void PrintToStream() const;

private:
	std::string fFamily;
	std::string fStyle;
	float fSize;
	uint16 fFace;
	uint8 fSpacing = B_BITMAP_SPACING;
};

extern const BFont* be_plain_font;
extern const BFont* be_bold_font;
extern const BFont* be_fixed_font;

#endif
