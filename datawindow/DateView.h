#ifndef DATE_VIEW_H
#define DATE_VIEW_H

#include "StringAttrView.h"

// A value as a date ("Data") and a time of day ("AttrTime").
class DateView : public StringAttrView {
public:
	DateView(BRect frame, const char* name, uint32 resizingMode, uint32 flags);

	virtual void Insert(const char* data, long size);
	virtual bool IsDataDirty();
	virtual void MakeDataPanel(BRect frame, BView* parent);
	virtual char* ExtractDataValue(long* size);
};

#endif
