#include "NewTextControl.h"

#include <TextView.h>

namespace {

void
SetNavigable(BView* view, bool on)
{
	uint32 flags = view->Flags();
	view->SetFlags(on ? flags | B_NAVIGABLE : flags & ~B_NAVIGABLE);
}

}	// namespace

NewTextControl::NewTextControl(BRect frame, const char* name, const char* label,
	const char* text, BMessage* message, uint32 resizingMode, uint32 flags)
	: BTextControl(frame, name, label, text, message, resizingMode, flags)
{
}

void
NewTextControl::SetEnabled(bool on)
{
	// The control's own enabled state is left alone so the label never greys.
	BTextView* textView = TextView();
	textView->MakeSelectable(on);
	textView->MakeEditable(on);
	SetNavigable(this, on);
	SetNavigable(textView, on);
}

void
NewTextControl::MakeFocus(bool focus)
{
	BTextControl::MakeFocus(focus);
}

void
NewTextControl::AddFilter(BMessageFilter* filter)
{
	TextView()->AddFilter(filter);
}

void
NewTextControl::SetMaxChars(int32 maxChars)
{
	fMaxChars = maxChars;
}

int32
NewTextControl::GetMaxChars() const
{
	return fMaxChars;
}
