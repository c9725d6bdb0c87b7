#include "DateView.h"

#include <TextControl.h>
#include <parsedate.h>

#include "Formatting.h"

namespace {

const float kGap = 8.0f;

}	// namespace

DateView::DateView(BRect frame, const char* name, uint32 resizingMode, uint32 flags)
	:
	StringAttrView(frame, name, resizingMode, flags)
{
}

void
DateView::Insert(const char* data, long size)
{
	time_t time = ReadValue<int32>(data, size);
	pvSetFieldText("Data", datestring(time));
	pvSetFieldText("AttrTime", timestring(time));
}

bool
DateView::IsDataDirty()
{
	return DataDiffers<int32>();
}

void
DateView::MakeDataPanel(BRect frame, BView* parent)
{
	float middle = (frame.left + frame.right) / 2;
	MakeNewTextControl(parent, BRect(frame.left, frame.top, middle - kGap, frame.bottom),
		"Data", "Date:", "", B_FOLLOW_LEFT | B_FOLLOW_TOP, 0);
	MakeNewTextControl(parent, BRect(middle, frame.top, frame.right, frame.bottom),
		"AttrTime", "Time:", "", B_FOLLOW_LEFT | B_FOLLOW_TOP, 0);
}

// Date and time are read together, relative to now.
char*
DateView::ExtractDataValue(long* size)
{
	String text(GetTextString("Data"));
	text << "  " << GetTextString("AttrTime");
	return NewValueBuffer(static_cast<int32>(parsedate(text, -1)), size);
}
