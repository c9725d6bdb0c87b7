#include "ItemEditor.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <strings.h>

#include <ListView.h>
#include <Message.h>
#include <MessageFilter.h>
#include <TextView.h>
#include <Window.h>

#include "AttrTypes.h"
#include "AttrView.h"
#include "DisplayStrings.h"
#include "FieldValue.h"
#include "GenericAlerts.h"
#include "ListColors.h"
#include "NewTextControl.h"
#include "StatusError.h"
#include "TextFilters.h"
#include "ValueParsing.h"

namespace {

const char* const kEditorName = "ItemEditor";
const char* const kFieldNames[CMultiTextItem::kColumnCount]
	= {"Name", "Type", "Size", "Data"};

const uint32 kFieldChanged = 'Chgd';
const uint32 kSelectByName = 'SelI';
const uint32 kScrollToSelection = 'ScrS';

// The editor lies this far around its row, its fields this far inside it.
const float kRowInset = 3.0f;
// A right-aligned field keeps clear of the next column.
const float kRightAlignedGap = 4.0f;
const int32 kTypeLength = 4;

enum {
	kNameField = CMultiTextItem::kNameColumn,
	kTypeField = CMultiTextItem::kTypeColumn,
	kSizeField = CMultiTextItem::kSizeColumn,
	kDataField = CMultiTextItem::kValueColumn
};

enum {
	kCancel = 0,
	kDiscard = 1,
	kOK = 2
};

// Whether a field's text changes a row's string; a change of letter case
// alone is none.
bool
Differs(const char* text, const char* string)
{
	if (text == nullptr || string == nullptr)
		return text != string;
	return strcasecmp(text, string) != 0;
}

}	// namespace

ItemEditor::ItemEditor(BListView* list, long index, BRect frame)
	:
	BView(frame, kEditorName, B_FOLLOW_LEFT_RIGHT | B_FOLLOW_TOP,
		B_WILL_DRAW | B_DRAW_ON_CHILDREN),
	fList(list),
	fRow(nullptr),
	fIndex(index),
	fSaving(false),
	fFields{}
{
	// Only one editor per list: the one open offers its changes first.
	if (auto open = dynamic_cast<ItemEditor*>(list->FindView(kEditorName))) {
		list->RemoveChild(open);
		open->SaveChanges();
		delete open;
	}

	fRow = dynamic_cast<CMultiTextItem*>(list->ItemAt(index));
	if (fRow == nullptr)
		throw StatusError(B_BAD_INDEX, "the edited row is not an attribute row");

	BRect rowFrame = list->ItemFrame(index).InsetByCopy(kRowInset, kRowInset);
	for (uint32 field = 0; field < CMultiTextItem::kColumnCount; field++)
		pvAddField(field, rowFrame);
	list->AddChild(this);
	for (NewTextControl* field : fFields)
		field->SetTarget(this);
}

ItemEditor::~ItemEditor()
{
	for (NewTextControl*& field : fFields) {
		if (field == nullptr)
			continue;
		field->RemoveSelf();
		delete field;
		field = nullptr;
	}
}

void
ItemEditor::MessageReceived(BMessage* message)
{
	if (message->what == kFieldChanged)
		SaveChanges(message);
	else
		BView::MessageReceived(message);
}

void
ItemEditor::DrawAfterChildren(BRect)
{
	StrokeRect(Bounds(), B_SOLID_HIGH);
}

bool
ItemEditor::SaveChanges()
{
	if (fSaving)
		return true;
	if (fRow == nullptr)
		throw StatusError(B_NO_INIT, "an item editor without its row");

	auto changed = [this](uint32 field) {
		return Differs(GetFieldText(field), fRow->GetString(field));
	};
	const char* name = changed(kNameField) ? GetFieldText(kNameField) : nullptr;
	const char* type = changed(kTypeField) ? GetFieldText(kTypeField) : nullptr;
	std::unique_ptr<char[]> data;
	long size = -1;
	if (changed(kDataField))
		data.reset(pvGetDataFromField(fFields[kDataField], &size));
	return SaveChanges(name, type, data.get(), size);
}

