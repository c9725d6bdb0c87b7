#ifndef GL_WINDOW_H
#define GL_WINDOW_H

#include <memory>

#include <Window.h>

class BShelf;
class BrindleFile;
class GlintView;

// The inspector window: one node per window, shown by its GlintView under a
// menu bar with the File and Edit menus. Its handler name stays "Vellum" for
// its whole life; that is how inspector windows are found.
class GlWindow : public BWindow {
public:
	GlWindow(BRect frame);
	virtual ~GlWindow();

	virtual void MessageReceived(BMessage* msg);
	virtual bool QuitRequested();
	// Loads the index-th "refs" entry of msg into the window.
	virtual void RefsReceived(BMessage* msg, int32 index);

	void SetupMenu();
	// Relabels the item itemLabel of the menu menuLabel; a missing menu throws,
	// a missing item is ignored.
	void SetMenuItem(const char* menuLabel, const char* itemLabel, const char* newLabel);
	// Enables the node commands and the Edit menu exactly when a node is shown.
	// Callable from any thread.
	void AdjustMenus();
	// The about window, centred on this window.
	void DoAbout();
	void PassToGlView(BMessage* msg);

	// The shown node, or null.
	BrindleFile* File() const;
	bool Loaded() const;

private:
	void pvBuildViews();
	void pvEditCommand(BMessage* msg);
	void pvOpenFilePanel();
	bool pvCloseDataWindows();
	bool pvOtherInspectorsOpen();

	GlintView* fGlintView = nullptr;
	std::unique_ptr<BShelf> fShelf;
};

#endif
