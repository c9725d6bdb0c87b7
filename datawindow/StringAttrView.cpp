#include "StringAttrView.h"

#include <memory>
#include <strings.h>

#include <Autolock.h>
#include <Clipboard.h>
#include <Message.h>
#include <TextView.h>
#include <Window.h>

#include "AttrData.h"
#include "AttrTypes.h"
#include "DataWindow.h"
#include "DisplayStrings.h"
#include "Formatting.h"
#include "GenericAlerts.h"
#include "NewTextControl.h"
#include "StatusError.h"
#include "ViewParts.h"

namespace {

const float kInteriorInset = 3.0f;
const float kContentInset = 14.0f;
const float kFieldGap = 4.0f;
const float kFieldHeight = 20.0f;
const float kPanelOffset = 24.0f;
const uint32 kNavigableFlags = 0x22000000;
const uint32 kClearCommand = 127;
const char* const kLabelSample = "    Attribute name:    ";

enum {
	kCancel = 0,
	kDiscard = 1,
	kOK = 2
};

}	// namespace

StringAttrView::StringAttrView(BRect frame, const char* name, uint32 resizingMode,
	uint32 flags)
	:
	BView(frame, name, resizingMode, flags)
{
}

void
StringAttrView::AttachedToWindow()
{
	BView::AttachedToWindow();
	if (FindView("BoxInterior") != nullptr)
		return;
	BView* interior = MakeBoxedInterior(this, kInteriorInset);
	BRect frame = interior->Bounds().InsetByCopy(kContentInset, kContentInset);
	frame.top += MakeHeader(frame, interior) + 1;
	frame.bottom = frame.top + kFieldHeight;

	float middle = (frame.left + frame.right) / 2;
	BRect nameFrame(frame.left, frame.top, middle - kFieldGap, frame.bottom);
	BRect typeFrame(middle + kFieldGap, frame.top, frame.right, frame.bottom);
	MakeNewTextControl(interior, nameFrame, "Name", "Attribute name", "",
		B_FOLLOW_LEFT | B_FOLLOW_TOP, 0);
	MakeNewTextControl(interior, typeFrame, "Type", "Attribute type", "",
		B_FOLLOW_RIGHT | B_FOLLOW_TOP, 0);

	frame.OffsetBy(0, kPanelOffset);
	MakeDataPanel(frame, interior);
}

void
StringAttrView::MessageReceived(BMessage* message)
{
	switch (message->what) {
		case B_CUT:
		case B_COPY:
		case B_PASTE:
		case kClearCommand:
			pvEditCommand(message);
			break;
		default:
			BView::MessageReceived(message);
	}
}

void
StringAttrView::Insert(const char* data, long)
{
	pvSetFieldText("Data", data != nullptr ? data : "");
}

void
StringAttrView::Refresh(const void* data)
{
	BWindow* window = Window();
	bool locked = window != nullptr && !window->IsLocked();
	if (locked && !window->Lock())
		return;
	SetTitleAndType(fKeptName, GetDataType(), GetDataSize());
	if (data == nullptr)
		data = GetMasterData();
	Insert(static_cast<const char*>(data), GetDataSize());
	if (locked)
		window->Unlock();
}

bool
StringAttrView::QuitRequested()
{
	return SaveChanges();
}

bool
StringAttrView::IsDirty(const char* field)
{
	if (field == nullptr)
		return IsDirty("Name") || IsDirty("Type") || IsDataDirty();
	if (strcmp(field, "Name") == 0) {
		const char* text = GetTextString("Name");
		return text != static_cast<const char*>(fKeptName) && (text == nullptr || strcmp(text, fKeptName) != 0);
	}
	if (strcmp(field, "Type") == 0) {
		const char* text = GetTextString("Type");
		return text == nullptr || strcmp(text, ASCII(GetDataType())) != 0;
	}
	return IsDataDirty();
}

bool
StringAttrView::IsDataDirty()
{
	const char* text = GetTextString("Data");
	if (text == nullptr || text == GetMasterData())
		return false;
	if (GetMasterData() == nullptr)
		return true;
	return strcmp(text, static_cast<const char*>(GetMasterData())) != 0;
}

BTextControl*
StringAttrView::MakeNewTextControl(BView* parent, BRect frame, const char* name,
	const char* label, const char* text, uint32 resizingMode, uint32 flags)
{
	auto control = new NewTextControl(frame, name, label, text, nullptr, resizingMode,
		flags | kNavigableFlags);
	(parent != nullptr ? parent : this)->AddChild(control);
	control->SetTarget(this);
	control->SetDivider(control->StringWidth(kLabelSample));
	control->SetEnabled(true);
	return control;
}

float
StringAttrView::MakeHeader(BRect frame, BView* parent)
{
	return MakeViewHeader(frame, parent);
}

void
StringAttrView::MakeDataPanel(BRect frame, BView* parent)
{
	MakeNewTextControl(parent, frame, "Data", "Attribute data", "",
		B_FOLLOW_LEFT_RIGHT | B_FOLLOW_TOP, 0);
}

bool
StringAttrView::SaveChanges()
{
	if (GetDataName().Length() == 0)
		return AddAttr();
	String data;
	if (IsDataDirty())
		data = ExtractDataTextString(nullptr);
	return SaveChanges(IsDirty("Name") ? GetTextString("Name") : nullptr,
		IsDirty("Type") ? GetTextString("Type") : nullptr,
		IsDataDirty() ? static_cast<const char*>(data) : nullptr);
}

