#ifndef _LIST_VIEW_H
#define _LIST_VIEW_H

#include <memory>
#include <vector>

#include <Invoker.h>
#include <List.h>
#include <ListItem.h>
#include <View.h>

class BScrollView;

enum list_view_type {
	B_SINGLE_SELECTION_LIST,
	B_MULTIPLE_SELECTION_LIST
};

// A scrolling list of rows (BListItem) that draw themselves. A click selects a
// row, a double click or Enter invokes the selection; Shift extends the
// selection in a multiple-selection list. The selection message goes out when
// the selection changes, the invocation message (the invoker's own) when it is
// invoked, each with "when" (int64), "source" (the list) and "index" (int32,
// every selected row's index).
class BListView : public BView, public BInvoker {
public:
	BListView(BRect frame, const char* name, list_view_type type = B_SINGLE_SELECTION_LIST,
		uint32 resizingMode = B_FOLLOW_LEFT | B_FOLLOW_TOP,
		uint32 flags = B_WILL_DRAW | B_FRAME_EVENTS | B_NAVIGABLE);
	virtual ~BListView();

	// Hooks.
	virtual void AttachedToWindow();
	virtual void Draw(BRect updateRect);
	virtual void FrameResized(float newWidth, float newHeight);
	virtual void MouseDown(BPoint where);
	virtual void MouseUp(BPoint where);
	virtual void MouseMoved(BPoint where, uint32 transit, const BMessage* dragMessage);
	virtual void KeyDown(const char* bytes, int32 numBytes);
	virtual void MakeFocus(bool focus = true);
	virtual void SetFont(const BFont* font, uint32 mask = B_FONT_ALL);
	virtual void GetPreferredSize(float* width, float* height);
	// Called after the selection changed, before the selection message goes out.
	virtual void SelectionChanged();
	// Called when the mouse moves with the button held after a press on a row;
	// true when a drag was started (the list then stops tracking the mouse).
	virtual bool InitiateDrag(BPoint where, int32 index, bool wasSelected);

	// Items. The list does not own them: MakeEmpty() and RemoveItem() hand them back.
	virtual bool AddItem(BListItem* item);
	virtual bool AddItem(BListItem* item, int32 index);
	virtual bool AddList(BList* items);
	virtual bool AddList(BList* items, int32 index);
	virtual bool RemoveItem(BListItem* item);
	virtual BListItem* RemoveItem(int32 index);
	virtual bool RemoveItems(int32 index, int32 count);
	virtual void MakeEmpty();

	BListItem* ItemAt(int32 index) const;
	BListItem* FirstItem() const;
	BListItem* LastItem() const;
	int32 IndexOf(const BListItem* item) const;
	// The row under point (in the list's coordinates), or -1.
	int32 IndexOf(BPoint point) const;
	bool HasItem(const BListItem* item) const { return IndexOf(item) >= 0; }
	int32 CountItems() const { return fItems.CountItems(); }
	bool IsEmpty() const { return fItems.IsEmpty(); }
	const BListItem** Items() const;
	void DoForEach(bool (*func)(BListItem* item));
	void DoForEach(bool (*func)(BListItem* item, void* arg), void* arg);
	void SortItems(int (*compare)(const void*, const void*));
	bool SwapItems(int32 a, int32 b);
	bool MoveItem(int32 from, int32 to);
	bool ReplaceItem(int32 index, BListItem* item);

	// The row's rectangle in the list's coordinates (invalid for a bad index).
	BRect ItemFrame(int32 index);
	void InvalidateItem(int32 index);
	void ScrollToSelection();

	// Selection.
	virtual void SetListType(list_view_type type);
	list_view_type ListType() const { return fListType; }
	void Select(int32 index, bool extend = false);
	void Select(int32 from, int32 to, bool extend = false);
	bool IsItemSelected(int32 index) const;
	// The index of the i-th selected row, or -1.
	int32 CurrentSelection(int32 i = 0) const;
	void Deselect(int32 index);
	void DeselectAll();
	void DeselectExcept(int32 from, int32 to);

	// Messages. The list owns them.
	virtual void SetSelectionMessage(BMessage* message);
	virtual void SetInvocationMessage(BMessage* message);
	BMessage* SelectionMessage() const { return fSelectionMessage.get(); }
	uint32 SelectionCommand() const;
	BMessage* InvocationMessage() const { return Message(); }
	uint32 InvocationCommand() const { return Command(); }
	virtual status_t Invoke(BMessage* message = NULL);

private:
	friend class BListItem;

	void pvUpdateItem(BListItem* item);
	void pvUpdateAllItems();
	void pvInsert(BListItem* item, int32 index);
	void pvItemResized(BListItem* item);
	float pvTop(int32 index) const;
	void pvLayoutChanged(int32 from);
	void pvFixScrollBars();
	float pvWidestItem() const;
	bool pvSetSelected(int32 index, bool selected);
	bool pvDeselectAllBut(int32 from, int32 to);
	void pvNotifySelection();
	void pvClick(int32 index, uint32 modifiers, int32 clicks);
	void pvMoveSelection(int32 index, bool extend);
	void pvScrollToItem(int32 index);
	void pvScrollByPage(bool down);

	BList fItems;
	// Row tops, computed lazily: the first fValidTops entries are current, the
	// entry after the last row is the height of all of them.
	mutable std::vector<float> fTops;
	mutable int32 fValidTops = 0;
	// The widest row's width, recomputed after a row left or changed.
	mutable float fWidest = 0;
	mutable bool fWidestValid = true;
	list_view_type fListType;
	std::unique_ptr<BMessage> fSelectionMessage;
	// The row that keyboard extension and Shift-clicks grow from.
	int32 fAnchor = -1;
	int32 fPressedIndex = -1;
	bool fPressedWasSelected = false;
	BPoint fPressPoint;
	bool fTracking = false;
};

#endif
