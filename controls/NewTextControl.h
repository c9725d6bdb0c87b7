#ifndef NEW_TEXT_CONTROL_H
#define NEW_TEXT_CONTROL_H

#include <TextControl.h>

// A text control with a character limit (enforced by the FilterNumChars key
// filter) and a disabled state that makes the field read-only, unselectable and
// skipped by Tab while its label keeps its normal look.
class NewTextControl : public BTextControl {
public:
	NewTextControl(BRect frame, const char* name, const char* label, const char* text,
		BMessage* message, uint32 resizingMode, uint32 flags);

	virtual void SetEnabled(bool on);
	virtual void MakeFocus(bool focus = true);
	// Filters go to the text view, which receives the typed keys.
	virtual void AddFilter(BMessageFilter* filter);

	void SetMaxChars(int32 maxChars);
	int32 GetMaxChars() const;

private:
	int32 fMaxChars = 0;
};

#endif
