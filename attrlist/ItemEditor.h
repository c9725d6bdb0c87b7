#ifndef ITEM_EDITOR_H
#define ITEM_EDITOR_H

#include <View.h>

#include "CMultiTextItem.h"

class BListItem;
class BListView;
class BTextControl;
class NewTextControl;

// The editor laid over one attribute row: a field per column (name, type,
// size, value) that the user edits in place. Every change is confirmed and
// then written through the attribute panel, which re-reads the node. At most
// one editor lives in a list: a new one offers the old one's changes first.
class ItemEditor : public BView {
public:
	ItemEditor(BListView* list, long index, BRect frame);
	virtual ~ItemEditor();

	virtual void MessageReceived(BMessage* message);
	// A one-pixel frame in the high colour around the fields.
	virtual void DrawAfterChildren(BRect updateRect);

	// Saves whatever the fields change, once: after any save attempt it
	// returns true without asking. False when the user cancelled.
	bool SaveChanges();
	// Saves the one field that committed (the message's "source").
	bool SaveChanges(BMessage* message);
	// Asks whether to change the attribute to the given name, type text and
	// value (a null argument is unchanged) and writes it on "OK", puts the
	// row back into the fields on "Discard". False for "Cancel".
	bool SaveChanges(const char* name, const char* type, const void* data, long size);
	// Writes the attribute under its new name (the old one removed first,
	// unless only the letter case changes) through the attribute panel.
	void ChangeComposite(const char* name, uint32 type, void* data, long size);

	// Puts the row's four strings back into the fields.
	void Refresh(BListItem* row);
	void SetFocusedItem(uint32 index);
	const char* GetFieldText(uint32 index) const;

private:
	void pvAddField(uint32 index, BRect rowFrame);
	void pvPostAfterSave();

	// The value that a field's text makes for the type in the Type field;
	// null when that type has no rule.
	char* pvGetDataFromField(BTextControl* field, long* size);
	char* pvExtractNumValue(BTextControl* field, const char* typeText, long* size);
	char* pvExtractRectValue(BTextControl* field, long* size);
	char* pvExtractDateValue(BTextControl* field, long* size);
	char* pvExtractBoolValue(BTextControl* field, long* size);
	char* pvExtractHexValue(BTextControl* field, long* size);

	BListView* fList;
	CMultiTextItem* fRow;
	int32 fIndex;
	bool fSaving;
	NewTextControl* fFields[CMultiTextItem::kColumnCount];
};

#endif
