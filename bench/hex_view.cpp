// A 64 KiB value in the data window's hex view: opening the window and
// drawing it, and the frames of paging from the start to the end.

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include <benchmark/benchmark.h>

#include <Node.h>
#include <OS.h>
#include <Window.h>
#include <WindowTester.h>

#include "BrindleFile.h"
#include "DataWindow.h"
#include "HexEditView.h"

using BPrivate::WindowTester;

namespace {

const int32 kValueSize = 65536;

// A tmpfs file with one raw attribute of kValueSize bytes.
class BigValueFile {
public:
	BigValueFile()
		:
		fValue(kValueSize, '\0')
	{
		const char* base = access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp";
		fPath = std::string(base) + "/vellum-bench-hex-" + std::to_string(getpid());
		if (FILE* file = fopen(fPath.c_str(), "w"))
			fclose(file);
		for (int32 index = 0; index < kValueSize; index++)
			fValue[index] = char(index * 31 + index / 256);
		BNode(fPath.c_str()).WriteAttr("big", 'RAWT', 0, fValue.data(), fValue.size());
	}

	~BigValueFile() { unlink(fPath.c_str()); }

	const char* Path() const { return fPath.c_str(); }
	const std::string& Value() const { return fValue; }

private:
	std::string fPath;
	std::string fValue;
};

BigValueFile* gFile = nullptr;

// A data window showing the big value in the hex view, drawn.
DataWindow*
OpenWindow(BrindleFile* node)
{
	DataWindow* window = new DataWindow(BRect(100, 100, 616, 500), "node: big",
		B_TITLED_WINDOW, 0);
	window->SetFile(node);
	window->Refresh("big", 'RAWT', gFile->Value().data(), kValueSize);
	return window;
}

void
OpenHexView(benchmark::State& state)
{
	BrindleFile node(gFile->Path());
	for (auto _ : state) {
		DataWindow* window = OpenWindow(&node);
		WindowTester tester(window);
		if (tester.WaitForIdle() != B_OK)
			state.SkipWithError("the window did not finish drawing");
		state.PauseTiming();
		if (window->CurrentViewNum() != DataWindow::kHexView)
			state.SkipWithError("the value did not open in the hex view");
		window->Lock();
		window->Quit();
		state.ResumeTiming();
	}
}

// Pages from the start to the end, one Page Down and its frame at a time.
void
PageToTheEnd(benchmark::State& state)
{
	BrindleFile node(gFile->Path());
	DataWindow* window = OpenWindow(&node);
	WindowTester tester(window);
	tester.WaitForIdle();
	bigtime_t worst = 0;
	int32 frames = 0;
	for (auto _ : state) {
		tester.TypeKey(B_HOME, B_COMMAND_KEY);
		tester.WaitForIdle();
		for (;;) {
			bigtime_t start = system_time();
			tester.TypeKey(B_PAGE_DOWN);
			tester.WaitForIdle();
			worst = std::max(worst, system_time() - start);
			frames++;
			window->Lock();
			auto editor = dynamic_cast<HexEditView*>(window->FindView("HexEditView"));
			bool atEnd = editor->Caret() == 2 * editor->Size();
			window->Unlock();
			if (atEnd)
				break;
		}
	}
	state.counters["frames"] = benchmark::Counter(frames, benchmark::Counter::kAvgIterations);
	state.counters["worst_frame_ms"] = double(worst) / 1000.0;
	window->Lock();
	window->Quit();
}

}	// namespace

BENCHMARK(OpenHexView)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(PageToTheEnd)->Unit(benchmark::kMillisecond)->UseRealTime();

int
main(int argc, char** argv)
{
	benchmark::Initialize(&argc, argv);
	WindowTester::RunHeadless([] {
		BigValueFile file;
		gFile = &file;
		benchmark::RunSpecifiedBenchmarks();
		gFile = nullptr;
	});
	benchmark::Shutdown();
	return 0;
}
