#include <algorithm>
#include <array>
#include <unordered_map>

#include "platform/rtf/rtf.h"
#include "platform/rtf/text_escapes.h"
#include "platform/run_cursor.h"

namespace voxilane {
namespace {

// What is collected before it goes to the sink, and the text that is taken at a time. A unit may
// become eight bytes.
constexpr std::size_t partSize = std::size_t{256} * 1024;
constexpr std::size_t unitsAtATime = std::size_t{16} * 1024;

constexpr std::string_view fileBegin = R"({\rtf1\ansi\ansicpg936\deff0\uc1)";
constexpr std::string_view generator = "{\\*\\generator Voxilane;}\r\n";
constexpr std::string_view fileEnd = "}\r\n";

// What CharacterFormat{} means.
constexpr std::string_view textBegin = R"(\plain\f0\fs24)";

// A document has a font of its own as soon as it has text that was written on purpose.
constexpr std::u16string_view fontOfLastResort = u"Times New Roman";

// Faces for Chinese under names that do not show it.
constexpr std::array chineseFaces = std::to_array<std::u16string_view>({u"DengXian",
                                                                        u"DengXian Light",
                                                                        u"FZShuTi",
                                                                        u"FZYaoTi",
                                                                        u"FangSong",
                                                                        u"FangSong_GB2312",
                                                                        u"KaiTi",
                                                                        u"KaiTi_GB2312",
                                                                        u"LiSu",
                                                                        u"Microsoft YaHei",
                                                                        u"Microsoft YaHei Light",
                                                                        u"Microsoft YaHei UI",
                                                                        u"NSimSun",
                                                                        u"STCaiyun",
                                                                        u"STFangsong",
                                                                        u"STHeiti",
                                                                        u"STHupo",
                                                                        u"STKaiti",
                                                                        u"STLiti",
                                                                        u"STSong",
                                                                        u"STXihei",
                                                                        u"STXingkai",
                                                                        u"STXinwei",
                                                                        u"STZhongsong",
                                                                        u"SimHei",
                                                                        u"SimSun",
                                                                        u"SimSun-ExtB",
                                                                        u"YouYuan"});

class Writer {
 public:
  Writer(const RichText& document, ByteSink& sink) : document_(document), sink_(sink) {}

  Done write() {
    part_.reserve(partSize + unitsAtATime * 8);
    part_ += fileBegin;
    writeFonts();
    writeColours();
    part_ += generator;
    writePage();
    if (!document_.text.empty()) {
      if (Done done = writeText(); !done) {
        return done;
      }
    }
    part_ += fileEnd;
    return sink_.write(part_);
  }

 private:
  void writeFonts() {
    part_ += R"({\fonttbl)";
    if (document_.fonts.empty()) {
      writeFont(fontOfLastResort);
    }
    for (const std::u16string& name : document_.fonts) {
      writeFont(name);
    }
    part_ += "}\r\n";
  }

  // The character set tells how the bytes of the name and of the text in the font are meant.
  void writeFont(std::u16string_view name) {
    const bool isChinese =
        std::any_of(name.begin(), name.end(),
                    [this](char16_t unit) { return unit > u'~' && escapes_.isGbk(unit); }) ||
        std::find(chineseFaces.begin(), chineseFaces.end(), name) != chineseFaces.end();
    part_ += '{';
    appendControl(part_, "f", static_cast<std::int64_t>(isGbkFont_.size()));
    part_ += isChinese ? R"(\fnil\fcharset134 )" : R"(\fnil\fcharset0 )";
    for (const char16_t unit : name) {
      escapes_.append(part_, unit, isChinese);
    }
    part_ += ";}";
    isGbkFont_.push_back(isChinese);
  }

  void writePage() {
    const PageFormat& page = document_.page;
    if (page == PageFormat{}) {
      return;
    }
    appendControl(part_, "paperw", page.width);
    appendControl(part_, "paperh", page.height);
    appendControl(part_, "margl", page.leftMargin);
    appendControl(part_, "margr", page.rightMargin);
    appendControl(part_, "margt", page.topMargin);
    appendControl(part_, "margb", page.bottomMargin);
    part_ += page.isLandscape ? "\\landscape\r\n" : "\r\n";
  }

