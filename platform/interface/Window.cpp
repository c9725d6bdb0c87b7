#include <Window.h>

#include <algorithm>
#include <cctype>
#include <cstring>

#include <Application.h>
#include <Button.h>
#include <Message.h>
#include <MessageQueue.h>
#include <Screen.h>
#include <View.h>

#include "../app/PulseTimer.h"
#include "../app/WindowList.h"
#include "../link/DisplayServer.h"
#include "CanvasLink.h"
#include "WindowSink.h"
#include "ViewState.h"

using BPrivate::DisplayServer;

namespace BPrivate {

struct Shortcut {
	uint32 key;
	uint32 modifiers;
	std::unique_ptr<BMessage> message;
	BMessenger target;
	std::function<bool()> trigger;
};

}	// namespace BPrivate

namespace {

// The modifiers that tell shortcuts apart (Command is always part of them).
const uint32 kShortcutModifiers = B_SHIFT_KEY | B_OPTION_KEY | B_CONTROL_KEY;

uint32
ShortcutKey(uint32 key)
{
	return key < 128 ? uint32(tolower(int(key))) : key;
}

void
LookAndFeel(window_type type, window_look* look, window_feel* feel)
{
	*feel = B_NORMAL_WINDOW_FEEL;
	switch (type) {
		case B_DOCUMENT_WINDOW:
			*look = B_DOCUMENT_WINDOW_LOOK;
			break;
		case B_MODAL_WINDOW:
			*look = B_MODAL_WINDOW_LOOK;
			*feel = B_MODAL_APP_WINDOW_FEEL;
			break;
		case B_BORDERED_WINDOW:
			*look = B_BORDERED_WINDOW_LOOK;
			break;
		case B_FLOATING_WINDOW:
			*look = B_FLOATING_WINDOW_LOOK;
			*feel = B_FLOATING_APP_WINDOW_FEEL;
			break;
		default:
			*look = B_TITLED_WINDOW_LOOK;
			break;
	}
}

// frame with a size within the limits and no larger than the screen, its
// top-left kept: a frame remembered from elsewhere or damaged never asks for
// more than can be shown.
BRect
FittedFrame(BRect frame, float minWidth, float maxWidth, float minHeight, float maxHeight)
{
	BRect screen = BScreen().Frame();
	frame.right = frame.left + std::clamp(frame.Width(), minWidth,
		std::max(minWidth, std::min(maxWidth, screen.Width())));
	frame.bottom = frame.top + std::clamp(frame.Height(), minHeight,
		std::max(minHeight, std::min(maxHeight, screen.Height())));
	return frame;
}

}	// namespace

BWindow::BWindow(BRect frame, const char* title, window_type type, uint32 flags,
	uint32 workspace)
	: BLooper(title)
{
	window_look look;
	window_feel feel;
	LookAndFeel(type, &look, &feel);
	fType = type;
	pvInit(frame, title, look, feel, flags, workspace);
}

BWindow::BWindow(BRect frame, const char* title, window_look look, window_feel feel,
	uint32 flags, uint32 workspace)
	: BLooper(title)
{
	pvInit(frame, title, look, feel, flags, workspace);
}

