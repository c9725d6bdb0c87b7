#include "RectView.h"

#include <cstdio>
#include <cstdlib>

#include <StringView.h>
#include <TextControl.h>

namespace {

const char* const kEdgeFields[] = {"Data", "RectTop", "RectRight", "RectBottom"};
const char* const kEdgeLabels[] = {"Left:", "  Top:", "Right:", "Bottom:"};
const char* const kFieldSample = "Bottom:  0000.000 ";
const char* const kCaption = "Coordinates";
const float kGap = 4.0f;
const int32 kTextLength = 64;

struct Edges {
	float left, top, right, bottom;
};

BRect
RectOf(const Edges& edges)
{
	return BRect(edges.left, edges.top, edges.right, edges.bottom);
}

}	// namespace

RectView::RectView(BRect frame, const char* name, uint32 resizingMode, uint32 flags)
	:
	StringAttrView(frame, name, resizingMode, flags)
{
}

void
RectView::Insert(const char* data, long size)
{
	fRect = RectOf(ReadValue<Edges>(data, size));
	ResetData(&fRect);
}

void
RectView::ResetData(const void* rect)
{
	const BRect& edges = *static_cast<const BRect*>(rect);
	const float values[] = {edges.left, edges.top, edges.right, edges.bottom};
	for (int index = 0; index < 4; index++) {
		char text[kTextLength];
		snprintf(text, sizeof(text), "%2.2f", values[index]);
		pvSetFieldText(kEdgeFields[index], text);
	}
}

bool
RectView::IsDataDirty()
{
	long size = 0;
	std::unique_ptr<char[]> value(ExtractDataValue(&size));
	return RectOf(ReadValue<Edges>(value.get(), size))
		!= RectOf(ReadValue<Edges>(GetMasterData(), GetDataSize()));
}

BTextControl*
RectView::MakeNewTextControl(BView* parent, BRect frame, const char* name,
	const char* label, const char* text, uint32 resizingMode, uint32 flags)
{
	BTextControl* control = StringAttrView::MakeNewTextControl(parent, frame, name, label,
		text, resizingMode, flags);
	control->SetDivider(control->StringWidth(label));
	return control;
}

void
RectView::MakeDataPanel(BRect frame, BView* parent)
{
	BRect captionFrame = frame;
	captionFrame.right = captionFrame.left + parent->StringWidth(kCaption) + kGap;
	parent->AddChild(new BStringView(captionFrame, "label", kCaption));

	float width = parent->StringWidth(kFieldSample);
	BRect fieldFrame(captionFrame.right + kGap, frame.top, captionFrame.right + kGap + width,
		frame.bottom);
	for (int index = 0; index < 4; index++) {
		MakeNewTextControl(parent, fieldFrame, kEdgeFields[index], kEdgeLabels[index], "",
			B_FOLLOW_LEFT | B_FOLLOW_TOP, 0);
		fieldFrame.OffsetBy(width + kGap, 0);
	}
}

char*
RectView::ExtractDataValue(long* size)
{
	Edges edges;
	float* values[] = {&edges.left, &edges.top, &edges.right, &edges.bottom};
	for (int index = 0; index < 4; index++) {
		const char* text = GetTextString(kEdgeFields[index]);
		*values[index] = text != nullptr ? atof(text) : 0;
	}
	return NewValueBuffer(edges, size);
}

String
RectView::ExtractDataTextString(const void*)
{
	long size = 0;
	std::unique_ptr<char[]> value(ExtractDataValue(&size));
	Edges edges = ReadValue<Edges>(value.get(), size);
	char text[4 * kTextLength];
	snprintf(text, sizeof(text), "(%2.2f %2.2f %2.2f %2.2f)", edges.left, edges.top,
		edges.right, edges.bottom);
	return String(text);
}

void
RectView::MakeEditable(bool on)
{
	StringAttrView::MakeEditable(on);
	for (int index = 1; index < 4; index++) {
		if (auto control = dynamic_cast<BTextControl*>(FindView(kEdgeFields[index])))
			control->SetEnabled(on);
	}
}
