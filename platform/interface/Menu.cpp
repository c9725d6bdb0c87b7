#include <Menu.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include <MenuBar.h>
#include <MenuItem.h>
#include <Window.h>

BMenu::BMenu(const char* title, menu_layout layout)
	: BMenu(BRect(0, 0, 0, 0), title, B_FOLLOW_LEFT | B_FOLLOW_TOP, B_WILL_DRAW, layout, true)
{
}

BMenu::BMenu(BRect frame, const char* name, uint32 resizingMode, uint32 flags,
	menu_layout layout, bool resizeToFit)
	: BView(frame, name, resizingMode, flags | B_WILL_DRAW),
	fLayout(layout),
	fResizeToFit(resizeToFit)
{
	if (layout == B_ITEMS_IN_ROW)
		SetItemMargins(8, 2, 8, 2);
	else
		SetItemMargins(20, 2, 10, 2);
	SetViewColor(ui_color(B_MENU_BACKGROUND_COLOR));
	SetLowColor(ui_color(B_MENU_BACKGROUND_COLOR));
}

BMenu::~BMenu()
{
	for (BMenuItem* item : fItems) {
		item->fSuper = nullptr;
		delete item;
	}
}

// #pragma mark - hooks

void
BMenu::AttachedToWindow()
{
	BView::AttachedToWindow();
	pvLayoutItems();
	if (fResizeToFit)
		pvResizeToFit();
}

void
BMenu::DetachedFromWindow()
{
	BView::DetachedFromWindow();
}

void
BMenu::Draw(BRect updateRect)
{
	if (!fLayoutValid)
		pvLayoutItems();
	if (fLayout == B_ITEMS_IN_COLUMN) {
		SetHighColor(tint_color(ui_color(B_MENU_BACKGROUND_COLOR), B_DARKEN_3_TINT));
		StrokeRect(Bounds());
	}
	for (BMenuItem* item : fItems) {
		if (item->fFrame.Intersects(updateRect))
			item->Draw();
	}
}

void
BMenu::GetPreferredSize(float* width, float* height)
{
	if (!fLayoutValid)
		pvLayoutItems();
	if (width != nullptr)
		*width = fContentWidth;
	if (height != nullptr)
		*height = fContentHeight;
}

void
BMenu::ResizeToPreferred()
{
	if (!fLayoutValid)
		pvLayoutItems();
	ResizeTo(fContentWidth, fContentHeight);
}

// #pragma mark - layout

void
BMenu::pvLayoutItems()
{
	fLayoutValid = true;
	float position = fLayout == B_ITEMS_IN_COLUMN ? 1 : 0;
	float widest = 0;
	for (BMenuItem* item : fItems) {
		float width, height;
		item->GetContentSize(&width, &height);
		width += fPadLeft + fPadRight;
		height += fPadTop + fPadBottom;
		if (fLayout == B_ITEMS_IN_COLUMN) {
			width += item->pvExtraWidth();
			item->fFrame.Set(1, position, width, position + height - 1);
			position += height;
		} else {
			item->fFrame.Set(position, 0, position + width - 1, height - 1);
			position += width;
		}
		widest = std::max(widest, width);
	}
	if (fLayout != B_ITEMS_IN_COLUMN) {
		font_height fontHeight;
		GetFontHeight(&fontHeight);
		fContentWidth = std::max(position - 1, 0.0f);
		fContentHeight = std::ceil(fontHeight.ascent + fontHeight.descent) + fPadTop
			+ fPadBottom;
		for (BMenuItem* item : fItems)
			item->fFrame.bottom = fContentHeight - 1;
		return;
	}
	if (fMaxContentWidth > 0)
		widest = std::min(widest, fMaxContentWidth);
	widest = std::max(widest, 20.0f);
	for (BMenuItem* item : fItems)
		item->fFrame.right = widest;
	fContentWidth = widest + 1;
	fContentHeight = position;
}

void
BMenu::pvResizeToFit()
{
	// A bar that follows both sides of its parent keeps its width.
	const uint32 horizontal = _rule_(0, 0xf, 0, 0xf);
	bool keepWidth = (ResizingMode() & horizontal) == B_FOLLOW_LEFT_RIGHT;
	ResizeTo(keepWidth ? Bounds().Width() : fContentWidth, fContentHeight);
}

void
BMenu::pvInvalidateLayout()
{
	fLayoutValid = false;
	if (Window() == nullptr || !LockLooper())
		return;
	pvLayoutItems();
	if (fResizeToFit)
		pvResizeToFit();
	Invalidate();
	UnlockLooper();
}

void
BMenu::SetItemMargins(float left, float top, float right, float bottom)
{
	fPadLeft = left;
	fPadTop = top;
	fPadRight = right;
	fPadBottom = bottom;
	pvInvalidateLayout();
}

void
BMenu::GetItemMargins(float* left, float* top, float* right, float* bottom) const
{
	if (left != nullptr)
		*left = fPadLeft;
	if (top != nullptr)
		*top = fPadTop;
	if (right != nullptr)
		*right = fPadRight;
	if (bottom != nullptr)
		*bottom = fPadBottom;
}

