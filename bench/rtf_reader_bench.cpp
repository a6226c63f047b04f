#include <benchmark/benchmark.h>

#include "platform/rtf/rtf.h"

namespace voxilane::bench {
namespace {

constexpr std::size_t fileSize = 50'000'000;

constexpr std::string_view header =
    R"({\rtf1\ansi\ansicpg936\deff0{\fonttbl{\f0\fnil\fcharset0 Times New Roman;})"
    R"({\f1\fnil\fcharset134 \'cb\'ce\'cc\'e5;}}{\colortbl ;\red0\green0\blue255;})";

// Reads a file that consists of a part again and again.
void readRepeated(benchmark::State& state, std::string_view part) {
  std::string source(header);
  source.reserve(fileSize + part.size());
  while (source.size() < fileSize) {
    source += part;
  }
  source += '}';
  for (auto _ : state) {
    benchmark::DoNotOptimize(readRtf(source));
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(source.size()) * state.iterations());
}

void readEnglish(benchmark::State& state) {
  readRepeated(state,
               "The quick brown fox jumps over the lazy dog, and teachers read it aloud.\\par\n");
}
BENCHMARK(readEnglish)->Unit(benchmark::kMillisecond);

void readAnnotated(benchmark::State& state) {
  readRepeated(state, R"(annotation \f1\fs18\cf1 [7AnE5teiFEn] \f0\fs24\cf0 )");
}
BENCHMARK(readAnnotated)->Unit(benchmark::kMillisecond);

void readChinese(benchmark::State& state) {
  readRepeated(state, R"(\f1\'d6\'d0\'ce\'c4\'bf\'ce\'ce\'c4\'a3\'ac\f0  text\par )");
}
BENCHMARK(readChinese)->Unit(benchmark::kMillisecond);

// As Word writes it.
void readWordRuns(benchmark::State& state) {
  readRepeated(state,
               R"({\rtlch\fcs1 \af0\afs24 \ltrch\fcs0 \fs24\cf1\lang1033\langfe2052\insrsid123456 )"
               R"(\hich\af0\dbch\af1\loch\f0 Some words }{\rtlch\fcs1 \af0 \ltrch\fcs0 \fs24)"
               R"(\loch\af0\hich\af0\dbch\f1 \'d6\'d0\'ce\'c4}{\rtlch\fcs1 \af0 \insrsid1 \par })");
}
BENCHMARK(readWordRuns)->Unit(benchmark::kMillisecond);

void readPictures(benchmark::State& state) {
  readRepeated(state, "{\\pict\\pngblip\n" + std::string(100'000, '7') + "}");
}
BENCHMARK(readPictures)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace voxilane::bench
