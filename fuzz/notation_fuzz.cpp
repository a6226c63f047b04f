// Transcriptions, numbers and words as people may type them.

#include "core/editions.h"
#include "core/ipa.h"
#include "core/notation.h"
#include "core/numbers.h"
#include "core/syllables.h"
#include "core/text.h"
#include "fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace voxilane;
  const std::string_view text = textOf(data, size);
  const std::string utf8 = toUtf8(toUtf16(text));
  require(isUtf8(utf8) && utf16Length(utf8) == toUtf16(utf8).size());

  (void)convert13toKK(utf8);
  (void)convert13to15(utf8);
  (void)getYinjieCount(utf8);
  (void)codeToUnicode(utf8);
  (void)codeToEntities(utf8);
  const IpaReading reading = ipaToCode(codeToIpa(utf8));
  if (!notationFault(utf8) && utf8.find("R:") == std::string::npos) {
    // What the library may store survives the way to people and back; only the two long o look the
    // same.
    require(!reading.fault && convert15to13(reading.codes) == convert15to13(utf8));
  }
  const Brackets brackets{"[", "]"};
  (void)readNumber(utf8, brackets);
  (void)readPhone(utf8, brackets);
  (void)readYear(utf8, brackets);
  return 0;
}
