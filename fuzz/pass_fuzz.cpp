// Documents through every walk; a document that comes in two parts must give what it gives whole.

#include "annotation/layouts.h"
#include "annotation/selected_word.h"
#include "annotation/web_page.h"
#include "core/text.h"
#include "fuzz/input.h"

namespace {

using namespace voxilane;

const WordList& list() {
  static const WordList words(" !=||\ncat=|g|kAt\nrun=|g|rQn\nx=|g|eks\n~ ~=||\n");
  return words;
}

void requireSameInParts(std::u16string_view text, const Stores& stores) {
  PassMonitor monitor;
  Transcriber transcribe(stores, dangqianChain, std::nullopt);
  const Recognition whole = recognitionPass(text, transcribe, monitor);
  const std::size_t first = recognisableLength(text.substr(0, text.size() / 2));
  Recognition parts =
      recognitionPass(text.substr(0, first), transcribe, monitor, TextEnd::continues);
  const Recognition rest = recognitionPass(text.substr(first), transcribe, monitor);
  for (std::size_t i = 0; i < rest.List4.size(); ++i) {
    parts.List4.push_back(rest.List4[i]);
    parts.List5.push_back(rest.List5[i] + first);
  }
  require(parts.List4 == whole.List4 && parts.List5 == whole.List5);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::u16string text = toUtf16(textOf(data, size));
  WordLibrary library;
  const Stores stores{list(), library};
  requireSameInParts(text, stores);

  PassMonitor monitor;
  CanshuSet canshu;
  Transcriber self(stores, libraryFirstChain, Edition::kk);
  (void)selfPage(text, recogniseForSelf(text, self, monitor), canshu);
  Transcriber aligned(stores, alignedChain, Edition::fifteenth);
  const AlignedLines lines = walkLines(fenduan1(text).lines, canshu.brackets(), aligned, monitor);
  require(lines.List3.size() == lines.List31.size());
  (void)alignedPage(Layout::up, lines, canshu);
  if (!selectionRefusal(text)) {
    (void)markSelection(text, Edition::fifteenth, canshu, stores);
  }
  return 0;
}
