#include <benchmark/benchmark.h>

#include "annotation/layouts.h"
#include "annotation/line_walk.h"
#include "annotation/recognition.h"
#include "bench/delivered.h"

namespace voxilane::bench {
namespace {

// A pass over texts of growing length: the time a word must stay the same.
template <typename Pass>
void overTexts(benchmark::State& state, Layout layout, Pass pass) {
  const auto words = static_cast<std::size_t>(state.range(0));
  const std::u16string document = text(words);
  for (auto _ : state) {
    Transcriber transcribe(delivered().stores(), chainOf(layout), Edition::fifteenth);
    const LibraryReading reading = transcribe.beginPiece();
    PassMonitor monitor;
    benchmark::DoNotOptimize(pass(document, transcribe, monitor));
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void dangqian(benchmark::State& state) {
  overTexts(state, Layout::dangqian,
            [](std::u16string_view document, Transcriber& transcribe, PassMonitor& monitor) {
              return recognitionPass(document, transcribe, monitor);
            });
}
BENCHMARK(dangqian)->RangeMultiplier(10)->Range(1'000, 1'000'000)->Unit(benchmark::kMillisecond);

void self(benchmark::State& state) {
  overTexts(state, Layout::self,
            [](std::u16string_view document, Transcriber& transcribe, PassMonitor& monitor) {
              return recogniseForSelf(document, transcribe, monitor);
            });
}
BENCHMARK(self)->RangeMultiplier(10)->Range(1'000, 1'000'000)->Unit(benchmark::kMillisecond);

void up(benchmark::State& state) {
  overTexts(state, Layout::up,
            [](std::u16string_view document, Transcriber& transcribe, PassMonitor& monitor) {
              return walkLines(fenduan1(document).lines, Brackets{"[", "]"}, transcribe, monitor);
            });
}
BENCHMARK(up)->RangeMultiplier(10)->Range(1'000, 1'000'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace voxilane::bench
