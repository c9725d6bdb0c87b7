#include <ListView.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include <Message.h>
#include <ScrollBar.h>
#include <ScrollView.h>
#include <Window.h>

namespace {

// How far the mouse moves with the button held before a row is dragged.
const float kDragDistance = 4;

}	// namespace

BListView::BListView(BRect frame, const char* name, list_view_type type, uint32 resizingMode,
	uint32 flags)
	: BView(frame, name, resizingMode, flags),
	BInvoker(nullptr, nullptr, nullptr),
	fTops(1, 0.0f),
	fListType(type)
{
}

BListView::~BListView()
{
	for (int32 i = 0; i < CountItems(); i++)
		ItemAt(i)->fOwner = nullptr;
}

// #pragma mark - hooks

void
BListView::AttachedToWindow()
{
	if (!Messenger().IsValid())
		SetTarget(Window());
	BView::AttachedToWindow();
	pvUpdateAllItems();
}

void
BListView::Draw(BRect updateRect)
{
	// Only the rows that meet the update rectangle draw.
	int32 count = CountItems();
	if (count == 0 || updateRect.bottom < 0 || updateRect.top >= pvTop(count))
		return;
	auto tops = fTops.begin();
	int32 index = int32(std::upper_bound(tops, tops + count, updateRect.top) - tops) - 1;
	for (index = std::max(index, int32(0)); index < count && fTops[index] <= updateRect.bottom;
			index++) {
		if (fTops[index + 1] > fTops[index])
			ItemAt(index)->DrawItem(this, ItemFrame(index), false);
	}
}

void
BListView::FrameResized(float, float)
{
	pvFixScrollBars();
}

void
BListView::MouseDown(BPoint where)
{
	if (!IsFocus())
		MakeFocus(true);
	int32 modifiers = 0, clicks = 1;
	if (BMessage* message = Window()->CurrentMessage()) {
		message->FindInt32("modifiers", &modifiers);
		message->FindInt32("clicks", &clicks);
	}
	int32 index = IndexOf(where);
	fPressedIndex = index;
	fPressPoint = where;
	fPressedWasSelected = index >= 0 && IsItemSelected(index);
	if (index < 0 || !ItemAt(index)->IsEnabled())
		return;
	fTracking = true;
	SetMouseEventMask(B_POINTER_EVENTS);
	pvClick(index, uint32(modifiers), clicks);
}

void
BListView::pvClick(int32 index, uint32 modifiers, int32 clicks)
{
	// The second click of a double click invokes what the first one selected.
	if (clicks >= 2 && fPressedWasSelected) {
		Invoke();
		return;
	}
	if (fListType == B_MULTIPLE_SELECTION_LIST && (modifiers & B_SHIFT_KEY) != 0) {
		if (IsItemSelected(index))
			Deselect(index);
		else
			Select(index, true);
		return;
	}
	Select(index, false);
}

void
BListView::MouseUp(BPoint)
{
	fTracking = false;
}

void
BListView::MouseMoved(BPoint where, uint32, const BMessage*)
{
	if (!fTracking || fPressedIndex < 0)
		return;
	BPoint moved = where - fPressPoint;
	if (std::abs(moved.x) <= kDragDistance && std::abs(moved.y) <= kDragDistance)
		return;
	// One chance per press to start a drag.
	fTracking = false;
	InitiateDrag(fPressPoint, fPressedIndex, fPressedWasSelected);
}

bool
BListView::InitiateDrag(BPoint, int32, bool)
{
	return false;
}

void
BListView::KeyDown(const char* bytes, int32 numBytes)
{
	int32 modifiers = 0;
	if (BMessage* message = Window()->CurrentMessage())
		message->FindInt32("modifiers", &modifiers);
	bool extend = fListType == B_MULTIPLE_SELECTION_LIST && (modifiers & B_SHIFT_KEY) != 0;
	int32 current = fAnchor >= 0 && IsItemSelected(fAnchor) ? fAnchor : CurrentSelection(0);
	switch (bytes[0]) {
		case B_UP_ARROW:
			pvMoveSelection(current < 0 ? 0 : current - 1, extend);
			break;
		case B_DOWN_ARROW:
			pvMoveSelection(current < 0 ? 0 : current + 1, extend);
			break;
		case B_HOME:
			pvMoveSelection(0, extend);
			break;
		case B_END:
			pvMoveSelection(CountItems() - 1, extend);
			break;
		case B_PAGE_UP:
			pvScrollByPage(false);
			break;
		case B_PAGE_DOWN:
			pvScrollByPage(true);
			break;
		case B_ENTER:
		case B_SPACE:
			Invoke();
			break;
		default:
			BView::KeyDown(bytes, numBytes);
			break;
	}
}