void
BWindow::pvInit(BRect frame, const char* title, window_look look, window_feel feel,
	uint32 flags, uint32 workspace)
{
	fTitle = title != nullptr ? title : "";
	frame = FittedFrame(frame, fMinWidth, fMaxWidth, fMinHeight, fMaxHeight);
	fFrame = frame;
	fLook = look;
	fFeel = feel;
	fFlags = flags;
	fWorkspaces = workspace;
	fCanvas = std::make_unique<BPrivate::Canvas>();
	fCanvas->Resize(frame.IntegerWidth() + 1, frame.IntegerHeight() + 1);

	fTopView = new BView(Bounds(), "top view", B_FOLLOW_ALL, B_WILL_DRAW);
	fTopView->pvAttach(this);

	BPrivate::AddWindow(this, this);
	BPrivate::WindowSettings settings;
	settings.frame = frame;
	settings.title = fTitle;
	settings.closable = (flags & B_NOT_CLOSABLE) == 0;
	settings.minimizable = (flags & B_NOT_MINIMIZABLE) == 0;
	settings.zoomable = (flags & (B_NOT_ZOOMABLE | B_NOT_RESIZABLE)) == 0;
	settings.bordered = look != B_NO_BORDER_WINDOW_LOOK && look != B_BORDERED_WINDOW_LOOK;
	settings.modal = feel == B_MODAL_APP_WINDOW_FEEL || feel == B_MODAL_SUBSET_WINDOW_FEEL
		|| feel == B_MODAL_ALL_WINDOW_FEEL;
	settings.floating = feel == B_FLOATING_APP_WINDOW_FEEL
		|| feel == B_FLOATING_SUBSET_WINDOW_FEEL || feel == B_FLOATING_ALL_WINDOW_FEEL;
	// Keys go to the preferred handler, the focus view; drops to the top view,
	// which stands for the view under the drop point; the rest to the window.
	fServerId = DisplayServer::Default().CreateWindow(
		std::make_shared<BPrivate::WindowSink>(BMessenger(this), BMessenger(nullptr, this),
			BMessenger(fTopView, this)),
		settings);
	SetSizeLimits(fMinWidth, fMaxWidth, fMinHeight, fMaxHeight);

	// The shortcuts every window has: close it, and quit the application.
	if ((flags & B_NOT_CLOSABLE) == 0)
		AddShortcut('W', 0, new BMessage(B_QUIT_REQUESTED));
	auto quit = std::make_unique<BPrivate::Shortcut>();
	quit->key = 'q';
	quit->modifiers = 0;
	quit->message = std::make_unique<BMessage>(B_QUIT_REQUESTED);
	quit->target = be_app_messenger;
	fShortcuts.push_back(std::move(quit));
}

BWindow::~BWindow()
{
	fPulse.reset();
	fTopView->pvDetach();
	delete fTopView;
	fTopView = nullptr;
	BPrivate::RemoveWindow(this);
	DisplayServer::Default().DestroyWindow(fServerId);
}

// #pragma mark - hooks

void
BWindow::MessageReceived(BMessage* message)
{
	BLooper::MessageReceived(message);
}

bool
BWindow::QuitRequested()
{
	return true;
}

void
BWindow::Quit()
{
	if (!IsHidden()) {
		fShowLevel = 1;
		DisplayServer::Default().ShowWindow(fServerId, false);
	}
	if ((fFlags & B_QUIT_ON_WINDOW_CLOSE) != 0)
		be_app_messenger.SendMessage(B_QUIT_REQUESTED);
	// A window that quits leaves the window list at once, not when it is deleted
	// after its loop, so that nobody who finds it gone still sees it listed.
	BPrivate::RemoveWindow(this);
	BLooper::Quit();
}

void
BWindow::FrameMoved(BPoint)
{
}

void
BWindow::FrameResized(float, float)
{
}

void
BWindow::WindowActivated(bool)
{
}

void
BWindow::MenusBeginning()
{
}

void
BWindow::MenusEnded()
{
}

void
BWindow::Zoom(BPoint origin, float width, float height)
{
	MoveTo(origin);
	ResizeTo(width, height);
}

void
BWindow::Zoom()
{
	if ((fFlags & B_NOT_ZOOMABLE) != 0)
		return;
	// Zooming again goes back to the frame the window had before.
	if (fZoomed) {
		fZoomed = false;
		Zoom(fUnzoomedFrame.LeftTop(), fUnzoomedFrame.Width(), fUnzoomedFrame.Height());
		return;
	}
	fUnzoomedFrame = fFrame;
	fZoomed = true;
	BRect screen = BScreen(this).Frame().InsetByCopy(5, 5);
	screen.top += 20;
	Zoom(screen.LeftTop(), std::min(screen.Width(), fMaxWidth),
		std::min(screen.Height(), fMaxHeight));
}

void
BWindow::Minimize(bool minimize)
{
	if (minimize && (fFlags & B_NOT_MINIMIZABLE) != 0)
		return;
	fMinimized = minimize;
	DisplayServer::Default().MinimizeWindow(fServerId, minimize);
}

