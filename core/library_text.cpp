#include "core/library_text.h"

#include <array>
#include <charconv>
#include <cstdint>

#include "core/text.h"

namespace voxilane {
namespace {

constexpr std::array<Replacement, 4> escapes{{
    {"\r\n", "\\n"},
    {"\r", "\\r"},
    {"\t", "\\t"},
    {"\\", "\\\\"},
}};

constexpr std::string_view hexDigits = "0123456789ABCDEF";
constexpr std::string_view byteOrderMark = "\uFEFF";
constexpr unsigned char deleteCharacter = 0x7F;

bool isControl(unsigned char byte) { return byte < ' ' || byte == deleteCharacter; }
bool isAscii(unsigned char byte) { return byte <= deleteCharacter; }

void appendHex(std::string& out, unsigned char byte) {
  out += {'\\', 'x', hexDigits[byte >> 4U], hexDigits[byte & 0xFU]};
}

// The escape that the text begins with, by its written or by its plain side; null if there is none.
const Replacement* escapeAt(std::string_view text, std::string_view Replacement::*side) {
  for (const Replacement& escape : escapes) {
    if (text.substr(0, (escape.*side).size()) == escape.*side) {
      return &escape;
    }
  }
  return nullptr;
}

// Takes `\xHH` off the front of the text; false when it is something else.
bool takeHex(std::string& out, std::string_view& text) {
  constexpr std::size_t size = 4;
  if (text.size() < size || text[1] != 'x') {
    return false;
  }
  std::uint8_t byte = 0;
  const auto [end, error] = std::from_chars(text.data() + 2, text.data() + size, byte, 16);
  if (error != std::errc() || end != text.data() + size) {
    return false;
  }
  out += static_cast<char>(byte);
  text.remove_prefix(size);
  return true;
}

// False at a backslash that begins no escape.
bool unescape(std::string& out, std::string_view text) {
  for (auto at = text.find('\\'); at != std::string_view::npos; at = text.find('\\')) {
    out.append(text.substr(0, at));
    text.remove_prefix(at);
    if (const Replacement* escape = escapeAt(text, &Replacement::second)) {
      out.append(escape->first);
      text.remove_prefix(escape->second.size());
    } else if (!takeHex(out, text)) {
      return false;
    }
  }
  out.append(text);
  return true;
}

}  // namespace

void appendEscaped(std::string& out, std::string_view bytes) {
  // At the beginning of a file a byte order mark would be lost.
  const bool isPlainText = isUtf8(bytes) && bytes.find(byteOrderMark) == std::string_view::npos;
  while (!bytes.empty()) {
    const auto byte = static_cast<unsigned char>(bytes.front());
    std::size_t taken = 1;
    if (const Replacement* escape = escapeAt(bytes, &Replacement::first)) {
      out.append(escape->second);
      taken = escape->first.size();
    } else if (isControl(byte) || (!isAscii(byte) && !isPlainText)) {
      appendHex(out, byte);
    } else {
      out += bytes.front();
    }
    bytes.remove_prefix(taken);
  }
}

void appendLibraryLine(std::string& out, std::string_view word, std::string_view yinbiao,
                       std::string_view gloss) {
  appendEscaped(out, word);
  out += '\t';
  appendEscaped(out, yinbiao);
  if (!gloss.empty()) {
    out += '\t';
    appendEscaped(out, gloss);
  }
  out += '\n';
}

Result<LibraryLine> parseLibraryLine(std::string_view line) {
  if (line.size() > longestLibraryLine) {
    return Error{"longer than " + std::to_string(longestLibraryLine) + " bytes"};
  }
  LibraryLine parsed;
  const std::array<std::string*, 3> fields{&parsed.word, &parsed.transcription, &parsed.gloss};
  std::size_t count = 0;
  for (std::size_t end = 0; end != std::string_view::npos; ++count) {
    if (count == fields.size()) {
      return Error{"more than three fields"};
    }
    end = line.find('\t');
    if (!unescape(*fields[count], line.substr(0, end))) {
      return Error{"a backslash that stands for nothing; a plain one is written twice"};
    }
    line = end == std::string_view::npos ? std::string_view() : line.substr(end + 1);
  }
  if (count == 1) {
    return Error{"no tab behind the word"};
  }
  if (parsed.transcription.empty() && parsed.gloss.empty()) {
    return Error{"neither a transcription nor a gloss"};
  }
  return parsed;
}

}  // namespace voxilane
