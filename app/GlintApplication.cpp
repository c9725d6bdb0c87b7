#include "GlintApplication.h"

#include <Entry.h>
#include <InterfaceDefs.h>
#include <Message.h>
#include <OS.h>
#include <String.h>

#include "BrindleFile.h"
#include "DataWindow.h"
#include "GlAboutWindow.h"
#include "GlWindow.h"
#include "SettingsFile.h"
#include "Utils.h"

GlintApplication* theApp = nullptr;

const char kSignature[] = "application/x-vnd.Brindle-Vellum";

namespace {

const char kInspectorName[] = "Vellum";
const char kIconWindowName[] = "IconWindow";
const char kAboutTitle[] = "About Vellum";
const uint32 kDropMessage = 'DATA';
const uint32 kNodeLoaded = 'Init';
const uint32 kSavePrefs = 'SvPr';
const bigtime_t kAboutShownFor = 3000000;
const int kDataWindowSlots = 16;

}	// namespace

GlintApplication::GlintApplication()
	: BApplication(kSignature),
	fLaunchTime(0),
	fRefsReceived(false)
{
	GetPrefs();
	// There is always one inspector window, empty until a node arrives.
	GlWindow* window = new GlWindow(fWindowRects[kInspectorSlot]);
	window->Show();
	theApp = this;
}

GlintApplication::~GlintApplication()
{
	if (theApp == this)
		theApp = nullptr;
}

thread_id
GlintApplication::Run()
{
	thread_id thread = BApplication::Run();
	if (fLoopFailure)
		std::rethrow_exception(fLoopFailure);
	return thread;
}

void
GlintApplication::DispatchMessage(BMessage* msg, BHandler* handler)
{
	try {
		BApplication::DispatchMessage(msg, handler);
	} catch (...) {
		fLoopFailure = std::current_exception();
		Quit();
	}
}

// #pragma mark - settings

void
GlintApplication::GetDefaultPrefs()
{
	fWindowRects[kInspectorSlot] = BRect(60, 60, 460, 330);
	fWindowRects[kIconSlot] = BRect(100, 100, 228, 228);
	for (int slot = kFirstDataSlot; slot < kFirstDataSlot + kDataSlotCount; slot++)
		fWindowRects[slot] = BRect(100, 100, 616, 280);
}

void
GlintApplication::GetPrefs()
{
	GetDefaultPrefs();
	// Holding Option at launch starts from the defaults.
	if ((modifiers() & B_OPTION_KEY) != 0)
		return;
	ReadWindowRects(fWindowRects, kSavedSlotCount);
}

void
GlintApplication::SavePrefs()
{
	GlWindow* front = dynamic_cast<GlWindow*>(FindFrontWindow(kInspectorName, nullptr));
	BMessage closing(kSavePrefs);
	if (front != nullptr && front->Lock()) {
		closing.AddRect("frame", front->Frame());
		if (front->File() != nullptr)
			closing.AddString("name", front->File()->Name());
		front->Unlock();
	}
	pvSavePrefs(&closing);
}

// Writes the settings with the inspector window that message tells of: its
// "frame" and the "name" of its node, if any.
void
GlintApplication::pvSavePrefs(BMessage* message)
{
	BRect frame;
	if (message->FindRect("frame", &frame) == B_OK) {
		fWindowRects[kInspectorSlot] = frame;
		pvRememberFrame(kIconSlot, FindFrontWindow(kIconWindowName, nullptr));
		const char* name;
		if (message->FindString("name", &name) == B_OK)
			pvRememberDataWindows(name);
	}
	WriteWindowRects(fWindowRects, kSavedSlotCount);
}

void
GlintApplication::pvRememberFrame(int slot, BWindow* window)
{
	if (window != nullptr && window->Lock()) {
		fWindowRects[slot] = window->Frame();
		window->Unlock();
	}
}

// The first data windows of the node, in window-list order; a slot without a
// window keeps its rectangle.
void
GlintApplication::pvRememberDataWindows(const char* nodeName)
{
	BWindow* window = nullptr;
	for (int slot = kFirstDataSlot; slot < kFirstDataSlot + kDataSlotCount; slot++) {
		window = DataWindow::FindNextOfNode(window, nodeName);
		if (window == nullptr)
			break;
		pvRememberFrame(slot, window);
	}
}

