#include "ScreenshotApplication.h"

#include <algorithm>
#include <cstdio>
#include <vector>

#include <ListView.h>
#include <OS.h>
#include <Window.h>
#include <WindowTester.h>

#include "AttrView.h"
#include "BrindleFile.h"
#include "CMultiTextItem.h"
#include "DataWindow.h"
#include "Utils.h"

ScreenshotApplication::ScreenshotApplication(const char* output, const char* path,
	const char* attribute, int32 view)
	: fOutput(output),
	fAttribute(attribute != nullptr ? attribute : ""),
	fView(view),
	fResult(B_ERROR)
{
	// The node arrives as a desktop launch hands documents over; nothing else
	// of the command line is read.
	std::vector<const char*> arguments = {"vellum"};
	if (path != nullptr)
		arguments.insert(arguments.end(), {"--refs", path});
	SetLaunchArguments(int32(arguments.size()), arguments.data());
}

void
ScreenshotApplication::ReadyToRun()
{
	// No about box: the picture shows the inspector window alone.
	thread_id thread = spawn_thread(&ScreenshotApplication::pvTakeScreenshot, "screenshot",
		B_NORMAL_PRIORITY, this);
	resume_thread(thread);
}

bool
ScreenshotApplication::QuitRequested()
{
	while (BWindow* window = WindowAt(0)) {
		if (window->Lock())
			window->Quit();
	}
	return true;
}

// The picture is of the whole node: the window grows (within its size limits)
// until every attribute row shows and the value column has room.
void
ScreenshotApplication::pvFitToAttributes(BWindow* window)
{
	const float kPictureWidth = 600;
	if (!window->Lock())
		return;
	BListView* list = dynamic_cast<BListView*>(window->FindView("attrList"));
	float missingHeight = 0;
	if (list != nullptr && !list->IsEmpty())
		missingHeight = list->ItemFrame(list->CountItems() - 1).bottom - list->Bounds().Height();
	window->ResizeBy(std::max(0.0f, kPictureWidth - window->Bounds().Width()),
		std::max(0.0f, missingHeight));
	window->Unlock();
}

BWindow*
ScreenshotApplication::pvOpenDataWindow(BWindow* inspector)
{
	if (!inspector->Lock())
		return nullptr;
	auto panel = dynamic_cast<AttrView*>(inspector->FindView("Attributes"));
	auto list = dynamic_cast<BListView*>(inspector->FindView("attrList"));
	BrindleFile* file = panel != nullptr ? panel->File() : nullptr;
	CMultiTextItem* row = nullptr;
	for (int32 index = 0; list != nullptr && row == nullptr && index < list->CountItems();
			index++) {
		auto item = dynamic_cast<CMultiTextItem*>(list->ItemAt(index));
		if (item != nullptr && fAttribute == item->GetString(CMultiTextItem::kNameColumn))
			row = item;
	}
	if (row != nullptr)
		panel->OpenWindow(row);
	String nodeName(file != nullptr ? file->Name() : "");
	inspector->Unlock();

	DataWindow* window = row != nullptr
		? DataWindow::FindDataWindow(nodeName, fAttribute.c_str()) : nullptr;
	if (window != nullptr && fView >= 0)
		window->SetView(fView);
	return window;
}

status_t
ScreenshotApplication::pvTakeScreenshot(void* data)
{
	ScreenshotApplication* app = static_cast<ScreenshotApplication*>(data);
	BWindow* window = FindFrontWindow("Vellum", nullptr);
	status_t status = B_ERROR;
	if (window != nullptr && !app->fAttribute.empty()) {
		BPrivate::WindowTester(window).WaitForIdle();
		window = app->pvOpenDataWindow(window);
		if (window == nullptr)
			fprintf(stderr, "vellum: the node has no attribute %s\n", app->fAttribute.c_str());
	} else if (window != nullptr)
		pvFitToAttributes(window);
	if (window != nullptr) {
		BPrivate::WindowTester tester(window);
		status = tester.WaitForIdle();
		if (status == B_OK)
			status = tester.SaveFrame(app->fOutput.c_str());
	}
	app->fResult = status;
	app->PostMessage(B_QUIT_REQUESTED);
	return status;
}
