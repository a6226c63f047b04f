#pragma once

#include <memory>

#include <unicode/ucnv.h>

namespace voxilane {

struct ConverterCloser {
  void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using ConverterPointer = std::unique_ptr<UConverter, ConverterCloser>;

inline constexpr const char* codePageName = "gb18030";

// A converter by ICU's name for the encoding; ICU's own tables hold all that are used here.
inline ConverterPointer openConverter(const char* name) {
  UErrorCode status = U_ZERO_ERROR;
  return ConverterPointer(ucnv_open(name, &status));
}

}  // namespace voxilane
