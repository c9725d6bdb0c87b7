#include <Alert.h>

#include <algorithm>
#include <cmath>

#include <cstring>

#include <Application.h>
#include <Button.h>
#include <Invoker.h>
#include <Roster.h>
#include <Screen.h>

#include "AlertHook.h"
#include "AlertView.h"

using BPrivate::AlertView;

namespace {

const uint32 kButtonChosen = 'ALTB';
const float kWindowWidth = 310;
const float kTextRightMargin = 10;
const float kButtonGap = 6;
const float kOffsetGap = 26;
const float kButtonRightMargin = 6;
const float kButtonBottomMargin = 9;
const float kTextButtonGap = 10;
const float kUsualButtonWidth = 75;
const float kLabelMargins = 20;
// How often a window waiting in Go() redraws.
const bigtime_t kRedrawInterval = 50000;

const uint32 kAlertFlags = B_NOT_CLOSABLE | B_NOT_RESIZABLE | B_NOT_ZOOMABLE
	| B_NOT_MINIMIZABLE | B_ASYNCHRONOUS_CONTROLS;
// An alert stands this far below the top of the window it belongs to.
const float kOverWindowTop = 40;

// The application's name, as its signature ends ("application/x-vnd.Maker-Name").
std::string
ApplicationName()
{
	app_info info;
	if (be_app == nullptr || be_app->GetAppInfo(&info) != B_OK)
		return "";
	const char* name = info.signature;
	for (const char* separator : {"/", ".", "-"}) {
		if (const char* last = strrchr(name, separator[0]))
			name = last + 1;
	}
	return name;
}

}	// namespace

BAlert::BAlert(const char* title, const char* text, const char* button0,
	const char* button1, const char* button2, button_width width, alert_type type)
	: BWindow(BRect(0, 0, kWindowWidth - 1, 99), title, B_MODAL_WINDOW_LOOK,
		B_MODAL_APP_WINDOW_FEEL, kAlertFlags)
{
	const char* labels[3] = {button0, button1, button2};
	pvInit(text, labels, width, B_EVEN_SPACING, type);
}

BAlert::BAlert(const char* title, const char* text, const char* button0,
	const char* button1, const char* button2, button_width width, button_spacing spacing,
	alert_type type)
	: BWindow(BRect(0, 0, kWindowWidth - 1, 99), title, B_MODAL_WINDOW_LOOK,
		B_MODAL_APP_WINDOW_FEEL, kAlertFlags)
{
	const char* labels[3] = {button0, button1, button2};
	pvInit(text, labels, width, spacing, type);
}

BAlert::~BAlert()
{
	// Gone without an answer (the application quit): the waiter gets -1.
	if (fChosen != nullptr) {
		*fChosen = -1;
		release_sem(fChosenSem);
	}
	delete fInvoker;
}

void
BAlert::pvInit(const char* text, const char* const labels[3], button_width width,
	button_spacing spacing, alert_type type)
{
	fType = type;
	fView = new AlertView(Bounds(), type, text);
	AddChild(fView);
	for (int32 i = 0; i < 3 && labels[i] != nullptr; i++) {
		BMessage* message = new BMessage(kButtonChosen);
		message->AddInt32("which", i);
		fButtons[i] = new BButton(BRect(0, 0, 74, 23), "_b", labels[i], message,
			B_FOLLOW_RIGHT | B_FOLLOW_BOTTOM);
		fView->AddChild(fButtons[i]);
		fButtonCount = i + 1;
	}
	if (fButtonCount > 0)
		SetDefaultButton(fButtons[fButtonCount - 1]);
	// Confirmations put "Cancel" first.
	if (fButtonCount >= 2)
		fKeys[0] = B_ESCAPE;
	// The user sees the text and the buttons: the desktop's title bar names
	// the application, while Title() keeps the alert's own title.
	pvShowTitle(ApplicationName().c_str());
	pvLayOut(width, spacing);
}

void
BAlert::pvLayOut(button_width width, button_spacing spacing)
{
	float widths[3] = {0, 0, 0};
	float buttonHeight = 0, widest = 0;
	for (int32 i = 0; i < fButtonCount; i++) {
		float height;
		fButtons[i]->GetPreferredSize(&widths[i], &height);
		buttonHeight = std::max(buttonHeight, height);
		widest = std::max(widest, widths[i]);
	}
	float total = 0;
	for (int32 i = 0; i < fButtonCount; i++) {
		if (width == B_WIDTH_FROM_WIDEST)
			widths[i] = widest;
		else if (width == B_WIDTH_FROM_LABEL) {
			// The preferred width is at least the usual one; the label's is not.
			float label = std::ceil(fButtons[i]->StringWidth(fButtons[i]->Label()))
				+ kLabelMargins;
			widths[i] -= std::max(kUsualButtonWidth, label) - label;
		}
		total += widths[i] + (i > 0 ? kButtonGap : 0);
	}
	if (spacing == B_OFFSET_SPACING && fButtonCount > 1)
		total += kOffsetGap - kButtonGap;

	float windowWidth = std::max(kWindowWidth,
		fView->TextLeft() + total + kButtonRightMargin);
	float textBottom = fView->TextHeight(windowWidth - fView->TextLeft() - kTextRightMargin);
	if (fType != B_EMPTY_ALERT)
		textBottom = std::max(textBottom, AlertView::IconBottom());
	// Whole pixels, as the desktop shows windows.
	windowWidth = std::ceil(windowWidth);
	float windowHeight = std::ceil(textBottom + kTextButtonGap + buttonHeight
		+ kButtonBottomMargin);
	ResizeTo(windowWidth - 1, windowHeight - 1);

	// Right-aligned from the last (default) button leftwards.
	float right = windowWidth - kButtonRightMargin;
	float top = windowHeight - kButtonBottomMargin - buttonHeight;
	for (int32 i = fButtonCount - 1; i >= 0; i--) {
		fButtons[i]->MoveTo(right - widths[i], top);
		fButtons[i]->ResizeTo(widths[i] - 1, buttonHeight - 1);
		right -= widths[i] + (i == 1 && spacing == B_OFFSET_SPACING ? kOffsetGap : kButtonGap);
	}
	MoveTo(AlertPosition(windowWidth, windowHeight));
}

