#include "platform/text_reader.h"

#include <algorithm>
#include <optional>

#include <unicode/unistr.h>

#include "platform/text/line_end_normaliser.h"
#include "platform/text/text_decoder.h"
#include "platform/text/utf8_check.h"

namespace voxilane {
namespace {

constexpr std::size_t blockSize = std::size_t{1} << 16U;
constexpr std::uint64_t recognitionSize = std::uint64_t{1} << 16U;
constexpr int pauseMilliseconds = 200;
constexpr std::size_t utf16MarkSize = 2;

bool hasUtf16Mark(std::string_view bytes) {
  const auto start = bytes.substr(0, utf16MarkSize);
  return start == "\xFF\xFE" || start == "\xFE\xFF";
}

bool isAscii(std::string_view bytes) {
  return std::none_of(bytes.begin(), bytes.end(),
                      [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

}  // namespace

class TextReader::Implementation {
 public:
  Implementation(std::unique_ptr<ByteSource> source, LineEnds lineEnds)
      : source_(std::move(source)), lineEnds_(lineEnds == LineEnds::crLf ? u"\r\n" : u"\n") {}

  Result<bool> read(std::u16string& piece) {
    piece.clear();
    if (fault_) {
      return *fault_;
    }
    if (bytesRead_ == 0 && !ended_) {
      if (Done looked = lookAtWholeFile(); !looked) {
        return looked.error();
      }
    }
    while (piece.empty() && !ended_) {
      if (Done done = readPiece(piece); !done) {
        fault_ = done.error();
        break;
      }
    }
    // What came before a fault is still given; the fault is what comes next.
    return piece.empty() && fault_ ? Result<bool>(*fault_) : Result<bool>(!piece.empty());
  }

  bool wouldWait() { return !source_->waitForInput(0); }
  std::uint64_t bytesRead() const { return bytesRead_; }
  std::uint64_t size() const { return source_->size().value_or(0); }

 private:
  Done readBlock() {
    const std::size_t filled = bytes_.size();
    bytes_.resize(filled + blockSize);
    const auto count = source_->read(std::span(bytes_).subspan(filled));
    bytes_.resize(filled + (count ? count.value() : 0));
    if (!count) {
      return count.error();
    }
    bytesRead_ += count.value();
    ended_ = count.value() == 0;
    return std::monostate();
  }

  Done readPiece(std::u16string& piece) {
    if (Done done = readBlock(); !done) {
      return done;
    }
    if (Done done = decoder_ ? Done(std::monostate()) : recognise(); !done) {
      return done;
    }
    return decodeBytes(piece);
  }

  // A file can be read twice, so all of it decides.
  Done lookAtWholeFile() {
    if (!source_->rewind()) {
      return std::monostate();
    }
    Utf8Check check;
    std::string block(blockSize, '\0');
    std::string head;
    while (check.valid() || head.size() < utf16MarkSize) {
      const auto count = source_->read(block);
      if (!count) {
        return count.error();
      }
      if (count.value() == 0) {
        break;
      }
      const auto part = std::string_view(block).substr(0, count.value());
      head += part.substr(0, utf16MarkSize - std::min(head.size(), utf16MarkSize));
      check.add(part);
    }
    const Encoding unmarked = check.complete() ? Encoding::utf8 : Encoding::codePage;
    decide(hasUtf16Mark(head) ? Encoding::utf16 : unmarked);
    source_->rewind();
    return std::monostate();
  }

  // Reads on in a pipe until the encoding is known. ASCII means the same in all that are possible,
  // so it is passed on without waiting.
  Done recognise() {
    for (;;) {
      Utf8Check check;
      check.add(bytes_);
      if (isAscii(bytes_)) {
        if (bytesRead_ >= recognitionSize) {
          decide(Encoding::utf8);
        }
        return std::monostate();
      }
      const bool markMissing = bytesRead_ < utf16MarkSize && !ended_;
      if (bytes_.size() == bytesRead_ && hasUtf16Mark(bytes_)) {
        decide(Encoding::utf16);
        return std::monostate();
      }
      if (!check.valid() && !markMissing) {
        decide(Encoding::codePage);
        return std::monostate();
      }
      if (ended_ || bytesRead_ >= recognitionSize || !source_->waitForInput(pauseMilliseconds)) {
        const bool utf8 = ended_ ? check.complete() : check.valid();
        decide(utf8 ? Encoding::utf8 : Encoding::codePage);
        return std::monostate();
      }
      if (Done done = readBlock(); !done) {
        return done;
      }
    }
  }

  void decide(Encoding encoding) { decoder_.emplace(encoding, bytesRead_ - bytes_.size()); }

  Done decodeBytes(std::u16string& piece) {
    decoded_.clear();
    Done done = std::monostate();
    if (decoder_) {
      done = decoder_->append(decoded_, bytes_, ended_);
    } else {
      decoded_.assign(bytes_.begin(), bytes_.end());
    }
    bytes_.clear();
    const auto nul = decoded_.find(u'\0');
    if (nul != std::u16string::npos) {
      decoded_.resize(nul);
      done = Error{"not a text: character " + std::to_string(characters_ + nul + 1) + " is NUL"};
    }
    characters_ += decoded_.size();
    lineEnds_.append(piece, decoded_);
    return done;
  }

  std::unique_ptr<ByteSource> source_;
  LineEndNormaliser lineEnds_;
  std::optional<TextDecoder> decoder_;
  std::string bytes_;       // read and not yet decoded
  std::u16string decoded_;  // kept for its memory
  std::uint64_t bytesRead_ = 0;
  std::uint64_t characters_ = 0;
  bool ended_ = false;
  std::optional<Error> fault_;
};

TextReader::TextReader(std::unique_ptr<ByteSource> source, LineEnds lineEnds)
    : implementation_(std::make_unique<Implementation>(std::move(source), lineEnds)) {}

TextReader::~TextReader() = default;

Result<bool> TextReader::read(std::u16string& piece) { return implementation_->read(piece); }

Result<bool> TextReader::read(std::string& piece) {
  std::u16string units;
  auto more = implementation_->read(units);
  piece.clear();
  icu::UnicodeString(false, units.data(), static_cast<std::int32_t>(units.size()))
      .toUTF8String(piece);
  return more;
}

bool TextReader::wouldWait() { return implementation_->wouldWait(); }
std::uint64_t TextReader::bytesRead() const { return implementation_->bytesRead(); }
std::uint64_t TextReader::size() const { return implementation_->size(); }

}  // namespace voxilane
