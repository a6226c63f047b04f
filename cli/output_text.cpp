#include "cli/output_text.h"

#include "core/text.h"

namespace voxilane {

void appendOutputText(std::string& out, std::u16string_view text) {
  for (auto end = text.find(u'\r'); end != std::u16string_view::npos; end = text.find(u'\r')) {
    appendUtf8(out, text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  appendUtf8(out, text);
}

RunWriter::RunWriter(RunFrame frame, Spelling spelling)
    : frame_(std::move(frame)), spelling_(spelling) {
  replaceAll(frame_.after, {"\r\n", "\n"});
}

void RunWriter::append(std::string& out, std::string_view yinbiao) const {
  out += frame_.before;
  appendSpelled(out, yinbiao, spelling_);
  out += frame_.after;
}

void OutputText::writeIfLarge() {
  constexpr std::size_t large = std::size_t{1} << 16U;
  if (text_.size() >= large) {
    write();
  }
}

void OutputText::write() {
  if (done_) {
    done_ = monitor_.fault ? Done(*monitor_.fault) : sink_.write(text_);
  }
  text_.clear();
}

}  // namespace voxilane
