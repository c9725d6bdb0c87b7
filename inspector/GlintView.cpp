#include "GlintView.h"

#include <cmath>
#include <cstring>
#include <vector>

#include <Application.h>
#include <Autolock.h>
#include <Button.h>
#include <Font.h>
#include <InterfaceDefs.h>
#include <ListView.h>
#include <Messenger.h>
#include <Path.h>
#include <StringView.h>
#include <Window.h>

#include "AttrView.h"
#include "BrindleFile.h"
#include "DataWindow.h"
#include "Formatting.h"
#include "NewTextControl.h"
#include "RevealInTracker.h"
#include "SpecialBBox.h"
#include "SpecialIconView.h"
#include "StatusError.h"
#include "Utils.h"

namespace {

const uint32 kFieldChanged = 'Chgd';
const uint32 kFindLinkTarget = 'FinS';
const uint32 kLinkTargetChosen = 'FixS';
const uint32 kAddAttribute = 'AddA';
const uint32 kNodeLoaded = 'Init';

const char* kFieldNames[] = {"Name", "Size", "Date", "Path"};
const int32 kFieldCount = 4;
const char* kTargetField = "Target Path";
const char* kSetButton = "SetTargetPath";
const char* kSetButtonText = "    Set...    ";
const char* kNewButtonText = "    New    ";
const char* kLabelColumnText = "  Target Path  ";
const char* kBrokenLink = "<Broken Link>";

const float kIconSize = 32;
const float kMargin = 8;
const float kGap = 4;
// The attribute list keeps at least this height: below it the panel reaches
// past the window's bottom instead of squeezing its views out of order.
const float kMinListHeight = 20;

void
Place(BView* view, BRect frame)
{
	if (view == nullptr)
		return;
	view->MoveTo(frame.LeftTop());
	view->ResizeTo(frame.Width(), frame.Height());
}

}	// namespace

// Where the panel's views stand for a given size of the panel. The icon and the
// fields share the node box, which has a row for the target of a link only while
// it shows one; the attribute panel takes the height that is left, and at
// least minAttributes.
struct GlintView::Layout {
	Layout(BRect bounds, float lineHeight, float setButtonWidth, bool withTarget,
		float minAttributes)
	{
		row = lineHeight + 8;
		float labelHeight = lineHeight + 2;
		nodeBox = BRect(0, 0, bounds.Width(), labelHeight + (kFieldCount + (withTarget ? 1 : 0)) * row + kGap);
		icon = BRect(kMargin, labelHeight + kGap, kMargin + kIconSize - 1,
			labelHeight + kGap + kIconSize - 1);
		float fieldsLeft = icon.right + 1 + kMargin;
		infoPanel = BRect(fieldsLeft, labelHeight, nodeBox.right - kMargin,
			nodeBox.bottom - kGap);
		instructions = BRect(fieldsLeft, icon.top, infoPanel.right, icon.top + lineHeight + 2);
		width = infoPanel.Width();
		setButton = Field(kFieldCount);
		setButton.left = setButton.right - setButtonWidth;
		targetField = Field(kFieldCount);
		targetField.right = setButton.left - kGap;
		inst2 = BRect(0, nodeBox.bottom + kGap, bounds.Width(),
			nodeBox.bottom + kGap + lineHeight + 2);
		attributes = BRect(0, inst2.bottom + kGap, bounds.Width(), bounds.Height());
		attributes.bottom = std::max(attributes.bottom, attributes.top + minAttributes);
	}

	// The frame of the field in the given row of the info panel.
	BRect Field(int32 index) const
	{
		return BRect(0, index * row, width, (index + 1) * row - kGap);
	}

	float row;
	float width;
	BRect nodeBox, icon, infoPanel, instructions, targetField, setButton, inst2, attributes;
};

GlintView::GlintView(BRect frame)
	: BView(frame, "GlintView", B_FOLLOW_ALL, B_WILL_DRAW | B_FRAME_EVENTS)
{
}

