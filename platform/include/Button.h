#ifndef _BUTTON_H
#define _BUTTON_H

#include <Control.h>

// A push button: a click or Enter (Space when it has the focus) invokes it. The
// window's default button also takes Enter wherever the focus is.
class BButton : public BControl {
public:
	BButton(BRect frame, const char* name, const char* label, BMessage* message,
		uint32 resizingMode = B_FOLLOW_LEFT | B_FOLLOW_TOP,
		uint32 flags = B_WILL_DRAW | B_NAVIGABLE);
	virtual ~BButton();

	virtual void Draw(BRect updateRect);
	virtual void MouseDown(BPoint where);
	virtual void MouseUp(BPoint where);
	virtual void MouseMoved(BPoint where, uint32 transit, const BMessage* dragMessage);
	virtual void KeyDown(const char* bytes, int32 numBytes);
	virtual void AttachedToWindow();
	virtual void GetPreferredSize(float* width, float* height);
	virtual void MakeDefault(bool flag);
	bool IsDefault() const { return fDefault; }

private:
	bool fDefault = false;
};

#endif
