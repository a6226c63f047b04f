#include "platform/rtf/control_words.h"

#include <algorithm>
#include <array>

#include "platform/rtf/rtf_reader.h"

namespace voxilane {
namespace {

using Number = std::optional<std::int32_t>;
using Kind = RtfControlWord::Kind;

// 1638 points, the largest letters of word processors.
constexpr std::int32_t maxHalfPoints = 3276;
// Numbers of paragraph formats have 16 bits in honest files.
constexpr std::int32_t maxTwips = 32'767;

constexpr std::int32_t macCodePage = 10000;
constexpr std::int32_t pcCodePage = 437;
constexpr std::int32_t multilingualPcCodePage = 850;

void nothing(RtfReader& /*reader*/, Number /*number*/) {}

// Text

template <char16_t unit>
void character(RtfReader& reader, Number /*number*/) {
  reader.put(unit);
}

template <void (RtfReader::*operation)()>
void call(RtfReader& reader, Number /*number*/) {
  (reader.*operation)();
}

void unicode(RtfReader& reader, Number number) {
  if (number) {
    reader.putWithFallback(*number);
  }
}

void fallbackLength(RtfReader& reader, Number number) {
  reader.group().fallbackLength = number.value_or(1);
}

void binary(RtfReader& reader, Number number) { reader.skipBinary(number.value_or(0)); }

// Destinations

template <RtfDestination destination>
void goTo(RtfReader& reader, Number /*number*/) {
  reader.group().destination = destination;
}

template <LeftOut kind>
void leaveOut(RtfReader& reader, Number /*number*/) {
  reader.leaveOut(kind);
}

// {\upr{text}{\*\ud{the same in Unicode}}}
void twoForms(RtfReader& reader, Number /*number*/) {
  RtfGroup& group = reader.group();
  group.aroundUpr = group.destination;
  group.destination = RtfDestination::nowhere;
}

void unicodeForm(RtfReader& reader, Number /*number*/) {
  RtfGroup& group = reader.group();
  group.destination = group.aroundUpr.value_or(group.destination);
}

// Character formats

void plain(RtfReader& reader, Number /*number*/) {
  RtfGroup& group = reader.group();
  group.western = group.eastAsian = CharacterFormat{};
  group.isHidden = false;
  group.characters = RtfCharacters::any;
}

template <RtfCharacters characters>
void setCharacters(RtfReader& reader, Number /*number*/) {
  reader.group().characters = characters;
}

template <bool CharacterFormat::*flag>
void turn(RtfReader& reader, Number number) {
  const bool isOn = number != 0;
  reader.group().western.*flag = isOn;
  reader.group().eastAsian.*flag = isOn;
}

void underlineNone(RtfReader& reader, Number /*number*/) {
  turn<&CharacterFormat::underline>(reader, 0);
}

void hide(RtfReader& reader, Number number) { reader.group().isHidden = number != 0; }

std::uint16_t halfPoints(Number number) {
  const bool isSize = number && *number > 0;
  return isSize ? static_cast<std::uint16_t>(std::min(*number, maxHalfPoints))
                : CharacterFormat{}.halfPoints;
}

void size(RtfReader& reader, Number number) {
  reader.group().western.halfPoints = reader.group().eastAsian.halfPoints = halfPoints(number);
}

void colour(RtfReader& reader, Number number) {
  reader.group().western.colour = reader.group().eastAsian.colour =
      reader.colours().colour(number.value_or(0));
}

// \loch\af0\hich\af0\dbch\f1: the one of the characters that follow goes with \f.
void font(RtfReader& reader, Number number) {
  RtfGroup& group = reader.group();
  if (group.destination == RtfDestination::fontTable) {
    reader.fonts().beginEntry(number.value_or(0));
    return;
  }
  const std::uint16_t place = reader.fonts().placeOf(number.value_or(0));
  const bool isForDoubleByte = reader.previousWord() == "dbch";
  const bool isForAnsi =
      group.characters == RtfCharacters::lowAnsi || group.characters == RtfCharacters::highAnsi;
  if (!isForDoubleByte) {
    group.western.font = place;
  }
  if (!isForAnsi) {
    group.eastAsian.font = place;
  }
}

// The format of characters that are not those of \f, \fs, \b and \i. LibreOffice writes Chinese so.
void associatedFont(RtfReader& reader, Number number) {
  RtfGroup& group = reader.group();
  const std::uint16_t place = reader.fonts().placeOf(number.value_or(0));
  if (group.isDoubleByte()) {
    group.eastAsian.font = place;
  } else if (group.characters == RtfCharacters::lowAnsi) {
    group.western.font = place;
  }
}

void associatedSize(RtfReader& reader, Number number) {
  if (reader.group().isDoubleByte()) {
    reader.group().eastAsian.halfPoints = halfPoints(number);
  }
}

template <bool CharacterFormat::*flag>
void turnAssociated(RtfReader& reader, Number number) {
  if (reader.group().isDoubleByte()) {
    reader.group().eastAsian.*flag = number != 0;
  }
}

// Paragraph formats

void paragraph(RtfReader& reader, Number /*number*/) { reader.group().paragraph = {}; }

template <Alignment alignment>
void align(RtfReader& reader, Number /*number*/) {
  reader.group().paragraph.alignment = alignment;
}

template <std::int32_t ParagraphFormat::*length>
void setLength(RtfReader& reader, Number number) {
  reader.group().paragraph.*length = std::clamp(number.value_or(0), -maxTwips, maxTwips);
}

void lineSpacingMultiple(RtfReader& reader, Number number) {
  reader.group().paragraph.lineSpacingIsMultiple = number.value_or(0) != 0;
}

// Pages

template <std::int32_t PageFormat::*length>
void setPage(RtfReader& reader, Number number) {
  if (number && *number >= 0) {
    reader.page().*length = std::min(*number, maxTwips);
  }
}

void landscape(RtfReader& reader, Number /*number*/) { reader.page().isLandscape = true; }

// The document and its tables

template <std::int32_t number>
void documentCodePage(RtfReader& reader, Number /*number*/) {
  reader.fonts().setDocumentCodePage(number);
}

void ansiCodePage(RtfReader& reader, Number number) {
  reader.fonts().setDocumentCodePage(number.value_or(0));
}

void cocoa(RtfReader& reader, Number /*number*/) { reader.fonts().setAnsiIsDocumentCodePage(); }

void defaultFont(RtfReader& reader, Number number) {
  reader.fonts().setDefault(number.value_or(0));
}

void charset(RtfReader& reader, Number number) {
  if (reader.group().destination == RtfDestination::fontTable) {
    reader.fonts().setCharset(number.value_or(0));
  }
}

void fontCodePage(RtfReader& reader, Number number) {
  if (reader.group().destination == RtfDestination::fontTable) {
    reader.fonts().setCodePage(number.value_or(0));
  }
}

template <unsigned shift>
void colourPart(RtfReader& reader, Number number) {
  reader.colours().setPart(shift,
                           static_cast<std::uint32_t>(std::clamp(number.value_or(0), 0, 255)));
}

constexpr auto underline = turn<&CharacterFormat::underline>;
constexpr auto strike = turn<&CharacterFormat::strike>;
constexpr auto nowhere = goTo<RtfDestination::nowhere>;
constexpr auto header = goTo<RtfDestination::header>;
constexpr auto breakLine = call<&RtfReader::breakLine>;

// In the order of the bytes of their names. Words that do nothing are there for the \* ahead of
// them: their groups hold text of the document.
constexpr auto controlWords = std::to_array<RtfControlWord>({
    {"ab", turnAssociated<&CharacterFormat::bold>},
    {"af", associatedFont},
    {"afs", associatedSize},
    {"ai", turnAssociated<&CharacterFormat::italic>},
    {"annotation", leaveOut<LeftOut::comments>},
    {"ansi", documentCodePage<1252>},
    {"ansicpg", ansiCodePage},
    {"b", turn<&CharacterFormat::bold>},
    {"bin", binary, Kind::always},
    {"blue", colourPart<0>},
    {"bullet", character<u'\u2022'>, Kind::character},
    {"cell", call<&RtfReader::endCell>},
    {"cf", colour},
    {"cocoartf", cocoa},
    {"colortbl", goTo<RtfDestination::colourTable>},
    {"column", breakLine},
    {"cpg", fontCodePage},
    {"dbch", setCharacters<RtfCharacters::doubleByte>},
    {"deff", defaultFont},
    {"deleted", strike},  // by somebody whose changes wait for a yes
    {"do", leaveOut<LeftOut::objects>},
    {"emdash", character<u'\u2014'>, Kind::character},
    {"emspace", character<u'\u2003'>, Kind::character},
    {"endash", character<u'\u2013'>, Kind::character},
    {"enspace", character<u'\u2002'>, Kind::character},
    {"f", font},
    {"fcharset", charset},
    {"fi", setLength<&ParagraphFormat::firstLineIndent>},
    {"filetbl", nowhere},
    {"fldinst", call<&RtfReader::beginFieldInstruction>},
    {"fldrslt", nothing},
    {"fonttbl", goTo<RtfDestination::fontTable>},
    {"footer", header},
    {"footerf", header},
    {"footerl", header},
    {"footerr", header},
    {"footnote", leaveOut<LeftOut::footnotes>},
    {"fs", size},
    {"generator", goTo<RtfDestination::generator>},
    {"green", colourPart<8>},
    {"header", header},
    {"headerf", header},
    {"headerl", header},
    {"headerr", header},
    {"hich", setCharacters<RtfCharacters::highAnsi>},
    {"i", turn<&CharacterFormat::italic>},
    {"info", nowhere},
    {"landscape", landscape},
    {"ldblquote", character<u'\u201C'>, Kind::character},
    {"li", setLength<&ParagraphFormat::leftIndent>},
    {"line", character<u'\v'>, Kind::character},
    {"listoverridetable", nowhere},
    {"listtable", nowhere},
    {"listtext", nothing},
    {"loch", setCharacters<RtfCharacters::lowAnsi>},
    {"lquote", character<u'\u2018'>, Kind::character},
    {"ltrch", setCharacters<RtfCharacters::any>},
    {"ltrmark", character<u'\u200E'>, Kind::character},
    {"mac", documentCodePage<macCodePage>},
    {"margb", setPage<&PageFormat::bottomMargin>},
    {"margl", setPage<&PageFormat::leftMargin>},
    {"margr", setPage<&PageFormat::rightMargin>},
    {"margt", setPage<&PageFormat::topMargin>},
    {"mmathPict", nowhere},
    {"moMath", leaveOut<LeftOut::objects>},
    {"nestcell", call<&RtfReader::endCell>},
    {"nestrow", call<&RtfReader::endRow>},
    {"nesttableprops", nothing},
    {"nonesttables", nowhere},
    {"nonshppict", nowhere},
    {"object", leaveOut<LeftOut::objects>},
    {"page", breakLine},
    {"paperh", setPage<&PageFormat::height>},
    {"paperw", setPage<&PageFormat::width>},
    {"par", call<&RtfReader::endParagraph>},
    {"pard", paragraph},
    {"pc", documentCodePage<pcCodePage>},
    {"pca", documentCodePage<multilingualPcCodePage>},
    {"pict", leaveOut<LeftOut::pictures>},
    {"plain", plain},
    {"pn", nowhere},
    {"pnseclvl", nowhere},
    {"pntext", nothing},
    {"qc", align<Alignment::centre>},
    {"qd", align<Alignment::justified>},
    {"qj", align<Alignment::justified>},
    {"ql", align<Alignment::left>},
    {"qmspace", character<u'\u2005'>, Kind::character},
    {"qr", align<Alignment::right>},
    {"rdblquote", character<u'\u201D'>, Kind::character},
    {"red", colourPart<16>},
    {"revtbl", nowhere},
    {"ri", setLength<&ParagraphFormat::rightIndent>},
    {"row", call<&RtfReader::endRow>},
    {"rquote", character<u'\u2019'>, Kind::character},
    {"rtlch", setCharacters<RtfCharacters::rightToLeft>},
    {"rtlmark", character<u'\u200F'>, Kind::character},
    {"rxe", nowhere},
    {"sa", setLength<&ParagraphFormat::spaceAfter>},
    {"sb", setLength<&ParagraphFormat::spaceBefore>},
    {"sect", breakLine},
    {"shp", leaveOut<LeftOut::objects>},
    {"shppict", nothing},
    {"sl", setLength<&ParagraphFormat::lineSpacing>},
    {"slmult", lineSpacingMultiple},
    {"strike", strike},
    {"striked", strike},
    {"stylesheet", nowhere},
    {"tab", character<u'\t'>, Kind::character},
    {"tc", nowhere},
    {"tcn", nowhere},
    {"txe", nowhere},
    {"u", unicode},
    {"uc", fallbackLength},
    {"ud", unicodeForm, Kind::always},
    {"ul", underline},
    {"uld", underline},
    {"uldash", underline},
    {"uldashd", underline},
    {"uldashdd", underline},
    {"uldb", underline},
    {"ulhwave", underline},
    {"ulldash", underline},
    {"ulnone", underlineNone},
    {"ulth", underline},
    {"ulthd", underline},
    {"ulthdash", underline},
    {"ulthdashd", underline},
    {"ulthdashdd", underline},
    {"ulthldash", underline},
    {"ululdbwave", underline},
    {"ulw", underline},
    {"ulwave", underline},
    {"upr", twoForms},
    {"v", hide},
    {"xe", nowhere},
    {"zwbo", character<u'\u200B'>, Kind::character},
    {"zwj", character<u'\u200D'>, Kind::character},
    {"zwnbo", character<u'\u2060'>, Kind::character},
    {"zwnj", character<u'\u200C'>, Kind::character},
});

static_assert(std::is_sorted(controlWords.begin(), controlWords.end(),
                             [](const RtfControlWord& a, const RtfControlWord& b) {
                               return a.name < b.name;
                             }));

// Where the words of each first byte begin. Half of a file can be control words.
constexpr std::array<std::uint8_t, 257> firstWords = [] {
  std::array<std::uint8_t, 257> firsts{};
  for (std::size_t byte = 0; byte < 256; ++byte) {
    const auto count =
        std::count_if(controlWords.begin(), controlWords.end(), [&](const RtfControlWord& word) {
          return static_cast<unsigned char>(word.name[0]) == byte;
        });
    firsts[byte + 1] = static_cast<std::uint8_t>(firsts[byte] + count);
  }
  return firsts;
}();
static_assert(firstWords.back() == controlWords.size());

}  // namespace

const RtfControlWord* findControlWord(std::string_view name) {
  const auto first = static_cast<unsigned char>(name.front());
  const auto* const end = controlWords.begin() + firstWords[first + 1];
  const auto* const word =
      std::find_if(controlWords.begin() + firstWords[first], end,
                   [&](const RtfControlWord& known) { return known.name == name; });
  return word == end ? nullptr : word;
}

}  // namespace voxilane
