#ifndef _ALERT_H
#define _ALERT_H

#include <InterfaceDefs.h>
#include <Window.h>

class BButton;
class BInvoker;

namespace BPrivate {
class AlertView;
}

enum alert_type {
	B_EMPTY_ALERT = 0,
	B_INFO_ALERT,
	B_IDEA_ALERT,
	B_WARNING_ALERT,
	B_STOP_ALERT
};

enum button_spacing {
	B_EVEN_SPACING = 0,
	B_OFFSET_SPACING
};

// A modal window with a message, an icon for its kind and up to three buttons,
// the last of which is the default (Enter). Escape chooses the button given by
// SetShortcut(index, B_ESCAPE), by default the first of two or more buttons.
// The alert deletes itself once a button is chosen.
class BAlert : public BWindow {
public:
	BAlert(const char* title, const char* text, const char* button0,
		const char* button1 = NULL, const char* button2 = NULL,
		button_width width = B_WIDTH_AS_USUAL, alert_type type = B_INFO_ALERT);
	BAlert(const char* title, const char* text, const char* button0,
		const char* button1, const char* button2, button_width width,
		button_spacing spacing, alert_type type = B_INFO_ALERT);
	virtual ~BAlert();

	// A key that chooses the button at index; 0 removes it.
	void SetShortcut(int32 index, char key);
	char Shortcut(int32 index) const;

	// Shows the alert and blocks the calling thread until a button is chosen;
	// returns its index. A window whose thread waits here keeps redrawing.
	int32 Go();
	// Returns at once; the choice is sent as a copy of the invoker's message
	// with "which" (int32). The alert owns invoker.
	status_t Go(BInvoker* invoker);

	virtual void MessageReceived(BMessage* message);
	virtual void DispatchMessage(BMessage* message, BHandler* handler);

	BButton* ButtonAt(int32 index) const;
	alert_type Type() const { return fType; }
	const char* Text() const;
	int32 CountButtons() const { return fButtonCount; }

	// Where an alert of that size goes: centred on the screen.
	static BPoint AlertPosition(float width, float height);

private:
	void pvInit(const char* text, const char* const labels[3], button_width width,
		button_spacing spacing, alert_type type);
	void pvLayOut(button_width width, button_spacing spacing);
	void pvChoose(int32 index);
	bool pvAnsweredByHook(int32* index);

	alert_type fType = B_INFO_ALERT;
	BPrivate::AlertView* fView = nullptr;
	BButton* fButtons[3] = {nullptr, nullptr, nullptr};
	char fKeys[3] = {0, 0, 0};
	int32 fButtonCount = 0;
	// Set while Go() waits (the waiter's own variables) or for Go(invoker).
	sem_id fChosenSem = -1;
	int32* fChosen = nullptr;
	BInvoker* fInvoker = nullptr;
};

#endif
