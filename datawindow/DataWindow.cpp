#include "DataWindow.h"

#include <cstdio>
#include <cstring>
#include <strings.h>

#include <Application.h>
#include <Autolock.h>
#include <Entry.h>
#include <Menu.h>
#include <MenuBar.h>
#include <MenuItem.h>
#include <Message.h>

#include "AttrTypes.h"
#include "BoolView.h"
#include "BrindleFile.h"
#include "DateView.h"
#include "DisplayStrings.h"
#include "EditMenu.h"
#include "GenericAlerts.h"
#include "HexView.h"
#include "NumView.h"
#include "RectView.h"
#include "StatusError.h"
#include "StringAttrView.h"
#include "TypeConversion.h"
#include "Utils.h"
#include "WindowSlots.h"

namespace {

const char* const kWindowName = "DataWindow";
const char* const kMenuBarName = "WinMenu";
const char* const kViewMenu = "View";
const uint32 kFieldChanged = 'Chgd';
const uint32 kSwitchViews = 'swWv';
const uint32 kSetData = 'SetD';
const uint32 kClearCommand = 127;
const uint32 kWindowFlagBit = 0x80000000;
const int32 kViewListBlockSize = 20;
const int32 kTitleLength = 256;
const float kMenuBarHeight = 18.0f;

// New windows open at this frame, or at the corner of a free slot, with a
// fixed width.
const BRect kDefaultFrame(100, 100, 616, 280);
const float kWidth = 516;
const float kMinHeight = 140;
const float kMaxHeight = 20480;

const char* const kHexColumns = "Offset               Value"
	"                                                                                    "
	"ASCII\n";

struct ViewEntry {
	const char* name;
	const char* label;
};

// In view-number order.
const ViewEntry kViews[DataWindow::kViewCount] = {
	{"StringView", "View as String"},
	{"NumView", "View as Number"},
	{"BoolView", "View as Boolean"},
	{"DateView", "View as Date"},
	{"RectView", "View as RECT"},
	{"HexView", "View as Hex"}
};

// The view a type opens in. "Uint32View" names no view, so 'ULNG' values
// open in view 0, the string view.
const char*
FavoriteViewName(uint32 type)
{
	switch (type) {
		case 'MIMS':
		case 'CSTR':
		case 'TEXT':
			return "StringView";
		case 'LLNG':
		case 'LONG':
		case 'SHRT':
		case 'ULLG':
		case 'USHT':
			return "NumView";
		case 'ULNG':
			return "Uint32View";
		case 'BOOL':
			return "BoolView";
		case 'TIME':
			return "DateView";
		case 'RECT':
			return "RectView";
		default:
			return "HexView";
	}
}

BView*
NewView(long index, BRect frame)
{
	const char* name = kViews[index].name;
	const uint32 mode = B_FOLLOW_ALL;
	const uint32 flags = B_WILL_DRAW;
	switch (index) {
		case DataWindow::kStringView:
			return new StringAttrView(frame, name, mode, flags);
		case DataWindow::kNumView:
			return new NumView(frame, name, mode, flags);
		case DataWindow::kBoolView:
			return new BoolView(frame, name, mode, flags);
		case DataWindow::kDateView:
			return new DateView(frame, name, mode, flags);
		case DataWindow::kRectView:
			return new RectView(frame, name, mode, flags);
		default:
			return new HexView(frame, name, mode, flags);
	}
}

}	// namespace

DataWindow::DataWindow(BRect frame, const char* title, window_type type, uint32 flags,
	uint32 workspace)
	:
	BWindow(frame, title, type, flags | kWindowFlagBit, workspace),
	fParent(nullptr),
	fCurrentView(nullptr),
	fHexView(nullptr),
	fViews(kViewListBlockSize),
	fFavoriteView(0),
	fCurrentViewNum(0),
	fMasterData(nullptr),
	fType(0),
	fSize(0)
{
	SetName(kWindowName);
	Initialize();
}

DataWindow::~DataWindow() = default;

void
DataWindow::Initialize()
{
	BAutolock lock(this);
	SetupMenu();
	auto bar = dynamic_cast<BMenuBar*>(ChildAt(0));
	if (bar == nullptr)
		throw StatusError(B_NAME_NOT_FOUND, "a data window without its menu bar");
	BRect frame = Bounds();
	frame.top += bar->Frame().Height();
	for (long index = 0; index < kViewCount; index++) {
		BView* view = NewView(index, frame);
		view->Hide();
		AddChild(view);
		AddView(view);
	}
}