void
BWindow::Show()
{
	fShowLevel--;
	if (fShowLevel == 0) {
		pvInvalidate(Bounds());
		DisplayServer::Default().ShowWindow(fServerId, true);
	}
	if (!fShownOnce) {
		fShownOnce = true;
		pvMoveOntoScreen();
		Run();
	}
	// The frame is drawn in the window's thread after this message.
	PostMessage(_UPDATE_);
}

// A window that lies off the screen, or whose top edge does (a place
// remembered from another screen), comes onto it, whole where it fits.
void
BWindow::pvMoveOntoScreen()
{
	BRect screen = BScreen().Frame();
	if (screen.Intersects(fFrame) && fFrame.top >= screen.top)
		return;
	BPoint where = fFrame.LeftTop();
	where.x = std::clamp(where.x, screen.left, std::max(screen.left, screen.right - fFrame.Width()));
	where.y = std::clamp(where.y, screen.top, std::max(screen.top, screen.bottom - fFrame.Height()));
	MoveTo(where);
}

void
BWindow::Hide()
{
	if (++fShowLevel == 1)
		DisplayServer::Default().ShowWindow(fServerId, false);
}

bool
BWindow::IsHidden() const
{
	return fShowLevel > 0;
}

void
BWindow::Activate(bool active)
{
	if (active)
		DisplayServer::Default().ActivateWindow(fServerId);
}

void
BWindow::SetTitle(const char* title)
{
	fTitle = title != nullptr ? title : "";
	DisplayServer::Default().SetTitle(fServerId, fTitle);
}

void
BWindow::pvShowTitle(const char* title)
{
	DisplayServer::Default().SetTitle(fServerId, title != nullptr ? title : "");
}

const char*
BWindow::Title() const
{
	return fTitle.c_str();
}

// #pragma mark - geometry

BRect
BWindow::Bounds() const
{
	return BRect(0, 0, fFrame.Width(), fFrame.Height());
}

void
BWindow::MoveBy(float dx, float dy)
{
	MoveTo(BPoint(fFrame.left + dx, fFrame.top + dy));
}

void
BWindow::MoveTo(BPoint where)
{
	if (where == fFrame.LeftTop())
		return;
	fFrame.OffsetTo(where);
	DisplayServer::Default().SetFrame(fServerId, fFrame);
	FrameMoved(where);
}

void
BWindow::ResizeBy(float dx, float dy)
{
	ResizeTo(fFrame.Width() + dx, fFrame.Height() + dy);
}

void
BWindow::ResizeTo(float width, float height)
{
	pvApplySize(width, height, true);
}

void
BWindow::pvApplySize(float width, float height, bool tellServer)
{
	width = std::clamp(width, fMinWidth, fMaxWidth);
	height = std::clamp(height, fMinHeight, fMaxHeight);
	if (width == fFrame.Width() && height == fFrame.Height()) {
		if (!tellServer)
			DisplayServer::Default().SetFrame(fServerId, fFrame);
		return;
	}
	fFrame.right = fFrame.left + width;
	fFrame.bottom = fFrame.top + height;
	fCanvas->Resize(int32(width) + 1, int32(height) + 1);
	fTopView->pvSetFrame(Bounds());
	pvContextChanged();
	pvInvalidate(Bounds());
	if (tellServer) {
		// A size the user may not change moves with the program's resize.
		if ((fFlags & (B_NOT_RESIZABLE | B_NOT_H_RESIZABLE | B_NOT_V_RESIZABLE)) != 0)
			pvSendUserSizeLimits();
		DisplayServer::Default().SetFrame(fServerId, fFrame);
	}
	FrameResized(width, height);
}

void
BWindow::SetSizeLimits(float minWidth, float maxWidth, float minHeight, float maxHeight)
{
	fMinWidth = std::max(0.0f, minWidth);
	fMaxWidth = std::max(fMinWidth, maxWidth);
	fMinHeight = std::max(0.0f, minHeight);
	fMaxHeight = std::max(fMinHeight, maxHeight);
	pvSendUserSizeLimits();
	if (fFrame.Width() < fMinWidth || fFrame.Width() > fMaxWidth
		|| fFrame.Height() < fMinHeight || fFrame.Height() > fMaxHeight)
		ResizeTo(fFrame.Width(), fFrame.Height());
}

