#include "platform/code_page.h"

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
  const ConverterPointer converter = openConverter(codePageName);
  const auto text = icu::UnicodeString::fromUTF8(
      icu::StringPiece(utf8.data(), static_cast<std::int32_t>(utf8.size())));
  constexpr std::int32_t mostBytesPerUnit = 4;
  std::string bytes(static_cast<std::size_t>(text.length()) * mostBytesPerUnit, '\0');
  UErrorCode status = U_ZERO_ERROR;
  const std::int32_t size =
      text.extract(bytes.data(), static_cast<std::int32_t>(bytes.size()), converter.get(), status);
  bytes.resize(U_SUCCESS(status) ? static_cast<std::size_t>(size) : 0);
  return bytes;
}

}  // namespace voxilane
