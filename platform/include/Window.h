#ifndef _WINDOW_H
#define _WINDOW_H

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <InterfaceDefs.h>
#include <Looper.h>
#include <Rect.h>
#include <Region.h>

class BMessage;
class BView;

namespace BPrivate {
class Canvas;
class MenuWindow;
class PulseTimer;
class WindowTester;
struct Shortcut;
}

enum window_type {
	B_UNTYPED_WINDOW = 0,
	B_TITLED_WINDOW = 1,
	B_MODAL_WINDOW = 3,
	B_DOCUMENT_WINDOW = 11,
	B_BORDERED_WINDOW = 20,
	B_FLOATING_WINDOW = 21
};

enum window_look {
	B_BORDERED_WINDOW_LOOK = 20,
	B_NO_BORDER_WINDOW_LOOK = 19,
	B_TITLED_WINDOW_LOOK = 1,
	B_DOCUMENT_WINDOW_LOOK = 11,
	B_MODAL_WINDOW_LOOK = 3,
	B_FLOATING_WINDOW_LOOK = 7
};

enum window_feel {
	B_NORMAL_WINDOW_FEEL = 0,
	B_MODAL_SUBSET_WINDOW_FEEL = 2,
	B_MODAL_APP_WINDOW_FEEL = 1,
	B_MODAL_ALL_WINDOW_FEEL = 3,
	B_FLOATING_SUBSET_WINDOW_FEEL = 5,
	B_FLOATING_APP_WINDOW_FEEL = 4,
	B_FLOATING_ALL_WINDOW_FEEL = 6
};

enum {
	B_NOT_MOVABLE = 0x00000001,
	B_NOT_RESIZABLE = 0x00000002,
	B_NOT_H_RESIZABLE = 0x00000004,
	B_NOT_V_RESIZABLE = 0x00000008,
	B_WILL_ACCEPT_FIRST_CLICK = 0x00000010,
	B_NOT_CLOSABLE = 0x00000020,
	B_NOT_ZOOMABLE = 0x00000040,
	B_AVOID_FRONT = 0x00000080,
	B_NO_WORKSPACE_ACTIVATION = 0x00000100,
	B_OUTLINE_RESIZE = 0x00001000,
	B_AVOID_FOCUS = 0x00002000,
	B_NOT_MINIMIZABLE = 0x00004000,
	B_NOT_ANCHORED_ON_ACTIVATE = 0x00020000,
	B_ASYNCHRONOUS_CONTROLS = 0x00080000,
	B_QUIT_ON_WINDOW_CLOSE = 0x00100000
};

// A window on the screen: a looper with its own thread that draws its views into
// its frame, which the display server shows. Frame() is in screen coordinates,
// the content area without the decoration.
class BWindow : public BLooper {
public:
	BWindow(BRect frame, const char* title, window_type type, uint32 flags,
		uint32 workspace = B_CURRENT_WORKSPACE);
	BWindow(BRect frame, const char* title, window_look look, window_feel feel,
		uint32 flags, uint32 workspace = B_CURRENT_WORKSPACE);
	virtual ~BWindow();

	// Hooks.
	virtual void MessageReceived(BMessage* message);
	virtual void DispatchMessage(BMessage* message, BHandler* handler);
	virtual bool QuitRequested();
	virtual void Quit();
	virtual void FrameMoved(BPoint newPosition);
	virtual void FrameResized(float newWidth, float newHeight);
	virtual void WindowActivated(bool active);
	virtual void MenusBeginning();
	virtual void MenusEnded();
	virtual void Zoom(BPoint origin, float width, float height);
	virtual void Minimize(bool minimize);
	virtual void Show();
	virtual void Hide();
	virtual void SetTitle(const char* title);

	void Close() { Quit(); }
	void Zoom();
	bool IsHidden() const;
	bool IsMinimized() const { return fMinimized; }
	void Activate(bool active = true);
	bool IsActive() const { return fActive; }
	const char* Title() const;

	BRect Frame() const { return fFrame; }
	BRect Bounds() const;
	void MoveBy(float dx, float dy);
	void MoveTo(BPoint where);
	void MoveTo(float x, float y) { MoveTo(BPoint(x, y)); }
	void ResizeBy(float dx, float dy);
	void ResizeTo(float width, float height);
	void SetSizeLimits(float minWidth, float maxWidth, float minHeight, float maxHeight);
	void GetSizeLimits(float* minWidth, float* maxWidth, float* minHeight,
		float* maxHeight) const;
	void SetZoomLimits(float maxWidth, float maxHeight);

	window_type Type() const { return fType; }
	window_look Look() const { return fLook; }
	window_feel Feel() const { return fFeel; }
	uint32 Flags() const { return fFlags; }
	status_t SetFlags(uint32 flags);
	uint32 Workspaces() const { return fWorkspaces; }
	void SetWorkspaces(uint32 workspaces) { fWorkspaces = workspaces; }

	void AddChild(BView* child, BView* before = NULL);
	bool RemoveChild(BView* child);
	int32 CountChildren() const;
	BView* ChildAt(int32 index) const;
	BView* FindView(const char* name) const;
	BView* FindView(BPoint point) const;
	BView* CurrentFocus() const { return fFocus; }
	BView* LastMouseMovedView() const { return fMouseView; }