void
DataWindow::SetupMenu()
{
	BRect frame = Bounds();
	frame.bottom = frame.top + kMenuBarHeight;
	BMenuBar* bar = new BMenuBar(frame, kMenuBarName, B_FOLLOW_LEFT_RIGHT | B_FOLLOW_TOP,
		B_ITEMS_IN_ROW, true);

	BMenu* fileMenu = new BMenu("File");
	fileMenu->AddItem(new BMenuItem("Close", new BMessage(B_QUIT_REQUESTED), 'W'));
	fileMenu->AddItem(new BMenuItem("Save", new BMessage(kFieldChanged), 'S'));
	fileMenu->AddSeparatorItem();
	// Quit asks the application, which asks every window in turn.
	BMenuItem* quit = new BMenuItem("Quit", new BMessage(B_QUIT_REQUESTED), 'Q');
	quit->SetTarget(be_app);
	fileMenu->AddItem(quit);
	bar->AddItem(fileMenu);

	bar->AddItem(new EditMenu());

	BMenu* viewMenu = new BMenu(kViewMenu);
	for (const ViewEntry& entry : kViews) {
		BMessage* message = new BMessage(kSwitchViews);
		message->AddString("NewName", entry.name);
		viewMenu->AddItem(new BMenuItem(entry.label, message));
	}
	bar->AddItem(viewMenu);
	AddChild(bar);
}

void
DataWindow::SetFile(BrindleFile* file)
{
	BAutolock lock(this);
	fFile.reset(file != nullptr ? new BrindleFile(*file) : nullptr);
}

BrindleFile*
DataWindow::File() const
{
	return fFile.get();
}

void
DataWindow::SetParent(BWindow* parent)
{
	fParent = parent;
}

void
DataWindow::Refresh(const char* name, uint32 type, const void* data, uint32 size)
{
	bool locked = !IsLocked();
	if (locked && !Lock())
		return;
	ClearAll();
	SetTitleAndHeader(type, size, name);
	Insert(data, size);
	if (IsHidden())
		Show();
	SetView(Favorite());
	if (locked)
		Unlock();
}

void
DataWindow::SetTitleAndHeader(uint32 type, uint32 size, const char* name)
{
	if (name != nullptr) {
		char title[kTitleLength];
		snprintf(title, sizeof(title), "%s: %s", fFile != nullptr ? fFile->Name() : "", name);
		SetTitle(title);
		fName = name;
	}
	String header = MakeHeaderString(type, size, fName);
	fType = type;
	fSize = size;
	for (long index = kStringView; index < kHexView; index++) {
		auto view = pvNamedView<StringAttrView>(kViews[index].name);
		view->SetHeader(header);
		view->SetTitleAndType(fName, type, size);
	}
	String hexHeader(header);
	hexHeader << '\n' << kHexColumns;
	fHexView = pvNamedView<HexView>(kViews[kHexView].name);
	fHexView->SetHeader(hexHeader);
	fHexView->SetTitleAndType(fName, type, size);
	SetFavoriteView(FavoriteViewName(type));
}

void
DataWindow::Insert(const void* data, long size)
{
	if (size < 0)
		size = data != nullptr ? strlen(static_cast<const char*>(data)) : 0;
	pvKeepValue(data, size);
	const char* value = static_cast<const char*>(fMasterData);
	pvNamedView<StringAttrView>(kViews[kStringView].name)->Insert(value, size);
	pvNamedView<HexView>(kViews[kHexView].name)->SetText(value, size);
	for (long index : {kDateView, kNumView, kBoolView, kRectView})
		pvNamedView<StringAttrView>(kViews[index].name)->Insert(value, size);
	EnableUpdates();
	if (fCurrentView != nullptr)
		fCurrentView->Invalidate();
}

void
DataWindow::SetData(const void* data, long size)
{
	// Insert takes a negative size as the text's length.
	ClearAll();
	Insert(data, size);
}

void
DataWindow::ClearAll()
{
}

void
DataWindow::GetAttrData(char* name, uint32* type, long* size, void** data) const
{
	if (name != nullptr)
		strcpy(name, fName);
	if (type != nullptr)
		*type = fType;
	if (size != nullptr)
		*size = fSize;
	if (data != nullptr)
		*data = fMasterData;
}

const String&
DataWindow::GetDataName() const
{
	return fName;
}

uint32
DataWindow::GetDataType() const
{
	return fType;
}

long
DataWindow::GetDataSize() const
{
	return fSize;
}

void*
DataWindow::GetMasterData() const
{
	return fMasterData;
}

