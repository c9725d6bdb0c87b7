#include "NumView.h"

#include <cstdio>
#include <cstdlib>

#include <TextControl.h>

#include "Formatting.h"

namespace {

const char* const kSample = " 000.000,000,000.000.00 ";
const float kFloatLimit = 2147483648.0f;
const int32 kTextLength = 64;

// The value read as a signed integer of its size; other sizes are read as
// eight bytes.
int64
IntegerOf(const void* data, long size)
{
	switch (size) {
		case 1:
			return ReadValue<int8>(data, size);
		case 2:
			return ReadValue<int16>(data, size);
		case 4:
			return ReadValue<int32>(data, size);
		default:
			return ReadValue<int64>(data, size);
	}
}

// The first four bytes of text as a number in memory order.
uint32
MemoryOrderCode(const char* text)
{
	return ReadValue<uint32>(text, text != nullptr ? strlen(text) : 0);
}

}	// namespace

NumView::NumView(BRect frame, const char* name, uint32 resizingMode, uint32 flags)
	:
	StringAttrView(frame, name, resizingMode, flags)
{
}

void
NumView::Insert(const char* data, long size)
{
	char text[kTextLength];
	if (GetDataType() == 'FLOT') {
		float value = std::clamp(ReadValue<float>(data, size), -kFloatLimit, kFloatLimit);
		snprintf(text, sizeof(text), "%3.2f", value);
	} else {
		// A 'DBLE' too shows the integer that its bytes form.
		snprintf(text, sizeof(text), "%s", static_cast<const char*>(LongNumStr(IntegerOf(data, size))));
	}
	pvSetFieldText("Data", text);
}

bool
NumView::IsDataDirty()
{
	switch (GetDataType()) {
		case 'BYTE':
		case 'UBYT':
			return DataDiffers<uint8>();
		case 'DBLE':
			return DataDiffers<double>();
		case 'FLOT':
			return DataDiffers<float>();
		case 'LLNG':
		case 'ULLG':
			return DataDiffers<uint64>();
		case 'LONG':
		case 'ULNG':
			return DataDiffers<uint32>();
		case 'SHRT':
		case 'USHT':
			return DataDiffers<uint16>();
		default:
			return false;
	}
}

void
NumView::MakeDataPanel(BRect frame, BView* parent)
{
	BTextControl* field = MakeNewTextControl(parent, frame, "Data", "Value", "",
		B_FOLLOW_LEFT | B_FOLLOW_TOP, 0);
	field->ResizeTo(field->Divider() + field->StringWidth(kSample), frame.Height());
}

// The type text chooses the reading by its bytes in memory order, so that the
// code as shown (reading order) takes the 64-bit reading, which the write
// then cuts to the type's size.
char*
NumView::ExtractDataValue(long* size)
{
	const char* text = GetTextString("Data");
	if (text == nullptr)
		text = "";
	switch (MemoryOrderCode(GetTextString("Type"))) {
		case 'FLOT':
			return NewValueBuffer(static_cast<float>(atof(text)), size);
		case 'LONG':
			return NewValueBuffer(static_cast<int32>(atol(text)), size);
		case 'SHRT':
			return NewValueBuffer(static_cast<int16>(atoi(text)), size);
		default:
			return NewValueBuffer(static_cast<uint64>(strtoull(text, nullptr, 0)), size);
	}
}
