#include <StringView.h>

#include <cmath>

BStringView::BStringView(BRect frame, const char* name, const char* text,
	uint32 resizingMode, uint32 flags)
	: BView(frame, name, resizingMode, flags | B_WILL_DRAW),
	fText(text != nullptr ? text : "")
{
	AdoptParentColors();
}

BStringView::~BStringView() = default;

void
BStringView::AttachedToWindow()
{
	AdoptParentColors();
	BView::AttachedToWindow();
}

void
BStringView::Draw(BRect)
{
	if (fText.empty())
		return;
	BRect bounds = Bounds();
	font_height height;
	GetFontHeight(&height);
	float width = StringWidth(fText.c_str());
	float x = bounds.left;
	if (fAlignment == B_ALIGN_RIGHT)
		x = bounds.right - width;
	else if (fAlignment == B_ALIGN_CENTER)
		x = bounds.left + std::floor((bounds.Width() + 1 - width) / 2);
	float text = std::ceil(height.ascent) + std::ceil(height.descent);
	float baseline = std::floor(bounds.top + (bounds.Height() + 1 - text) / 2
		+ std::ceil(height.ascent));
	DrawString(fText.c_str(), BPoint(x, baseline));
}

void
BStringView::GetPreferredSize(float* width, float* height)
{
	font_height fontHeight;
	GetFontHeight(&fontHeight);
	if (width != nullptr)
		*width = std::ceil(StringWidth(fText.c_str())) + 1;
	if (height != nullptr)
		*height = std::ceil(fontHeight.ascent + fontHeight.descent + fontHeight.leading);
}

void
BStringView::SetText(const char* text)
{
	std::string value = text != nullptr ? text : "";
	if (value == fText)
		return;
	fText = value;
	Invalidate();
}

const char*
BStringView::Text() const
{
	return fText.c_str();
}

void
BStringView::SetAlignment(alignment flag)
{
	if (flag == fAlignment)
		return;
	fAlignment = flag;
	Invalidate();
}
