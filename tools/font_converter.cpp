#include "tools/font_converter.h"

#include <algorithm>

#include "core/text.h"
#include "platform/code_page.h"

namespace voxilane {
namespace {

constexpr std::size_t gbkBytes = 2;

bool isBlank(std::string_view name) { return trimBlanks(name).empty(); }

// The characters of a UTF-16 text one by one.
template <typename Take>
void forEachCharacter(std::u16string_view text, Take take) {
  while (!text.empty()) {
    const bool isPair = (text.front() & 0xFC00U) == 0xD800 && text.size() > 1;
    take(text.substr(0, isPair ? 2 : 1));
    text.remove_prefix(isPair ? 2 : 1);
  }
}

// What a font table is searched for and given instead.
std::string entryEnd(std::string_view name) { return getcode1(name) + ";}"; }

// Where a font can be declared. Without a colour table this is all but the last character.
std::string_view headOf(std::string_view source) {
  const std::size_t colours = source.find("\\colortbl");
  const std::size_t last = source.empty() ? 0 : source.size() - 1;
  return source.substr(0, colours == std::string_view::npos ? last : colours);
}

}  // namespace

std::string_view chosenFont(std::string_view name) {
  return name.substr(name.substr(0, 1) == "@" ? 1 : 0);
}

bool isFontName(std::string_view name) {
  return std::none_of(name.begin(), name.end(), [](char c) {
    return static_cast<unsigned char>(c) < ' ' || c == '\x7F' || c == '\\' || c == '{' ||
           c == '}' || c == ';';
  });
}

std::optional<std::string_view> fontChoiceRefusal(std::string_view from, std::string_view to) {
  if (isBlank(from)) return noSourceFontText;
  if (isBlank(to)) return noTargetFontText;
  if (from == to) return sameFontText;
  return std::nullopt;
}

std::string gethexcode(std::string_view text) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string hex;
  for (const char c : toCodePage(text)) {
    const auto byte = static_cast<unsigned char>(c);
    // Only a control character has a value of one digit.
    if (byte >= 0x10) {
      hex += digits[byte >> 4U];
    }
    hex += digits[byte & 0xFU];
  }
  std::string escapes;
  for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
    escapes.append("\\'").append(hex, i, 2);
  }
  return escapes;
}

std::string getcode1(std::string_view fontname) {
  std::string code;
  forEachCharacter(toUtf16(fontname), [&](std::u16string_view character) {
    const std::string utf8 = toUtf8(character);
    if (utf8.size() == 1) {
      code += utf8;
    } else if (toCodePage(utf8).size() == gbkBytes) {
      code += gethexcode(utf8);
    } else {
      for (const char16_t unit : character) {
        code.append("\\u").append(std::to_string(static_cast<std::int16_t>(unit))).append("?");
      }
    }
  });
  return std::string(trimBlanks(code));
}

bool renameFont(std::string& source, std::string_view from, std::string_view to) {
  const std::string key = entryEnd(from);
  if (headOf(source).find(key) == std::string_view::npos) {
    return false;
  }
  replaceAll(source, {key, entryEnd(to)});
  return true;
}

}  // namespace voxilane
