#include "platform/code_page.h"

#include <array>

#include <unicode/unistr.h>

#include "platform/text/converter.h"

namespace voxilane {

std::string fromCodePage(std::string_view bytes) {
  const ConverterPointer converter = openConverter(codePageName);
  UErrorCode status = U_ZERO_ERROR;
  const icu::UnicodeString text(bytes.data(), static_cast<std::int32_t>(bytes.size()),
                                converter.get(), status);
  std::string utf8;
  return U_SUCCESS(status) ? text.toUTF8String(utf8) : utf8;
}

std::string toCodePage(std::string_view utf8) {
  const ConverterPointer to = openConverter(codePageName);
  const ConverterPointer from = openConverter("UTF-8");
  std::string bytes;
  bytes.reserve(utf8.size());
  const char* source = utf8.data();
  const char* const sourceEnd = source + utf8.size();
  std::array<char16_t, 4096> pivot;
  char16_t* pivotSource = pivot.data();
  char16_t* pivotTarget = pivot.data();
  UErrorCode status = U_BUFFER_OVERFLOW_ERROR;
  while (status == U_BUFFER_OVERFLOW_ERROR) {
    std::array<char, 16384> block;
    char* target = block.data();
    status = U_ZERO_ERROR;
    ucnv_convertEx(to.get(), from.get(), &target, block.data() + block.size(), &source, sourceEnd,
                   pivot.data(), &pivotSource, &pivotTarget, pivot.data() + pivot.size(), false,
                   true, &status);
    bytes.append(block.data(), target);
  }
  return bytes;
}

}  // namespace voxilane
