#ifndef _MENU_ITEM_H
#define _MENU_ITEM_H

#include <functional>
#include <string>

#include <Invoker.h>
#include <Rect.h>

class BMenu;
class BMessage;
class BWindow;

// One entry of a menu: a label with an optional message that goes to its target
// when the item is invoked, an optional keyboard shortcut (Command plus a
// character, plus Shift, Option or Control as given), an enabled and a marked
// state, or a submenu that opens from it.
class BMenuItem : public BInvoker {
public:
	BMenuItem(const char* label, BMessage* message, char shortcut = 0, uint32 modifiers = 0);
	BMenuItem(BMenu* menu, BMessage* message = NULL);
	virtual ~BMenuItem();

	virtual void SetLabel(const char* name);
	virtual void SetEnabled(bool enabled);
	virtual void SetMarked(bool marked);
	virtual void SetTrigger(char trigger);
	virtual void SetShortcut(char shortcut, uint32 modifiers);

	const char* Label() const;
	bool IsEnabled() const;
	bool IsMarked() const;
	char Trigger() const;
	char Shortcut(uint32* modifiers = NULL) const;

	BMenu* Submenu() const;
	BMenu* Menu() const;
	// In the coordinates of the menu that holds the item.
	BRect Frame() const;

	// Sends the message with "when", "source" (this item) and "index" (the item's
	// position in its menu) added.
	virtual status_t Invoke(BMessage* message = NULL);

	BMenuItem(const BMenuItem&) = delete;
	BMenuItem& operator=(const BMenuItem&) = delete;

protected:
	virtual void GetContentSize(float* width, float* height);
	virtual void DrawContent();
	virtual void Draw();
	virtual void Highlight(bool on);
	bool IsSelected() const;
	BPoint ContentLocation() const;

private:
	friend class BMenu;
	friend class BMenuBar;

	// The shortcut text of the item ("Ctrl+Shift+X"), empty without a shortcut.
	std::string pvShortcutText() const;
	float pvExtraWidth() const;
	// Installs the item's shortcut in window, and takes the window as target
	// when it has none; Uninstall takes the shortcut back.
	void pvInstall(BWindow* window);
	void pvUninstall();
	void pvRemoveShortcut();
	// Runs change with the menu's window locked when it has one, then redraws.
	void pvChange(const std::function<void()>& change);
	bool pvCanInvoke() const;

	std::string fLabel;
	BMenu* fSubmenu = nullptr;
	BMenu* fSuper = nullptr;
	BWindow* fWindow = nullptr;
	BRect fFrame;
	uint32 fModifiers = 0;
	char fShortcutChar = 0;
	char fTrigger = 0;
	bool fEnabled = true;
	bool fMarked = false;
	bool fSelected = false;
};

// A line between groups of items; it is never enabled and cannot be chosen.
class BSeparatorItem : public BMenuItem {
public:
	BSeparatorItem();
	virtual ~BSeparatorItem();

	virtual void SetEnabled(bool enabled);

protected:
	virtual void GetContentSize(float* width, float* height);
	virtual void Draw();
};

#endif
