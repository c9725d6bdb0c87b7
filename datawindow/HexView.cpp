#include "HexView.h"

#include <cstring>

#include <ScrollBar.h>
#include <StringView.h>
#include <TextView.h>
#include <Window.h>

#include "DataWindow.h"
#include "DisplayStrings.h"
#include "HexEditView.h"
#include "NewScroller.h"
#include "StatusError.h"
#include "Utils.h"
#include "ViewParts.h"

namespace {

const float kInteriorInset = 2.0f;
const float kContentInset = 14.0f;
const float kEditorInset = 4.0f;
const float kScrollerBorder = 2.0f;
const float kModeLabelHeight = 14.0f;

}	// namespace

HexView::HexView(BRect frame, const char* name, uint32 resizingMode, uint32 flags)
	:
	BView(frame, name, resizingMode, flags),
	fEditor(nullptr)
{
}

void
HexView::AttachedToWindow()
{
	BView::AttachedToWindow();
	if (fEditor != nullptr)
		return;
	BView* interior = MakeBoxedInterior(this, kInteriorInset);
	BRect frame = interior->Bounds().InsetByCopy(kContentInset, kContentInset);
	frame.top += MakeViewHeader(frame, interior) + 1;
	frame.InsetBy(kEditorInset, kEditorInset);

	// The editor, with a line under it that says whether it edits.
	BRect labelFrame = frame;
	labelFrame.top = frame.bottom - kModeLabelHeight;
	frame.bottom = labelFrame.top - kEditorInset;
	BStringView* label = new BStringView(labelFrame, "EditMode", "",
		B_FOLLOW_LEFT_RIGHT | B_FOLLOW_BOTTOM);
	label->SetViewColor(interior->ViewColor());
	interior->AddChild(label);

	frame.InsetBy(kScrollerBorder, kScrollerBorder);
	frame.right -= B_V_SCROLL_BAR_WIDTH + 1;
	fEditor = new HexEditView(frame, "HexEditView", B_FOLLOW_ALL, B_WILL_DRAW);
	fEditor->SetViewColor(interior->ViewColor());
	fEditor->SetLowColor(interior->ViewColor());
	NewScroller* scroller = new NewScroller("Hex Scroller", fEditor, B_FOLLOW_ALL, 0, false,
		true, B_FANCY_BORDER);
	scroller->SetViewColor(interior->ViewColor());
	interior->AddChild(scroller);
	fEditor->SetModeLabel(label);
	MakeEditable(false);
}

void
HexView::MakeFocus(bool focus)
{
	if (fEditor != nullptr)
		fEditor->MakeFocus(focus);
	else
		BView::MakeFocus(focus);
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

void
HexView::Insert(const char* data, long size)
{
	if (fEditor == nullptr)
		return;
	if (size < 0)
		size = data != nullptr ? long(strlen(data)) : 0;
	fEditor->InsertData(data, int32(size), 0);
	NewScroller* scroller = dynamic_cast<NewScroller*>(FindView("Hex Scroller"));
	if (scroller == nullptr)
		throw StatusError(B_NAME_NOT_FOUND, "a hex view without its scroller");
	scroller->Sync();
}

void
HexView::SetText(const char* data, long size)
{
	if (fEditor == nullptr)
		return;
	fEditor->SelectAll();
	fEditor->Clear();
	Insert(data, size);
}

bool
HexView::IsEditable() const
{
	return fEditor != nullptr && fEditor->IsEditable();
}

void
HexView::MakeEditable(bool on)
{
	if (fEditor != nullptr)
		fEditor->MakeEditable(on);
}

void
HexView::MessageReceived(BMessage* message)
{
	switch (message->what) {
		case B_COPY:
		case B_CUT:
		case B_PASTE:
		case 127:
			if (fEditor != nullptr)
				fEditor->MessageReceived(message);
			return;
		case 'Chgd':
			return;
		case 'RfsH':
			pvRefreshHeader(message);
			return;
	}
	BView::MessageReceived(message);
}

// The header again from the type, size and name of the message, without the
// column captions that the data window adds.
void
HexView::pvRefreshHeader(BMessage* msg)
{
	DataWindow* window = dynamic_cast<DataWindow*>(Window());
	if (window == nullptr)
		throw StatusError(B_BAD_VALUE, "a hex view outside a data window");
	int32 type, size;
	status_t status = msg->FindInt32("type", &type);
	if (status == B_OK)
		status = msg->FindInt32("size", &size);
	if (status != B_OK)
		throw StatusError(status, "a header refresh without type or size");
	const char* name = nullptr;
	if (!StatusOK(msg->FindPointer("name", (void**)&name),
			"msg->FindPointer(\"name\", (void**)&name)", "Source/HexView", 198))
		name = window->GetDataName();
	SetHeader(MakeHeaderString(uint32(type), uint32(size), name));
}
