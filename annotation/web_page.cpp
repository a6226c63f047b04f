#include "annotation/web_page.h"

#include "core/notation.h"
#include "core/text.h"

namespace voxilane {
namespace {

constexpr std::string_view pageEnd = "</body></html>\r\n";

// The pages hold the text of the pass, which has these blanks behind it.
constexpr std::string_view endBlanks = "  ";

std::string pageHead(int unicodeSize, int phoneticSize) {
  return "<html><head><meta http-equiv=Content-Type content=text/html; charset=gbk /><meta "
         "http-equiv=content-language content=gbk /><style type=text/css><!--\r\n"
         ".pronounce1{font-family: Lucida Sans Unicode, Microsoft Sans Serif;font-size: " +
         std::to_string(unicodeSize) +
         "px;color: #0033FF;}\r\n.pronounce{font-family:TessaraPhonic;font-size: " +
         std::to_string(phoneticSize) + "px;color: #0033FF;}\r\n--></style><body bgcolor=#ffffff>";
}

// How the parameters want transcriptions on a page: in the private font or as entities.
class PageSpelling {
 public:
  explicit PageSpelling(const CanshuSet& canshu) : inCodes_(canshu.canshu8 == phoneticFont) {}

  std::string_view openingTag() const {
    return inCodes_ ? "<span class=pronounce>" : "<span class=pronounce1>";
  }
  std::string operator()(std::string_view yinbiao) const {
    return inCodes_ ? std::string(yinbiao) : codeToEntities(yinbiao);
  }

 private:
  bool inCodes_;
};

}  // namespace

std::string dangqianPage(std::u16string_view document, const Recognition& found,
                         const CanshuSet& canshu) {
  const RunFrame frame = dangqianFrame(canshu);
  std::string page = pageHead(canshu.canshu9, canshu.canshu9);
  std::size_t written = 0;
  for (std::size_t i = 0; i < found.List4.size(); ++i) {
    appendUtf8(page, document.substr(written, found.List5[i] - written));
    written = found.List5[i];
    page.append("<span class=pronounce1>").append(frame.before);
    page.append(codeToEntities(found.List4[i])).append(frame.after).append("</span>");
  }
  appendUtf8(page, document.substr(written));
  return page.append(endBlanks).append(pageEnd);
}

std::string alignedPage(Layout layout, const AlignedLines& lines, const CanshuSet& canshu) {
  const bool below = layout == Layout::down;
  const PageSpelling spelling(canshu);
  std::string page = pageHead(below ? canshu.canshu9 - 1 : canshu.canshu9, canshu.canshu9);
  for (std::size_t i = 0; i < lines.List3.size(); ++i) {
    const std::string english = toUtf8(lines.List3[i]) + "<br>";
    const std::string transcription =
        std::string(spelling.openingTag()).append(spelling(lines.List31[i])).append("</span><br>");
    page.append(below ? english : transcription).append(below ? transcription : english);
  }
  return page.append(pageEnd);
}

std::string selfPage(std::u16string_view document, const Recognition& found,
                     const CanshuSet& canshu) {
  const PageSpelling spelling(canshu);
  const RunFrame frame = selfFrame(canshu);
  std::string page = pageHead(canshu.canshu9, canshu.canshu9);
  for (auto end = document.find(u"\r\n"); end != std::u16string_view::npos;
       end = document.find(u"\r\n")) {
    appendUtf8(page, document.substr(0, end));
    page.append("<br>");
    document.remove_prefix(end + 2);
  }
  appendUtf8(page, document);
  page.append(endBlanks).append("<br><hr>").append(spelling.openingTag());
  for (const std::string& yinbiao : found.List4) {
    page.append(frame.before).append(spelling(yinbiao)).append(frame.after);
  }
  return page.append("</span>").append(pageEnd);
}

}  // namespace voxilane
