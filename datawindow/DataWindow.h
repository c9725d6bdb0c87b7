#ifndef DATA_WINDOW_H
#define DATA_WINDOW_H

#include <memory>

#include <List.h>
#include <Window.h>

#include "VellumString.h"

class BMenu;
class BrindleFile;
class HexView;

// One attribute of one node in its own window, shown by one of six views:
// as a string, number, boolean, date, rectangle or hex dump. Changes are
// written to the node from here; after a write the inspector window that
// opened this one re-reads the node and refreshes the window.
class DataWindow : public BWindow {
public:
	enum {
		kStringView = 0,
		kNumView,
		kBoolView,
		kDateView,
		kRectView,
		kHexView,
		kViewCount
	};

	DataWindow(BRect frame, const char* title, window_type type, uint32 flags,
		uint32 workspace = B_CURRENT_WORKSPACE);
	virtual ~DataWindow();

	virtual void MessageReceived(BMessage* message);
	virtual bool QuitRequested();
	// Builds the views list, the menus and the six hidden views.
	virtual void Initialize();

	// The window keeps its own wrapper of the node, so that it can still
	// write when the inspector window has moved on to another node.
	void SetFile(BrindleFile* file);
	BrindleFile* File() const;
	// The inspector window that receives the re-read requests.
	void SetParent(BWindow* parent);

	// Shows a value: header, every view filled, the favourite view chosen.
	// Locks the window unless the caller holds the lock. A null name keeps
	// the title.
	void Refresh(const char* name, uint32 type, const void* data, uint32 size);
	void SetTitleAndHeader(uint32 type, uint32 size, const char* name);
	// Gives the value to every view; a negative size is the length of the
	// text at data. Turns updates back on after a change.
	void Insert(const void* data, long size);
	void SetData(const void* data, long size);
	void ClearAll();

	// Copies the name into name and stores what each non-null pointer asks.
	void GetAttrData(char* name, uint32* type, long* size, void** data) const;
	const String& GetDataName() const;
	uint32 GetDataType() const;
	long GetDataSize() const;
	void* GetMasterData() const;

	// Writes the attribute to the node (type 0 removes it). After a full
	// write the window forgets its value and asks the parent to re-read the
	// node. Returns the bytes written, 0 on failure or removal.
	ssize_t WriteAttribute(const char* name, uint32 type, const void* data, uint32 size);
	// Renames, retypes and rewrites the shown attribute at once; a null or
	// empty name, type 0, null data and size 0 each keep what is shown.
	void ChangeComposite(const char* name, uint32 type, const void* data, long size);
	// Widens or cuts an integer value to the standard size of newType.
	void ConvertDataToNewType(void** data, uint32 oldType, long* size, uint32 newType);

	void AddView(BView* view);
	BView* FetchView(long index) const;
	long NumViews() const;
	long ViewNum(BView* view) const;
	long ViewNum(const char* name) const;
	// A null view is view 0; indexes are clamped to the views there are.
	void SetView(long index);
	void SetView(const char* name);
	void SetView(BView* view);
	// Between the hex view and the favourite view.
	void SwitchViews();
	long Favorite() const;
	void SetFavoriteView(const char* name);
	long CurrentViewNum() const;

	void AdjustMenus();
	void SetupMenu();

	// The data window titled "nodeName: attrName" (nodeName alone without
	// an attribute name), or null.
	static DataWindow* FindDataWindow(const char* nodeName, const char* attrName);
	// The next window named "DataWindow" after `after` (the first when null)
	// whose title names the node, or null.
	static BWindow* FindNextOfNode(BWindow* after, const char* nodeName);
	// A new hidden data window for the node of the inspector window parent,
	// at the corner of the next free slot, of fixed width.
	static DataWindow* Create(BWindow* parent, BrindleFile* file);

private:
	template<typename ViewClass>
	ViewClass* pvNamedView(const char* name) const;
	void pvKeepValue(const void* data, long size);

	std::unique_ptr<BrindleFile> fFile;
	BWindow* fParent;
	BView* fCurrentView;
	HexView* fHexView;
	BList fViews;
	long fFavoriteView;
	long fCurrentViewNum;
	void* fMasterData;
	uint32 fType;
	String fName;
	long fSize;
	// The window's own copy of the value that fMasterData points at: the
	// caller's buffer (a list row) goes away when the node is re-read.
	std::unique_ptr<char[]> fValue;
};

// The menu under the label in the window's menu bar; throws when the bar,
// the item or its menu is missing.
BMenu* MenuFromWin(BWindow* window, const char* name);

#endif
