#include <MenuItem.h>

#include <cmath>

#include <Menu.h>
#include <Message.h>
#include <Window.h>

namespace {

// Gaps between the label and the shortcut text or the submenu arrow.
const float kShortcutGap = 18.0f;
const float kArrowWidth = 14.0f;

}	// namespace

BMenuItem::BMenuItem(const char* label, BMessage* message, char shortcut, uint32 modifiers)
	: BInvoker(message, nullptr),
	fLabel(label != nullptr ? label : ""),
	fModifiers(shortcut != 0 ? modifiers | B_COMMAND_KEY : 0),
	fShortcutChar(shortcut)
{
}

BMenuItem::BMenuItem(BMenu* menu, BMessage* message)
	: BInvoker(message, nullptr),
	fSubmenu(menu)
{
	if (menu != nullptr) {
		fLabel = menu->Name() != nullptr ? menu->Name() : "";
		menu->pvSetSuper(nullptr, this);
	}
}

BMenuItem::~BMenuItem()
{
	pvUninstall();
	if (fSuper != nullptr)
		fSuper->pvDetachItem(this);
	delete fSubmenu;
}

// #pragma mark - state

void
BMenuItem::pvChange(const std::function<void()>& change)
{
	// An open menu is drawn by the thread of its own window.
	BWindow* window = fSuper != nullptr ? fSuper->Window() : nullptr;
	bool locked = window != nullptr && window->Lock();
	change();
	if (fSuper != nullptr && window != nullptr)
		fSuper->Invalidate(fFrame);
	if (locked) {
		if (window->Thread() != find_thread(nullptr))
			window->UpdateIfNeeded();
		window->Unlock();
	}
}

void
BMenuItem::SetLabel(const char* name)
{
	std::string label = name != nullptr ? name : "";
	if (label == fLabel)
		return;
	pvChange([this, &label] { fLabel = label; });
	if (fSuper != nullptr)
		fSuper->pvInvalidateLayout();
}

void
BMenuItem::SetEnabled(bool enabled)
{
	if (enabled == fEnabled)
		return;
	pvChange([this, enabled] { fEnabled = enabled; });
	if (fSubmenu != nullptr)
		fSubmenu->SetEnabled(enabled);
}

void
BMenuItem::SetMarked(bool marked)
{
	if (marked && fSuper != nullptr)
		fSuper->pvItemMarked(this);
	if (marked == fMarked)
		return;
	pvChange([this, marked] { fMarked = marked; });
}

void
BMenuItem::SetTrigger(char trigger)
{
	fTrigger = trigger;
}

void
BMenuItem::SetShortcut(char shortcut, uint32 modifiers)
{
	BWindow* window = fWindow;
	pvRemoveShortcut();
	pvChange([this, shortcut, modifiers] {
		fShortcutChar = shortcut;
		fModifiers = shortcut != 0 ? modifiers | B_COMMAND_KEY : 0;
	});
	if (window != nullptr)
		pvInstall(window);
	if (fSuper != nullptr)
		fSuper->pvInvalidateLayout();
}

const char*
BMenuItem::Label() const
{
	return fLabel.c_str();
}

bool
BMenuItem::IsEnabled() const
{
	return fEnabled;
}

bool
BMenuItem::IsMarked() const
{
	return fMarked;
}

char
BMenuItem::Trigger() const
{
	return fTrigger;
}

char
BMenuItem::Shortcut(uint32* modifiers) const
{
	if (modifiers != nullptr)
		*modifiers = fModifiers;
	return fShortcutChar;
}

BMenu*
BMenuItem::Submenu() const
{
	return fSubmenu;
}

BMenu*
BMenuItem::Menu() const
{
	return fSuper;
}

BRect
BMenuItem::Frame() const
{
	return fFrame;
}

bool
BMenuItem::IsSelected() const
{
	return fSelected;
}

bool
BMenuItem::pvCanInvoke() const
{
	return fEnabled && (fSuper == nullptr || fSuper->IsEnabled());
}

// #pragma mark - invoking

status_t
BMenuItem::Invoke(BMessage* message)
{
	if (!pvCanInvoke())
		return B_ERROR;
	if (message == nullptr)
		message = Message();
	if (message == nullptr)
		return B_BAD_VALUE;
	if (fSuper != nullptr && fSuper->IsRadioMode())
		SetMarked(true);
	BMessage copy(*message);
	copy.AddInt64("when", system_time());
	copy.AddPointer("source", this);
	copy.AddInt32("index", fSuper != nullptr ? fSuper->IndexOf(this) : -1);
	return Messenger().SendMessage(&copy, HandlerForReply(), Timeout());
}

// #pragma mark - shortcuts

