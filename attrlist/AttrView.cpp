#include "AttrView.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <strings.h>
#include <vector>

#include <Application.h>
#include <InterfaceDefs.h>
#include <Message.h>
#include <OS.h>
#include <ScrollView.h>
#include <Window.h>
#include <fs_attr.h>

#include "BrindleFile.h"
#include "CMultiTextItem.h"
#include "DataWindow.h"
#include "DisplayStrings.h"
#include "Formatting.h"
#include "FileHost.h"
#include "IconWindow.h"
#include "ItemEditor.h"
#include "ItemView.h"
#include "ListColors.h"
#include "PanelColors.h"
#include "SpecialListView.h"
#include "StatusError.h"
#include "Utils.h"
#include "WindowSlots.h"

namespace {

const char* const kPanelName = "Attributes";
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

// The editor lies this far around the row it edits.
const float kEditorMargin = 3.0f;

// Row windows open on a short-lived thread of their own.
const char* const kOpenThreadName = "OpenWin";
const int32 kOpenThreadPriority = 10;

const char* const kIconWindowName = "IconWindow";
const BRect kIconWindowFrame(100, 100, 228, 228);
// The remembered rectangle slot that icon windows open at.
const int kIconWindowSlot = 2;
// Colour bitmaps of this many bytes or more are 32 pixels square.
const long kLargeColorBitmap = 1024;

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

// What the "OpenWin" thread opens: a row of a panel, which it reaches
// through a messenger since the panel may be gone by then.
struct OpenRequest {
	BMessenger panel;
	BListItem* row;
};

// Opens the row's window with the panel's window locked, if the panel still
// shows that row, then frees the request.
int32
OpenSubsidiaryWindow(void* data)
{
	std::unique_ptr<OpenRequest> request(static_cast<OpenRequest*>(data));
	if (request->row == nullptr || !request->panel.LockTarget())
		return B_BAD_VALUE;
	BLooper* looper;
	auto panel = dynamic_cast<AttrView*>(request->panel.Target(&looper));
	auto list = panel != nullptr
		? dynamic_cast<BListView*>(panel->FindView(kListName)) : nullptr;
	if (list != nullptr && list->HasItem(request->row))
		panel->OpenWindow(request->row);
	looper->Unlock();
	return B_OK;
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
		case kSelectionCode:
		case kInvocationCode:
			pvClick(message);
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
	// An editor whose save was cancelled would outlive its row.
	if (!pvDeleteItemEditor())
		delete pvList()->FindView(kEditorName);
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

	// An open data window of the attribute shows the value just read.
	BrindleFile* file = File();
	if (file == nullptr)
		return;
	if (DataWindow* open = DataWindow::FindDataWindow(file->Name(), data.name)) {
		open->SetFile(file);
		open->Refresh(data.name, data.type, data.data, data.size);
	}
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

AttrView*
AttrView::Enclosing(BView* view)
{
	for (; view != nullptr; view = view->Parent()) {
		if (view->Name() != nullptr && strcasecmp(view->Name(), kPanelName) == 0)
			return dynamic_cast<AttrView*>(view);
	}
	return nullptr;
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
	return pvDeleteItemEditor();
}

void
AttrView::OpenWindow(BMessage* message)
{
	BListItem* item;
	if (message->FindPointer("listRef", reinterpret_cast<void**>(&item)) == B_OK)
		OpenWindow(item);
}

void
AttrView::OpenWindow(BListItem* item)
{
	auto row = dynamic_cast<CMultiTextItem*>(item);
	if (row == nullptr || row->GetData() == nullptr)
		return;
	void* data = const_cast<void*>(row->GetData());
	char* name = const_cast<char*>(row->GetString(CMultiTextItem::kNameColumn));
	if (CMultiTextItem::IsIconType(row->GetType()))
		OpenIconWindow(row->GetType(), data, row->GetDataSize(), name);
	else
		OpenDataWindow(row->GetType(), data, row->GetDataSize(), name);
}

void
AttrView::OpenIconWindow(uint32 type, void* data, long size, char* name)
{
	if (BWindow* open = FindFrontWindow(kIconWindowName, name)) {
		open->Activate();
		return;
	}
	BRect frame = kIconWindowFrame;
	if (auto slots = dynamic_cast<WindowSlots*>(be_app))
		frame.OffsetTo(slots->WindowCorner(kIconWindowSlot));
	long side = type == 'MICN' || (type == 'CLRB' && size < kLargeColorBitmap) ? 16 : 32;
	(new IconWindow(frame, name, data, size, side))->Show();
}

// One window per node and attribute; a second request brings it to the front.
void
AttrView::OpenDataWindow(uint32 type, void* data, uint32 size, char* name)
{
	BrindleFile* file = File();
	if (file == nullptr)
		return;
	if (DataWindow* open = DataWindow::FindDataWindow(file->Name(), name)) {
		open->Activate();
		return;
	}
	DataWindow::Create(Window(), file)->Refresh(name, type, data, size);
}

void
AttrView::DoEditMenu(BMessage* message)
{
	pvList()->MessageReceived(message);
}

void
AttrView::pvClick(BMessage* message)
{
	void* source;
	status_t status = message->FindPointer("source", &source);
	if (status != B_OK)
		throw StatusError(status, "a click without its list");
	SpecialListView* list = pvList();
	if (static_cast<BListView*>(source) != list)
		throw StatusError(B_BAD_VALUE, "a click from another list");
	list->Invalidate();

	int32 index;
	status = message->FindInt32("index", &index);
	if (status != B_OK)
		throw StatusError(status, "a click without its row");
	if (index < 0)
		return;
	auto row = dynamic_cast<CMultiTextItem*>(list->ItemAt(index));
	if (row == nullptr)
		throw StatusError(B_BAD_INDEX, "a click on a row that is no attribute");
	BPoint where;
	uint32 buttons;
	list->GetMouse(&where, &buttons, false);
	uint32 column = row->FindField(where);

	bool option = (modifiers() & (B_LEFT_OPTION_KEY | B_RIGHT_OPTION_KEY)) != 0;
	if (!option && row->GetDataSize() < uint32(kAttrStringSize)) {
		BRect frame = list->ItemFrame(index).InsetByCopy(-kEditorMargin, -kEditorMargin);
		(new ItemEditor(list, index, frame))->SetFocusedItem(column);
		return;
	}

	pvDeleteItemEditor();
	if (message->what != kInvocationCode)
		return;
	auto request = std::make_unique<OpenRequest>(OpenRequest{BMessenger(this), row});
	thread_id thread = spawn_thread(OpenSubsidiaryWindow, kOpenThreadName,
		kOpenThreadPriority, request.get());
	if (thread >= 0 && resume_thread(thread) == B_OK)
		request.release();
}

bool
AttrView::pvDeleteItemEditor()
{
	SpecialListView* list = pvList();
	auto editor = dynamic_cast<ItemEditor*>(list->FindView(kEditorName));
	if (editor == nullptr)
		return true;
	list->RemoveChild(editor);
	if (!editor->SaveChanges()) {
		// Cancelled: the editor stays, with the user's text.
		list->AddChild(editor);
		return false;
	}
	delete editor;
	return true;
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