ssize_t
DataWindow::WriteAttribute(const char* name, uint32 type, const void* data, uint32 size)
{
	if (fFile == nullptr || !fFile->OpenOK(true))
		return 0;
	ssize_t result = 0;
	if (type != 0) {
		ssize_t written = fFile->WriteAttr(name, type, 0, data, size);
		if (written == static_cast<ssize_t>(size)) {
			if (fParent == nullptr)
				throw StatusError(B_NO_INIT, "a data window without its inspector window");
			BMessage reread(B_REFS_RECEIVED);
			entry_ref ref;
			if (fFile->GetRef(&ref) == B_OK)
				reread.AddRef("refs", &ref);
			fParent->PostMessage(&reread);
			fMasterData = nullptr;
			fValue.reset();
			fType = 0;
			fSize = 0;
			fName = "";
			result = written;
		}
	} else
		fFile->RemoveAttr(name);
	fFile->Close();
	return result;
}

void
DataWindow::ConvertDataToNewType(void** data, uint32 oldType, long* size, uint32 newType)
{
	::ConvertDataToNewType(data, oldType, size, newType);
}

void
DataWindow::ChangeComposite(const char* name, uint32 type, const void* data, long size)
{
	String oldName(fName);
	if (name == nullptr || name[0] == '\0')
		name = oldName;
	if (type == 0)
		type = fType;
	if (size == 0)
		size = data != nullptr ? strlen(static_cast<const char*>(data)) + 1 : fSize;
	if (data == nullptr)
		data = fMasterData;

	void* value = const_cast<void*>(data);
	if (type != fType)
		ConvertDataToNewType(&value, fType, &size, type);
	// A fresh buffer from the conversion goes with this change.
	std::unique_ptr<char[]> converted(value != data ? static_cast<char*>(value) : nullptr);
	long available = size;
	CalculateSize(type, &size);
	// A type that forces more bytes than the value has gets zeros after it.
	std::unique_ptr<char[]> padded;
	if (size > available) {
		padded.reset(new char[size + 1]());
		if (value != nullptr && available > 0)
			memcpy(padded.get(), value, available);
		value = padded.get();
	}

	// A new attribute has no old name to remove.
	if (oldName.Length() > 0 && strcmp(name, oldName) != 0)
		WriteAttribute(oldName, 0, nullptr, 0);
	if (WriteAttribute(name, type, value, size) == size)
		DisableUpdates();
	else
		FailureAlert("The change was not recorded.");
}

void
DataWindow::AddView(BView* view)
{
	if (view != nullptr)
		fViews.AddItem(view);
}

BView*
DataWindow::FetchView(long index) const
{
	return static_cast<BView*>(fViews.ItemAt(index));
}

long
DataWindow::NumViews() const
{
	return fViews.CountItems();
}

long
DataWindow::ViewNum(BView* view) const
{
	return std::max<long>(fViews.IndexOf(view), 0);
}

long
DataWindow::ViewNum(const char* name) const
{
	for (long index = 0; index < NumViews(); index++) {
		const char* viewName = FetchView(index)->Name();
		if (viewName == name || (viewName != nullptr && name != nullptr
				&& strcasecmp(viewName, name) == 0))
			return index;
	}
	return 0;
}

void
DataWindow::SetView(long index)
{
	SetView(FetchView(std::clamp<long>(index, 0, NumViews() - 1)));
}

void
DataWindow::SetView(const char* name)
{
	SetView(FindView(name));
}

void
DataWindow::SetView(BView* view)
{
	if (view == nullptr)
		view = FetchView(0);
	BAutolock lock(this);
	if (!lock.IsLocked())
		return;
	if (fCurrentView != nullptr)
		fCurrentView->Hide();
	view->Show();
	view->Invalidate();
	view->MakeFocus(true);
	fCurrentViewNum = ViewNum(view);
	fCurrentView = view;
	AdjustMenus();
}

void
DataWindow::SwitchViews()
{
	if (fCurrentView != nullptr && fCurrentView == fHexView)
		SetView(Favorite());
	else
		SetView(static_cast<BView*>(fHexView));
}

long
DataWindow::Favorite() const
{
	return fFavoriteView;
}

void
DataWindow::SetFavoriteView(const char* name)
{
	fFavoriteView = ViewNum(name);
}

long
DataWindow::CurrentViewNum() const
{
	return fCurrentViewNum;
}

