// dictionary.txt, canshushezhi.txt, words.tsv and the library's text form with any bytes in them.

#include "annotation/parameters.h"
#include "core/library_text.h"
#include "core/storable_yinbiao.h"
#include "core/text.h"
#include "core/word_forms.h"
#include "fuzz/input.h"
#include "lexicon/short_gloss.h"
#include "lexicon/word_rows.h"
#include "platform/code_page.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace voxilane;
  const std::string_view bytes = textOf(data, size);
  const std::string text = fromCodePage(bytes);
  require(isUtf8(text));

  const WordList list(text);
  for (std::size_t i = 0; i < list.ListCount(); ++i) {
    const auto [word, yinbiao] = list.entryAt(i);
    // A word is found at its own place or at that of its double, if at all.
    (void)list.Wordlistsearch(word);
    (void)list.Jieshifromlist(word);
    (void)inferYinbiaolist(list, std::string(word) + "ing");
  }

  const CanshuSet canshu = parseParameters(text);
  const CanshuSet again = parseParameters(formatParameters(canshu));
  require(again.canshu9 == canshu.canshu9 && again.canshu6 == canshu.canshu6);

  (void)parseWordRows(bytes);
  (void)storableYinbiao(bytes);
  std::string line;
  appendLibraryLine(line, bytes, "kAt", bytes);
  line.pop_back();
  const auto fields = parseLibraryLine(line);
  require(fields && fields.value().word == bytes && fields.value().gloss == bytes);
  (void)parseLibraryLine(bytes);
  (void)shortGloss(text);
  return 0;
}