GlintView::~GlintView() = default;

void
GlintView::AttachedToWindow()
{
	BView::AttachedToWindow();
	Layout layout = pvLayout();
	pvBuildNodeBox(layout);
	pvBuildInfoPanel(layout);
	pvBuildAttributes(layout);
}

// The box with the node's icon, the instruction line of an empty window and
// the (hidden) info panel.
void
GlintView::pvBuildNodeBox(const Layout& layout)
{
	SpecialBBox* box = new SpecialBBox(layout.nodeBox, "NodeBox", B_FOLLOW_NONE, B_WILL_DRAW);
	box->SetLabel("Node");
	box->SetViewColor(ViewColor());
	AddChild(box);

	SpecialIconView* icon = new SpecialIconView(layout.icon, "Icon", B_FOLLOW_NONE,
		B_WILL_DRAW);
	icon->SetViewColor(ViewColor());
	box->AddChild(icon);
	icon->SetNode(be_app);

	BStringView* instructions = new BStringView(layout.instructions, "Instructions",
		"Drop a file or folder Here to view info & attributes");
	instructions->SetViewColor(ViewColor());
	box->AddChild(instructions);
}

void
GlintView::pvBuildInfoPanel(const Layout& layout)
{
	BView* panel = new BView(layout.infoPanel, "Info Panel", B_FOLLOW_NONE, B_WILL_DRAW);
	panel->SetViewColor(ViewColor());
	FindView("NodeBox")->AddChild(panel);
	panel->Hide();

	for (int32 i = 0; i < kFieldCount; i++) {
		BRect frame = layout.Field(i);
		pvAddField(panel, frame, kFieldNames[i]);
	}
	BRect targetFrame = layout.targetField;
	pvAddField(panel, targetFrame, kTargetField)->Hide();
	BButton* setButton = new BButton(layout.setButton, kSetButton, "Set...",
		new BMessage(kFindLinkTarget), B_FOLLOW_NONE);
	panel->AddChild(setButton);
	setButton->SetTarget(this);
	setButton->Hide();
}

// A field of the info panel; its edits come to this view.
NewTextControl*
GlintView::pvAddField(BView* panel, BRect& frame, const char* name)
{
	NewTextControl* field = MakeNewTextView(frame, name, B_FOLLOW_NONE, 0);
	panel->AddChild(field);
	field->SetTarget(this);
	return field;
}

// The second instruction line and the attribute panel, with its "New" button
// below the list.
void
GlintView::pvBuildAttributes(const Layout& layout)
{
	BStringView* inst2 = new BStringView(layout.inst2, "Inst2",
		"Click on an attribute to edit.  Option-click to select.  "
		"Option-double-click to view details..");
	inst2->SetViewColor(ViewColor());
	AddChild(inst2);
	inst2->Hide();

	AttrView* attributes = new AttrView(layout.attributes, "Attributes", B_FOLLOW_NONE,
		B_WILL_DRAW | B_FRAME_EVENTS);
	attributes->SetLabel("Attributes");
	AddChild(attributes);

	BView* container = FindView("AttrContainer");
	if (container == nullptr)
		throw StatusError(B_NAME_NOT_FOUND, "attribute panel without its container");
	BRect buttonFrame = container->Bounds();
	buttonFrame.InsetBy(kGap, kGap);
	buttonFrame.top = buttonFrame.bottom - layout.row + 2 * kGap;
	buttonFrame.right = buttonFrame.left + StringWidth(kNewButtonText);
	if (BView* list = FindView("ScrollList"))
		list->ResizeBy(0, -(buttonFrame.Height() + 2 * kGap));
	BButton* newButton = new BButton(buttonFrame, "NewAttr", "New",
		new BMessage(kAddAttribute), B_FOLLOW_LEFT | B_FOLLOW_BOTTOM);
	container->AddChild(newButton);
	newButton->SetTarget(this);
	newButton->Hide();
}