void
DataWindow::AdjustMenus()
{
	EditMenu* editMenu = EditMenu::RecoverEditMenu(this);
	bool editable = false;
	if (fCurrentView != nullptr && fCurrentView == fHexView)
		editable = fHexView->IsEditable();
	else if (auto view = dynamic_cast<StringAttrView*>(fCurrentView))
		editable = view->IsEditable();
	editMenu->EnableAll(editable, false, true);
	editMenu->EnableItem(EditMenu::kUndoItem, false);
	editMenu->EnableItem(EditMenu::kSelectAllItem, false);

	BMenu* viewMenu = MenuFromWin(this, kViewMenu);
	for (int32 index = 0; index < viewMenu->CountItems(); index++)
		viewMenu->ItemAt(index)->SetMarked(index == fCurrentViewNum);
}

void
DataWindow::MessageReceived(BMessage* message)
{
	switch (message->what) {
		case B_CUT:
		case B_COPY:
		case B_PASTE:
		case kClearCommand:
		case kFieldChanged:
			if (fCurrentView != nullptr)
				fCurrentView->MessageReceived(message);
			break;
		case kSetData:
		{
			const void* data;
			int32 size;
			if (message->FindPointer("NewData", const_cast<void**>(&data)) == B_OK
				&& message->FindInt32("NewSize", &size) == B_OK)
				SetData(data, size);
			break;
		}
		case kSwitchViews:
		{
			BView* view;
			const char* name;
			if (message->FindPointer("New", reinterpret_cast<void**>(&view)) == B_OK)
				SetView(view);
			else if (message->FindString("NewName", &name) == B_OK)
				SetView(name);
			else
				SwitchViews();
			break;
		}
		default:
			BWindow::MessageReceived(message);
	}
}

bool
DataWindow::QuitRequested()
{
	if (auto view = dynamic_cast<StringAttrView*>(FetchView(fCurrentViewNum)))
		return view->QuitRequested();
	return true;
}

DataWindow*
DataWindow::FindDataWindow(const char* nodeName, const char* attrName)
{
	char title[kTitleLength];
	if (attrName != nullptr)
		snprintf(title, sizeof(title), "%s: %s", nodeName, attrName);
	else
		snprintf(title, sizeof(title), "%s", nodeName);
	return dynamic_cast<DataWindow*>(FindFrontWindow(kWindowName, title));
}

BWindow*
DataWindow::FindNextOfNode(BWindow* after, const char* nodeName)
{
	String prefix(nodeName);
	prefix << ": ";
	for (BWindow* window = FindNextWindow(after, kWindowName, nullptr); window != nullptr;
			window = FindNextWindow(window, kWindowName, nullptr)) {
		const char* title = window->Title();
		if (title != nullptr && strncasecmp(title, prefix, prefix.Length()) == 0)
			return window;
	}
	return nullptr;
}

DataWindow*
DataWindow::Create(BWindow* parent, BrindleFile* file)
{
	BRect frame = kDefaultFrame;
	if (auto slots = dynamic_cast<WindowSlots*>(be_app)) {
		int slot = CountSubsidiaryWindows(kWindowName, nullptr) % slots->NumDataWins();
		frame.OffsetTo(slots->WindowCorner(slot));
	}
	auto window = new DataWindow(frame, kWindowName, B_DOCUMENT_WINDOW, 0);
	window->SetParent(parent);
	window->SetSizeLimits(kWidth, kWidth, kMinHeight, kMaxHeight);
	window->SetFile(file);
	return window;
}

template<typename ViewClass>
ViewClass*
DataWindow::pvNamedView(const char* name) const
{
	auto view = dynamic_cast<ViewClass*>(FindView(name));
	if (view == nullptr)
		throw StatusError(B_NAME_NOT_FOUND, "a data window without one of its views");
	return view;
}

void
DataWindow::pvKeepValue(const void* data, long size)
{
	if (data == nullptr) {
		fValue.reset();
		fMasterData = nullptr;
		return;
	}
	std::unique_ptr<char[]> copy(new char[size + 1]());
	memcpy(copy.get(), data, size);
	fValue = std::move(copy);
	fMasterData = fValue.get();
}

BMenu*
MenuFromWin(BWindow* window, const char* name)
{
	auto bar = dynamic_cast<BMenuBar*>(window->ChildAt(0));
	if (bar == nullptr)
		bar = dynamic_cast<BMenuBar*>(window->FindView(kMenuBarName));
	if (bar == nullptr)
		throw StatusError(B_NAME_NOT_FOUND, "a window without a menu bar");
	BMenuItem* item = bar->FindItem(name);
	if (item == nullptr || item->Submenu() == nullptr)
		throw StatusError(B_NAME_NOT_FOUND, "a menu bar without that menu");
	return item->Submenu();
}
