#include "AlertView.h"

#include <Font.h>

namespace BPrivate {

namespace {

const float kStripeWidth = 30;
const float kIconLeft = 18;
const float kIconTop = 6;
const float kIconSize = 32;
const float kTextTop = 6;
const float kTextLeftBesideIcon = kIconLeft + kIconSize + 5;
const float kTextLeftAlone = 10;

float
LineHeight(const BFont& font)
{
	font_height height;
	font.GetHeight(&height);
	return height.ascent + height.descent + height.leading;
}

// The length of the UTF-8 character that starts at text[at].
size_t
CharacterLength(const std::string& text, size_t at)
{
	size_t length = 1;
	while (at + length < text.size() && (uint8(text[at + length]) & 0xc0) == 0x80)
		length++;
	return length;
}

// Appends the lines of one paragraph (no newlines) to lines.
void
WrapParagraph(const std::string& paragraph, float width, const BFont& font,
	std::vector<std::string>* lines)
{
	size_t first = lines->size();
	std::string line;
	size_t at = 0;
	while (at < paragraph.size()) {
		// The next word with the spaces before it.
		size_t end = paragraph.find_first_not_of(' ', at);
		end = end == std::string::npos ? paragraph.size() : paragraph.find(' ', end);
		if (end == std::string::npos)
			end = paragraph.size();
		std::string word = paragraph.substr(at, end - at);
		if (font.StringWidth((line + word).c_str()) <= width) {
			line += word;
			at = end;
		} else if (!line.empty()) {
			lines->push_back(line);
			line.clear();
			at = paragraph.find_first_not_of(' ', at);
		} else {
			// A word wider than the line on its own: as much of it as fits.
			size_t length = CharacterLength(paragraph, at);
			while (at + length < end) {
				size_t next = CharacterLength(paragraph, at + length);
				if (font.StringWidth(paragraph.substr(at, length + next).c_str()) > width)
					break;
				length += next;
			}
			lines->push_back(paragraph.substr(at, length));
			at += length;
		}
	}
	// An empty paragraph is an empty line.
	if (!line.empty() || lines->size() == first)
		lines->push_back(line);
}

}	// namespace

AlertView::AlertView(BRect frame, alert_type type, const char* text)
	: BView(frame, "AlertView", B_FOLLOW_ALL, B_WILL_DRAW),
	fType(type),
	fText(text != nullptr ? text : "")
{
	SetViewColor(ui_color(B_PANEL_BACKGROUND_COLOR));
	SetLowColor(ViewColor());
}

float
AlertView::TextLeft() const
{
	return fType == B_EMPTY_ALERT ? kTextLeftAlone : kTextLeftBesideIcon;
}

float
AlertView::IconBottom()
{
	return kIconTop + kIconSize;
}

float
AlertView::TextHeight(float textWidth)
{
	fLines = Wrap(fText, textWidth, *be_plain_font);
	return kTextTop + fLines.size() * LineHeight(*be_plain_font);
}

std::vector<std::string>
AlertView::Wrap(const std::string& text, float width, const BFont& font)
{
	std::vector<std::string> lines;
	size_t start = 0;
	for (;;) {
		size_t end = text.find('\n', start);
		WrapParagraph(text.substr(start, end == std::string::npos ? end : end - start),
			width, font, &lines);
		if (end == std::string::npos)
			return lines;
		start = end + 1;
	}
}

void
AlertView::Draw(BRect)
{
	BRect bounds = Bounds();
	if (fType != B_EMPTY_ALERT) {
		SetHighColor(tint_color(ViewColor(), B_DARKEN_1_TINT));
		FillRect(BRect(0, 0, kStripeWidth - 1, bounds.bottom));
		pvDrawIcon(BRect(kIconLeft, kIconTop, kIconLeft + kIconSize - 1,
			kIconTop + kIconSize - 1));
	}
	SetHighColor(ui_color(B_PANEL_TEXT_COLOR));
	SetLowColor(ViewColor());
	font_height height;
	be_plain_font->GetHeight(&height);
	float lineHeight = height.ascent + height.descent + height.leading;
	float y = kTextTop + height.ascent;
	for (const std::string& line : fLines) {
		DrawString(line.c_str(), BPoint(TextLeft(), y));
		y += lineHeight;
	}
}

void
AlertView::pvDrawIcon(BRect rect)
{
	BPoint centre((rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
	const rgb_color black = make_color(0, 0, 0);
	const rgb_color white = make_color(255, 255, 255);
	switch (fType) {
		case B_INFO_ALERT:
			// A blue disc with a white "i".
			SetHighColor(48, 96, 200);
			FillEllipse(rect);
			SetHighColor(white);
			FillEllipse(BPoint(centre.x, rect.top + 8), 2.5, 2.5);
			FillRect(BRect(centre.x - 2, rect.top + 13, centre.x + 2, rect.bottom - 6));
			break;
		case B_IDEA_ALERT:
			// A light bulb.
			SetHighColor(255, 224, 64);
			FillEllipse(BRect(rect.left + 4, rect.top, rect.right - 4, rect.bottom - 8));
			SetHighColor(black);
			StrokeEllipse(BRect(rect.left + 4, rect.top, rect.right - 4, rect.bottom - 8));
			SetHighColor(128, 128, 128);
			FillRect(BRect(centre.x - 5, rect.bottom - 9, centre.x + 5, rect.bottom - 1));
			break;
		case B_WARNING_ALERT: {
			// A yellow triangle with a black "!".
			BPoint corners[3] = {BPoint(centre.x, rect.top), BPoint(rect.right, rect.bottom),
				BPoint(rect.left, rect.bottom)};
			SetHighColor(255, 203, 0);
			FillPolygon(corners, 3);
			SetHighColor(black);
			StrokePolygon(corners, 3);
			FillRect(BRect(centre.x - 1.5f, rect.top + 10, centre.x + 1.5f, rect.bottom - 9));
			FillRect(BRect(centre.x - 1.5f, rect.bottom - 6, centre.x + 1.5f, rect.bottom - 3));
			break;
		}
		case B_STOP_ALERT: {
			// A red octagon with a white bar.
			const float cut = 9;
			BPoint corners[8] = {BPoint(rect.left + cut, rect.top),
				BPoint(rect.right - cut, rect.top), BPoint(rect.right, rect.top + cut),
				BPoint(rect.right, rect.bottom - cut), BPoint(rect.right - cut, rect.bottom),
				BPoint(rect.left + cut, rect.bottom), BPoint(rect.left, rect.bottom - cut),
				BPoint(rect.left, rect.top + cut)};
			SetHighColor(208, 32, 32);
			FillPolygon(corners, 8);
			SetHighColor(white);
			FillRect(BRect(rect.left + 6, centre.y - 3, rect.right - 6, centre.y + 3));
			break;
		}
		case B_EMPTY_ALERT:
			break;
	}
}

}