void
BListView::pvMoveSelection(int32 index, bool extend)
{
	if (index < 0 || index >= CountItems())
		return;
	Select(index, extend);
	pvScrollToItem(index);
}

void
BListView::pvScrollByPage(bool down)
{
	BRect bounds = Bounds();
	float page = bounds.Height() + 1;
	float bottom = std::max(0.0f, pvTop(CountItems()) - page);
	float y = std::clamp(bounds.top + (down ? page : -page), 0.0f, bottom);
	ScrollTo(BPoint(bounds.left, y));
}

void
BListView::MakeFocus(bool focus)
{
	// Losing the focus is told after the window moved it on.
	if (focus && IsFocus())
		return;
	BView::MakeFocus(focus);
	if (BScrollView* scrollView = dynamic_cast<BScrollView*>(Parent()))
		scrollView->SetBorderHighlighted(focus);
}

void
BListView::SetFont(const BFont* font, uint32 mask)
{
	BView::SetFont(font, mask);
	if (Window() != nullptr)
		pvUpdateAllItems();
}

void
BListView::GetPreferredSize(float* width, float* height)
{
	if (width != nullptr)
		*width = std::max(Bounds().Width(), pvWidestItem());
	if (height != nullptr)
		*height = std::max(0.0f, pvTop(CountItems()) - 1);
}

void
BListView::SelectionChanged()
{
}

// #pragma mark - items

void
BListView::pvUpdateItem(BListItem* item)
{
	// The list learns of the new size itself; the item should not report it.
	BFont font;
	GetFont(&font);
	item->fOwner = nullptr;
	item->Update(this, &font);
	item->fOwner = this;
}

void
BListView::pvUpdateAllItems()
{
	for (int32 i = 0; i < CountItems(); i++)
		pvUpdateItem(ItemAt(i));
	fWidestValid = false;
	pvLayoutChanged(0);
}

void
BListView::pvInsert(BListItem* item, int32 index)
{
	fItems.AddItem(item, index);
	fTops.insert(fTops.begin() + index + 1, 0.0f);
	fValidTops = std::min(fValidTops, index + 1);
	if (Window() != nullptr)
		pvUpdateItem(item);
	item->fOwner = this;
	if (fWidestValid)
		fWidest = std::max(fWidest, item->Width());
	if (fAnchor >= index)
		fAnchor++;
}

bool
BListView::AddItem(BListItem* item)
{
	return AddItem(item, CountItems());
}

bool
BListView::AddItem(BListItem* item, int32 index)
{
	if (item == nullptr || index < 0 || index > CountItems())
		return false;
	pvInsert(item, index);
	pvLayoutChanged(index);
	return true;
}

bool
BListView::AddList(BList* items)
{
	return AddList(items, CountItems());
}

bool
BListView::AddList(BList* items, int32 index)
{
	if (items == nullptr || index < 0 || index > CountItems())
		return false;
	for (int32 i = 0; i < items->CountItems(); i++) {
		if (items->ItemAt(i) == nullptr)
			return false;
	}
	for (int32 i = 0; i < items->CountItems(); i++)
		pvInsert(static_cast<BListItem*>(items->ItemAt(i)), index + i);
	pvLayoutChanged(index);
	return true;
}

bool
BListView::RemoveItem(BListItem* item)
{
	return RemoveItem(IndexOf(item)) != nullptr;
}

BListItem*
BListView::RemoveItem(int32 index)
{
	BListItem* item = ItemAt(index);
	if (item == nullptr)
		return nullptr;
	RemoveItems(index, 1);
	return item;
}

bool
BListView::RemoveItems(int32 index, int32 count)
{
	if (index < 0 || count < 0 || index + count > CountItems())
		return false;
	if (count == 0)
		return true;
	for (int32 i = index; i < index + count; i++) {
		ItemAt(i)->fOwner = nullptr;
		ItemAt(i)->Deselect();
	}
	fItems.RemoveItems(index, count);
	fTops.erase(fTops.begin() + index + 1, fTops.begin() + index + 1 + count);
	if (fAnchor >= index + count)
		fAnchor -= count;
	else if (fAnchor >= index)
		fAnchor = -1;
	fWidestValid = false;
	pvLayoutChanged(index);
	return true;
}

void
BListView::MakeEmpty()
{
	RemoveItems(0, CountItems());
}

BListItem*
BListView::ItemAt(int32 index) const
{
	return static_cast<BListItem*>(fItems.ItemAt(index));
}

