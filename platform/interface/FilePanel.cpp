#include <FilePanel.h>

#include <Application.h>
#include <Path.h>
#include <Window.h>

#include "FilePanelWindow.h"

using BPrivate::FilePanelWindow;

namespace {

// Releases the panel window's lock at the end of a scope.
struct WindowUnlocker {
	void operator()(FilePanelWindow* window) const { window->Unlock(); }
};

using LockedWindow = std::unique_ptr<FilePanelWindow, WindowUnlocker>;

}	// namespace

BFilePanel::BFilePanel(file_panel_mode mode, BMessenger* target, const entry_ref* startDirectory,
	uint32 nodeFlavors, bool allowMultipleSelection, BMessage* message, BRefFilter* filter,
	bool modal, bool hideWhenDone)
	: fMode(mode),
	fWindow(new FilePanelWindow(this, mode, nodeFlavors, allowMultipleSelection, modal)),
	fWindowMessenger(fWindow)
{
	if (target != nullptr)
		fWindow->SetTarget(*target);
	fWindow->SetMessage(message);
	fWindow->SetRefFilter(filter);
	fWindow->SetHideWhenDone(hideWhenDone);
	if (startDirectory != nullptr)
		SetPanelDirectory(startDirectory);
	// The window runs from the start, hidden until Show().
	fWindow->Hide();
	fWindow->Show();
}

BFilePanel::~BFilePanel()
{
	if (pvLock() != nullptr)
		fWindow->Quit();
}

FilePanelWindow*
BFilePanel::pvLock() const
{
	return fWindowMessenger.LockTarget() ? fWindow : nullptr;
}

void
BFilePanel::Show()
{
	LockedWindow window(pvLock());
	if (window == nullptr)
		return;
	window->Refresh();
	if (window->IsHidden())
		window->Show();
	window->Activate();
}

void
BFilePanel::Hide()
{
	LockedWindow window(pvLock());
	if (window != nullptr && !window->IsHidden())
		window->Hide();
}

bool
BFilePanel::IsShowing() const
{
	LockedWindow window(pvLock());
	return window != nullptr && !window->IsHidden();
}

void
BFilePanel::SendMessage(const BMessenger* target, BMessage* message)
{
	target->SendMessage(message);
}

void
BFilePanel::WasHidden()
{
}

void
BFilePanel::SelectionChanged()
{
}

BWindow*
BFilePanel::Window() const
{
	return fWindow;
}

BMessenger
BFilePanel::Messenger() const
{
	LockedWindow window(pvLock());
	return window != nullptr ? window->Target() : be_app_messenger;
}

BRefFilter*
BFilePanel::RefFilter() const
{
	LockedWindow window(pvLock());
	return window != nullptr ? window->RefFilter() : nullptr;
}

bool
BFilePanel::HidesWhenDone() const
{
	LockedWindow window(pvLock());
	return window != nullptr && window->HidesWhenDone();
}

void
BFilePanel::GetPanelDirectory(entry_ref* ref) const
{
	LockedWindow window(pvLock());
	if (window != nullptr && ref != nullptr)
		window->GetDirectory(ref);
}

void
BFilePanel::SetTarget(BMessenger target)
{
	if (LockedWindow window{pvLock()})
		window->SetTarget(target);
}

void
BFilePanel::SetMessage(BMessage* message)
{
	if (LockedWindow window{pvLock()})
		window->SetMessage(message);
}

void
BFilePanel::SetRefFilter(BRefFilter* filter)
{
	if (LockedWindow window{pvLock()})
		window->SetRefFilter(filter);
}

void
BFilePanel::SetSaveText(const char* text)
{
	if (LockedWindow window{pvLock()})
		window->SetSaveText(text);
}

void
BFilePanel::SetButtonLabel(file_panel_button button, const char* label)
{
	if (LockedWindow window{pvLock()})
		window->SetButtonLabel(button, label);
}

void
BFilePanel::SetHideWhenDone(bool hideWhenDone)
{
	if (LockedWindow window{pvLock()})
		window->SetHideWhenDone(hideWhenDone);
}

void
BFilePanel::SetPanelDirectory(const entry_ref* ref)
{
	BPath path;
	if (ref != nullptr && path.SetTo(ref) == B_OK)
		SetPanelDirectory(path.Path());
}

void
BFilePanel::SetPanelDirectory(const char* path)
{
	LockedWindow window(pvLock());
	if (window != nullptr && path != nullptr)
		window->SetDirectory(path);
}

void
BFilePanel::Refresh()
{
	if (LockedWindow window{pvLock()})
		window->Refresh();
}
