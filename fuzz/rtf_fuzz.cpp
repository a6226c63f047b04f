// Any bytes as a rich text file. What is read is a sound document, and written and read again it is
// the same. Begin with the files of fuzz/corpus/rtf and tests/data/rtf.

#include <string>

#include "fuzz/input.h"
#include "platform/rtf/rtf.h"
#include "tests/support/string_sink.h"

namespace {

using namespace voxilane;

void requireRuns(const std::vector<FormatRun>& runs, std::size_t size, std::size_t formats) {
  std::size_t end = 0;
  for (const FormatRun& run : runs) {
    require(run.end > end && run.format < formats);
    end = run.end;
  }
  require(end == size);
}

void requireSound(const RichText& document) {
  const std::size_t size = document.text.size();
  requireRuns(document.characterRuns, size, document.characterFormats.size());
  requireRuns(document.paragraphRuns, size, document.paragraphFormats.size());
  for (const CharacterFormat& format : document.characterFormats) {
    require(format.font < document.fonts.size());
  }
  for (const FormatRun& run : document.paragraphRuns) {
    require(run.end == size || document.text.compare(run.end - 2, 2, u"\r\n") == 0);
  }
}

void requireSame(const RichText& a, const RichText& b) {
  require(a.text == b.text);
  require(a.page == b.page);
  require(a.fonts == b.fonts || a.fonts.empty());
  require(a.characterFormats == b.characterFormats);
  require(a.paragraphFormats == b.paragraphFormats);
  require(a.characterRuns == b.characterRuns);
  require(a.paragraphRuns == b.paragraphRuns);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto reading = readRtf(textOf(data, size));
  if (!reading) {
    return 0;
  }
  requireSound(reading.value().document);
  StringSink sink;
  require(writeRtf(reading.value().document, sink).ok());
  const auto again = readRtf(sink.bytes);
  require(again.ok() && again.value().leftOut.empty());
  requireSame(reading.value().document, again.value().document);
  return 0;
}