// Over the window whose thread makes the alert, else in the screen's centre;
// on the screen in any case.
BPoint
BAlert::AlertPosition(float width, float height)
{
	BRect screen = BScreen().Frame();
	BPoint where(screen.left + (screen.Width() - width) / 2,
		screen.top + (screen.Height() - height) / 2);
	auto owner = dynamic_cast<BWindow*>(BLooper::LooperForThread(find_thread(NULL)));
	if (owner != nullptr) {
		BRect frame = owner->Frame();
		where.Set(frame.left + (frame.Width() - width) / 2, frame.top + kOverWindowTop);
	}
	where.x = std::clamp(where.x, screen.left, std::max(screen.left, screen.right - width));
	where.y = std::clamp(where.y, screen.top, std::max(screen.top, screen.bottom - height));
	return where;
}

void
BAlert::SetShortcut(int32 index, char key)
{
	if (index < 0 || index >= fButtonCount)
		return;
	// One key chooses one button.
	for (char& each : fKeys) {
		if (key != 0 && each == key)
			each = 0;
	}
	fKeys[index] = key;
}

char
BAlert::Shortcut(int32 index) const
{
	return index >= 0 && index < fButtonCount ? fKeys[index] : 0;
}

BButton*
BAlert::ButtonAt(int32 index) const
{
	return index >= 0 && index < fButtonCount ? fButtons[index] : nullptr;
}

const char*
BAlert::Text() const
{
	return fView->Text();
}

bool
BAlert::pvAnsweredByHook(int32* index)
{
	BPrivate::AlertInfo info;
	info.title = Title();
	info.text = Text();
	for (int32 i = 0; i < fButtonCount; i++)
		info.buttons.push_back(fButtons[i]->Label());
	info.type = fType;
	return BPrivate::AnswerAlertByHook(info, index);
}

int32
BAlert::Go()
{
	int32 chosen = -1;
	if (pvAnsweredByHook(&chosen)) {
		Lock();
		Quit();
		return chosen;
	}
	// The alert answers into these, which outlive it.
	sem_id sem = create_sem(0, "alert");
	fChosenSem = sem;
	fChosen = &chosen;
	BWindow* caller = dynamic_cast<BWindow*>(BLooper::LooperForThread(find_thread(NULL)));
	Show();
	status_t status;
	do {
		if (caller == nullptr) {
			status = acquire_sem(sem);
			continue;
		}
		status = acquire_sem_etc(sem, 1, B_RELATIVE_TIMEOUT, kRedrawInterval);
		caller->UpdateIfNeeded();
	} while (status == B_TIMED_OUT || status == B_INTERRUPTED);
	delete_sem(sem);
	return chosen;
}

status_t
BAlert::Go(BInvoker* invoker)
{
	fInvoker = invoker;
	int32 chosen;
	if (pvAnsweredByHook(&chosen)) {
		Lock();
		pvChoose(chosen);
		return B_OK;
	}
	Show();
	return B_OK;
}

void
BAlert::pvChoose(int32 index)
{
	if (fChosen != nullptr) {
		*fChosen = index;
		fChosen = nullptr;
		release_sem(fChosenSem);
	} else if (fInvoker != nullptr && fInvoker->Message() != nullptr) {
		BMessage* message = fInvoker->Message();
		if (message->ReplaceInt32("which", index) != B_OK)
			message->AddInt32("which", index);
		fInvoker->Invoke();
	}
	Quit();
}

void
BAlert::MessageReceived(BMessage* message)
{
	int32 index;
	if (message->what == kButtonChosen && message->FindInt32("which", &index) == B_OK)
		pvChoose(index);
	else
		BWindow::MessageReceived(message);
}

void
BAlert::DispatchMessage(BMessage* message, BHandler* handler)
{
	const char* bytes;
	if (message->what == B_KEY_DOWN && message->FindString("bytes", &bytes) == B_OK
		&& bytes[0] != '\0' && bytes[1] == '\0') {
		for (int32 i = 0; i < fButtonCount; i++) {
			if (fKeys[i] != 0 && fKeys[i] == bytes[0]) {
				fButtons[i]->Invoke();
				return;
			}
		}
	}
	BWindow::DispatchMessage(message, handler);
}
