#include "platform/rtf/code_pages.h"

#include <algorithm>
#include <utility>

namespace voxilane {
namespace {

constexpr std::int32_t westernEurope = 1252;
constexpr const char* utf8 = "UTF-8";

// One that ICU has without a table.
constexpr const char* lastResort = "ISO-8859-1";

struct CodePageName {
  std::int32_t number;
  const char* converter;
};

// GB18030 holds GBK. 10000 and up are those of the Macintosh.
constexpr auto codePageNames = std::to_array<CodePageName>({
    {437, "ibm-437"},        {737, "ibm-737"},       {775, "ibm-775"},
    {850, "ibm-850"},        {852, "ibm-852"},       {855, "ibm-855"},
    {857, "ibm-857"},        {858, "ibm-858"},       {860, "ibm-860"},
    {861, "ibm-861"},        {862, "ibm-862"},       {863, "ibm-863"},
    {864, "ibm-864"},        {865, "ibm-865"},       {866, "ibm-866"},
    {869, "ibm-869"},        {874, "windows-874"},   {932, "windows-31j"},
    {936, codePageName},     {949, "windows-949"},   {950, "windows-950"},
    {1250, "windows-1250"},  {1251, "windows-1251"}, {1252, "windows-1252"},
    {1253, "windows-1253"},  {1254, "windows-1254"}, {1255, "windows-1255"},
    {1256, "windows-1256"},  {1257, "windows-1257"}, {1258, "windows-1258"},
    {10000, "macintosh"},    {10001, "windows-31j"}, {10002, "windows-950"},
    {10003, "windows-949"},  {10006, "x-mac-greek"}, {10007, "x-mac-cyrillic"},
    {10008, codePageName},   {10029, "x-mac-ce"},    {10081, "x-mac-turkish"},
    {20866, "KOI8-R"},       {20936, codePageName},  {21866, "KOI8-U"},
    {28591, "windows-1252"}, {28592, "iso-8859-2"},  {28595, "iso-8859-5"},
    {28605, "iso-8859-15"},  {51932, "EUC-JP"},      {51936, codePageName},
    {51949, "EUC-KR"},       {54936, codePageName},  {65001, utf8},
});

struct Charset {
  std::int32_t charset;
  std::int32_t codePage;
};

// Symbol fonts have no code page: their lower half is ASCII for all who look at the text, and so
// the upper half is read as if it were Latin.
constexpr auto charsets = std::to_array<Charset>({
    {0, westernEurope}, {2, westernEurope}, {77, 10000}, {78, 10001}, {79, 10003}, {80, 10008},
    {81, 10002},        {85, 10006},        {86, 10081}, {88, 10029}, {89, 10007}, {128, 932},
    {129, 949},         {134, 936},         {136, 950},  {161, 1253}, {162, 1254}, {163, 1258},
    {177, 1255},        {178, 1256},        {179, 1256}, {180, 1256}, {181, 1255}, {186, 1257},
    {204, 1251},        {222, 874},         {238, 1250}, {254, 437},
});

// ICU's stand-in for bytes without a character in some of its tables.
constexpr char16_t substitute = u'\u001A';
constexpr char16_t replacement = u'\uFFFD';

// GBK as Windows has it: in GB18030 the byte is free.
constexpr char euroByte = '\x80';
constexpr char16_t euro = u'\u20AC';

ConverterPointer openConverterOrLastResort(const char* name) {
  ConverterPointer converter = openConverter(name);
  return converter ? std::move(converter) : openConverter(lastResort);
}

}  // namespace

CodePage::CodePage(const char* name)
    : converter_(openConverterOrLastResort(name)),
      isGbk_(std::string_view(name) == codePageName),
      isOneByte_(ucnv_getMaxCharSize(converter_.get()) == 1) {
  UErrorCode status = U_ZERO_ERROR;
  // UTF-8 has no such table, and no ASCII in its characters: they need no watching.
  ucnv_getStarters(converter_.get(), leads_.data(), &status);
  if (isOneByte_) {
    std::string all(256, '\0');
    std::generate(all.begin(), all.end(), [c = 0]() mutable { return static_cast<char>(c++); });
    std::u16string characters;
    decodeWithConverter(all, characters);
    std::copy_n(characters.begin(), std::min(characters.size(), singles_.size()), singles_.begin());
  }
}

void CodePage::decode(std::string_view bytes, std::u16string& out) const {
  if (isOneByte_) {
    for (const char byte : bytes) {
      out += singles_[static_cast<unsigned char>(byte)];
    }
    return;
  }
  for (std::size_t size = sizeUntilEuro(bytes); size < bytes.size(); size = sizeUntilEuro(bytes)) {
    decodeWithConverter(bytes.substr(0, size), out);
    out += euro;
    bytes.remove_prefix(size + 1);
  }
  decodeWithConverter(bytes, out);
}

std::size_t CodePage::sizeUntilEuro(std::string_view bytes) const {
  if (!isGbk_) {
    return bytes.size();
  }
  std::size_t at = 0;
  while (at < bytes.size() && bytes[at] != euroByte) {
    at += isLead(static_cast<unsigned char>(bytes[at])) ? 2U : 1U;
  }
  return std::min(at, bytes.size());
}

void CodePage::decodeWithConverter(std::string_view bytes, std::u16string& out) const {
  const std::size_t begin = out.size();
  const std::size_t room = bytes.size() + 1;  // no byte becomes more than one unit
  out.resize(begin + room);
  UErrorCode status = U_ZERO_ERROR;
  const std::int32_t size =
      ucnv_toUChars(converter_.get(), out.data() + begin, static_cast<std::int32_t>(room),
                    bytes.data(), static_cast<std::int32_t>(bytes.size()), &status);
  out.resize(begin + (U_SUCCESS(status) ? static_cast<std::size_t>(size) : 0));
  std::replace(out.begin() + static_cast<std::ptrdiff_t>(begin), out.end(), substitute,
               replacement);
}

const CodePage& CodePages::get(std::int32_t number) {
  const auto* name =
      std::find_if(codePageNames.begin(), codePageNames.end(),
                   [&](const CodePageName& known) { return known.number == number; });
  if (name == codePageNames.end()) {
    return get(westernEurope);
  }
  return pages_.try_emplace(number, name->converter).first->second;
}

std::optional<std::int32_t> codePageOfCharset(std::int32_t charset) {
  const auto* const known = std::find_if(charsets.begin(), charsets.end(),
                                         [&](const Charset& c) { return c.charset == charset; });
  return known == charsets.end() ? std::nullopt : std::optional(known->codePage);
}

}  // namespace voxilane
