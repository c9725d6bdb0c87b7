#ifndef RECT_VIEW_H
#define RECT_VIEW_H

#include <Rect.h>

#include "StringAttrView.h"

// A value as a rectangle: left ("Data"), top, right and bottom fields.
class RectView : public StringAttrView {
public:
	RectView(BRect frame, const char* name, uint32 resizingMode, uint32 flags);

	virtual void Insert(const char* data, long size);
	virtual bool IsDataDirty();
	virtual BTextControl* MakeNewTextControl(BView* parent, BRect frame, const char* name,
		const char* label, const char* text, uint32 resizingMode, uint32 flags);
	virtual void MakeDataPanel(BRect frame, BView* parent);
	virtual char* ExtractDataValue(long* size);
	virtual String ExtractDataTextString(const void* data);

	// Puts the rectangle at rect into the four fields.
	void ResetData(const void* rect);
	void MakeEditable(bool on);

private:
	BRect fRect;
};

#endif
