#include "cli/rich_document.h"

#include <utility>

#include "annotation/rich_layouts.h"
#include "platform/text_reader.h"
#include "tools/backslash_doubling.h"

namespace voxilane {
namespace {

constexpr char16_t softLineEnd = u'\v';

std::string_view nameOf(LeftOut kind) {
  switch (kind) {
    case LeftOut::pictures:
      return "pictures";
    case LeftOut::objects:
      return "embedded objects";
    case LeftOut::footnotes:
      return "footnotes";
    case LeftOut::headers:
      return "headers and footers";
    case LeftOut::comments:
      return "comments";
  }
  return {};
}

Result<std::u16string> readPlainText(std::unique_ptr<ByteSource> source) {
  TextReader reader(std::move(source), LineEnds::crLf);
  std::u16string text;
  std::u16string piece;
  for (;;) {
    const auto more = reader.read(piece);
    if (!more) {
      return more.error();
    }
    if (!more.value()) {
      return text;
    }
    text += piece;
  }
}

}  // namespace

Result<RtfReading> readDocument(DocumentInput input) {
  if (input.isRichText) {
    const auto bytes = readAll(*input.source);
    return bytes ? readRtf(bytes.value()) : bytes.error();
  }
  auto text = readPlainText(std::move(input.source));
  if (!text) {
    return text.error();
  }
  return RtfReading{plainDocument(text.value()), {}};
}

Done saveDocument(const RichText& document, ByteSink& sink) {
  const auto doubling = backslashDoubling(document.text);
  return doubling.empty() ? writeRtf(document, sink) : writeRtf(edited(document, doubling), sink);
}

std::u16string plainText(const RichText& document) {
  std::u16string text;
  text.reserve(document.text.size());
  for (const char16_t unit : document.text) {
    if (unit == softLineEnd) {
      text += u"\r\n";
    } else {
      text += unit;
    }
  }
  return text;
}

std::string namesOf(const std::vector<LeftOut>& leftOut) {
  std::string names;
  for (const LeftOut kind : leftOut) {
    names.append(names.empty() ? "" : ", ").append(nameOf(kind));
  }
  return names;
}

}  // namespace voxilane
