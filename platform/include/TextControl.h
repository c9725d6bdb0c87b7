#ifndef _TEXT_CONTROL_H
#define _TEXT_CONTROL_H

#include <memory>

#include <Control.h>

class BTextView;

namespace BPrivate {
class TextInput;
}

// A label and a one-line text field. The field is a BTextView child (TextView())
// that holds the keyboard focus for the control. The control's message is sent
// (with "when", "source" and "be:value") when the text is committed: Enter with
// the text changed since the last commit, or the field losing the focus after a
// change. The modification message, when set, goes out on every change.
class BTextControl : public BControl {
public:
	BTextControl(BRect frame, const char* name, const char* label, const char* initialText,
		BMessage* message, uint32 resizingMode = B_FOLLOW_LEFT | B_FOLLOW_TOP,
		uint32 flags = B_WILL_DRAW | B_NAVIGABLE);
	virtual ~BTextControl();

	virtual void SetText(const char* text);
	const char* Text() const;
	BTextView* TextView() const;

	virtual void SetModificationMessage(BMessage* message);
	BMessage* ModificationMessage() const;

	virtual void SetAlignment(alignment label, alignment text);
	void GetAlignment(alignment* label, alignment* text) const;
	// The x where the label area ends and the field begins.
	virtual void SetDivider(float dividingLine);
	float Divider() const { return fDivider; }

	// Hooks.
	virtual void AttachedToWindow();
	virtual void Draw(BRect updateRect);
	virtual void MouseDown(BPoint where);
	virtual void MakeFocus(bool focus = true);
	virtual void SetEnabled(bool enabled);
	virtual void FrameResized(float width, float height);
	virtual void WindowActivated(bool active);
	virtual void GetPreferredSize(float* width, float* height);
	virtual void ResizeToPreferred();
	// B_NAVIGABLE belongs to the field, which takes the focus.
	virtual void SetFlags(uint32 flags);

private:
	friend class BPrivate::TextInput;

	void pvLayoutField();
	float pvFieldHeight() const;
	BRect pvFieldFrame() const;
	void pvFieldColors();

	BPrivate::TextInput* fText;
	std::unique_ptr<BMessage> fModificationMessage;
	alignment fLabelAlignment = B_ALIGN_LEFT;
	float fDivider;
};

#endif