BListItem*
BListView::FirstItem() const
{
	return static_cast<BListItem*>(fItems.FirstItem());
}

BListItem*
BListView::LastItem() const
{
	return static_cast<BListItem*>(fItems.LastItem());
}

int32
BListView::IndexOf(const BListItem* item) const
{
	return fItems.IndexOf(item);
}

int32
BListView::IndexOf(BPoint point) const
{
	int32 count = CountItems();
	if (count == 0 || point.y < 0 || point.y >= pvTop(count))
		return -1;
	auto tops = fTops.begin();
	return int32(std::upper_bound(tops, tops + count, point.y) - tops) - 1;
}

const BListItem**
BListView::Items() const
{
	return static_cast<const BListItem**>(fItems.Items());
}

void
BListView::DoForEach(bool (*func)(BListItem* item))
{
	for (int32 i = 0; i < CountItems(); i++) {
		if (func(ItemAt(i)))
			break;
	}
}

void
BListView::DoForEach(bool (*func)(BListItem* item, void* arg), void* arg)
{
	for (int32 i = 0; i < CountItems(); i++) {
		if (func(ItemAt(i), arg))
			break;
	}
}

void
BListView::SortItems(int (*compare)(const void*, const void*))
{
	BListItem* anchor = ItemAt(fAnchor);
	fItems.SortItems(compare);
	fAnchor = anchor != nullptr ? IndexOf(anchor) : -1;
	pvLayoutChanged(0);
}

bool
BListView::SwapItems(int32 a, int32 b)
{
	if (!fItems.SwapItems(a, b))
		return false;
	if (fAnchor == a || fAnchor == b)
		fAnchor = fAnchor == a ? b : a;
	pvLayoutChanged(std::min(a, b));
	return true;
}

bool
BListView::MoveItem(int32 from, int32 to)
{
	BListItem* anchor = ItemAt(fAnchor);
	if (!fItems.MoveItem(from, to))
		return false;
	fAnchor = anchor != nullptr ? IndexOf(anchor) : -1;
	pvLayoutChanged(std::min(from, to));
	return true;
}

bool
BListView::ReplaceItem(int32 index, BListItem* item)
{
	BListItem* old = ItemAt(index);
	if (old == nullptr || item == nullptr)
		return false;
	old->fOwner = nullptr;
	fItems.ReplaceItem(index, item);
	if (Window() != nullptr)
		pvUpdateItem(item);
	item->fOwner = this;
	fWidestValid = false;
	pvLayoutChanged(index);
	return true;
}

// #pragma mark - layout

void
BListView::pvItemResized(BListItem* item)
{
	fWidestValid = false;
	pvLayoutChanged(std::max(IndexOf(item), int32(0)));
}

float
BListView::pvTop(int32 index) const
{
	// Tops are summed on from the last one known, so that adding rows at the
	// end costs one row each.
	for (int32 i = std::max(fValidTops, int32(1)); i <= index; i++)
		fTops[i] = fTops[i - 1] + std::ceil(ItemAt(i - 1)->Height());
	fValidTops = std::max(fValidTops, index + 1);
	return fTops[index];
}

void
BListView::pvLayoutChanged(int32 from)
{
	fValidTops = std::min(fValidTops, from + 1);
	if (Window() == nullptr)
		return;
	pvFixScrollBars();
	// What lies below the first changed row moved.
	BRect bounds = Bounds();
	float top = pvTop(std::min(from, CountItems()));
	if (top <= bounds.bottom)
		Invalidate(BRect(bounds.left, std::max(top, bounds.top), bounds.right, bounds.bottom));
}

float
BListView::pvWidestItem() const
{
	if (!fWidestValid) {
		fWidest = 0;
		for (int32 i = 0; i < CountItems(); i++)
			fWidest = std::max(fWidest, ItemAt(i)->Width());
		fWidestValid = true;
	}
	return fWidest;
}

void
BListView::pvFixScrollBars()
{
	BRect bounds = Bounds();
	if (BScrollBar* bar = ScrollBar(B_VERTICAL)) {
		float total = pvTop(CountItems());
		float page = bounds.Height() + 1;
		bar->SetRange(0, std::max(0.0f, total - page));
		bar->SetProportion(total > page ? page / total : 1);
		float step = CountItems() > 0 ? std::ceil(FirstItem()->Height()) : 0;
		bar->SetSteps(step > 0 ? step : 1, std::max(page - step, 1.0f));
	}
	if (BScrollBar* bar = ScrollBar(B_HORIZONTAL)) {
		float total = pvWidestItem();
		float page = bounds.Width() + 1;
		bar->SetRange(0, std::max(0.0f, total - page));
		bar->SetProportion(total > page ? page / total : 1);
		bar->SetSteps(1, std::max(page, 1.0f));
	}
}