std::string
BMenuItem::pvShortcutText() const
{
	if (fShortcutChar == 0)
		return std::string();
	// Command is Ctrl, Option is Alt and Control is the Super key on Linux.
	std::string text = "Ctrl+";
	if ((fModifiers & B_OPTION_KEY) != 0)
		text += "Alt+";
	if ((fModifiers & B_SHIFT_KEY) != 0)
		text += "Shift+";
	if ((fModifiers & B_CONTROL_KEY) != 0)
		text += "Super+";
	char key = fShortcutChar;
	if (key >= 'a' && key <= 'z')
		key = char(key - 'a' + 'A');
	return text + key;
}

void
BMenuItem::pvInstall(BWindow* window)
{
	if (fWindow != window) {
		pvRemoveShortcut();
		fWindow = window;
		if (!Messenger().IsValid())
			SetTarget(window);
		if (fShortcutChar != 0) {
			window->AddShortcut(uint32(uchar(fShortcutChar)), fModifiers, [this] {
				if (!pvCanInvoke())
					return false;
				Invoke();
				return true;
			});
		}
	}
	if (fSubmenu != nullptr)
		fSubmenu->pvInstall(window);
}

void
BMenuItem::pvUninstall()
{
	if (fSubmenu != nullptr)
		fSubmenu->pvUninstall();
	pvRemoveShortcut();
}

void
BMenuItem::pvRemoveShortcut()
{
	if (fWindow != nullptr && fShortcutChar != 0)
		fWindow->RemoveShortcut(uint32(uchar(fShortcutChar)), fModifiers);
	fWindow = nullptr;
}

// #pragma mark - drawing

void
BMenuItem::GetContentSize(float* width, float* height)
{
	font_height fontHeight;
	fSuper->GetFontHeight(&fontHeight);
	if (width != nullptr)
		*width = std::ceil(fSuper->StringWidth(fLabel.c_str()));
	if (height != nullptr)
		*height = std::ceil(fontHeight.ascent + fontHeight.descent);
}

BPoint
BMenuItem::ContentLocation() const
{
	float left, top;
	fSuper->GetItemMargins(&left, &top, nullptr, nullptr);
	return fFrame.LeftTop() + BPoint(left, top);
}

void
BMenuItem::Highlight(bool on)
{
	fSuper->SetHighColor(ui_color(on ? B_MENU_SELECTION_BACKGROUND_COLOR
		: B_MENU_BACKGROUND_COLOR));
	fSuper->FillRect(fFrame);
}

void
BMenuItem::DrawContent()
{
	font_height fontHeight;
	fSuper->GetFontHeight(&fontHeight);
	fSuper->DrawString(fLabel.c_str(),
		ContentLocation() + BPoint(0, std::ceil(fontHeight.ascent)));
}

void
BMenuItem::Draw()
{
	bool enabled = pvCanInvoke();
	bool selected = fSelected && enabled;
	if (selected)
		Highlight(true);
	rgb_color background = ui_color(B_MENU_BACKGROUND_COLOR);
	fSuper->SetLowColor(ui_color(selected ? B_MENU_SELECTION_BACKGROUND_COLOR
		: B_MENU_BACKGROUND_COLOR));
	fSuper->SetHighColor(!enabled ? tint_color(background, B_DISABLED_LABEL_TINT)
		: ui_color(selected ? B_MENU_SELECTED_ITEM_TEXT_COLOR : B_MENU_ITEM_TEXT_COLOR));
	DrawContent();
	if (fSuper->Layout() != B_ITEMS_IN_COLUMN)
		return;

	font_height fontHeight;
	fSuper->GetFontHeight(&fontHeight);
	float left, top, right;
	fSuper->GetItemMargins(&left, &top, &right, nullptr);
	float baseline = fFrame.top + top + std::ceil(fontHeight.ascent);
	float middle = std::floor((fFrame.top + fFrame.bottom) / 2);
	if (fMarked) {
		// A check mark in the left margin.
		float x = fFrame.left + 5;
		fSuper->SetPenSize(2);
		fSuper->StrokeLine(BPoint(x, middle), BPoint(x + 3, middle + 3));
		fSuper->StrokeLine(BPoint(x + 3, middle + 3), BPoint(x + 9, middle - 4));
		fSuper->SetPenSize(1);
	}
	float end = fFrame.right - right;
	if (fSubmenu != nullptr) {
		float x = end - 5;
		fSuper->FillTriangle(BPoint(x, middle - 4), BPoint(x, middle + 4),
			BPoint(x + 4, middle));
	} else if (fShortcutChar != 0) {
		std::string text = pvShortcutText();
		fSuper->DrawString(text.c_str(),
			BPoint(end - std::ceil(fSuper->StringWidth(text.c_str())), baseline));
	}
}

// The width an item needs beside its content in a column: its shortcut text or
// its submenu arrow.
float
BMenuItem::pvExtraWidth() const
{
	if (fSubmenu != nullptr)
		return kArrowWidth;
	if (fShortcutChar != 0)
		return kShortcutGap + std::ceil(fSuper->StringWidth(pvShortcutText().c_str()));
	return 0;
}