// The sizes the user may give the window on screen: the limits, except that
// what the flags hold fixed keeps its current size.
void
BWindow::pvSendUserSizeLimits()
{
	float userMinWidth = fMinWidth, userMaxWidth = fMaxWidth;
	float userMinHeight = fMinHeight, userMaxHeight = fMaxHeight;
	if ((fFlags & (B_NOT_RESIZABLE | B_NOT_H_RESIZABLE)) != 0)
		userMinWidth = userMaxWidth = fFrame.Width();
	if ((fFlags & (B_NOT_RESIZABLE | B_NOT_V_RESIZABLE)) != 0)
		userMinHeight = userMaxHeight = fFrame.Height();
	DisplayServer::Default().SetSizeLimits(fServerId, userMinWidth, userMaxWidth,
		userMinHeight, userMaxHeight);
}

void
BWindow::GetSizeLimits(float* minWidth, float* maxWidth, float* minHeight,
	float* maxHeight) const
{
	if (minWidth != nullptr)
		*minWidth = fMinWidth;
	if (maxWidth != nullptr)
		*maxWidth = fMaxWidth;
	if (minHeight != nullptr)
		*minHeight = fMinHeight;
	if (maxHeight != nullptr)
		*maxHeight = fMaxHeight;
}

void
BWindow::SetZoomLimits(float maxWidth, float maxHeight)
{
	SetSizeLimits(fMinWidth, maxWidth, fMinHeight, maxHeight);
}

status_t
BWindow::SetFlags(uint32 flags)
{
	fFlags = flags;
	SetSizeLimits(fMinWidth, fMaxWidth, fMinHeight, fMaxHeight);
	return B_OK;
}

void
BWindow::ConvertToScreen(BPoint* point) const
{
	*point += fFrame.LeftTop();
}

BPoint
BWindow::ConvertToScreen(BPoint point) const
{
	return point + fFrame.LeftTop();
}

void
BWindow::ConvertFromScreen(BPoint* point) const
{
	*point -= fFrame.LeftTop();
}

BPoint
BWindow::ConvertFromScreen(BPoint point) const
{
	return point - fFrame.LeftTop();
}

void
BWindow::ConvertToScreen(BRect* rect) const
{
	rect->OffsetBy(fFrame.LeftTop());
}

BRect
BWindow::ConvertToScreen(BRect rect) const
{
	return rect.OffsetByCopy(fFrame.LeftTop());
}

void
BWindow::ConvertFromScreen(BRect* rect) const
{
	rect->OffsetBy(-fFrame.LeftTop());
}

BRect
BWindow::ConvertFromScreen(BRect rect) const
{
	return rect.OffsetByCopy(-fFrame.LeftTop());
}

// #pragma mark - views

void
BWindow::AddChild(BView* child, BView* before)
{
	fTopView->AddChild(child, before);
}

bool
BWindow::RemoveChild(BView* child)
{
	return fTopView->RemoveChild(child);
}

int32
BWindow::CountChildren() const
{
	return fTopView->CountChildren();
}

BView*
BWindow::ChildAt(int32 index) const
{
	return fTopView->ChildAt(index);
}

BView*
BWindow::FindView(const char* name) const
{
	return fTopView->FindView(name);
}

BView*
BWindow::FindView(BPoint point) const
{
	BView* view = fTopView->pvViewAt(point);
	return view != fTopView ? view : nullptr;
}

void
BWindow::SetDefaultButton(BButton* button)
{
	if (button == fDefaultButton)
		return;
	BButton* previous = fDefaultButton;
	fDefaultButton = button;
	if (previous != nullptr)
		previous->MakeDefault(false);
	if (button != nullptr)
		button->MakeDefault(true);
}

void
BWindow::pvViewRemoved(BView* view)
{
	if (fFocus == view)
		fFocus = nullptr;
	if (fMouseView == view)
		fMouseView = nullptr;
	if (fMouseHolder == view)
		fMouseHolder = nullptr;
	if (fDefaultButton == static_cast<BHandler*>(view))
		fDefaultButton = nullptr;
	if (fKeyMenuBar == view)
		fKeyMenuBar = nullptr;
	pvContextChanged();
}