BRect
BListView::ItemFrame(int32 index)
{
	if (index < 0 || index >= CountItems())
		return BRect();
	float top = pvTop(index);
	return BRect(0, top, Bounds().Width(), pvTop(index + 1) - 1);
}

void
BListView::InvalidateItem(int32 index)
{
	BRect frame = ItemFrame(index);
	if (frame.IsValid())
		Invalidate(frame);
}

void
BListView::ScrollToSelection()
{
	pvScrollToItem(CurrentSelection(0));
}

void
BListView::pvScrollToItem(int32 index)
{
	BRect frame = ItemFrame(index);
	if (!frame.IsValid())
		return;
	BRect bounds = Bounds();
	if (frame.top < bounds.top)
		ScrollTo(BPoint(bounds.left, frame.top));
	else if (frame.bottom > bounds.bottom)
		ScrollTo(BPoint(bounds.left, frame.bottom - bounds.Height()));
}

// #pragma mark - selection

void
BListView::SetListType(list_view_type type)
{
	if (type == fListType)
		return;
	fListType = type;
	int32 first = CurrentSelection(0);
	if (type == B_SINGLE_SELECTION_LIST && first >= 0)
		DeselectExcept(first, first);
}

bool
BListView::pvSetSelected(int32 index, bool selected)
{
	BListItem* item = ItemAt(index);
	if (item == nullptr || item->IsSelected() == selected)
		return false;
	if (selected)
		item->Select();
	else
		item->Deselect();
	InvalidateItem(index);
	return true;
}

bool
BListView::pvDeselectAllBut(int32 from, int32 to)
{
	bool changed = false;
	for (int32 i = 0; i < CountItems(); i++) {
		if (i < from || i > to)
			changed |= pvSetSelected(i, false);
	}
	return changed;
}

void
BListView::pvNotifySelection()
{
	SelectionChanged();
	if (fSelectionMessage != nullptr)
		Invoke(fSelectionMessage.get());
}

void
BListView::Select(int32 index, bool extend)
{
	Select(index, index, extend);
}

void
BListView::Select(int32 from, int32 to, bool extend)
{
	// Selecting again is news too: the selection message goes out each time.
	if (from < 0 || from > to || to >= CountItems())
		return;
	if (fListType == B_SINGLE_SELECTION_LIST) {
		to = from;
		extend = false;
	}
	if (!extend)
		pvDeselectAllBut(from, to);
	for (int32 i = from; i <= to; i++)
		pvSetSelected(i, true);
	fAnchor = to;
	pvNotifySelection();
}

bool
BListView::IsItemSelected(int32 index) const
{
	BListItem* item = ItemAt(index);
	return item != nullptr && item->IsSelected();
}

int32
BListView::CurrentSelection(int32 i) const
{
	for (int32 index = 0; index < CountItems(); index++) {
		if (ItemAt(index)->IsSelected() && i-- == 0)
			return index;
	}
	return -1;
}

void
BListView::Deselect(int32 index)
{
	if (pvSetSelected(index, false))
		pvNotifySelection();
}

void
BListView::DeselectAll()
{
	if (pvDeselectAllBut(0, -1))
		pvNotifySelection();
}

void
BListView::DeselectExcept(int32 from, int32 to)
{
	if (pvDeselectAllBut(from, to))
		pvNotifySelection();
}

// #pragma mark - messages

void
BListView::SetSelectionMessage(BMessage* message)
{
	fSelectionMessage.reset(message);
}

void
BListView::SetInvocationMessage(BMessage* message)
{
	SetMessage(message);
}

uint32
BListView::SelectionCommand() const
{
	return fSelectionMessage != nullptr ? fSelectionMessage->what : 0;
}

status_t
BListView::Invoke(BMessage* message)
{
	// "source" is the list itself, as receivers cast it; a single-selection
	// list names its selection (-1 for none), a multiple one every selected row.
	return InvokeWith(message, static_cast<BListView*>(this), [this](BMessage& copy) {
		if (fListType == B_SINGLE_SELECTION_LIST) {
			copy.AddInt32("index", CurrentSelection(0));
			return;
		}
		for (int32 i = 0; i < CountItems(); i++) {
			if (ItemAt(i)->IsSelected())
				copy.AddInt32("index", i);
		}
	});
}