GlintView::Layout
GlintView::pvLayout() const
{
	font_height height;
	GetFontHeight(&height);
	float lineHeight = std::ceil(height.ascent + height.descent + height.leading);
	BView* target = FindView(kTargetField);
	bool withTarget = target != nullptr && !target->IsHidden(target->Parent());
	return Layout(Bounds(), lineHeight, StringWidth(kSetButtonText), withTarget,
		pvMinAttributesHeight());
}

// The attribute panel's height around its list, plus the least list height;
// nothing while the panel is not built.
float
GlintView::pvMinAttributesHeight() const
{
	BView* panel = FindView("Attributes");
	BView* list = FindView("ScrollList");
	if (panel == nullptr || list == nullptr)
		return 0;
	return panel->Bounds().Height() - list->Frame().Height() + kMinListHeight;
}

NewTextControl*
GlintView::MakeNewTextView(BRect& frame, const char* name, uint32 resizingMode, uint32 flags)
{
	NewTextControl* field = new NewTextControl(frame, name, name, "",
		new BMessage(kFieldChanged), resizingMode, flags | B_WILL_DRAW | B_NAVIGABLE);
	field->SetAlignment(B_ALIGN_RIGHT, B_ALIGN_LEFT);
	field->SetDivider(StringWidth(kLabelColumnText));
	return field;
}

NewTextControl*
GlintView::pvField(const char* name) const
{
	NewTextControl* field = dynamic_cast<NewTextControl*>(FindView(name));
	if (field == nullptr)
		throw StatusError(B_NAME_NOT_FOUND, "info panel without the field");
	return field;
}

void
GlintView::Draw(BRect updateRect)
{
	BView::Draw(updateRect);
}

void
GlintView::FrameResized(float width, float height)
{
	BView::FrameResized(width, height);
	pvPlaceViews();
}

void
GlintView::pvPlaceViews()
{
	Layout layout = pvLayout();
	Place(FindView("NodeBox"), layout.nodeBox);
	Place(FindView("Info Panel"), layout.infoPanel);
	Place(FindView("Instructions"), layout.instructions);
	for (int32 i = 0; i < kFieldCount; i++)
		Place(FindView(kFieldNames[i]), layout.Field(i));
	Place(FindView(kTargetField), layout.targetField);
	Place(FindView(kSetButton), layout.setButton);
	Place(FindView("Inst2"), layout.inst2);
	Place(FindView("Attributes"), layout.attributes);
}

void
GlintView::KeyDown(const char*, int32 numBytes)
{
	if (numBytes > 1)
		beep();
}

bool
GlintView::QuitRequested()
{
	AttrView* attributes = dynamic_cast<AttrView*>(FindView("Attributes"));
	return attributes == nullptr || attributes->QuitRequested();
}

void
GlintView::MessageReceived(BMessage* msg)
{
	switch (msg->what) {
		case B_SIMPLE_DATA:
			RefsReceived(msg, 0);
			break;
		case kFieldChanged:
			TextChanged(msg);
			break;
		case kFindLinkTarget:
			FindSymLink(msg);
			break;
		case kLinkTargetChosen:
			FixTargetPath(msg);
			break;
		case kAddAttribute:
			AddAttr(msg);
			break;
		case 'RvlT':
			if (fFile != nullptr)
				RevealInTracker(fFile.get());
			break;
		case 'SelI':
		case 'ScrS':
			if (BListView* list = dynamic_cast<BListView*>(FindView("attrList")))
				list->MessageReceived(msg);
			break;
		default:
			// The panel's own messages end here.
			break;
	}
}

void
GlintView::RefsReceived(BMessage* msg, int32 index)
{
	SetEntry(msg, index);
	Window()->PostMessage(kNodeLoaded);
}

void
GlintView::SetEntry(BMessage* msg, int32 index)
{
	BAutolock lock(Window());
	entry_ref ref;
	if (msg != nullptr && msg->FindRef("refs", index, &ref) == B_OK)
		pvSetNode(ref);
	// Without a node there is nothing to show yet.
	if (fFile != nullptr)
		pvShowNode(nullptr, nullptr);
}

