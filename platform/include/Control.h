#ifndef _CONTROL_H
#define _CONTROL_H

#include <string>

#include <Invoker.h>
#include <View.h>

enum {
	B_CONTROL_OFF = 0,
	B_CONTROL_ON = 1
};

// A view with a value and a label that sends its message when the user
// operates it. Its target is the window unless set otherwise.
class BControl : public BView, public BInvoker {
public:
	BControl(BRect frame, const char* name, const char* label, BMessage* message,
		uint32 resizingMode, uint32 flags);
	virtual ~BControl();

	virtual void AttachedToWindow();
	virtual void MakeFocus(bool focus = true);
	virtual void WindowActivated(bool active);
	virtual void KeyDown(const char* bytes, int32 numBytes);

	virtual void SetLabel(const char* label);
	const char* Label() const;
	virtual void SetValue(int32 value);
	int32 Value() const { return fValue; }
	virtual void SetEnabled(bool enabled);
	bool IsEnabled() const { return fEnabled; }

	// Sends a copy of the message with "when", "source" (this control) and
	// "be:value" added.
	virtual status_t Invoke(BMessage* message = NULL);

protected:
	void SetValueNoUpdate(int32 value) { fValue = value; }
	bool IsFocusChanging() const { return fFocusChanging; }
	bool IsTracking() const { return fTracking; }
	void SetTracking(bool state) { fTracking = state; }
	// For controls that act when the mouse is released over them: the press
	// starts tracking (false when the control is disabled), the release ends it
	// and tells whether it happened inside the control.
	bool StartTracking();
	bool StopTracking(BPoint where);
	// The label's colour: darker text, lighter when disabled.
	rgb_color LabelColor() const;
	// Draws the label with its baseline starting at baseline, underlined while
	// the control has the keyboard focus.
	void DrawLabel(BPoint baseline);
	// Enter or Space on an enabled control that is not being clicked.
	bool IsActivationKey(const char* bytes) const;
	// The baseline that centres one line of the view's font in rect.
	float CenteredBaseline(BRect rect) const;

private:
	std::string fLabel;
	bool fHasLabel;
	int32 fValue = B_CONTROL_OFF;
	bool fEnabled = true;
	bool fNavigableWhenEnabled = false;
	bool fFocusChanging = false;
	bool fTracking = false;
};

#endif