void
BWindow::pvViewHidden(BView* view)
{
	pvContextChanged();
	if (fFocus != nullptr && fFocus->IsHidden(nullptr))
		fFocus->MakeFocus(false);
	if (fMouseHolder != nullptr && fMouseHolder->IsHidden(view->fParent))
		fMouseHolder = nullptr;
}

// #pragma mark - dispatching

BView*
BWindow::pvTargetView(BHandler* handler) const
{
	auto view = dynamic_cast<BView*>(handler);
	return view != nullptr && view->Window() == this && view != fTopView ? view : nullptr;
}

void
BWindow::DispatchMessage(BMessage* message, BHandler* handler)
{
	// Drops from the desktop come addressed to the top view and go on to the
	// view under the drop point; a dropped message that the program posts on
	// reaches the handler it was posted to, as any other.
	if (message->WasDropped() && handler == fTopView) {
		pvDrop(message);
		return;
	}
	switch (message->what) {
		case B_KEY_DOWN:
			pvKeyDown(message, handler);
			break;
		case B_KEY_UP:
			pvKeyUp(message, handler);
			break;
		case B_MOUSE_DOWN:
			pvMouseDown(message, handler);
			break;
		case B_MOUSE_UP:
			pvMouseUp(message, handler);
			break;
		case B_MOUSE_MOVED:
			pvMouseMoved(message, handler);
			break;
		case B_MOUSE_WHEEL_CHANGED: {
			BView* view = fMouseView != nullptr ? fMouseView : fFocus;
			(view != nullptr ? static_cast<BHandler*>(view) : handler)->MessageReceived(message);
			break;
		}
		case B_WINDOW_RESIZED: {
			int32 width, height;
			if (message->FindInt32("width", &width) == B_OK
				&& message->FindInt32("height", &height) == B_OK) {
				bool fixed = (fFlags & B_NOT_RESIZABLE) != 0;
				pvApplySize(fixed ? fFrame.Width() : width, fixed ? fFrame.Height() : height,
					false);
			}
			break;
		}
		case B_WINDOW_MOVED: {
			BPoint where;
			if (message->FindPoint("where", &where) == B_OK && where != fFrame.LeftTop()) {
				fFrame.OffsetTo(where);
				FrameMoved(where);
			}
			break;
		}
		case B_WINDOW_ACTIVATED: {
			bool active;
			if (message->FindBool("active", &active) == B_OK && active != fActive) {
				fActive = active;
				WindowActivated(active);
				pvActivated(fTopView, active);
			}
			break;
		}
		case B_ZOOM:
			Zoom();
			break;
		case B_MINIMIZE: {
			bool minimize;
			Minimize(message->FindBool("minimize", &minimize) != B_OK || minimize);
			break;
		}
		case B_PULSE:
			if (fPulse != nullptr)
				fPulse->PulseHandled();
			pvPulse(fTopView);
			break;
		case _UPDATE_:
			break;
		default:
			BLooper::DispatchMessage(message, handler);
			break;
	}
}

void
BWindow::pvNoteMouse(BMessage* message)
{
	BPoint where;
	if (message->FindPoint("where", &where) == B_OK)
		fMousePoint = where;
	int32 buttons;
	if (message->FindInt32("buttons", &buttons) == B_OK)
		fButtons = uint32(buttons);
}

void
BWindow::pvMouseDown(BMessage* message, BHandler* handler)
{
	pvNoteMouse(message);
	BView* view = pvTargetView(handler);
	if (view == nullptr)
		view = fTopView->pvViewAt(fMousePoint);
	if (view == fTopView) {
		handler->MessageReceived(message);
		return;
	}
	view->MouseDown(fMousePoint - view->pvOriginInWindow());
}

