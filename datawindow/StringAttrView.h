#ifndef STRING_ATTR_VIEW_H
#define STRING_ATTR_VIEW_H

#include <algorithm>
#include <cstring>
#include <memory>

#include <View.h>

#include "VellumString.h"

class BTextControl;

// The data window's view of a value as text, and the base of its typed
// views: a header, the attribute's "Name" and "Type" fields and a data panel
// ("Data"). The value itself stays with the window. Closing the window with
// edits asks whether to save them, and saving applies name, type and value as
// one change through the window.
class StringAttrView : public BView {
public:
	StringAttrView(BRect frame, const char* name, uint32 resizingMode, uint32 flags);

	virtual void AttachedToWindow();
	virtual void MessageReceived(BMessage* message);

	virtual void Insert(const char* data, long size);
	// Puts the window's value (data when given) back into the fields.
	virtual void Refresh(const void* data);
	virtual bool QuitRequested();
	// Whether the field (every field when null) differs from the attribute.
	virtual bool IsDirty(const char* field);
	virtual bool IsDataDirty();
	virtual BTextControl* MakeNewTextControl(BView* parent, BRect frame, const char* name,
		const char* label, const char* text, uint32 resizingMode, uint32 flags);
	// Returns the height of the header.
	virtual float MakeHeader(BRect frame, BView* parent);
	virtual void MakeDataPanel(BRect frame, BView* parent);
	// Offers the edited fields for saving; false when the user cancelled.
	virtual bool SaveChanges();
	virtual bool SaveChanges(const char* name, const char* type, const char* data);
	virtual void ChangeComposite(const char* name, uint32 type, const void* data, long size);
	virtual void MakeDisplayString(char* out, const void* data, uint32 size);
	virtual void MakeDisplayString(char* out, const char* text);
	// The value the data panel holds, in a new buffer (release with
	// delete[]) with a NUL after it; *size is the value's size.
	virtual char* ExtractDataValue(long* size);
	virtual void* GetMasterData() const;
	virtual uint32 GetDataType() const;
	virtual long GetDataSize() const;
	virtual const String& GetDataName() const;
	virtual const char* GetTextString(const char* field) const;
	virtual String ExtractDataTextString(const void* data);

	bool IsEditable() const;
	void MakeEditable(bool on);
	void SetHeader(const char* text);
	void SetTitleAndType(const char* name, uint32 type, long size);
	// Saves a new attribute, one that has no name yet, under the typed name
	// and type after asking; false when the user cancelled.
	bool AddAttr();

protected:
	// Whether the panel's value, read as a T, differs from the window's.
	template<typename T>
	bool DataDiffers();

	BTextControl* pvField(const char* name) const;
	void pvSetFieldText(const char* field, const char* text);

private:
	class DataWindow* pvWindow() const;
	void pvEditCommand(BMessage* message);

	String fKeptName;
};

// The value at data read as a T, from no more than size bytes; missing bytes
// read as zero.
template<typename T>
T
ReadValue(const void* data, long size)
{
	T value{};
	if (data != nullptr && size > 0)
		memcpy(&value, data, std::min<size_t>(sizeof(T), size));
	return value;
}

// A new buffer (release with delete[]) with value and a NUL after it.
template<typename T>
char*
NewValueBuffer(T value, long* size)
{
	char* buffer = new char[sizeof(T) + 1]();
	memcpy(buffer, &value, sizeof(T));
	if (size != nullptr)
		*size = sizeof(T);
	return buffer;
}

template<typename T>
bool
StringAttrView::DataDiffers()
{
	long size = 0;
	std::unique_ptr<char[]> value(ExtractDataValue(&size));
	return ReadValue<T>(value.get(), size) != ReadValue<T>(GetMasterData(), GetDataSize());
}

#endif
