#ifndef _TEXT_INPUT_H
#define _TEXT_INPUT_H

#include <string>

#include <TextView.h>

class BTextControl;

namespace BPrivate {

// The one-line field of a BTextControl. Enter commits the text to the control,
// and so does losing the focus after a change. Line feeds that the user
// pastes become spaces; text set by the program is kept as it is.
class TextInput : public BTextView {
public:
	TextInput(BRect frame, uint32 flags);

	virtual void KeyDown(const char* bytes, int32 numBytes);
	virtual void MakeFocus(bool focus = true);

	// Text set by the program: the new last committed text, not an edit.
	void SetTextQuietly(const char* text);

protected:
	virtual void InsertText(const char* text, int32 length, int32 offset,
		const text_run_array* runs);
	virtual void DeleteText(int32 fromOffset, int32 toOffset);

private:
	BTextControl* pvControl() const;
	void pvCommit();
	void pvModified();

	std::string fCommitted;
	bool fQuiet = false;
};

}	// namespace BPrivate

#endif