void
BWindow::pvMouseUp(BMessage* message, BHandler* handler)
{
	pvNoteMouse(message);
	fButtons = 0;
	BView* view = pvTargetView(handler);
	if (view == nullptr)
		view = fMouseHolder != nullptr ? fMouseHolder : fTopView->pvViewAt(fMousePoint);
	fMouseHolder = nullptr;
	if (view == fTopView) {
		handler->MessageReceived(message);
		return;
	}
	view->MouseUp(fMousePoint - view->pvOriginInWindow());
}

void
BWindow::pvMouseMoved(BMessage* message, BHandler* handler)
{
	pvNoteMouse(message);
	if (BView* view = pvTargetView(handler)) {
		view->MouseMoved(fMousePoint - view->pvOriginInWindow(), B_INSIDE_VIEW, nullptr);
		return;
	}
	BView* under = fTopView->pvViewAt(fMousePoint);
	if (under == fTopView)
		under = nullptr;
	if (fMouseHolder != nullptr) {
		// The view that holds the mouse hears of every move, inside or not.
		bool inside = fMouseHolder->pvVisibleInWindow().Contains(fMousePoint);
		fMouseHolder->MouseMoved(fMousePoint - fMouseHolder->pvOriginInWindow(),
			inside ? B_INSIDE_VIEW : B_OUTSIDE_VIEW, nullptr);
		fMouseView = under;
		return;
	}
	if (under != fMouseView) {
		if (fMouseView != nullptr)
			fMouseView->MouseMoved(fMousePoint - fMouseView->pvOriginInWindow(),
				B_EXITED_VIEW, nullptr);
		fMouseView = under;
		if (under != nullptr)
			under->MouseMoved(fMousePoint - under->pvOriginInWindow(), B_ENTERED_VIEW, nullptr);
	} else if (under != nullptr)
		under->MouseMoved(fMousePoint - under->pvOriginInWindow(), B_INSIDE_VIEW, nullptr);
}

void
BWindow::pvTakeQueuedMouse()
{
	// A view that polls the mouse in a loop sees the moves and the release
	// that arrived meanwhile; the release stays queued for MouseUp().
	BMessageQueue* queue = MessageQueue();
	queue->Lock();
	for (int32 i = 0; BMessage* message = queue->FindMessage(i); i++) {
		if (message->what != B_MOUSE_MOVED && message->what != B_MOUSE_UP)
			continue;
		pvNoteMouse(message);
		if (message->what == B_MOUSE_UP)
			fButtons = 0;
		else {
			queue->RemoveMessage(message);
			delete message;
		}
		break;
	}
	queue->Unlock();
}

void
BWindow::pvKeyDown(BMessage* message, BHandler* handler)
{
	const char* bytes;
	if (message->FindString("bytes", &bytes) != B_OK || bytes[0] == '\0')
		return;
	int32 modifiers = 0;
	message->FindInt32("modifiers", &modifiers);
	if ((modifiers & B_COMMAND_KEY) != 0 && pvShortcut(uchar(bytes[0]), uint32(modifiers)))
		return;
	// Keys come addressed to the focus view; a filter may have sent them elsewhere.
	BView* view = pvTargetView(handler);
	if ((view == nullptr || view == fFocus) && bytes[0] == B_ENTER
		&& fDefaultButton != nullptr && fDefaultButton->IsEnabled()
		&& !fDefaultButton->IsHidden(nullptr)) {
		fDefaultButton->KeyDown(bytes, int32(strlen(bytes)));
		return;
	}
	if (view == nullptr)
		view = fFocus;
	if (view != nullptr)
		view->KeyDown(bytes, int32(strlen(bytes)));
	else if (bytes[0] == B_TAB && (modifiers & (B_COMMAND_KEY | B_CONTROL_KEY)) == 0)
		pvNavigate(nullptr, (modifiers & B_SHIFT_KEY) == 0);
	else
		handler->MessageReceived(message);
}

void
BWindow::pvKeyUp(BMessage* message, BHandler* handler)
{
	const char* bytes;
	if (message->FindString("bytes", &bytes) != B_OK)
		return;
	BView* view = pvTargetView(handler);
	if (view == nullptr)
		view = fFocus;
	if (view != nullptr)
		view->KeyUp(bytes, int32(strlen(bytes)));
	else
		handler->MessageReceived(message);
}