	void ConvertToScreen(BPoint* point) const;
	BPoint ConvertToScreen(BPoint point) const;
	void ConvertFromScreen(BPoint* point) const;
	BPoint ConvertFromScreen(BPoint point) const;
	void ConvertToScreen(BRect* rect) const;
	BRect ConvertToScreen(BRect rect) const;
	void ConvertFromScreen(BRect* rect) const;
	BRect ConvertFromScreen(BRect rect) const;

	// Redraws what is invalid now instead of after the current message.
	void UpdateIfNeeded();
	void DisableUpdates();
	void EnableUpdates();
	void BeginViewTransaction();
	void EndViewTransaction();
	bool NeedsUpdate() const;
	void Sync() const;
	void Flush() const;

	void SetPulseRate(bigtime_t rate);
	bigtime_t PulseRate() const { return fPulseRate; }

	// Keyboard shortcuts: Command plus key (plus the given Shift, Option or
	// Control) sends message to target (the window when NULL). The window owns
	// the message. A later shortcut for the same keys replaces an earlier one.
	void AddShortcut(uint32 key, uint32 modifiers, BMessage* message);
	void AddShortcut(uint32 key, uint32 modifiers, BMessage* message, BHandler* target);
	// For menu items: the shortcut calls trigger after MenusBeginning(); trigger
	// returns false when it did not take the key (a disabled item), and the key
	// then goes on to the focus view.
	void AddShortcut(uint32 key, uint32 modifiers, std::function<bool()> trigger);
	void RemoveShortcut(uint32 key, uint32 modifiers);
	bool HasShortcut(uint32 key, uint32 modifiers) const;

	// The default button is invoked by Enter whatever view has the focus.
	void SetDefaultButton(class BButton* button);
	class BButton* DefaultButton() const { return fDefaultButton; }

	BView* KeyMenuBar() const { return fKeyMenuBar; }
	void SetKeyMenuBar(BView* bar) { fKeyMenuBar = bar; }

	bool IsFront() const { return fActive; }

protected:
	// Redraws what became invalid and presents the frame.
	virtual void DispatchMessageDone();

private:
	friend class BAlert;
	friend class BView;
	friend class BPrivate::WindowTester;
	friend class BPrivate::MenuWindow;
	friend status_t beep();

	void pvInit(BRect frame, const char* title, window_look look, window_feel feel,
		uint32 flags, uint32 workspace);
	BView* pvTargetView(BHandler* handler) const;
	void pvMouseDown(BMessage* message, BHandler* handler);
	void pvMouseUp(BMessage* message, BHandler* handler);
	void pvMouseMoved(BMessage* message, BHandler* handler);
	void pvNoteMouse(BMessage* message);
	void pvKeyDown(BMessage* message, BHandler* handler);
	void pvKeyUp(BMessage* message, BHandler* handler);
	void pvDrop(BMessage* message);
	bool pvShortcut(uint32 key, uint32 modifiers);
	void pvNavigate(BView* from, bool forward);
	void pvCollectNavigable(BView* view, std::vector<BView*>& views) const;
	void pvViewRemoved(BView* view);
	void pvViewHidden(BView* view);
	void pvTakeQueuedMouse();
	void pvApplySize(float width, float height, bool tellServer);
	void pvSendUserSizeLimits();
	// What the desktop shows in the title bar, leaving Title() as it is.
	void pvShowTitle(const char* title);
	void pvActivated(BView* view, bool active);
	void pvInvalidate(BRect windowRect);
	void pvContextChanged() { fContextView = nullptr; }
	BPrivate::Canvas* pvCanvasFor(BView* view);
	void pvUpdate();
	void pvDrawView(BView* view);
	void pvPulse(BView* view);
	void pvPulseNeeded();

	BView* fTopView = nullptr;
	std::unique_ptr<BPrivate::Canvas> fCanvas;
	std::string fTitle;
	BRect fFrame;
	BRect fUnzoomedFrame;
	bool fZoomed = false;
	window_type fType = B_UNTYPED_WINDOW;
	window_look fLook = B_TITLED_WINDOW_LOOK;
	window_feel fFeel = B_NORMAL_WINDOW_FEEL;
	uint32 fFlags = 0;
	uint32 fWorkspaces = B_CURRENT_WORKSPACE;
	float fMinWidth = 0, fMaxWidth = 32768, fMinHeight = 0, fMaxHeight = 32768;
	int32 fShowLevel = 1;
	bool fShownOnce = false;
	bool fActive = false;
	bool fMinimized = false;
	int32 fUpdatesDisabled = 0;
	bool fInUpdate = false;
	bool fPendingPresent = false;
	BRegion fDirty;
	BRegion fUpdateClip;
	BView* fContextView = nullptr;
	BView* fFocus = nullptr;
	BView* fMouseView = nullptr;
	BView* fMouseHolder = nullptr;
	uint32 fButtons = 0;
	BPoint fMousePoint;
	class BButton* fDefaultButton = nullptr;
	BView* fKeyMenuBar = nullptr;
	std::vector<std::unique_ptr<BPrivate::Shortcut>> fShortcuts;
	bigtime_t fPulseRate = 500000;
	std::unique_ptr<BPrivate::PulseTimer> fPulse;
	int32 fServerId = -1;
};

#endif