  void writeColours() {
    part_ += R"({\colortbl ;)";
    for (const CharacterFormat& format : document_.characterFormats) {
      const std::uint32_t colour = format.colour;
      const bool isNew = colour != automaticColour &&
                         colourIndices_.try_emplace(colour, colourIndices_.size() + 1).second;
      if (isNew) {
        appendControl(part_, "red", colour >> 16 & 0xFF);
        appendControl(part_, "green", colour >> 8 & 0xFF);
        appendControl(part_, "blue", colour & 0xFF);
        part_ += ';';
      }
    }
    part_ += "}\r\n";
  }

  Done writeText() {
    RunCursor paragraphRuns(document_.paragraphRuns);
    RunCursor characterRuns(document_.characterRuns);
    part_ += textBegin;
    for (std::size_t at = 0; at < document_.text.size();) {
      const FormatRun& paragraphRun = paragraphRuns.at(at);
      const FormatRun& characterRun = characterRuns.at(at);
      const std::size_t sizeBefore = part_.size();
      writeParagraphFormat(document_.paragraphFormats[paragraphRun.format]);
      writeCharacterFormat(document_.characterFormats[characterRun.format]);
      if (part_.size() != sizeBefore) {
        part_ += ' ';
      }
      at = escapes_.append(part_, document_.text, at,
                           std::min({paragraphRun.end, characterRun.end, at + unitsAtATime}),
                           format_.font < isGbkFont_.size() && isGbkFont_[format_.font]);
      if (part_.size() >= partSize) {
        if (Done done = sink_.write(part_); !done) {
          return done;
        }
        part_.clear();
      }
    }
    return std::monostate{};
  }

  // Writes a format of the document's table, unless it holds already.
  void writeParagraphFormat(const ParagraphFormat& format) {
    if (paragraphFormat_ == &format) {
      return;
    }
    paragraphFormat_ = &format;
    part_ += R"(\pard)";
    if (format.alignment != Alignment::left) {
      part_ += R"(\q)";
      part_ += std::string_view("lrcj")[static_cast<std::size_t>(format.alignment)];
    }
    writeLength("li", format.leftIndent);
    writeLength("ri", format.rightIndent);
    writeLength("fi", format.firstLineIndent);
    writeLength("sb", format.spaceBefore);
    writeLength("sa", format.spaceAfter);
    if (format.lineSpacing != 0) {
      appendControl(part_, "sl", format.lineSpacing);
      appendControl(part_, "slmult", format.lineSpacingIsMultiple ? 1 : 0);
    }
  }

  void writeLength(std::string_view word, std::int32_t twips) {
    if (twips != 0) {
      appendControl(part_, word, twips);
    }
  }

  // Writes how a format differs from the one that holds.
  void writeCharacterFormat(const CharacterFormat& format) {
    if (format.font != format_.font) {
      appendControl(part_, "f", format.font);
    }
    if (format.halfPoints != format_.halfPoints) {
      appendControl(part_, "fs", format.halfPoints);
    }
    if (format.colour != format_.colour) {
      appendControl(part_, "cf", colourIndex(format.colour));
    }
    writeSwitch(format_.bold, format.bold, "b", "b0");
    writeSwitch(format_.italic, format.italic, "i", "i0");
    writeSwitch(format_.underline, format.underline, "ul", "ulnone");
    writeSwitch(format_.strike, format.strike, "strike", "strike0");
    format_ = format;
  }

  void writeSwitch(bool was, bool is, std::string_view on, std::string_view off) {
    if (was != is) {
      part_ += '\\';
      part_ += is ? on : off;
    }
  }

  std::int64_t colourIndex(std::uint32_t colour) const {
    return colour == automaticColour ? 0 : static_cast<std::int64_t>(colourIndices_.at(colour));
  }

  const RichText& document_;
  ByteSink& sink_;
  TextEscapes escapes_;
  std::string part_;
  std::vector<bool> isGbkFont_;                                   // by the font's index
  std::unordered_map<std::uint32_t, std::size_t> colourIndices_;  // from 1
  const ParagraphFormat* paragraphFormat_ = nullptr;
  CharacterFormat format_;  // that the text written so far ends with
};

}  // namespace

Done writeRtf(const RichText& document, ByteSink& sink) { return Writer(document, sink).write(); }

}  // namespace voxilane
