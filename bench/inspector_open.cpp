// Opening crowded nodes in the attribute panel of a shown window, drawing
// included: a tmpfs file with as many typed attributes as Linux can list, and
// 10,000 rows added one by one.

#include <sys/xattr.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include <benchmark/benchmark.h>

#include <Entry.h>
#include <Window.h>
#include <WindowTester.h>

#include "AttrData.h"
#include "AttrView.h"

using BPrivate::WindowTester;

namespace {

// Linux lists at most this many bytes of extended attribute names per node.
const size_t kListLimit = 65536;
const int32 kAddedRows = 10000;

// The index-th of the shortest names first: "0" ... "z", then "00", "01" ...,
// so that as many attributes as possible fit into one listing.
std::string
ShortName(int32 index)
{
	static const char kDigits[]
		= "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
	const int32 base = sizeof(kDigits) - 1;
	int32 length = 1;
	for (int32 count = base; index >= count; count *= base) {
		index -= count;
		length++;
	}
	std::string name(length, '0');
	for (int32 digit = length - 1; digit >= 0; digit--, index /= base)
		name[digit] = kDigits[index % base];
	return name;
}

std::string
XattrName(int32 index)
{
	return "user.haiku." + ShortName(index) + "#LONG";
}

// Whether the node's names can be listed in one go.
bool
Listable(const char* path)
{
	static char listing[kListLimit];
	return llistxattr(path, listing, sizeof(listing)) >= 0;
}

// A tmpfs file with the greatest number of LONG attributes whose names still
// fit into one listing. Checks that one more would not.
class CrowdedFile {
public:
	CrowdedFile()
	{
		const char* base = access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp";
		fPath = std::string(base) + "/vellum-bench-open-" + std::to_string(getpid());
		if (FILE* file = fopen(fPath.c_str(), "w"))
			fclose(file);
		size_t listed = 0;
		for (int32 index = 0; listed + XattrName(index).size() + 1 <= kListLimit; index++) {
			std::string name = XattrName(index);
			if (setxattr(fPath.c_str(), name.c_str(), &index, sizeof(index), 0) != 0)
				break;
			listed += name.size() + 1;
			fCount++;
		}
		fListable = Listable(fPath.c_str());
		std::string extra = XattrName(fCount);
		setxattr(fPath.c_str(), extra.c_str(), &fCount, sizeof(fCount), 0);
		fOneMoreFails = !Listable(fPath.c_str());
		removexattr(fPath.c_str(), extra.c_str());
	}

	~CrowdedFile() { unlink(fPath.c_str()); }

	const char* Path() const { return fPath.c_str(); }
	int32 Count() const { return fCount; }
	bool IsTheMaximum() const { return fListable && fOneMoreFails; }

private:
	std::string fPath;
	int32 fCount = 0;
	bool fListable = false;
	bool fOneMoreFails = false;
};

// The shown window with the panel that every benchmark fills.
struct Panel {
	BWindow* window = nullptr;
	AttrView* view = nullptr;
	WindowTester* tester = nullptr;
};

Panel gPanel;

void
WaitForDrawing(benchmark::State& state)
{
	if (gPanel.tester->WaitForIdle() != B_OK)
		state.SkipWithError("the window did not finish drawing");
}

void
OpenCrowdedNode(benchmark::State& state)
{
	CrowdedFile file;
	entry_ref ref;
	get_ref_for_path(file.Path(), &ref);
	for (auto _ : state) {
		gPanel.window->Lock();
		gPanel.view->AddAttrInfo(&ref);
		gPanel.window->Unlock();
		WaitForDrawing(state);
	}
	gPanel.window->Lock();
	std::string title = gPanel.view->Label();
	gPanel.window->Unlock();
	state.counters["attributes"] = file.Count();
	state.counters["maximum"] = file.IsTheMaximum();
	state.SetLabel(title);
	state.SetItemsProcessed(state.iterations() * file.Count());
}

// Appends kAddedRows rows to the panel.
void
AddRows()
{
	gPanel.window->Lock();
	for (int32 index = 0; index < kAddedRows; index++) {
		std::string name = "attribute " + std::to_string(index);
		AttrData data(name.c_str(), 'LONG', &index, sizeof(index));
		gPanel.view->AddNewAttribute(data);
	}
	gPanel.view->UpdateTitle(kAddedRows);
	gPanel.window->Unlock();
}

// Empties the panel: a node that does not exist leaves no rows.
void
EmptyList()
{
	gPanel.window->Lock();
	gPanel.view->AddAttrInfo(nullptr);
	gPanel.window->Unlock();
}

void
AddManyRows(benchmark::State& state)
{
	for (auto _ : state) {
		state.PauseTiming();
		EmptyList();
		WaitForDrawing(state);
		state.ResumeTiming();

		AddRows();
		WaitForDrawing(state);
	}
	state.SetItemsProcessed(state.iterations() * kAddedRows);
}

void
EmptyManyRows(benchmark::State& state)
{
	for (auto _ : state) {
		state.PauseTiming();
		AddRows();
		WaitForDrawing(state);
		state.ResumeTiming();

		EmptyList();
		WaitForDrawing(state);
	}
	state.SetItemsProcessed(state.iterations() * kAddedRows);
}

}	// namespace

BENCHMARK(OpenCrowdedNode)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(AddManyRows)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(EmptyManyRows)->Unit(benchmark::kMillisecond)->UseRealTime();

int
main(int argc, char** argv)
{
	benchmark::Initialize(&argc, argv);
	WindowTester::RunHeadless([] {
		gPanel.window = new BWindow(BRect(100, 100, 699, 599), "Bench", B_TITLED_WINDOW, 0);
		gPanel.view = new AttrView(gPanel.window->Bounds(), "Attributes", B_FOLLOW_ALL,
			B_WILL_DRAW | B_FRAME_EVENTS);
		gPanel.window->AddChild(gPanel.view);
		gPanel.window->Show();
		WindowTester tester(gPanel.window);
		gPanel.tester = &tester;
		benchmark::RunSpecifiedBenchmarks();
		gPanel.tester = nullptr;
	});
	benchmark::Shutdown();
	return 0;
}