bool
ItemEditor::SaveChanges(BMessage* message)
{
	BTextControl* source;
	if (message->FindPointer("source", reinterpret_cast<void**>(&source)) != B_OK)
		return false;

	const char* name = nullptr;
	const char* type = nullptr;
	std::unique_ptr<char[]> data;
	long size = 0;
	if (source == fFields[kNameField])
		name = source->Text();
	else if (source == fFields[kTypeField])
		type = source->Text();
	else if (source == fFields[kDataField])
		data.reset(pvGetDataFromField(source, &size));
	return SaveChanges(name, type, data.get(), size);
}

bool
ItemEditor::SaveChanges(const char* name, const char* type, const void* data, long size)
{
	if (fRow == nullptr)
		throw StatusError(B_NO_INIT, "an item editor without its row");
	uint32 rowType = fRow->AttributeType();
	AttrData current(fRow->GetString(kNameField), rowType,
		const_cast<void*>(fRow->GetData()), fRow->GetDataSize());
	fSaving = true;
	if (name == nullptr && type == nullptr && data == nullptr)
		return true;

	String typeText;
	if (type != nullptr) {
		uint32 code = TypeCodeFromText(type);
		if (code != rowType) {
			RunSanityCheckOnNewType(&code);
			// The field spells the code that will be written.
			fFields[kTypeField]->SetText(TypeTextOf(type, code));
		}
		typeText = GetFieldText(kTypeField);
		type = typeText;
	}

	String question;
	String details;
	MakeChangeStrings(current, name, type, data, size, question, details);
	switch (OKToChange(question, details)) {
		case kOK:
		{
			uint32 code = type != nullptr ? TypeCodeFromText(type) : rowType;
			long newSize = fRow->GetDataSize();
			std::unique_ptr<char[]> value(pvGetDataFromField(fFields[kDataField], &newSize));
			// A text that makes no bytes (kTooLongText, or a type without a
			// rule) keeps the bytes the row holds; an empty text empties it.
			const void* bytes = value.get();
			if (value == nullptr || (newSize == 0 && GetFieldText(kDataField)[0] != '\0')) {
				bytes = fRow->GetData();
				newSize = fRow->GetDataSize();
			}
			ChangeComposite(name, code, const_cast<void*>(bytes), newSize);
			pvPostAfterSave();
			return true;
		}
		case kDiscard:
			Refresh(fRow);
			return true;
		default:
			return false;
	}
}

void
ItemEditor::ChangeComposite(const char* name, uint32 type, void* data, long size)
{
	if (fRow == nullptr)
		throw StatusError(B_NO_INIT, "an item editor without its row");
	String oldName(fRow->GetString(kNameField));
	String target(name != nullptr ? name : static_cast<const char*>(oldName));

	AttrView* panel = AttrView::Enclosing(fList);
	if (panel == nullptr)
		return;

	// Attribute names are told apart by letter case on the node, so any new
	// spelling, a change of case included, removes the old attribute first.
	if (target != oldName)
		panel->WriteAttribute(oldName, 0, nullptr, 0);
	panel->WriteAttribute(target, type, data, size);
}

void
ItemEditor::Refresh(BListItem* row)
{
	auto attribute = dynamic_cast<CMultiTextItem*>(row);
	if (attribute == nullptr)
		return;
	for (uint32 field = 0; field < CMultiTextItem::kColumnCount; field++)
		fFields[field]->SetText(attribute->GetString(field));
}

void
ItemEditor::SetFocusedItem(uint32 index)
{
	if (index < CMultiTextItem::kColumnCount)
		fFields[index]->MakeFocus(true);
}

const char*
ItemEditor::GetFieldText(uint32 index) const
{
	if (index >= CMultiTextItem::kColumnCount || fFields[index] == nullptr)
		return nullptr;
	return fFields[index]->Text();
}

