#include <Box.h>

#include <cmath>

BBox::BBox(BRect frame, const char* name, uint32 resizingMode, uint32 flags,
	border_style border)
	: BView(frame, name, resizingMode, flags | B_WILL_DRAW | B_FRAME_EVENTS),
	fBorder(border)
{
	AdoptParentColors();
	SetFont(be_bold_font);
}

BBox::~BBox() = default;

void
BBox::AttachedToWindow()
{
	AdoptParentColors();
	BView::AttachedToWindow();
}

float
BBox::pvTopEdge() const
{
	if (!fHasLabel)
		return 0;
	font_height height;
	GetFontHeight(&height);
	return std::floor((std::ceil(height.ascent) + std::ceil(height.descent)) / 2);
}

void
BBox::Draw(BRect)
{
	BRect frame = Bounds();
	frame.top += pvTopEdge();
	rgb_color shadow = tint_color(ViewColor(), B_DARKEN_2_TINT);
	rgb_color light = tint_color(ViewColor(), B_LIGHTEN_MAX_TINT);
	switch (fBorder) {
		case B_FANCY_BORDER:
			// An etched line: shadow with light beside it.
			SetHighColor(light);
			StrokeRect(BRect(frame.left + 1, frame.top + 1, frame.right, frame.bottom));
			SetHighColor(shadow);
			StrokeRect(BRect(frame.left, frame.top, frame.right - 1, frame.bottom - 1));
			break;
		case B_PLAIN_BORDER:
			// A raised edge: light at the top and left, shadow at the bottom and right.
			SetHighColor(light);
			StrokeLine(frame.LeftBottom(), frame.LeftTop());
			StrokeLine(frame.RightTop());
			SetHighColor(shadow);
			StrokeLine(BPoint(frame.right, frame.top + 1), frame.RightBottom());
			StrokeLine(BPoint(frame.left + 1, frame.bottom));
			break;
		case B_NO_BORDER:
			break;
	}
	if (!fHasLabel)
		return;
	font_height height;
	GetFontHeight(&height);
	float width = StringWidth(fLabel.c_str());
	BRect behind(6, 0, 6 + width + 7, std::ceil(height.ascent) + std::ceil(height.descent));
	SetHighColor(ViewColor());
	if (ViewColor() != B_TRANSPARENT_COLOR)
		FillRect(behind);
	SetHighColor(ui_color(B_PANEL_TEXT_COLOR));
	SetDrawingMode(B_OP_OVER);
	DrawString(fLabel.c_str(), BPoint(10, std::ceil(height.ascent)));
	SetDrawingMode(B_OP_COPY);
}

void
BBox::FrameResized(float, float)
{
	// The border runs along the edges, so all of it moves.
	Invalidate();
}

void
BBox::SetBorder(border_style border)
{
	if (border == fBorder)
		return;
	fBorder = border;
	Invalidate();
}

void
BBox::SetLabel(const char* label)
{
	fHasLabel = label != nullptr;
	fLabel = label != nullptr ? label : "";
	Invalidate();
}

const char*
BBox::Label() const
{
	return fHasLabel ? fLabel.c_str() : nullptr;
}

void
BBox::GetPreferredSize(float* width, float* height)
{
	float labelWidth = fHasLabel ? std::ceil(StringWidth(fLabel.c_str())) + 20 : 0;
	if (width != nullptr)
		*width = std::max(Bounds().Width(), labelWidth);
	if (height != nullptr)
		*height = std::max(Bounds().Height(), pvTopEdge() * 2 + 4);
}
