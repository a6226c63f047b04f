#include <benchmark/benchmark.h>

#include "bench/delivered.h"
#include "core/editions.h"
#include "core/ipa.h"
#include "core/syllables.h"
#include "core/word_forms.h"

namespace voxilane::bench {
namespace {

// Runs a lookup on one word after the other.
template <typename Lookup>
void overWords(benchmark::State& state, const std::vector<std::string>& words, Lookup lookup) {
  std::size_t at = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(lookup(words[at]));
    at = at + 1 == words.size() ? 0 : at + 1;
  }
  state.SetItemsProcessed(state.iterations());
}

void listHit(benchmark::State& state) {
  overWords(state, headwords(true),
            [](const std::string& word) { return delivered().list.Wordlistsearch(word); });
}
BENCHMARK(listHit);

// Outside of a pass or a list of words each lookup locks the file for itself.
void libraryHitAlone(benchmark::State& state) {
  overWords(state, headwords(false),
            [](const std::string& word) { return delivered().library.Yinbiaofromdata(word); });
}
BENCHMARK(libraryHitAlone);

void libraryHit(benchmark::State& state) {
  const LibraryReading reading(&delivered().library);
  overWords(state, headwords(false),
            [](const std::string& word) { return delivered().library.Yinbiaofromdata(word); });
}
BENCHMARK(libraryHit);

void chainMiss(benchmark::State& state) {
  const LibraryReading reading(&delivered().library);
  overWords(state, {"qqqations", "xzyings", "vvvnesses"}, [](const std::string& word) {
    return lookUp(delivered().stores(), dangqianChain, word);
  });
}
BENCHMARK(chainMiss);

void wordFormFromList(benchmark::State& state) {
  overWords(state, {"tables", "running", "making", "information", "kindness"},
            [](const std::string& word) { return inferYinbiaolist(delivered().list, word); });
}
BENCHMARK(wordFormFromList);

const std::vector<std::string> yinbiaos{"7Ri5gAnik", "Eb5zC:pFEn", "5dVenErEli", "fB:5miljE"};

void toFifteenth(benchmark::State& state) {
  overWords(state, yinbiaos, [](const std::string& yinbiao) { return convert13to15(yinbiao); });
}
BENCHMARK(toFifteenth);

void toKK(benchmark::State& state) {
  overWords(state, yinbiaos, [](const std::string& yinbiao) { return convert13toKK(yinbiao); });
}
BENCHMARK(toKK);

void toIpa(benchmark::State& state) {
  overWords(state, yinbiaos, [](const std::string& yinbiao) { return codeToIpa(yinbiao); });
}
BENCHMARK(toIpa);

void syllableCount(benchmark::State& state) {
  overWords(state, yinbiaos, [](const std::string& yinbiao) { return getYinjieCount(yinbiao); });
}
BENCHMARK(syllableCount);

void openStores(benchmark::State& state) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(loadWordList(VOXILANE_PROGRAM_DIRECTORY));
    benchmark::DoNotOptimize(openWordLibrary(VOXILANE_PROGRAM_DIRECTORY, LibraryTables::both));
  }
}
BENCHMARK(openStores)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace voxilane::bench
