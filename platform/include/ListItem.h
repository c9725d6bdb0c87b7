#ifndef _LIST_ITEM_H
#define _LIST_ITEM_H

#include <string>

#include <Font.h>
#include <Rect.h>

class BListView;
class BView;

// One row of a BListView. The row draws itself in DrawItem(); the list asks it
// for its size through Update() when it joins a list in a window and when the
// list's font changes.
class BListItem {
public:
	BListItem(uint32 outlineLevel = 0, bool expanded = true);
	virtual ~BListItem();

	float Height() const { return fHeight; }
	float Width() const { return fWidth; }
	// A list this item is in lays its rows out anew.
	void SetHeight(float height);
	void SetWidth(float width) { fWidth = width; }

	bool IsSelected() const { return fSelected; }
	void Select() { fSelected = true; }
	void Deselect() { fSelected = false; }
	virtual void SetEnabled(bool enabled) { fEnabled = enabled; }
	bool IsEnabled() const { return fEnabled; }

	uint32 OutlineLevel() const { return fOutlineLevel; }
	bool IsExpanded() const { return fExpanded; }
	void SetExpanded(bool expanded) { fExpanded = expanded; }

	// Draws the row into owner within frame; complete asks for the background too.
	virtual void DrawItem(BView* owner, BRect frame, bool complete = false) = 0;
	// Takes the owner's width and one line of font as the row's size.
	virtual void Update(BView* owner, const BFont* font);

	BListItem(const BListItem&) = delete;
	BListItem& operator=(const BListItem&) = delete;

private:
	friend class BListView;

	float fHeight = 0;
	float fWidth = 0;
	bool fSelected = false;
	bool fEnabled = true;
	uint32 fOutlineLevel;
	bool fExpanded;
	BListView* fOwner = nullptr;
};

// A row that shows one line of text.
class BStringItem : public BListItem {
public:
	BStringItem(const char* text, uint32 outlineLevel = 0, bool expanded = true);
	virtual ~BStringItem();

	virtual void DrawItem(BView* owner, BRect frame, bool complete = false);
	virtual void SetText(const char* text);
	const char* Text() const;
	// The text's width, and a line of font with a little room above and below.
	virtual void Update(BView* owner, const BFont* font);

private:
	std::string fText;
	bool fHasText;
	float fBaselineOffset = 0;
};

#endif
