#ifndef EDIT_MENU_H
#define EDIT_MENU_H

#include <Menu.h>

class BWindow;

// The Edit menu shared by the inspector and data windows: Undo, Cut, Copy,
// Paste, Clear and Select All, addressed by index with the separators counted.
class EditMenu : public BMenu {
public:
	enum {
		kUndoItem = 0,
		kCutItem = 2,
		kCopyItem = 3,
		kPasteItem = 4,
		kClearItem = 5,
		kSelectAllItem = 7
	};

	EditMenu();

	void Initialize();
	// Items with the shortcut C or A change only when includeCopy or
	// includeSelectAll allow it.
	void EnableAll(bool enable, bool includeCopy, bool includeSelectAll);
	// Throws StatusError for an index outside the menu.
	void EnableItem(int32 index, bool enable);

	// The Edit menu in the window's menu bar; throws StatusError when the window
	// has none.
	static EditMenu* RecoverEditMenu(BWindow* window);
};

#endif