void
ItemEditor::pvAddField(uint32 index, BRect rowFrame)
{
	int32 stop = fRow->TabStop(index);
	BRect frame = rowFrame;
	frame.OffsetTo(kRowInset, kRowInset);
	frame.left = std::abs(stop);
	frame.right = std::abs(fRow->TabStop(index + 1));
	frame.OffsetBy(-kRowInset, -kRowInset);
	if (stop < 0)
		frame.right -= kRightAlignedGap;
	if (frame.right <= frame.left)
		frame.right = rowFrame.right;
	// A field is as tall as the editor, which leaves room for one line.
	frame.top = 0;
	frame.bottom = Bounds().bottom;

	auto field = new NewTextControl(frame, kFieldNames[index], "", fRow->GetString(index),
		new BMessage(kFieldChanged), B_FOLLOW_LEFT | B_FOLLOW_TOP,
		B_WILL_DRAW | B_NAVIGABLE);
	field->AddFilter(new BMessageFilter(B_KEY_DOWN, PassOnToList));
	if (index == kTypeField) {
		field->SetMaxChars(kTypeLength);
		field->AddFilter(new BMessageFilter(B_KEY_DOWN, FilterNumChars));
	}
	if (index == kSizeField)
		field->SetEnabled(false);
	field->SetViewColor(GreenColor);
	field->TextView()->SetViewColor(GreenColor);
	field->TextView()->SetLowColor(GreenColor);
	field->SetDivider(0);
	if (stop < 0)
		field->SetAlignment(B_ALIGN_LEFT, B_ALIGN_RIGHT);
	AddChild(field);
	fFields[index] = field;
}

void
ItemEditor::pvPostAfterSave()
{
	BWindow* window = fList->Window();
	if (window == nullptr)
		return;
	window->PostMessage(B_REFS_RECEIVED);
	BMessage select(kSelectByName);
	status_t status = select.AddString("attrName", GetFieldText(kNameField));
	if (status != B_OK)
		throw StatusError(status, "no room for the saved attribute's name");
	window->PostMessage(&select);
	window->PostMessage(kScrollToSelection);
}

char*
ItemEditor::pvGetDataFromField(BTextControl* field, long* size)
{
	if (field == nullptr)
		throw StatusError(B_BAD_VALUE, "a value from no field");
	switch (FieldFormOf(TypeCodeFromText(GetFieldText(kTypeField)))) {
		case kStringForm:
			return ExtractStringValue(field->Text(), size);
		case kRectForm:
			return pvExtractRectValue(field, size);
		case kDateForm:
			return pvExtractDateValue(field, size);
		case kBoolForm:
			return pvExtractBoolValue(field, size);
		case kNumberForm:
			return pvExtractNumValue(field, GetFieldText(kTypeField), size);
		case kHexForm:
			return pvExtractHexValue(field, size);
		case kNoForm:
			break;
	}
	return nullptr;
}

char*
ItemEditor::pvExtractNumValue(BTextControl* field, const char* typeText, long* size)
{
	// Numbers are read by comparison with what the row showed.
	auto row = dynamic_cast<CMultiTextItem*>(fList->ItemAt(fIndex));
	if (row == nullptr)
		throw StatusError(B_BAD_INDEX, "a number edited outside an attribute row");
	return ExtractNumValue(field->Text(), row->GetString(kDataField), typeText, size);
}

char*
ItemEditor::pvExtractRectValue(BTextControl* field, long* size)
{
	return ExtractRectValue(field->Text(), size);
}

char*
ItemEditor::pvExtractDateValue(BTextControl* field, long* size)
{
	return ExtractDateValue(field->Text(), size);
}

char*
ItemEditor::pvExtractBoolValue(BTextControl* field, long* size)
{
	return ExtractBoolValue(field->Text(), size);
}

char*
ItemEditor::pvExtractHexValue(BTextControl* field, long* size)
{
	return ExtractHexValue(field->Text(), size);
}
