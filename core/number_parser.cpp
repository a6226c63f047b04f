#include "core/number_parser.h"

#include <cmath>
#include <cstdlib>
#include <string>

#include "core/text.h"

namespace voxilane {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Takes a text apart from the front.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : rest_(text) {}

  bool atEnd() const { return rest_.empty(); }
  char peek() const { return rest_.empty() ? '\0' : rest_.front(); }

  bool take(std::string_view oneOf, std::string& to) {
    if (rest_.empty() || oneOf.find(rest_.front()) == std::string_view::npos) {
      return false;
    }
    to += rest_.front();
    rest_.remove_prefix(1);
    return true;
  }

  // Takes digits, and commas behind the first of them; gives how many digits there were.
  std::size_t takeDigits(bool withCommas, std::string& to) {
    std::size_t count = 0;
    while (isDigit(peek()) || (withCommas && count > 0 && peek() == ',')) {
      if (peek() != ',') {
        to += peek();
        ++count;
      }
      rest_.remove_prefix(1);
    }
    return count;
  }

 private:
  std::string_view rest_;
};

}  // namespace

std::optional<double> parseNumber(std::string_view text) {
  Scanner scanner(trimBlanks(text));
  std::string plain;
  scanner.take("+-", plain);
  std::size_t digits = scanner.takeDigits(true, plain);
  if (scanner.take(".", plain)) {
    digits += scanner.takeDigits(false, plain);
  }
  if (digits == 0) {
    return std::nullopt;
  }
  if (scanner.take("eE", plain)) {
    scanner.take("+-", plain);
    if (scanner.takeDigits(false, plain) == 0) {
      return std::nullopt;
    }
  }
  if (!scanner.atEnd()) {
    return std::nullopt;
  }
  const double value = std::strtod(plain.c_str(), nullptr);
  return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

}  // namespace voxilane