void
BWindow::pvDrop(BMessage* message)
{
	BPoint where = ConvertFromScreen(message->DropPoint());
	BView* view = fTopView->pvViewAt(where);
	if (view == fTopView)
		MessageReceived(message);
	else
		view->MessageReceived(message);
}

// #pragma mark - shortcuts

void
BWindow::AddShortcut(uint32 key, uint32 modifiers, BMessage* message)
{
	AddShortcut(key, modifiers, message, this);
}

void
BWindow::AddShortcut(uint32 key, uint32 modifiers, BMessage* message, BHandler* target)
{
	if (message == nullptr)
		return;
	RemoveShortcut(key, modifiers);
	auto shortcut = std::make_unique<BPrivate::Shortcut>();
	shortcut->key = ShortcutKey(key);
	shortcut->modifiers = modifiers & kShortcutModifiers;
	shortcut->message.reset(message);
	shortcut->target = BMessenger(target != nullptr ? target : this, this);
	fShortcuts.push_back(std::move(shortcut));
}

void
BWindow::AddShortcut(uint32 key, uint32 modifiers, std::function<bool()> trigger)
{
	RemoveShortcut(key, modifiers);
	auto shortcut = std::make_unique<BPrivate::Shortcut>();
	shortcut->key = ShortcutKey(key);
	shortcut->modifiers = modifiers & kShortcutModifiers;
	shortcut->trigger = std::move(trigger);
	fShortcuts.push_back(std::move(shortcut));
}

void
BWindow::RemoveShortcut(uint32 key, uint32 modifiers)
{
	key = ShortcutKey(key);
	modifiers &= kShortcutModifiers;
	std::erase_if(fShortcuts, [key, modifiers](const auto& shortcut) {
		return shortcut->key == key && shortcut->modifiers == modifiers;
	});
}

bool
BWindow::HasShortcut(uint32 key, uint32 modifiers) const
{
	key = ShortcutKey(key);
	modifiers &= kShortcutModifiers;
	return std::any_of(fShortcuts.begin(), fShortcuts.end(), [key, modifiers](const auto& s) {
		return s->key == key && s->modifiers == modifiers;
	});
}

bool
BWindow::pvShortcut(uint32 key, uint32 modifiers)
{
	key = ShortcutKey(key);
	modifiers &= kShortcutModifiers;
	for (const auto& shortcut : fShortcuts) {
		if (shortcut->key != key || shortcut->modifiers != modifiers)
			continue;
		if (shortcut->trigger) {
			MenusBeginning();
			bool taken = shortcut->trigger();
			MenusEnded();
			return taken;
		}
		BMessage copy(*shortcut->message);
		copy.AddInt64("when", system_time());
		shortcut->target.SendMessage(&copy);
		return true;
	}
	return false;
}

// #pragma mark - focus

void
BWindow::pvCollectNavigable(BView* view, std::vector<BView*>& views) const
{
	for (BView* child : view->fChildren) {
		if (child->fHiddenLevel > 0)
			continue;
		if ((child->Flags() & B_NAVIGABLE) != 0)
			views.push_back(child);
		pvCollectNavigable(child, views);
	}
}

void
BWindow::pvNavigate(BView* from, bool forward)
{
	std::vector<BView*> views;
	pvCollectNavigable(fTopView, views);
	if (views.empty())
		return;
	auto position = std::find(views.begin(), views.end(), from);
	size_t count = views.size();
	size_t next;
	if (position == views.end())
		next = forward ? 0 : count - 1;
	else {
		size_t index = size_t(position - views.begin());
		next = forward ? (index + 1) % count : (index + count - 1) % count;
	}
	views[next]->MakeFocus(true);
}

void
BWindow::pvActivated(BView* view, bool active)
{
	for (BView* child : std::vector<BView*>(view->fChildren)) {
		child->WindowActivated(active);
		pvActivated(child, active);
	}
}

// #pragma mark - updating

void
BWindow::pvInvalidate(BRect windowRect)
{
	fDirty.Include(windowRect);
}

