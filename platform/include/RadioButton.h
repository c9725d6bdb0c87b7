#ifndef _RADIO_BUTTON_H
#define _RADIO_BUTTON_H

#include <Control.h>

// One of a group of choices: the radio buttons that share a parent view form a
// group, and turning one on turns the others off.
class BRadioButton : public BControl {
public:
	BRadioButton(BRect frame, const char* name, const char* label, BMessage* message,
		uint32 resizingMode = B_FOLLOW_LEFT | B_FOLLOW_TOP,
		uint32 flags = B_WILL_DRAW | B_NAVIGABLE);
	virtual ~BRadioButton();

	virtual void Draw(BRect updateRect);
	virtual void MouseDown(BPoint where);
	virtual void MouseUp(BPoint where);
	virtual void KeyDown(const char* bytes, int32 numBytes);
	virtual void SetValue(int32 value);
	virtual void GetPreferredSize(float* width, float* height);

private:
	BRect pvMarkRect() const;
	void pvSelect();
};

#endif