BPoint
GlintApplication::WindowCorner(int i) const
{
	return WindowRect(i).LeftTop();
}

int
GlintApplication::NumDataWins() const
{
	return kDataWindowSlots;
}

BRect
GlintApplication::WindowRect(int i) const
{
	if (i < 0 || i >= kSlotCount)
		return BRect();
	return fWindowRects[i];
}

int32
GlintApplication::CountSubsidiaryWindows(const char* name, const char* title)
{
	return ::CountSubsidiaryWindows(name, title);
}

// #pragma mark - launch and the about box

void
GlintApplication::ReadyToRun()
{
	fLaunchTime = static_cast<int32>(system_time());
	if (fRefsReceived)
		return;
	// Shift held at launch skips the about box.
	if ((modifiers() & B_SHIFT_KEY) == 0) {
		PostMessage(B_ABOUT_REQUESTED);
		SetPulseRate(kAboutShownFor);
	}
}

void
GlintApplication::Pulse()
{
	// The about box of the launch has been shown long enough; the user may
	// have closed it already.
	if (BWindow* about = FindFrontWindow(nullptr, kAboutTitle))
		about->PostMessage(B_QUIT_REQUESTED);
	SetPulseRate(0);
}

void
GlintApplication::AboutRequested()
{
	BRect frame(200, 200, 500, 420);
	if (BWindow* window = FindFrontWindow(nullptr, nullptr)) {
		BRect windowFrame = window->Frame();
		frame.Set(windowFrame.left, windowFrame.top, windowFrame.left + 360,
			windowFrame.top + 280);
		frame.OffsetBy((windowFrame.Width() - frame.Width()) / 2,
			(windowFrame.Height() - frame.Height()) / 2);
	}
	GlAboutWindow* about = new GlAboutWindow(frame);
	about->Show();
}

// #pragma mark - nodes

void
GlintApplication::RefsReceived(BMessage* msg)
{
	entry_ref ref;
	for (int32 i = 0; STATUS_OK(msg->FindRef("refs", i, &ref)); i++) {
		BrindleFile file(&ref, false);
		GlWindow* window = pvWindowShowing(file);
		bool reused = window != nullptr;
		if (!reused) {
			window = new GlWindow(fWindowRects[kInspectorSlot]);
			window->Show();
		}
		// The window runs on its own thread.
		if (window->Lock()) {
			window->RefsReceived(msg, i);
			window->Unlock();
		}
		if (reused) {
			fRefsReceived = true;
			BMessage loaded(kNodeLoaded);
			MessageReceived(&loaded);
		}
	}
}

// The inspector window to load file into: an empty one, or the one that
// shows file already, so that a node is never shown twice.
GlWindow*
GlintApplication::pvWindowShowing(const BrindleFile& file)
{
	for (BWindow* each = FindFrontWindow(kInspectorName, nullptr); each != nullptr;
			each = FindNextWindow(each, kInspectorName, nullptr)) {
		GlWindow* window = dynamic_cast<GlWindow*>(each);
		if (window == nullptr || !window->Lock())
			continue;
		bool fits = !window->Loaded() || (window->File() != nullptr && *window->File() == file);
		window->Unlock();
		if (fits)
			return window;
	}
	return nullptr;
}

void
GlintApplication::ArgvReceived(int32 argc, char** argv)
{
	if (argc <= 1)
		return;
	// The arguments are read from argv[0] on, so the program's own path is
	// the first one converted and the last argument is never read. Paths of
	// entries that do not exist are skipped.
	BMessage drop(kDropMessage);
	char** argument = argv;
	for (int32 i = 1; i < argc; i++, argument++) {
		entry_ref ref;
		if (get_ref_for_path(*argument, &ref) == B_OK && BEntry(&ref).Exists())
			drop.AddRef("refs", &ref);
	}
	RefsReceived(&drop);
}

void
GlintApplication::MessageReceived(BMessage* msg)
{
	switch (msg->what) {
		case kDropMessage:
			RefsReceived(msg);
			break;
		case kNodeLoaded:
			fRefsReceived = true;
			break;
		case kSavePrefs:
			pvSavePrefs(msg);
			break;
		default:
			BApplication::MessageReceived(msg);
			break;
	}
}
