#include "HexView.h"

#include <TextView.h>

#include "ViewParts.h"

namespace {

const float kInteriorInset = 2.0f;
const float kContentInset = 14.0f;

}	// namespace

HexView::HexView(BRect frame, const char* name, uint32 resizingMode, uint32 flags)
	:
	BView(frame, name, resizingMode, flags)
{
}

void
HexView::AttachedToWindow()
{
	BView::AttachedToWindow();
	if (FindView("BoxInterior") != nullptr)
		return;
	BView* interior = MakeBoxedInterior(this, kInteriorInset);
	MakeViewHeader(interior->Bounds().InsetByCopy(kContentInset, kContentInset), interior);
}

void
HexView::SetHeader(const char* text)
{
	if (auto header = dynamic_cast<BTextView*>(FindView("Header")))
		header->SetText(text);
}

void
HexView::SetTitleAndType(const char*, uint32, long)
{
}

// Without an editor there is nothing to show a value in.
void
HexView::Insert(const char*, long)
{
}

void
HexView::SetText(const char* data, long size)
{
	Insert(data, size);
}

bool
HexView::IsEditable() const
{
	return false;
}

void
HexView::MakeEditable(bool)
{
}
