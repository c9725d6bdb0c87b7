#include "AttrView.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

#include <Message.h>
#include <ScrollView.h>
#include <Window.h>
#include <fs_attr.h>

#include "BrindleFile.h"
#include "CMultiTextItem.h"
#include "Formatting.h"
#include "FileHost.h"
#include "ItemView.h"
#include "ListColors.h"
#include "PanelColors.h"
#include "SpecialListView.h"
#include "StatusError.h"

namespace {

const char* const kContainerName = "AttrContainer";
const char* const kHeadersName = "Headers";
const char* const kListName = "attrList";
const char* const kScrollName = "ScrollList";
const char* const kEditorName = "ItemEditor";

const uint32 kSelectionCode = 'Selc';
const uint32 kInvocationCode = 'Invk';
const uint32 kDataCode = 'DATA';

// Reads an attribute whatever its type.
const type_code kAnyTypeCode = '****';

// The container keeps this much of the panel's border free.
const float kContainerInset = 2.0f;
// The scroll view's fancy border.
const float kScrollBorder = 2.0f;

// The side of the square bitmap each icon type is drawn at in its row.
float
IconRowHeight(uint32 type, int32 size)
{
	switch (type) {
		case 'MICN':
			return 16.0f;
		case 'ICON':
			return 32.0f;
		default:
			return CMultiTextItem::IconSide(size);
	}
}

}	// namespace

AttrView::AttrView(BRect frame, const char* name, uint32 resizingMode, uint32 flags,
	border_style border)
	:
	BBox(frame, name, resizingMode, flags, border)
{
}

AttrView::~AttrView()
{
	// Rows belong to the panel, the list only points at them.
	if (FindView(kListName) != nullptr)
		pvEmptyList();
}

void
AttrView::AttachedToWindow()
{
	BBox::AttachedToWindow();
	if (FindView(kContainerName) == nullptr)
		pvBuildViews();
}

void
AttrView::MessageReceived(BMessage* message)
{
	switch (message->what) {
		case B_DELETE:
		case 'CCUT':
		case 'COPY':
		case 'PSTE':
			DoEditMenu(message);
			break;
		case kDataCode:
			if (Window() != nullptr)
				Window()->PostMessage(message);
			break;
		default:
			BBox::MessageReceived(message);
			break;
	}
}

void
AttrView::MakeFocus(bool focus)
{
	pvList()->MakeFocus(focus);
}

void
AttrView::AddAttrInfo(entry_ref* ref)
{
	BWindow* window = Window();
	if (window != nullptr)
		window->DisableUpdates();
	pvEmptyList();

	int32 count = 0;
	BrindleFile file(ref);
	if (file.OpenOK(false)) {
		if (window != nullptr)
			window->BeginViewTransaction();
		// The lock is advisory: a node that another holds is read all the same.
		file.LockOK();
		count = pvReadAttributes(file);
		file.Close();
		if (window != nullptr)
			window->EndViewTransaction();
	}

	if (window != nullptr)
		window->EnableUpdates();
	ShowView(kHeadersName);
	ShowView(kScrollName);
	UpdateTitle(count);
	Invalidate();
}

void
AttrView::AddNewAttribute(AttrData& data)
{
	auto row = new CMultiTextItem(CMultiTextItem::kAttributeRow, 0, true);
	row->SetNode(&data);
	if (CMultiTextItem::IsIconType(data.type))
		row->SetHeight(IconRowHeight(data.type, data.size));
	pvList()->AddItem(row);
}

ssize_t
AttrView::WriteAttribute(const char* name, uint32 type, void* data, long size)
{
	BrindleFile* file = File();
	if (file == nullptr)
		return B_NO_INIT;
	if (name == nullptr || size < 0)
		return B_BAD_VALUE;
	return file->WriteAttr(name, type, 0, data, static_cast<size_t>(size));
}

void
AttrView::UpdateTitle(long count)
{
	if (count < 0) {
		BrindleFile* file = File();
		count = file != nullptr ? file->CountAttrs() : 0;
	}
	char title[64];
	snprintf(title, sizeof(title), "Attributes (%s)",
		static_cast<const char*>(LongNumStr(count)));
	SetLabel(title);
}

