#ifndef NUM_VIEW_H
#define NUM_VIEW_H

#include "StringAttrView.h"

// A value as one number: a float for 'FLOT', else the signed integer of its
// size.
class NumView : public StringAttrView {
public:
	NumView(BRect frame, const char* name, uint32 resizingMode, uint32 flags);

	virtual void Insert(const char* data, long size);
	virtual bool IsDataDirty();
	virtual void MakeDataPanel(BRect frame, BView* parent);
	virtual char* ExtractDataValue(long* size);
};

#endif
