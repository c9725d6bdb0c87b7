#ifndef BOOL_VIEW_H
#define BOOL_VIEW_H

#include "StringAttrView.h"

// A one-byte value as a choice between "True" and "False".
class BoolView : public StringAttrView {
public:
	BoolView(BRect frame, const char* name, uint32 resizingMode, uint32 flags);

	virtual void MessageReceived(BMessage* message);
	virtual void Insert(const char* data, long size);
	virtual bool IsDataDirty();
	virtual void MakeDataPanel(BRect frame, BView* parent);
	virtual char* ExtractDataValue(long* size);
	virtual String ExtractDataTextString(const void* data);

	// Turns on the radio button of that name, and so off the other.
	void SetRadioButton(const char* name);
};

#endif
