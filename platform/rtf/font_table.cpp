#include "platform/rtf/font_table.h"

namespace voxilane {
namespace {

// Word writes a few hundred. The index of a font has 16 bits.
constexpr std::size_t maxFonts = 32'768;

// Windows has 31 units for the name of a font.
constexpr std::size_t maxNameLength = 256;

constexpr std::int32_t ansiCharset = 0;
constexpr std::int32_t initialCodePage = 1252;

std::u16string trimmed(std::u16string_view name) {
  const std::size_t begin = name.find_first_not_of(u' ');
  if (begin == name.npos) {
    return {};
  }
  return std::u16string(name.substr(begin, name.find_last_not_of(u' ') + 1 - begin));
}

}  // namespace

FontTable::FontTable(CodePages& codePages)
    : codePages_(codePages),
      documentCodePage_(&codePages.get(initialCodePage)),
      fonts_{{0, documentCodePage_}},
      entryCodePage_(documentCodePage_) {}

void FontTable::setDocumentCodePage(std::int32_t number) {
  documentCodePage_ = &codePages_.get(number);
  setDefaultFont();
}

void FontTable::setDefault(std::int32_t number) {
  defaultNumber_ = number;
  setDefaultFont();
}

void FontTable::setDefaultFont() {
  const auto place = places_.find(defaultNumber_);
  fonts_[0] = place == places_.end() ? Font{0, documentCodePage_} : fonts_[place->second];
}

void FontTable::beginEntry(std::int32_t number) {
  endEntry();
  entryNumber_ = number;
}

void FontTable::setCharset(std::int32_t charset) {
  const auto number =
      charset == ansiCharset && ansiIsDocumentCodePage_ ? std::nullopt : codePageOfCharset(charset);
  entryCodePage_ = number ? &codePages_.get(*number) : documentCodePage_;
}

void FontTable::addToName(char16_t unit) {
  if (unit == u';') {
    endEntry();
  } else if (unit >= u' ' && entryName_.size() < maxNameLength) {
    entryName_ += unit;
  }
}

void FontTable::endEntry() {
  const std::u16string name = trimmed(entryName_);
  if (entryNumber_ && !name.empty()) {
    isTooLarge_ = fonts_.size() == maxFonts;
    const auto [index, isNew] =
        nameIndices_.try_emplace(name, static_cast<std::uint16_t>(names_.size()));
    if (isNew) {
      names_.push_back(name);
    }
    places_[*entryNumber_] = static_cast<std::uint16_t>(fonts_.size());
    fonts_.push_back({index->second, entryCodePage_});
    setDefaultFont();
  }
  entryNumber_.reset();
  entryName_.clear();
  entryCodePage_ = documentCodePage_;
}

std::uint16_t FontTable::placeOf(std::int32_t number) const {
  const auto place = places_.find(number);
  return place == places_.end() ? std::uint16_t{0} : place->second;
}

}  // namespace voxilane
