// Measuring text as rows and labels do: one font many times in a row, and
// the plain, bold and fixed fonts taking turns.

#include <benchmark/benchmark.h>

#include <Font.h>

namespace {

const char* const kRowText = "BEOS:TYPE  MIME String  application/x-vnd.Be-elfexecutable";

void
OneFont(benchmark::State& state)
{
	for (auto _ : state)
		benchmark::DoNotOptimize(be_plain_font->StringWidth(kRowText));
	state.SetItemsProcessed(state.iterations());
}

void
TakingTurns(benchmark::State& state)
{
	const BFont* const fonts[] = {be_plain_font, be_bold_font, be_fixed_font};
	size_t turn = 0;
	for (auto _ : state) {
		benchmark::DoNotOptimize(fonts[turn]->StringWidth(kRowText));
		turn = (turn + 1) % 3;
	}
	state.SetItemsProcessed(state.iterations());
}

// The font lookup alone, which every measurement pays.
void
Height(benchmark::State& state)
{
	font_height height;
	for (auto _ : state) {
		be_plain_font->GetHeight(&height);
		benchmark::DoNotOptimize(height);
	}
	state.SetItemsProcessed(state.iterations());
}

}

BENCHMARK(OneFont);
BENCHMARK(TakingTurns);
BENCHMARK(Height);

BENCHMARK_MAIN();
