// The edits of the inspected node itself: rename, move, resize, re-date and
// re-link, each confirmed with the user before it is carried out.

#include "GlintView.h"

#include <strings.h>
#include <sys/stat.h>

#include <cstdlib>
#include <string>

#include <Alert.h>
#include <Control.h>
#include <Entry.h>
#include <File.h>
#include <FilePanel.h>
#include <InterfaceDefs.h>
#include <Message.h>
#include <Path.h>
#include <TextControl.h>
#include <Window.h>
#include <parsedate.h>

#include "BrindleFile.h"
#include "DataWindow.h"
#include "FixLink.h"
#include "Formatting.h"
#include "GenericAlerts.h"
#include "ValueText.h"
#include "StatusError.h"

namespace {

// The same pointer, or two texts that differ at most in letter case.
bool
SameText(const char* a, const char* b)
{
	return a == b || (a != nullptr && b != nullptr && strcasecmp(a, b) == 0);
}

BrindleFile&
NodeOf(const GlintView* view)
{
	BrindleFile* node = view->File();
	if (node == nullptr)
		throw StatusError(B_NO_INIT, "a node edit without a node");
	return *node;
}

String
PathOf(const BEntry& entry)
{
	BPath path;
	if (entry.GetPath(&path) != B_OK || path.Path() == nullptr)
		return String();
	return String(path.Path());
}

String
SizeText(off_t size)
{
	String text;
	text.SetToFormat("%s bytes", static_cast<const char*>(LongNumStr(size)));
	return text;
}

// The second, sterner question before a file's size changes.
bool
ReallyResize(const char* name, off_t oldSize, off_t newSize)
{
	String text;
	text.SetToFormat("Do you really want to change the size of \n   %s from %s bytes to "
		"\n   %s bytes?\n\nThis can be very dangerous.", name,
		static_cast<const char*>(LongNumStr(oldSize)),
		static_cast<const char*>(LongNumStr(newSize)));
	BAlert* alert = new BAlert("a1", text, "Cancel", "OK", NULL, B_WIDTH_AS_USUAL,
		B_STOP_ALERT);
	return alert->Go() == 1;
}

// The typed size: at most 256 characters, commas left out, read as a 32-bit
// atol reads it (sizes past the 32-bit range saturate).
int32
SizeFromText(const char* text)
{
	std::string digits;
	for (const char* c = text; *c != '\0' && c - text < 256; c++) {
		if (*c != ',')
			digits += *c;
	}
	return Atol32(digits.c_str());
}

// Reloads the panel from the node, which already carries its new name or place.
void
ShowAgain(GlintView* view, BrindleFile& node)
{
	entry_ref ref;
	node.GetRef(&ref);
	BPath path;
	node.GetPath(&path);
	view->SetEntry(&ref, &path, NULL);
}

}	// namespace

void
GlintView::TextChanged(BMessage* msg)
{
	void* source = nullptr;
	if (msg->FindPointer("source", &source) != B_OK)
		throw StatusError(B_BAD_VALUE, "a changed field that does not name itself");

	struct Edit {
		const char* field;
		void (GlintView::*fix)(const char*);
	};
	static const Edit kEdits[] = {
		{"Name", &GlintView::FixName},
		{"Size", &GlintView::FixSize},
		{"Date", &GlintView::FixDate},
		{"Path", &GlintView::FixPath}
	};

	BTextControl* control = dynamic_cast<BTextControl*>(static_cast<BControl*>(source));
	if (control != nullptr && control->Name() != nullptr) {
		for (const Edit& edit : kEdits) {
			if (strcasecmp(control->Name(), edit.field) == 0) {
				// The fix may rewrite the field, so it works on a copy.
				String text(control->Text());
				(this->*edit.fix)(text);
				break;
			}
		}
	}

	int32 value;
	if (msg->FindInt32("be:value", &value) != B_OK)
		throw StatusError(B_BAD_VALUE, "a changed field without its value");
}

