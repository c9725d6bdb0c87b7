#include "TextInput.h"

#include <algorithm>

#include <Message.h>
#include <TextControl.h>
#include <Window.h>

namespace BPrivate {

TextInput::TextInput(BRect frame, uint32 flags)
	: BTextView(frame, "_input_", BRect(1, 1, frame.Width() - 1, frame.Height() - 1),
		B_FOLLOW_NONE, flags)
{
	SetWordWrap(false);
}

BTextControl*
TextInput::pvControl() const
{
	return dynamic_cast<BTextControl*>(Parent());
}

void
TextInput::KeyDown(const char* bytes, int32 numBytes)
{
	switch (bytes[0]) {
		case B_ENTER:
			if (pvControl() == nullptr || !pvControl()->IsEnabled())
				break;
			if (fCommitted != Text())
				pvCommit();
			SelectAll();
			break;
		case B_TAB:
			// Moves the focus on; a field never takes a tab.
			BView::KeyDown(bytes, numBytes);
			break;
		default:
			BTextView::KeyDown(bytes, numBytes);
			break;
	}
}

void
TextInput::MakeFocus(bool focus)
{
	// Losing the focus is told after the window moved it on.
	if (focus && IsFocus())
		return;
	BTextView::MakeFocus(focus);
	BTextControl* control = pvControl();
	if (control != nullptr)
		control->Invalidate();
	if (focus) {
		// Coming by keyboard selects the text; a click places the caret itself.
		BMessage* message = Window() != nullptr ? Window()->CurrentMessage() : nullptr;
		if (message == nullptr || message->what != B_MOUSE_DOWN)
			SelectAll();
		return;
	}
	if (fCommitted != Text())
		pvCommit();
}

void
TextInput::SetTextQuietly(const char* text)
{
	fQuiet = true;
	SetText(text);
	fQuiet = false;
	fCommitted = Text();
	if (IsFocus())
		SelectAll();
}

void
TextInput::pvCommit()
{
	fCommitted = Text();
	if (BTextControl* control = pvControl())
		control->Invoke();
}

void
TextInput::pvModified()
{
	BTextControl* control = pvControl();
	if (fQuiet || control == nullptr || control->ModificationMessage() == nullptr)
		return;
	control->InvokeNotify(control->ModificationMessage(), B_CONTROL_MODIFIED);
}

void
TextInput::InsertText(const char* text, int32 length, int32 offset,
	const text_run_array* runs)
{
	if (fQuiet) {
		BTextView::InsertText(text, length, offset, runs);
		return;
	}
	std::string line(text, size_t(length));
	std::replace(line.begin(), line.end(), '\n', ' ');
	BTextView::InsertText(line.data(), length, offset, runs);
	pvModified();
}

void
TextInput::DeleteText(int32 fromOffset, int32 toOffset)
{
	BTextView::DeleteText(fromOffset, toOffset);
	pvModified();
}

}	// namespace BPrivate