BPrivate::Canvas*
BWindow::pvCanvasFor(BView* view)
{
	if (fContextView != view) {
		BRegion clip(view->pvVisibleInWindow());
		if (fInUpdate)
			clip.IntersectWith(&fUpdateClip);
		BPoint origin = view->pvOriginInWindow();
		if (view->fState->clipping) {
			BRegion user = *view->fState->clipping;
			user.OffsetBy(origin);
			clip.IntersectWith(&user);
		}
		fCanvas->SetContext(origin, BPrivate::RectsOf(clip));
		fContextView = view;
	}
	if (!fInUpdate)
		fPendingPresent = true;
	return fCanvas.get();
}

void
BWindow::DispatchMessageDone()
{
	pvUpdate();
}

void
BWindow::pvUpdate()
{
	if (IsHidden() || fUpdatesDisabled > 0)
		return;
	if (!fDirty.IsEmpty()) {
		fUpdateClip = fDirty;
		fDirty.MakeEmpty();
		fInUpdate = true;
		pvContextChanged();
		pvDrawView(fTopView);
		fInUpdate = false;
		pvContextChanged();
		fPendingPresent = true;
	}
	if (fPendingPresent) {
		fPendingPresent = false;
		fCanvas->Present(fServerId);
	}
}

void
BWindow::pvDrawView(BView* view)
{
	if (view->fHiddenLevel > 0)
		return;
	BRect visible = view->pvVisibleInWindow();
	if (!fUpdateClip.Intersects(visible))
		return;
	BRegion area(visible);
	area.IntersectWith(&fUpdateClip);
	BRect update = area.Frame().OffsetByCopy(-view->pvOriginInWindow());

	pvContextChanged();
	BPrivate::Canvas* canvas = pvCanvasFor(view);
	if (view->fViewColor != B_TRANSPARENT_COLOR) {
		BPrivate::Paint background{view->fViewColor, view->fViewColor, B_SOLID_HIGH, B_OP_COPY,
			1.0f};
		canvas->FillRect(update, background);
	}
	if ((view->fFlags & B_WILL_DRAW) != 0)
		view->Draw(update);
	for (BView* child : std::vector<BView*>(view->fChildren))
		pvDrawView(child);
	if ((view->fFlags & B_DRAW_ON_CHILDREN) != 0) {
		pvContextChanged();
		view->DrawAfterChildren(update);
	}
}

void
BWindow::UpdateIfNeeded()
{
	if (find_thread(nullptr) == Thread() || IsLocked())
		pvUpdate();
}

void
BWindow::DisableUpdates()
{
	fUpdatesDisabled++;
}

void
BWindow::EnableUpdates()
{
	if (fUpdatesDisabled > 0 && --fUpdatesDisabled == 0)
		pvUpdate();
}

void
BWindow::BeginViewTransaction()
{
	DisableUpdates();
}

void
BWindow::EndViewTransaction()
{
	EnableUpdates();
}

bool
BWindow::NeedsUpdate() const
{
	return !fDirty.IsEmpty();
}

void
BWindow::Sync() const
{
	Flush();
}

void
BWindow::Flush() const
{
	// Drawing is done when the call returns; what is pending goes to the screen.
	BWindow* self = const_cast<BWindow*>(this);
	if (self->fPendingPresent && !self->fInUpdate && fUpdatesDisabled == 0 && !IsHidden()) {
		self->fPendingPresent = false;
		self->fCanvas->Present(fServerId);
	}
}

// #pragma mark - pulse

void
BWindow::SetPulseRate(bigtime_t rate)
{
	fPulseRate = std::max(bigtime_t(0), rate);
	if (fPulse != nullptr)
		fPulse->SetRate(fPulseRate);
}

void
BWindow::pvPulseNeeded()
{
	if (fPulse == nullptr) {
		fPulse = std::make_unique<BPrivate::PulseTimer>(BMessenger(this));
		fPulse->SetRate(fPulseRate);
	}
}

void
BWindow::pvPulse(BView* view)
{
	for (BView* child : std::vector<BView*>(view->fChildren)) {
		if (child->fHiddenLevel > 0)
			continue;
		if ((child->Flags() & B_PULSE_NEEDED) != 0)
			child->Pulse();
		pvPulse(child);
	}
}
