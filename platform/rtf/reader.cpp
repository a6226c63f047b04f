#include <algorithm>
#include <array>
#include <utility>

#include "platform/rtf/rtf_reader.h"

namespace voxilane {
namespace {

constexpr std::string_view signature = "{\\rtf";

// The text has no more units than the file has bytes: this bounds both, to what 32-bit positions
// can count.
constexpr std::size_t maxFileSize = std::size_t{1} << 30;

// Word processors stay below a hundred.
constexpr std::size_t maxNesting = 10'000;

// Files of ours mark the ends of lines, so that an empty last one is kept. All others mark the last
// paragraph as well.
constexpr std::u16string_view ownGenerator = u"Voxilane";

// As much of a generator or of a field's instruction as is looked at.
constexpr std::size_t maxNoteLength = 16;

constexpr std::u16string_view fontOfLastResort = u"Times New Roman";

constexpr char16_t softLineEnd = u'\v';
constexpr char16_t lineSeparator = u'\u2028';  // how TextEdit writes it
constexpr char16_t noCharacter = u'\uFFFD';

constexpr unsigned char firstHighByte = 0x80;
constexpr unsigned char firstTrailByte = 0x30;
// Only GB18030 has digits as second bytes, and nobody writes them but as escapes.
constexpr char firstAsciiTrailByte = '@';

bool isAscii(char c) { return static_cast<unsigned char>(c) < firstHighByte; }

void addToNote(std::u16string& note, char16_t unit) {
  if (note.size() < maxNoteLength && (!note.empty() || unit != u' ')) {
    note += unit;
  }
}

bool isLetter(char16_t unit) {
  return (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z');
}

// Characters of Chinese, Japanese and Korean, halves of characters beyond U+FFFF included: most of
// them are Chinese.
bool isEastAsian(char16_t unit) {
  return (unit >= 0x1100 && unit < 0x1200) || (unit >= 0x2E80 && unit < 0xE000) ||
         (unit >= 0xF900 && unit < 0xFB00) || (unit >= 0xFE30 && unit < 0xFE50) ||
         (unit >= 0xFF00 && unit < 0xFFF0);
}

}  // namespace

RtfReader::RtfReader(std::string_view source)
    : tokenizer_(source), fonts_(codePages_), groups_(1) {}

Result<RtfReading> RtfReader::read() {
  for (RtfToken token = tokenizer_.next(); token.kind != RtfToken::Kind::end;
       token = tokenizer_.next()) {
    take(token);
    if (groups_.size() > maxNesting) {
      return Error{"groups within groups, more than " + std::to_string(maxNesting) + " deep"};
    }
    if (fonts_.isTooLarge()) {
      return Error{"more fonts than any document has"};
    }
    if (groups_.size() == 1) {
      break;
    }
  }
  endBytes();
  return finish();
}

void RtfReader::take(const RtfToken& token) {
  const bool isWord = token.kind == RtfToken::Kind::word;
  previousWord_ = std::exchange(word_, isWord ? token.text : std::string_view{});
  const bool isStarred = std::exchange(isStarred_, false);
  switch (token.kind) {
    case RtfToken::Kind::groupBegin:
      return beginGroup();
    case RtfToken::Kind::groupEnd:
      return endGroup();
    case RtfToken::Kind::word:
      return takeWord(token, isStarred);
    case RtfToken::Kind::symbol:
      return takeSymbol(static_cast<char>(token.byte));
    case RtfToken::Kind::escape:
      return takeEscape(token.byte);
    case RtfToken::Kind::text:
      return takeText(token.text);
    case RtfToken::Kind::end:
      break;
  }
}

void RtfReader::beginGroup() {
  endBytes();
  fallbackLeft_ = 0;
  groups_.push_back(groups_.back());
}

void RtfReader::endGroup() {
  endBytes();
  fallbackLeft_ = 0;
  const RtfDestination ended = group().destination;
  groups_.pop_back();
  if (group().destination == ended) {
    return;
  }
  if (ended == RtfDestination::fontTable) {
    fonts_.endEntry();
  } else if (ended == RtfDestination::fieldInstruction) {
    noteFormula();
  }
}

void RtfReader::takeWord(const RtfToken& token, bool isStarred) {
  const RtfControlWord* const word = findControlWord(token.text);
  if (word == nullptr) {
    if (isStarred) {
      endBytes();
      group().destination = RtfDestination::nowhere;
    }
    return;
  }
  if (word->kind == RtfControlWord::Kind::character && skipsFallback()) {
    return;
  }
  endBytes();
  fallbackLeft_ = 0;
  if (isWritten() || word->kind == RtfControlWord::Kind::always) {
    word->run(*this, token.number);
  }
}

void RtfReader::takeSymbol(char symbol) {
  static constexpr auto characters = std::to_array<std::pair<char, char16_t>>({{'~', u'\u00A0'},
                                                                               {'_', u'\u2011'},
                                                                               {'-', u'\u00AD'},
                                                                               {'\t', u'\t'},
                                                                               {'\r', u'\r'},
                                                                               {'\n', u'\r'}});
  if (symbol == '*') {
    isStarred_ = true;
  } else if (symbol == '\\' || symbol == '{' || symbol == '}') {
    takeText({&symbol, 1});
  } else {
    const auto* const known = std::find_if(characters.begin(), characters.end(),
                                           [&](const auto& c) { return c.first == symbol; });
    if (known != characters.end() && !skipsFallback()) {
      endBytes();
      put(known->second);
    }
  }
}

void RtfReader::takeEscape(unsigned char byte) {
  if (!isWritten() || skipsFallback()) {
    return;
  }
  if (byte >= firstHighByte || (leadIsOpen_ && byte >= firstTrailByte)) {
    addByte(byte);
  } else {
    endBytes();
    put(byte);
  }
}

void RtfReader::takeText(std::string_view text) {
  if (!isWritten()) {
    return;
  }
  const std::size_t skipped = std::min(text.size(), static_cast<std::size_t>(fallbackLeft_));
  fallbackLeft_ -= static_cast<std::int32_t>(skipped);
  text.remove_prefix(skipped);
  while (!text.empty()) {
    const bool isTrail = leadIsOpen_ && text.front() >= firstAsciiTrailByte;
    if (isTrail || !isAscii(text.front())) {
      addByte(static_cast<unsigned char>(text.front()));
      text.remove_prefix(1);
    } else {
      endBytes();
      const auto* const end = std::find_if_not(text.begin(), text.end(), isAscii);
      const auto size = static_cast<std::size_t>(end - text.begin());
      putText(text.substr(0, size), group().western);
      text.remove_prefix(size);
    }
  }
  if (leadIsOpen_) {
    if (const auto byte = tokenizer_.takeTrailByte()) {
      addByte(*byte);
    }
  }
}

bool RtfReader::skipsFallback() {
  if (fallbackLeft_ == 0) {
    return false;
  }
  --fallbackLeft_;
  return true;
}

void RtfReader::addByte(unsigned char byte) {
  if (bytes_.empty()) {
    bytesCodePage_ = &codePage();
  }
  bytes_ += static_cast<char>(byte);
  leadIsOpen_ = !leadIsOpen_ && bytesCodePage_->isLead(byte);
}

const CodePage& RtfReader::codePage() {
  if (group().destination == RtfDestination::fontTable) {
    return fonts_.entryCodePage();
  }
  return fonts_.codePage(group().isDoubleByte() ? group().eastAsian.font : group().western.font);
}

void RtfReader::endBytes() {
  if (bytes_.empty()) {
    return;
  }
  std::u16string characters;
  bytesCodePage_->decode(bytes_, characters);
  bytes_.clear();
  leadIsOpen_ = false;
  putText(std::u16string_view(characters),
          group().isDoubleByte() ? group().eastAsian : group().western);
}

void RtfReader::put(char16_t unit) {
  if (unit == u'\0') {
    return;
  }
  if (unit == u'\r') {
    endParagraph();
    return;
  }
  if (unit == u'\n' || unit == lineSeparator) {
    unit = softLineEnd;
  }
  const bool isInEastAsianFont =
      isEastAsian(unit) || (unit >= firstHighByte && group().isDoubleByte());
  putText(std::u16string_view(&unit, 1), isInEastAsianFont ? group().eastAsian : group().western);
}

void RtfReader::putWithFallback(std::int32_t number) {
  constexpr std::int32_t units = 0x10000;
  if (number >= -units / 2 && number < units) {
    put(static_cast<char16_t>(number));
  } else if (number >= units && number < units + 0x100000) {
    put(static_cast<char16_t>(0xD800 + ((number - units) >> 10)));
    put(static_cast<char16_t>(0xDC00 + (number & 0x3FF)));
  } else {
    put(noCharacter);
  }
  fallbackLeft_ = std::max(group().fallbackLength, 0);
}

template <typename Unit>
void RtfReader::putText(std::basic_string_view<Unit> text, const CharacterFormat& format) {
  if (writesBody()) {
    builder_.addText(text, shown(format), paragraph());
  } else {
    for (const Unit unit : text) {
      putElsewhere(static_cast<char16_t>(unit));
    }
  }
}

void RtfReader::putElsewhere(char16_t unit) {
  switch (group().destination) {
    case RtfDestination::fontTable:
      return fonts_.addToName(unit);
    case RtfDestination::colourTable:
      return unit == u';' ? colours_.endEntry() : void();
    case RtfDestination::generator:
      return addToNote(generator_, unit);
    case RtfDestination::fieldInstruction:
      return addToNote(fieldInstruction_, unit);
    case RtfDestination::header:
      return unit > u' ' ? noteLeftOut(LeftOut::headers) : void();
    case RtfDestination::body:
    case RtfDestination::nowhere:
      break;
  }
}

void RtfReader::endParagraph() {
  if (writesBody()) {
    builder_.endParagraph(shown(group().western), paragraph());
  }
}

void RtfReader::endCell() {
  if (writesBody()) {
    builder_.endCell(shown(group().western), paragraph());
  }
}

void RtfReader::endRow() {
  if (writesBody()) {
    builder_.endRow(shown(group().western), paragraph());
  }
}

void RtfReader::breakLine() {
  if (!builder_.isAtLineBegin()) {
    endParagraph();
  }
}

void RtfReader::leaveOut(LeftOut kind) {
  group().destination = RtfDestination::nowhere;
  noteLeftOut(kind);
}

void RtfReader::noteLeftOut(LeftOut kind) {
  if (std::find(leftOut_.begin(), leftOut_.end(), kind) == leftOut_.end()) {
    leftOut_.push_back(kind);
  }
}

void RtfReader::beginFieldInstruction() {
  group().destination = RtfDestination::fieldInstruction;
  fieldInstruction_.clear();
}

// Fields whose text is in the instruction: Word's guides above characters, and odd symbols.
void RtfReader::noteFormula() {
  const auto end = std::find_if_not(fieldInstruction_.begin(), fieldInstruction_.end(), isLetter);
  const std::u16string_view name(fieldInstruction_.begin(), end);
  if (name == u"EQ" || name == u"SYMBOL") {
    noteLeftOut(LeftOut::objects);
  }
}

void RtfReader::skipBinary(std::int32_t bytes) {
  tokenizer_.skip(static_cast<std::size_t>(std::max(bytes, 0)));
}

CharacterFormat RtfReader::shown(CharacterFormat format) const {
  format.font = fonts_.nameIndex(format.font);
  return format;
}

ParagraphFormat RtfReader::paragraph() {
  ParagraphFormat format = group().paragraph;
  format.lineSpacingIsMultiple = format.lineSpacingIsMultiple && format.lineSpacing != 0;
  return format;
}

RtfReading RtfReader::finish() {
  const bool isOurs = generator_.starts_with(ownGenerator);
  RtfReading reading{.document = builder_.finish(isOurs), .leftOut = std::move(leftOut_)};
  reading.document.fonts = fonts_.names();
  reading.document.page = page_;
  if (reading.document.fonts.empty() && !reading.document.text.empty()) {
    reading.document.fonts.emplace_back(fontOfLastResort);
  }
  return reading;
}

bool isRtf(std::string_view bytes) { return bytes.starts_with(signature); }

Result<RtfReading> readRtf(std::string_view source) {
  if (!isRtf(source)) {
    return Error{"not rich text: it does not begin with {\\rtf"};
  }
  if (source.size() > maxFileSize) {
    return Error{"larger than " + std::to_string(maxFileSize) + " bytes"};
  }
  return RtfReader(source).read();
}

}  // namespace voxilane
