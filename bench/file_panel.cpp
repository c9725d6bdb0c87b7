// Listing a folder of 10,000 files in a shown file panel, drawing included.

#include <ftw.h>
#include <stdlib.h>
#include <unistd.h>

#include <cstdio>
#include <string>

#include <benchmark/benchmark.h>

#include <FilePanel.h>
#include <ListView.h>
#include <Window.h>
#include <WindowTester.h>

using BPrivate::WindowTester;

namespace {

const int32 kFiles = 10000;

// A tmpfs folder with kFiles empty files, removed with them afterwards.
class CrowdedFolder {
public:
	CrowdedFolder()
	{
		const char* base = access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp";
		std::string pattern = std::string(base) + "/vellum-bench-panel-" + std::string(6, 'X');
		if (mkdtemp(pattern.data()) == nullptr)
			return;
		fPath = pattern;
		for (int32 index = 0; index < kFiles; index++) {
			std::string name = fPath + "/file " + std::to_string(index) + ".txt";
			if (FILE* file = fopen(name.c_str(), "w"))
				fclose(file);
		}
	}

	~CrowdedFolder()
	{
		if (!fPath.empty()) {
			nftw(fPath.c_str(), [](const char* path, const struct stat*, int, FTW*) {
				return remove(path);
			}, 16, FTW_DEPTH | FTW_PHYS);
		}
	}

	const char* Path() const { return fPath.c_str(); }

private:
	std::string fPath;
};

void
ListCrowdedFolder(benchmark::State& state)
{
	CrowdedFolder folder;
	BFilePanel panel;
	panel.SetPanelDirectory(folder.Path());
	panel.Show();
	WindowTester tester(panel.Window());
	for (auto _ : state) {
		panel.Refresh();
		if (tester.WaitForIdle() != B_OK)
			state.SkipWithError("the panel did not finish drawing");
	}
	BWindow* window = panel.Window();
	window->Lock();
	auto list = dynamic_cast<BListView*>(window->FindView("entries"));
	state.counters["rows"] = list != nullptr ? list->CountItems() : -1;
	window->Unlock();
	state.SetItemsProcessed(state.iterations() * kFiles);
}

}	// namespace

BENCHMARK(ListCrowdedFolder)->Unit(benchmark::kMillisecond)->UseRealTime();

int
main(int argc, char** argv)
{
	benchmark::Initialize(&argc, argv);
	WindowTester::RunHeadless([] { benchmark::RunSpecifiedBenchmarks(); });
	benchmark::Shutdown();
	return 0;
}
