#ifndef C_MULTI_TEXT_ITEM_H
#define C_MULTI_TEXT_ITEM_H

#include <memory>

#include <ListItem.h>

#include "AttrData.h"
#include "VellumString.h"

class BBitmap;
class BFont;
class BView;

// One row of the attribute list: name, type, size and value at fixed tab
// stops, with its own copy of the value bytes. Icon values are drawn as
// bitmaps in the value column. With kind 0 the same class draws the column
// titles above the list; a row of kind 1 underlines each column's text.
class CMultiTextItem : public BListItem {
public:
	enum {
		kHeaderRow = 0,
		kUnderlinedRow = 1,
		kAttributeRow = 2
	};

	enum {
		kNameColumn = 0,
		kTypeColumn,
		kSizeColumn,
		kValueColumn,
		kColumnCount,
		kJoinedString = kColumnCount
	};

	CMultiTextItem(uint32 kind, uint32 outlineLevel, bool expanded);
	virtual ~CMultiTextItem();

	// Fills the row from an attribute: copies its bytes and makes the four
	// column texts; icon rows get the height of their bitmap.
	void SetNode(AttrData* data);
	void SetNodeStrings(const char* name, const char* type, const char* size,
		const char* value);
	// Keeps a copy of size bytes (plus a closing zero); without data or with
	// size 0 the row holds no value and its type is 0.
	void SetAttrData(uint32 type, const void* data, uint32 size);
	void FreeAttrData();

	const char* GetString(short index) const;
	uint32 GetType() const { return fType; }
	// The attribute's type also for a row without bytes, whose GetType() is
	// 0: then the type column tells it.
	uint32 AttributeType() const;
	uint32 GetDataSize() const { return fDataSize; }
	const void* GetData() const { return fData.get(); }
	int32 TabStop(uint32 index) const;

	// The four column texts joined by tabs; lives as long as the row.
	const char* GetAttributeString();
	// The column under a point; the value column when no other one is.
	uint32 FindField(BPoint where) const;

	virtual void DrawItem(BView* owner, BRect frame, bool complete = false);
	// Keeps the bitmap height of an icon row when the list sets row heights
	// from its font.
	virtual void Update(BView* owner, const BFont* font);
	// Draws the value as a side x side colour-mapped bitmap at the frame's
	// top left, cut at the frame's bottom.
	void DrawBitmap(BView* owner, BRect frame, long side);

	// True for the types whose value is a colour-mapped bitmap.
	static bool IsIconType(uint32 type);
	// The side of the square bitmap an icon value of this size holds.
	static long IconSide(uint32 size);

private:
	void pvDrawColumn(BView* owner, BRect frame, uint32 column);
	BRect pvColumnFrame(BRect frame, uint32 column) const;

	uint32 fKind;
	String fStrings[kColumnCount + 1];
	uint32 fType;
	uint32 fDataSize;
	std::unique_ptr<char[]> fData;
	int32 fTabStops[kColumnCount + 1];
};

#endif