bool
StringAttrView::SaveChanges(const char* name, const char* type, const char* data)
{
	if (name == nullptr && type == nullptr && data == nullptr)
		return true;
	uint32 code = type != nullptr ? TypeCodeFromText(type) : GetDataType();
	String typeText;
	if (type != nullptr) {
		if (code != GetDataType())
			RunSanityCheckOnNewType(&code);
		typeText = TypeTextOf(type, code);
		type = typeText;
	}

	AttrData current(GetDataName(), GetDataType(), GetMasterData(), GetDataSize());
	String question;
	String details;
	MakeChangeStrings(current, name, type, data, -1, question, details);
	int32 answer = OKToChange(question, details);
	if (answer >= kOK) {
		long size = 0;
		std::unique_ptr<char[]> value(ExtractDataValue(&size));
		ChangeComposite(name, code, value.get(), size + 1);
	} else if (answer == kDiscard)
		Refresh(nullptr);
	return answer > kCancel;
}

void
StringAttrView::ChangeComposite(const char* name, uint32 type, const void* data, long size)
{
	pvWindow()->ChangeComposite(name, type, data, size);
}

void
StringAttrView::MakeDisplayString(char* out, const void* data, uint32)
{
	strcpy(out, static_cast<const char*>(data));
}

void
StringAttrView::MakeDisplayString(char* out, const char* text)
{
	strcpy(out, text);
}

char*
StringAttrView::ExtractDataValue(long* size)
{
	const char* text = GetTextString("Data");
	long length = text != nullptr ? strlen(text) : 0;
	char* buffer = new char[length + 1]();
	if (text != nullptr)
		memcpy(buffer, text, length);
	if (size != nullptr)
		*size = length;
	return buffer;
}

void*
StringAttrView::GetMasterData() const
{
	return pvWindow()->GetMasterData();
}

uint32
StringAttrView::GetDataType() const
{
	return pvWindow()->GetDataType();
}

long
StringAttrView::GetDataSize() const
{
	return pvWindow()->GetDataSize();
}

const String&
StringAttrView::GetDataName() const
{
	return pvWindow()->GetDataName();
}

const char*
StringAttrView::GetTextString(const char* field) const
{
	auto control = dynamic_cast<BTextControl*>(FindView(field));
	return control != nullptr ? control->Text() : nullptr;
}

String
StringAttrView::ExtractDataTextString(const void*)
{
	return String(GetTextString("Data"));
}

bool
StringAttrView::IsEditable() const
{
	auto name = dynamic_cast<BTextControl*>(FindView("Name"));
	return name != nullptr && name->IsEnabled();
}

void
StringAttrView::MakeEditable(bool on)
{
	for (const char* field : {"Name", "Type", "Data"}) {
		if (auto control = dynamic_cast<BTextControl*>(FindView(field)))
			control->SetEnabled(on);
	}
}

void
StringAttrView::SetHeader(const char* text)
{
	auto header = dynamic_cast<BTextView*>(FindView("Header"));
	if (header == nullptr)
		throw StatusError(B_NAME_NOT_FOUND, "a data view without its header");
	header->SetText(text);
}

void
StringAttrView::SetTitleAndType(const char* name, uint32 type, long)
{
	fKeptName = name != nullptr ? name : "";
	pvSetFieldText("Name", fKeptName);
	pvSetFieldText("Type", ASCII(type));
}

bool
StringAttrView::AddAttr()
{
	const char* name = GetTextString("Name");
	bool typed = IsDirty("Type") || IsDataDirty();
	if (name == nullptr || name[0] == '\0') {
		if (!typed)
			return true;
		FailureAlert("A new attribute needs a name.");
		return false;
	}
	uint32 type = TypeCodeFromText(GetTextString("Type"));
	if (type != GetDataType())
		RunSanityCheckOnNewType(&type);
	long size = 0;
	std::unique_ptr<char[]> value(ExtractDataValue(&size));
	long written = size + 1;
	CalculateSize(type, &written);
	if (!OKToAdd(name, type, written))
		return false;
	String newName(name);
	ChangeComposite(newName, type, value.get(), size + 1);
	return true;
}

BTextControl*
StringAttrView::pvField(const char* name) const
{
	auto control = dynamic_cast<BTextControl*>(FindView(name));
	if (control == nullptr)
		throw StatusError(B_NAME_NOT_FOUND, "a data view without one of its fields");
	return control;
}

void
StringAttrView::pvSetFieldText(const char* field, const char* text)
{
	pvField(field)->SetText(text);
}

DataWindow*
StringAttrView::pvWindow() const
{
	auto window = dynamic_cast<DataWindow*>(Window());
	if (window == nullptr)
		throw StatusError(B_BAD_TYPE, "a data view outside a data window");
	return window;
}

// Copy works in every field; cut, paste and clear only change an editable
// "Data" field, and elsewhere put the fields back.
void
StringAttrView::pvEditCommand(BMessage* message)
{
	void* source;
	if (message->FindPointer("source", &source) != B_OK || Window() == nullptr)
		return;
	auto text = dynamic_cast<BTextView*>(Window()->CurrentFocus());
	if (text == nullptr)
		return;
	if (message->what == B_COPY) {
		text->Copy(be_clipboard);
		return;
	}
	const char* field = text->Parent() != nullptr ? text->Parent()->Name() : nullptr;
	if (!text->IsEditable() || field == nullptr || strcasecmp(field, "Data") != 0) {
		NotYetImplementedAlert(message, "Editing of attribute name and type");
		Refresh(GetMasterData());
		return;
	}
	if (message->what == B_CUT)
		text->Cut(be_clipboard);
	else if (message->what == B_PASTE)
		text->Paste(be_clipboard);
	else
		text->Delete();
}
