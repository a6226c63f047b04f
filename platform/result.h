#pragma once

#include <string>
#include <utility>
#include <variant>

namespace voxilane {

// Why something could not be read, written or understood. `why` is a message for people, without
// the name of the thing it happened to: the caller knows that name and puts it in front.
struct Error {
  std::string why;
};

// A value, or the reason why there is none.
template <typename T>
class [[nodiscard]] Result {
 public:
  Result(T value) : content_(std::move(value)) {}
  Result(Error error) : content_(std::move(error)) {}

  bool ok() const { return content_.index() == 0; }
  explicit operator bool() const { return ok(); }

  // Only when ok().
  T& value() { return *std::get_if<T>(&content_); }
  const T& value() const { return *std::get_if<T>(&content_); }

  // Only when not ok().
  const Error& error() const { return *std::get_if<Error>(&content_); }

 private:
  std::variant<T, Error> content_;
};

// The result of an action that gives nothing.
using Done = Result<std::monostate>;

}  // namespace voxilane