menu_layout
BMenu::Layout() const
{
	return fLayout;
}

void
BMenu::SetMaxContentWidth(float maxWidth)
{
	fMaxContentWidth = maxWidth;
	pvInvalidateLayout();
}

float
BMenu::MaxContentWidth() const
{
	return fMaxContentWidth;
}

BPoint
BMenu::ScreenLocation()
{
	if (fSuper == nullptr || fSuperitem == nullptr)
		return BPoint(0, 0);
	BRect frame = fSuperitem->Frame();
	BPoint where = fSuper->Layout() == B_ITEMS_IN_COLUMN
		? frame.RightTop() + BPoint(1, -1) : frame.LeftBottom() + BPoint(0, 1);
	return fSuper->ConvertToScreen(where);
}

// #pragma mark - items

bool
BMenu::AddItem(BMenuItem* item)
{
	return AddItem(item, CountItems());
}

bool
BMenu::AddItem(BMenuItem* item, int32 index)
{
	return pvInsert(item, index);
}

bool
BMenu::AddItem(BMenu* menu)
{
	return AddItem(menu, CountItems());
}

bool
BMenu::AddItem(BMenu* menu, int32 index)
{
	if (menu == nullptr || menu->fSuperitem != nullptr || index < 0 || index > CountItems())
		return false;
	return pvInsert(new BMenuItem(menu), index);
}

bool
BMenu::AddList(BList* list, int32 index)
{
	if (list == nullptr || index < 0 || index > CountItems())
		return false;
	for (int32 i = 0; i < list->CountItems(); i++) {
		if (!AddItem(static_cast<BMenuItem*>(list->ItemAt(i)), index + i))
			return false;
	}
	return true;
}

bool
BMenu::AddSeparatorItem()
{
	return AddItem(new BSeparatorItem);
}

bool
BMenu::pvInsert(BMenuItem* item, int32 index)
{
	if (item == nullptr || item->fSuper != nullptr || index < 0 || index > CountItems())
		return false;
	fItems.insert(fItems.begin() + index, item);
	item->fSuper = this;
	if (item->fSubmenu != nullptr)
		item->fSubmenu->pvSetSuper(this, item);
	if (BWindow* window = pvInstallWindow())
		item->pvInstall(window);
	pvInvalidateLayout();
	return true;
}

void
BMenu::pvDetachItem(BMenuItem* item)
{
	auto found = std::find(fItems.begin(), fItems.end(), item);
	if (found == fItems.end())
		return;
	item->pvUninstall();
	if (fSelected == item)
		fSelected = nullptr;
	item->fSelected = false;
	fItems.erase(found);
	item->fSuper = nullptr;
	if (item->fSubmenu != nullptr)
		item->fSubmenu->fSuper = nullptr;
	pvInvalidateLayout();
}

bool
BMenu::RemoveItem(BMenuItem* item)
{
	if (item == nullptr || item->fSuper != this)
		return false;
	pvDetachItem(item);
	return true;
}

BMenuItem*
BMenu::RemoveItem(int32 index)
{
	BMenuItem* item = ItemAt(index);
	if (item != nullptr)
		pvDetachItem(item);
	return item;
}

bool
BMenu::RemoveItems(int32 index, int32 count, bool deleteItems)
{
	if (index < 0 || count < 0 || index + count > CountItems())
		return false;
	for (int32 i = 0; i < count; i++) {
		BMenuItem* item = RemoveItem(index);
		if (deleteItems)
			delete item;
	}
	return true;
}

bool
BMenu::RemoveItem(BMenu* menu)
{
	int32 index = IndexOf(menu);
	if (index < 0)
		return false;
	BMenuItem* item = RemoveItem(index);
	item->fSubmenu = nullptr;
	menu->pvSetSuper(nullptr, nullptr);
	delete item;
	return true;
}

BMenuItem*
BMenu::ItemAt(int32 index) const
{
	if (index < 0 || index >= CountItems())
		return nullptr;
	return fItems[size_t(index)];
}

BMenu*
BMenu::SubmenuAt(int32 index) const
{
	BMenuItem* item = ItemAt(index);
	return item != nullptr ? item->Submenu() : nullptr;
}

int32
BMenu::CountItems() const
{
	return int32(fItems.size());
}

int32
BMenu::IndexOf(BMenuItem* item) const
{
	auto found = std::find(fItems.begin(), fItems.end(), item);
	return found != fItems.end() ? int32(found - fItems.begin()) : -1;
}

int32
BMenu::IndexOf(BMenu* menu) const
{
	auto found = std::find_if(fItems.begin(), fItems.end(),
		[menu](BMenuItem* item) { return menu != nullptr && item->Submenu() == menu; });
	return found != fItems.end() ? int32(found - fItems.begin()) : -1;
}

