#include "lexicon/short_gloss.h"

#include <algorithm>

#include "core/text.h"

namespace voxilane {
namespace {

constexpr std::size_t mostLength = 30;
constexpr int mostSensesOfALine = 3;

std::u16string_view takeLine(std::u16string_view& text) {
  const std::size_t end = std::min(text.find_first_of(u"\r\n"), text.size());
  const auto line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return line;
}

// A line that begins with a label, such as [医], is for specialists.
bool isLabelled(std::u16string_view line) { return !line.empty() && line.front() == u'['; }

// A part of speech in front of the senses, with its full stop and the blank behind it.
std::u16string_view takePartOfSpeech(std::u16string_view& line) {
  std::size_t end = 0;
  while (end < line.size() && line[end] >= u'a' && line[end] <= u'z') {
    ++end;
  }
  if (end == 0 || end >= line.size() || line[end] != u'.') {
    return {};
  }
  const auto partOfSpeech = line.substr(0, end + 1);
  line = trimBlanks(line.substr(end + 1));
  return partOfSpeech;
}

// Takes the labels of a special field, such as [计], out of a sense.
std::u16string withoutLabels(std::u16string_view sense) {
  std::u16string text(sense);
  for (std::size_t open = text.find(u'['); open != std::u16string::npos; open = text.find(u'[')) {
    const std::size_t close = text.find(u']', open);
    text.erase(open, close == std::u16string::npos ? close : close + 1 - open);
  }
  return std::u16string(trimBlanks(text));
}

// Up to the next separator outside parentheses.
std::u16string_view takeSense(std::u16string_view& line) {
  int depth = 0;
  std::size_t end = 0;
  for (; end < line.size(); ++end) {
    const char16_t c = line[end];
    depth += (c == u'(' || c == u'（') ? 1 : 0;
    depth -= (c == u')' || c == u'）') ? 1 : 0;
    const bool separates = c == u',' || c == u'，' || c == u';' || c == u'；' || c == u'、';
    if (separates && depth <= 0) {
      break;
    }
  }
  const auto sense = trimBlanks(line.substr(0, end));
  line.remove_prefix(std::min(end + 1, line.size()));
  return sense;
}

// At most so many characters of a text, without half of one at the end; what stands in parentheses
// is left out as a whole.
std::u16string_view cut(std::u16string_view text, std::size_t length) {
  const std::size_t parenthesis = text.find_first_of(u"(（");
  if (text.size() > length && parenthesis != std::u16string_view::npos && parenthesis > 0) {
    length = std::min(length, parenthesis);
  }
  const bool splits = length < text.size() && length > 0 && (text[length] & 0xFC00U) == 0xDC00;
  return text.substr(0, splits ? length - 1 : length);
}

// Adds a sense if there is room for it; a first sense is cut rather than left out.
bool addSense(std::u16string& out, std::u16string_view lead, std::u16string_view sense) {
  if (out.empty()) {
    out.append(lead).append(cut(sense, mostLength - std::min(lead.size(), mostLength)));
    return true;
  }
  if (out.size() + lead.size() + sense.size() > mostLength) {
    return false;
  }
  out.append(lead).append(sense);
  return true;
}

bool addLine(std::u16string& out, std::u16string_view line) {
  std::u16string lead = out.empty() ? u"" : u" ";
  lead.append(takePartOfSpeech(line));
  for (int senses = 0; senses < mostSensesOfALine && !line.empty();) {
    const std::u16string sense = withoutLabels(takeSense(line));
    if (sense.empty()) {
      continue;
    }
    if (!addSense(out, lead, sense)) {
      return false;
    }
    lead = u"，";
    ++senses;
  }
  return true;
}

std::u16string collected(std::u16string_view gloss, bool withLabelled) {
  std::u16string out;
  while (!gloss.empty()) {
    auto line = trimBlanks(takeLine(gloss));
    if (isLabelled(line)) {
      if (!withLabelled) {
        continue;
      }
      line = trimBlanks(line.substr(std::min(line.find(u']'), line.size() - 1) + 1));
    }
    if (!addLine(out, line)) {
      break;
    }
  }
  return out;
}

}  // namespace

std::string shortGloss(std::string_view gloss) {
  const std::u16string text = toUtf16(gloss);
  std::u16string out = collected(text, false);
  if (out.empty()) {
    out = collected(text, true);
  }
  std::replace(out.begin(), out.end(), u'|', u'/');
  return toUtf8(out);
}

}  // namespace voxilane
