#include "CMultiTextItem.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <Bitmap.h>
#include <Font.h>
#include <Region.h>
#include <View.h>

#include "AttrTypes.h"
#include "DisplayStrings.h"
#include "Formatting.h"

namespace {

// A negative stop starts a right-aligned column; the closing 0 lets the value
// column run to the end of the row.
const int32 kTabStops[] = {6, 118, -160, 200, 0};

// Right-aligned text ends this far before the next column.
const int32 kRightMargin = 12;

// The selection band leaves this much of the row free at either end.
const float kBandInset = 4.0f;

// Text sits this far above the row's bottom edge.
const float kBaselineOffset = 2.0f;
// The type and the size show whole: a text too wide for its column (the hex
// form of a code whose bytes are not all printable, a size of many digits) is
// drawn smaller, down to this size.
const float kFitMargin = 2.0f;
const float kSmallestFitSize = 6.0f;

const rgb_color kTextColor = {0, 0, 0, 255};

}	// namespace

CMultiTextItem::CMultiTextItem(uint32 kind, uint32 outlineLevel, bool expanded)
	:
	BListItem(outlineLevel, expanded),
	fKind(kind),
	fType(0),
	fDataSize(0)
{
	memcpy(fTabStops, kTabStops, sizeof(fTabStops));
}

CMultiTextItem::~CMultiTextItem()
{
	FreeAttrData();
}

void
CMultiTextItem::SetNode(AttrData* data)
{
	SetAttrData(data->type, data->data, data->size);

	char value[kAttrStringSize];
	snprintf(value, sizeof(value), "%s", kTooLargeText);
	String size = LongNumStr(data->size);
	MakeAttrString(value, data->type, data->data, data->size);

	if (IsIconType(data->type))
		SetHeight(IconSide(data->size));
	SetNodeStrings(data->name, ASCII(data->type), size, value);
}

void
CMultiTextItem::SetNodeStrings(const char* name, const char* type, const char* size,
	const char* value)
{
	fStrings[kNameColumn] = name;
	fStrings[kTypeColumn] = type;
	fStrings[kSizeColumn] = size;
	fStrings[kValueColumn] = value;
	fStrings[kJoinedString] = "";
}

void
CMultiTextItem::SetAttrData(uint32 type, const void* data, uint32 size)
{
	FreeAttrData();
	if (data == nullptr || size == 0)
		return;
	fType = type;
	fDataSize = size;
	fData = std::make_unique<char[]>(size + 1);
	memcpy(fData.get(), data, size);
	fData[size] = '\0';
}

void
CMultiTextItem::FreeAttrData()
{
	fData.reset();
	fType = 0;
	fDataSize = 0;
}

const char*
CMultiTextItem::GetString(short index) const
{
	if (index < 0 || index > kJoinedString)
		return nullptr;
	return fStrings[index];
}

uint32
CMultiTextItem::AttributeType() const
{
	return fDataSize > 0 ? fType : TypeCodeFromText(fStrings[kTypeColumn]);
}

int32
CMultiTextItem::TabStop(uint32 index) const
{
	return index <= kColumnCount ? fTabStops[index] : 0;
}

const char*
CMultiTextItem::GetAttributeString()
{
	String& joined = fStrings[kJoinedString];
	joined = fStrings[kNameColumn];
	for (int32 column = kTypeColumn; column < kColumnCount; column++)
		joined << "\t" << fStrings[column];
	return joined;
}

uint32
CMultiTextItem::FindField(BPoint where) const
{
	for (uint32 column = 0; column < kColumnCount; column++) {
		if (where.x >= abs(fTabStops[column]) && where.x <= abs(fTabStops[column + 1]))
			return column;
	}
	return kValueColumn;
}

void
CMultiTextItem::DrawItem(BView* owner, BRect frame, bool)
{
	rgb_color viewColor = owner->ViewColor();
	rgb_color highColor = owner->HighColor();
	// The list leaves the background to the rows; setting the colour only when
	// it differs spares the owner a needless redraw.
	if (viewColor != B_TRANSPARENT_32_BIT)
		owner->SetViewColor(B_TRANSPARENT_32_BIT);

	if (IsSelected()) {
		BRect band = frame;
		band.left += kBandInset;
		band.right -= kBandInset;
		owner->FillRect(band, B_SOLID_HIGH);
	}
	for (uint32 column = 0; column < kColumnCount; column++)
		pvDrawColumn(owner, frame, column);

	owner->SetHighColor(highColor);
	if (viewColor != B_TRANSPARENT_32_BIT)
		owner->SetViewColor(viewColor);
}

void
CMultiTextItem::Update(BView* owner, const BFont* font)
{
	float height = Height();
	BListItem::Update(owner, font);
	if (IsIconType(fType))
		SetHeight(height);
}

void
CMultiTextItem::DrawBitmap(BView* owner, BRect frame, long side)
{
	if (fData == nullptr || side <= 0)
		return;
	BBitmap bitmap(BRect(0, 0, side - 1, side - 1), B_CMAP8);
	bitmap.SetBits(fData.get(), fDataSize, 0, B_CMAP8);

	float shown = std::min<float>(side - 1, frame.Height());
	BRect source(0, 0, side - 1, shown);
	BRect destination(frame.left, frame.top, frame.left + side - 1, frame.top + shown);
	owner->DrawBitmap(&bitmap, source, destination);
}

bool
CMultiTextItem::IsIconType(uint32 type)
{
	return type == 'ICON' || type == 'MICN' || type == 'CLRB';
}

long
CMultiTextItem::IconSide(uint32 size)
{
	return size > 1023 ? 32 : 16;
}

void
CMultiTextItem::pvDrawColumn(BView* owner, BRect frame, uint32 column)
{
	BRect span = pvColumnFrame(frame, column);
	BRegion clip(span);
	owner->PushState();
	owner->ConstrainClippingRegion(&clip);

	if (column == kValueColumn && IsIconType(fType)) {
		DrawBitmap(owner, span, IconSide(fDataSize));
	} else {
		const char* text = fStrings[column];
		float width = owner->StringWidth(text);
		float room = span.Width() - (fTabStops[column] < 0 ? kRightMargin + 1 : kFitMargin);
		if ((column == kTypeColumn || column == kSizeColumn) && width > room) {
			BFont font;
			owner->GetFont(&font);
			font.SetSize(std::max(kSmallestFitSize, std::floor(font.Size() * room / width)));
			owner->SetFont(&font, B_FONT_SIZE);
			width = owner->StringWidth(text);
		}
		float x = fTabStops[column];
		if (fTabStops[column] < 0) {
			x = abs(fTabStops[column + 1])
				- (static_cast<int32>(width) + kRightMargin);
		}
		BPoint start(x, frame.bottom - kBaselineOffset);
		owner->SetHighColor(kTextColor);
		owner->DrawString(text, start);
		if (fKind == kUnderlinedRow)
			owner->StrokeLine(BPoint(x, frame.bottom), BPoint(x + width, frame.bottom));
	}
	owner->PopState();
}

BRect
CMultiTextItem::pvColumnFrame(BRect frame, uint32 column) const
{
	BRect span = frame;
	span.left = abs(fTabStops[column]);
	if (fTabStops[column + 1] != 0)
		span.right = abs(fTabStops[column + 1]);
	return span;
}