BMenuItem*
BMenu::FindItem(uint32 command) const
{
	for (BMenuItem* item : fItems) {
		if (item->Message() != nullptr && item->Command() == command)
			return item;
		if (item->Submenu() != nullptr) {
			if (BMenuItem* found = item->Submenu()->FindItem(command))
				return found;
		}
	}
	return nullptr;
}

BMenuItem*
BMenu::FindItem(const char* label) const
{
	if (label == nullptr)
		return nullptr;
	for (BMenuItem* item : fItems) {
		if (strcmp(item->Label(), label) == 0)
			return item;
		if (item->Submenu() != nullptr) {
			if (BMenuItem* found = item->Submenu()->FindItem(label))
				return found;
		}
	}
	return nullptr;
}

BMenuItem*
BMenu::FindMarked()
{
	auto found = std::find_if(fItems.begin(), fItems.end(),
		[](BMenuItem* item) { return item->IsMarked(); });
	return found != fItems.end() ? *found : nullptr;
}

// #pragma mark - targets and states

status_t
BMenu::SetTargetForItems(BHandler* target)
{
	status_t result = B_OK;
	for (BMenuItem* item : fItems) {
		status_t status = item->SetTarget(target);
		if (status != B_OK && result == B_OK)
			result = status;
	}
	return result;
}

status_t
BMenu::SetTargetForItems(BMessenger messenger)
{
	for (BMenuItem* item : fItems)
		item->SetTarget(messenger);
	return B_OK;
}

void
BMenu::SetEnabled(bool enabled)
{
	if (enabled == fEnabled)
		return;
	fEnabled = enabled;
	if (Window() != nullptr && LockLooper()) {
		Invalidate();
		UnlockLooper();
	}
	if (fSuperitem != nullptr)
		fSuperitem->SetEnabled(enabled);
}

bool
BMenu::IsEnabled() const
{
	if (!fEnabled)
		return false;
	return fSuper == nullptr || fSuper->IsEnabled();
}

void
BMenu::SetRadioMode(bool on)
{
	fRadioMode = on;
	if (!on)
		fLabelFromMarked = false;
}

bool
BMenu::IsRadioMode() const
{
	return fRadioMode;
}

void
BMenu::SetLabelFromMarked(bool on)
{
	fLabelFromMarked = on;
	if (on)
		fRadioMode = true;
}

bool
BMenu::IsLabelFromMarked()
{
	return fLabelFromMarked;
}

void
BMenu::SetTriggersEnabled(bool enabled)
{
	fTriggersEnabled = enabled;
}

bool
BMenu::AreTriggersEnabled() const
{
	return fTriggersEnabled;
}

void
BMenu::pvItemMarked(BMenuItem* item)
{
	if (fRadioMode) {
		for (BMenuItem* other : fItems) {
			if (other != item && other->IsMarked())
				other->SetMarked(false);
		}
	}
	if (fLabelFromMarked && fSuperitem != nullptr)
		fSuperitem->SetLabel(item->Label());
}

BMenu*
BMenu::Supermenu() const
{
	return fSuper;
}

BMenuItem*
BMenu::Superitem() const
{
	return fSuperitem;
}

void
BMenu::pvSetSuper(BMenu* supermenu, BMenuItem* superitem)
{
	fSuper = supermenu;
	fSuperitem = superitem;
}

// #pragma mark - tracking

int32
BMenu::pvNextSelectable(int32 index, int32 step) const
{
	int32 count = CountItems();
	if (index < 0)
		index = step > 0 ? -1 : count;
	for (int32 n = 1; n <= count; n++) {
		int32 i = ((index + step * n) % count + count) % count;
		if (fItems[size_t(i)]->IsEnabled())
			return i;
	}
	return -1;
}

int32
BMenu::pvItemIndexAt(BPoint where) const
{
	for (size_t i = 0; i < fItems.size(); i++) {
		if (fItems[i]->fFrame.Contains(where))
			return int32(i);
	}
	return -1;
}

void
BMenu::pvSelect(BMenuItem* item)
{
	if (item == fSelected)
		return;
	BMenuItem* previous = fSelected;
	fSelected = item;
	if (previous != nullptr)
		previous->pvChange([previous] { previous->fSelected = false; });
	if (item != nullptr)
		item->pvChange([item] { item->fSelected = true; });
}

// #pragma mark - shortcuts

BWindow*
BMenu::pvInstallWindow() const
{
	const BMenu* root = this;
	while (root->fSuper != nullptr)
		root = root->fSuper;
	auto bar = dynamic_cast<const BMenuBar*>(root);
	if (bar == nullptr || bar->Window() == nullptr)
		return nullptr;
	return bar->Window()->KeyMenuBar() == bar ? bar->Window() : nullptr;
}

void
BMenu::pvInstall(BWindow* window)
{
	for (BMenuItem* item : fItems)
		item->pvInstall(window);
}

void
BMenu::pvUninstall()
{
	for (BMenuItem* item : fItems)
		item->pvUninstall();
}