void
GlintView::FixName(const char* text)
{
	BrindleFile& node = NodeOf(this);
	String old(node.Name());
	if (SameText(text, old))
		return;

	if (!OKToChange("name", old, text)) {
		SetEntry("Name", old);
		return;
	}
	if (node.Rename(text, false) != B_OK) {
		beep();
		return;
	}
	ShowAgain(this, node);
}

void
GlintView::FixPath(const char* text)
{
	BrindleFile& node = NodeOf(this);
	String old = PathOf(node);
	String name(node.Name());
	if (SameText(text, old))
		return;

	if (!OKToChange("path", name, text)) {
		SetEntry("Path", old);
		return;
	}
	if (node.Rename(text, false) != B_OK)
		ShowError("Unable to change path of %s to %s", static_cast<const char*>(name), text);
	ShowAgain(this, node);
}

void
GlintView::FixSize(const char* text)
{
	BrindleFile& node = NodeOf(this);
	int32 newSize = SizeFromText(text);
	String name(node.Name());
	struct stat st;
	if (node.GetStat(&st) != B_OK || newSize == st.st_size)
		return;

	if (!OKToChange("size", name, LongNumStr(newSize))
		|| !ReallyResize(name, st.st_size, newSize))
		return;

	BFile file(&node, B_READ_WRITE);
	if (file.InitCheck() != B_OK) {
		beep();
		return;
	}
	file.SetSize(newSize);
	SetEntry("Size", SizeText(newSize));
}

void
GlintView::FixDate(const char* text)
{
	BrindleFile& node = NodeOf(this);
	time_t parsed = parsedate(text, -1);
	struct stat st;
	if (node.GetStat(&st) != B_OK)
		return;
	time_t current = st.st_mtime;
	if (parsed == current)
		return;

	String name(node.Name());
	if (OKToChange("date", name, datetostring(parsed))
		&& node.SetModificationTime(parsed) == B_OK)
		current = parsed;
	// The field shows the date the node really has.
	SetEntry("Date", datetostring(current));
}

void
GlintView::FindSymLink(BMessage*)
{
	String title;
	title.SetToFormat("Select a node to link \"%s\" to:", NodeOf(this).Name());
	BMessenger target(this);
	BMessage message('FixS');
	// The panel lives as long as the program: it only hides when done.
	BFilePanel* panel = new BFilePanel(B_OPEN_PANEL, &target, NULL,
		B_FILE_NODE | B_SYMLINK_NODE | B_DIRECTORY_NODE, false, &message, NULL, false, true);
	if (panel->Window()->Lock()) {
		panel->Window()->SetTitle(title);
		panel->Window()->Unlock();
	}
	panel->Show();
}

void
GlintView::FixTargetPath(BMessage* msg)
{
	entry_ref chosenRef;
	if (msg->FindRef("refs", &chosenRef) != B_OK)
		return;

	BrindleFile& node = NodeOf(this);
	entry_ref linkRef;
	node.GetRef(&linkRef);
	String old = PathOf(BEntry(&linkRef, true));
	BEntry chosen(&chosenRef, false);
	BPath newPath;
	if (chosen.GetPath(&newPath) != B_OK) {
		beep();
		return;
	}
	String name(node.Name());
	if (SameText(newPath.Path(), old))
		return;

	if (!OKToChange("target path", name, newPath.Path())) {
		SetEntry("Target Path", old);
		return;
	}
	if (FixLink(&node, &chosen) != B_OK)
		beep();
	SetEntry(&linkRef, NULL, &newPath);
}

// An empty string attribute in a data window; closing it adds the attribute.
void
GlintView::AddAttr(BMessage*)
{
	if (fFile == nullptr)
		return;
	DataWindow::Create(Window(), fFile.get())->Refresh("", 'CSTR', nullptr, 0);
}