void
AttrView::ShowView(const char* name)
{
	BView* view = FindView(name);
	if (view != nullptr && view->IsHidden(view->Parent()))
		view->Show();
}

void
AttrView::HideView(const char* name)
{
	BView* view = FindView(name);
	if (view != nullptr && !view->IsHidden(view->Parent()))
		view->Hide();
}

BrindleFile*
AttrView::File() const
{
	auto host = dynamic_cast<FileHost*>(Parent());
	return host != nullptr ? host->File() : nullptr;
}

bool
AttrView::QuitRequested()
{
	// Only a row editor holds changes that are not on the node yet.
	return pvList()->FindView(kEditorName) == nullptr;
}

void
AttrView::DoEditMenu(BMessage* message)
{
	pvList()->MessageReceived(message);
}

SpecialListView*
AttrView::pvList() const
{
	auto list = dynamic_cast<SpecialListView*>(FindView(kListName));
	if (list == nullptr)
		throw StatusError(B_NAME_NOT_FOUND, "the attribute panel has no list");
	return list;
}

void
AttrView::pvBuildViews()
{
	auto container = new BView(Bounds().InsetByCopy(kContainerInset, kContainerInset),
		kContainerName, B_FOLLOW_ALL, 0);
	// The panel's label shows through above the column titles.
	container->SetViewColor(B_TRANSPARENT_32_BIT);
	AddChild(container);

	font_height height;
	GetFontHeight(&height);
	float labelBottom = std::ceil(height.ascent) + std::ceil(height.descent);
	float rowHeight = std::ceil(height.ascent + height.descent + height.leading);
	BRect area = container->Bounds();

	BRect listFrame(area.left + kScrollBorder, labelBottom + rowHeight + 1 + kScrollBorder,
		area.right - kScrollBorder - (B_V_SCROLL_BAR_WIDTH + 1),
		area.bottom - kScrollBorder);
	BRect headerFrame(listFrame.left, labelBottom, listFrame.right, labelBottom + rowHeight);

	fHeaderRow = std::make_unique<CMultiTextItem>(CMultiTextItem::kHeaderRow, 0, false);
	fHeaderRow->SetNodeStrings("Attr Name", "Attr Type", "Size", "Value");
	auto headers = new ItemView(headerFrame, kHeadersName,
		B_FOLLOW_LEFT | B_FOLLOW_RIGHT | B_FOLLOW_TOP, B_WILL_DRAW);
	headers->AddChild(fHeaderRow.get());
	container->AddChild(headers);
	headers->Hide();

	auto list = new SpecialListView(listFrame, kListName, B_SINGLE_SELECTION_LIST,
		B_FOLLOW_ALL, B_WILL_DRAW | B_NAVIGABLE | B_FRAME_EVENTS);
	list->SetListType(B_SINGLE_SELECTION_LIST);
	list->SetSelectionMessage(new BMessage(kSelectionCode));
	list->SetInvocationMessage(new BMessage(kInvocationCode));
	auto scroller = new BScrollView(kScrollName, list, B_FOLLOW_ALL, 0, false, true);
	container->AddChild(scroller);
	// The rows leave their background to the scroll view around them.
	scroller->SetViewColor(WhiteColor);
	scroller->Hide();
	list->SetTarget(this);
	list->SetHighColor(GreenColor);
}

void
AttrView::pvEmptyList()
{
	SpecialListView* list = pvList();
	for (int32 index = list->CountItems() - 1; index >= 0; index--)
		delete list->RemoveItem(index);
}

int32
AttrView::pvReadAttributes(BrindleFile& file)
{
	int32 count = 0;
	char name[B_ATTR_NAME_LENGTH];
	// One buffer serves every value; each row keeps its own copy.
	std::vector<char> buffer;
	file.RewindAttrs();
	while (file.GetNextAttrName(name) == B_OK) {
		attr_info info;
		if (file.GetAttrInfo(name, &info) != B_OK || info.size < 0)
			continue;
		buffer.assign(info.size + 1, '\0');
		ssize_t read = file.ReadAttr(name, kAnyTypeCode, 0, buffer.data(), info.size);
		buffer[std::clamp<ssize_t>(read, 0, info.size)] = '\0';
		AttrData data(name, info.type, buffer.data(), static_cast<int32>(info.size));
		AddNewAttribute(data);
		count++;
	}
	return count;
}
