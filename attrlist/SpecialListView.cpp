#include "SpecialListView.h"

#include <strings.h>

#include <memory>
#include <vector>

#include <Alert.h>
#include <Clipboard.h>
#include <Message.h>
#include <Window.h>

#include "AttrPackage.h"
#include "AttrView.h"
#include "BrindleFile.h"
#include "CMultiTextItem.h"
#include "GenericAlerts.h"
#include "ListColors.h"
#include "StatusError.h"

namespace {

const uint32 kSelectByName = 'SelI';
const uint32 kScrollToSelection = 'ScrS';
const uint32 kDataMessage = 'DATA';
const uint32 kCopy = 'COPY';
const uint32 kCut = 'CCUT';
const uint32 kClear = B_DELETE;
const uint32 kPaste = 'PSTE';

const char* const kClipboardText = "text";
const char* const kClipboardAttribute = "VellumAttr";

}	// namespace

bool
OKToDelete(const char* name)
{
	String text;
	text.SetToFormat("Delete the attribute \"%s\"?", name);
	BAlert* alert = new BAlert("DeleteOK", text, "Cancel", "OK", nullptr,
		B_WIDTH_AS_USUAL, B_WARNING_ALERT);
	return alert->Go() == 1;
}

SpecialListView::SpecialListView(BRect frame, const char* name, list_view_type type,
	uint32 resizingMode, uint32 flags)
	:
	BListView(frame, name, type, resizingMode, flags)
{
}

void
SpecialListView::AttachedToWindow()
{
	BListView::AttachedToWindow();
	SetViewColor(B_TRANSPARENT_32_BIT);
}

void
SpecialListView::MessageReceived(BMessage* message)
{
	switch (message->what) {
		case kDataMessage:
			if (Window() != nullptr)
				Window()->PostMessage(message);
			break;
		case kSelectByName:
		{
			const char* name;
			if (message->FindString("attrName", &name) == B_OK)
				SelectByName(name);
			break;
		}
		case kScrollToSelection:
			ScrollToSelection();
			break;
		case kCopy:
			if (CurrentSelection(0) >= 0)
				CopyToClipboard(CurrentSelection(0));
			break;
		case kCut:
		case kClear:
			pvDeleteSelection(message->what == kCut);
			break;
		case kPaste:
			CopyFromClipboard();
			break;
	}
}

void
SpecialListView::KeyDown(const char* bytes, int32 numBytes)
{
	if (numBytes > 0 && bytes[0] == B_ENTER)
		Select(CurrentSelection(0));
	BListView::KeyDown(bytes, numBytes);
}

void
SpecialListView::Draw(BRect updateRect)
{
	rgb_color high = HighColor();
	if (!IsFocus())
		SetHighColor(LowColor());
	BListView::Draw(updateRect);
	pvStrokeFrame(pvFrameColor());
	SetHighColor(high);
}

void
SpecialListView::ScrollTo(BPoint where)
{
	if (!IsFocus())
		pvStrokeFrame(LowColor());
	BListView::ScrollTo(where);
	Invalidate();
}

void
SpecialListView::MakeFocus(bool focus)
{
	BListView::MakeFocus(focus);
	Invalidate();
}

void
SpecialListView::SelectByName(const char* name)
{
	int32 count = CountItems();
	for (int32 index = 0; index < count; index++) {
		auto row = dynamic_cast<CMultiTextItem*>(ItemAt(index));
		if (row != nullptr
			&& strcasecmp(row->GetString(CMultiTextItem::kNameColumn), name) == 0) {
			Select(index, false);
			return;
		}
	}
	Select(0, false);
}

rgb_color
SpecialListView::pvFrameColor() const
{
	return IsFocus() ? BlueColor : LowColor();
}

void
SpecialListView::pvStrokeFrame(rgb_color color)
{
	rgb_color high = HighColor();
	SetHighColor(color);
	StrokeRect(Bounds(), B_SOLID_HIGH);
	SetHighColor(high);
}

void
SpecialListView::CopyToClipboard(long index)
{
	auto row = dynamic_cast<CMultiTextItem*>(ItemAt(index));
	if (row == nullptr)
		throw StatusError(B_BAD_INDEX, "copying a row that is no attribute");
	AttrPackage package(row->GetString(CMultiTextItem::kNameColumn), row->AttributeType(),
		row->GetDataSize(), row->GetData());
	std::vector<char> flattened(package.FlattenedSize());
	package.Flatten(flattened.data(), flattened.size());

	if (!be_clipboard->Lock())
		return;
	be_clipboard->Clear();
	BMessage* clip = be_clipboard->Data();
	if (clip == nullptr) {
		be_clipboard->Unlock();
		throw StatusError(B_NO_INIT, "a clipboard without its data");
	}
	clip->what = kDataMessage;
	clip->AddString(kClipboardText, row->GetAttributeString());
	clip->AddData(kClipboardAttribute, B_RAW_TYPE, flattened.data(), flattened.size());
	be_clipboard->Commit();
	be_clipboard->Unlock();
}

void
SpecialListView::CopyFromClipboard()
{
	AttrView* panel = AttrView::Enclosing(this);
	if (panel == nullptr)
		throw StatusError(B_NAME_NOT_FOUND, "pasting into a list outside its panel");
	if (!be_clipboard->Lock())
		return;
	AttrPackage package;
	const void* flattened;
	ssize_t size;
	BMessage* clip = be_clipboard->Data();
	bool found = clip != nullptr
		&& clip->FindData(kClipboardAttribute, B_RAW_TYPE, &flattened, &size) == B_OK
		&& package.Unflatten(flattened, size) == B_OK;
	be_clipboard->Unlock();
	if (!found)
		return;

	AttrData data(package.Name(), package.Type(), package.Data(), package.Size());
	panel->AddNewAttribute(data);
	panel->WriteAttribute(package.Name(), package.Type(), package.Data(), package.Size());
	panel->UpdateTitle(-1);
}

void
SpecialListView::pvDeleteSelection(bool cut)
{
	int32 index = CurrentSelection(0);
	auto row = dynamic_cast<CMultiTextItem*>(ItemAt(index));
	if (row == nullptr)
		return;
	String name(row->GetString(CMultiTextItem::kNameColumn));
	if (!OKToDelete(name))
		return;

	// The node of the inspector that hosts the panel.
	AttrView* panel = AttrView::Enclosing(this);
	BrindleFile* file = panel != nullptr ? panel->File() : nullptr;
	if (file != nullptr && file->OpenOK(true)) {
		status_t status = B_NOT_ALLOWED;
		if (file->LockOK()) {
			if (cut)
				CopyToClipboard(index);
			status = file->RemoveAttr(name);
		}
		entry_ref ref;
		file->GetRef(&ref);
		file->Close();
		if (status == B_OK) {
			BMessage reread(B_REFS_RECEIVED);
			reread.AddRef("refs", &ref);
			Window()->PostMessage(&reread);
			return;
		}
	}
	FailureAlert("The attribute was not removed.");
}
