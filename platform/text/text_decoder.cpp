#include "platform/text/text_decoder.h"

#include <array>
#include <cstdio>

namespace voxilane {
namespace {

constexpr char16_t mark = u'\uFEFF';

struct EncodingNames {
  const char* converter;  // ICU's
  const char* shown;      // in errors
};

EncodingNames namesOf(Encoding encoding) {
  switch (encoding) {
    case Encoding::utf8:
      return {"UTF-8", "UTF-8"};
    case Encoding::utf16:
      return {"UTF-16", "UTF-16"};
    case Encoding::codePage:
      break;
  }
  return {codePageName, "UTF-8 or GB18030"};
}

}  // namespace

TextDecoder::TextDecoder(Encoding encoding, std::uint64_t offset)
    : encoding_(encoding),
      converter_(openConverter(namesOf(encoding).converter)),
      decoded_(offset),
      atBeginning_(offset == 0) {
  UErrorCode status = U_ZERO_ERROR;
  ucnv_setToUCallBack(converter_.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                      &status);
}

Done TextDecoder::append(std::u16string& out, std::string_view bytes, bool last) {
  const std::size_t begin = out.size();
  const char* source = bytes.data();
  const char* const sourceEnd = source + bytes.size();
  UErrorCode status = U_BUFFER_OVERFLOW_ERROR;
  while (status == U_BUFFER_OVERFLOW_ERROR) {
    std::array<char16_t, 8192> block;
    char16_t* target = block.data();
    status = U_ZERO_ERROR;
    ucnv_toUnicode(converter_.get(), &target, block.data() + block.size(), &source, sourceEnd,
                   nullptr, static_cast<UBool>(last), &status);
    out.append(block.data(), target);
  }
  const auto consumed = static_cast<std::size_t>(source - bytes.data());
  if (U_FAILURE(status)) {
    return errorAt(consumed);
  }
  decoded_ += consumed;
  if (atBeginning_ && out.size() > begin) {
    atBeginning_ = false;
    if (out[begin] == mark) {
      out.erase(begin, 1);
    }
  }
  return std::monostate();
}

Error TextDecoder::errorAt(std::size_t consumed) const {
  std::array<char, 16> bytes{};
  auto count = static_cast<std::int8_t>(bytes.size());
  UErrorCode status = U_ZERO_ERROR;
  ucnv_getInvalidChars(converter_.get(), bytes.data(), &count, &status);
  std::string shown;
  for (const char byte : std::string_view(bytes.data(), static_cast<std::size_t>(count))) {
    std::array<char, 4> hex{};
    std::snprintf(hex.data(), hex.size(), " %02X", static_cast<unsigned char>(byte));
    shown += hex.data();
  }
  return {"not " + std::string(namesOf(encoding_).shown) + " text: bytes" + shown +
          " before byte " + std::to_string(decoded_ + consumed + 1)};
}

}  // namespace voxilane