void
GlintView::SetEntry(entry_ref* ref, BPath* path, BPath* target)
{
	BAutolock lock(Window());
	pvSetNode(*ref);
	pvShowNode(path, target);
}

void
GlintView::SetEntry(const char* viewName, const char* text)
{
	pvField(viewName)->SetText(text);
}

void
GlintView::ShowView(const char* name)
{
	BView* view = FindView(name);
	if (view != nullptr && view->IsHidden(view->Parent()))
		view->Show();
}

void
GlintView::HideView(const char* name)
{
	BView* view = FindView(name);
	if (view != nullptr && !view->IsHidden(view->Parent()))
		view->Hide();
}

// Makes the entry the panel's node and titles the window after it. Another
// node's data windows close with it; the same node keeps its wrapper, which
// its data windows hold.
void
GlintView::pvSetNode(const entry_ref& ref)
{
	String title("Vellum: ");
	title << ref.name;
	Window()->SetTitle(title);
	if (fFile != nullptr) {
		entry_ref current;
		if (fFile->GetRef(&current) == B_OK && current == ref)
			return;
		pvCloseDataWindowsOf(fFile->Name());
	}
	fFile = std::make_unique<BrindleFile>(&ref, false);
}

// Asks every data window of the node to close.
void
GlintView::pvCloseDataWindowsOf(const char* leafName)
{
	std::vector<BMessenger> windows;
	for (BWindow* window = DataWindow::FindNextOfNode(nullptr, leafName); window != nullptr;
			window = DataWindow::FindNextOfNode(window, leafName))
		windows.push_back(BMessenger(window));
	for (const BMessenger& window : windows)
		window.SendMessage(B_QUIT_REQUESTED);
}

// Fills the panel from the node; path and target, when given, stand in the
// "Path" and "Target Path" fields instead of what the node says.
void
GlintView::pvShowNode(BPath* path, BPath* target)
{
	HideView("Instructions");
	ShowView("Inst2");
	ShowView("Info Panel");
	ShowView("NewAttr");

	if (IconView* icon = dynamic_cast<IconView*>(FindView("Icon")))
		icon->SetNode(new BrindleFile(*fFile));

	SetEntry("Name", fFile->Name());
	off_t size = 0;
	fFile->GetSize(&size);
	String sizeText = LongNumStr(size);
	sizeText << " bytes";
	SetEntry("Size", sizeText);
	pvField("Size")->SetEnabled(fFile->IsFile());
	time_t modified = 0;
	fFile->GetModificationTime(&modified);
	SetEntry("Date", datetostring(modified));
	BPath nodePath;
	if (path == nullptr) {
		fFile->GetPath(&nodePath);
		path = &nodePath;
	}
	SetEntry("Path", path->Path() != nullptr ? path->Path() : "");
	pvShowLinkTarget(target);

	Invalidate();
	AttrView* attributes = dynamic_cast<AttrView*>(FindView("Attributes"));
	if (attributes == nullptr)
		throw StatusError(B_NAME_NOT_FOUND, "info panel without its attribute panel");
	entry_ref ref;
	fFile->GetRef(&ref);
	attributes->AddAttrInfo(&ref);
}

// A link shows where it points (or that it points nowhere) and can be pointed
// elsewhere; other nodes have no target.
void
GlintView::pvShowLinkTarget(BPath* target)
{
	if (!fFile->IsSymLink()) {
		SetEntry(kTargetField, "");
		HideView(kTargetField);
		HideView(kSetButton);
		pvPlaceViews();
		return;
	}
	BPath linkTarget;
	if (target == nullptr && fFile->GetLink(&linkTarget) == B_OK)
		target = &linkTarget;
	SetEntry(kTargetField, target != nullptr && target->Path() != nullptr
		? target->Path() : kBrokenLink);
	ShowView(kTargetField);
	ShowView(kSetButton);
	pvPlaceViews();
}
