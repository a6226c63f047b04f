#include "core/storable_yinbiao.h"

#include "core/editions.h"
#include "core/ipa.h"
#include "core/notation.h"
#include "core/text.h"

namespace voxilane {

Result<std::string> storableYinbiao(std::string_view text) {
  IpaReading reading = codesFromEither(trimBlanks(text));
  if (reading.fault) {
    return Error{faultText(*reading.fault)};
  }
  if (looksLikeIpa(text)) {
    // Codes stay as they are: those of the 15th edition cannot always be told from the 13th.
    reading.codes = convert15to13(reading.codes);
  }
  if (auto fault = notationFault(reading.codes)) {
    return Error{std::move(*fault)};
  }
  return std::move(reading.codes);
}

}  // namespace voxilane
