#ifndef HEX_VIEW_H
#define HEX_VIEW_H

#include <View.h>

// The data window's view of a value as a hex dump, under a header that names
// the attribute. It holds no editor yet: it shows the header alone, takes no
// value and is never editable.
class HexView : public BView {
public:
	HexView(BRect frame, const char* name, uint32 resizingMode, uint32 flags);

	virtual void AttachedToWindow();

	void SetHeader(const char* text);
	// The header carries name and type.
	void SetTitleAndType(const char* name, uint32 type, long size);
	// A negative size is the length of the text at data.
	void Insert(const char* data, long size);
	// Replaces the shown value.
	void SetText(const char* data, long size);
	bool IsEditable() const;
	void MakeEditable(bool on);
};

#endif
