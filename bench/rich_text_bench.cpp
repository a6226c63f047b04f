#include <benchmark/benchmark.h>

#include "platform/rtf/rtf.h"

namespace voxilane::bench {
namespace {

// Paragraphs of a lesson as they are after a pass, of so many units at least: a word and its
// transcription in another font and colour.
RichText annotatedDocument(std::size_t units) {
  RichText document;
  const CharacterFormat word{.font = fontIndex(document, u"Times New Roman")};
  const CharacterFormat chinese{.font = fontIndex(document, u"宋体"), .halfPoints = 21};
  const CharacterFormat yinbiao{
      .font = fontIndex(document, u"TessaraPhonic"), .halfPoints = 18, .colour = 0x0000FF};
  while (document.text.size() < units) {
    for (int i = 0; i < 12; ++i) {
      append(document, u"annotation ", word);
      append(document, u"[7AnE5teiFEn] ", yinbiao);
    }
    append(document, u"注释，\r\n", chinese);
  }
  return document;
}

class CountingSink : public ByteSink {
 public:
  Done write(std::string_view bytes) override {
    count += bytes.size();
    return std::monostate{};
  }
  Done flush() override { return std::monostate{}; }
  Done commit() override { return std::monostate{}; }

  std::size_t count = 0;
};

// What `annotate` does to a document of 5 MB: 100,000 transcriptions.
void insertIntoDocument(benchmark::State& state) {
  RichText document;
  const CharacterFormat word{.font = fontIndex(document, u"Times New Roman")};
  const CharacterFormat yinbiao{
      .font = fontIndex(document, u"TessaraPhonic"), .halfPoints = 18, .colour = 0x0000FF};
  std::vector<RichTextEdit> edits;
  for (int i = 0; i < 100'000; ++i) {
    append(document, u"the annotation of a document, a sentence\r\nas lines", word);
    edits.push_back({document.text.size() - 9, 0, u" [7AnE5teiFEn]", yinbiao});
  }
  for (auto _ : state) {
    benchmark::DoNotOptimize(edited(document, edits));
  }
}
BENCHMARK(insertIntoDocument)->Unit(benchmark::kMillisecond);

// 50 MB of file.
void writeRichText(benchmark::State& state) {
  const RichText document = annotatedDocument(24'000'000);
  std::size_t bytes = 0;
  for (auto _ : state) {
    CountingSink sink;
    benchmark::DoNotOptimize(writeRtf(document, sink).ok());
    bytes = sink.count;
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes) * state.iterations());
  state.counters["MB"] = static_cast<double>(bytes) / 1e6;
}
BENCHMARK(writeRichText)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace voxilane::bench
