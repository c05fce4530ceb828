// Value: what an identifier holds and an expression yields: nothing, a boolean, a number or a text.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "platform/outcome.h"

namespace plotvane::platform {

class Value {
 public:
  // In the order of the variant's alternatives.
  enum class Kind { Empty, Boolean, Number, Text };

  Value() = default;
  explicit Value(bool truth) : mContent(truth) {}
  explicit Value(double number) : mContent(number) {}
  explicit Value(std::string text) : mContent(std::move(text)) {}
  explicit Value(std::string_view text) : mContent(std::string(text)) {}
  explicit Value(const char* text) : mContent(std::string(text)) {}

  [[nodiscard]] Kind GetKind() const noexcept { return static_cast<Kind>(mContent.index()); }
  [[nodiscard]] bool IsEmpty() const noexcept { return GetKind() == Kind::Empty; }
  [[nodiscard]] bool IsBoolean() const noexcept { return GetKind() == Kind::Boolean; }
  [[nodiscard]] bool IsNumber() const noexcept { return GetKind() == Kind::Number; }
  [[nodiscard]] bool IsText() const noexcept { return GetKind() == Kind::Text; }

  // The content as it is; only for the kind that is held.
  [[nodiscard]] bool Boolean() const { return std::get<bool>(mContent); }
  [[nodiscard]] double Number() const { return std::get<double>(mContent); }
  [[nodiscard]] const std::string& Text() const { return std::get<std::string>(mContent); }

  // As a number: empty is 0, True is -1, False is 0, a text that is a number from end to end converts, any
  // other text is error 13, one that is too large error 6.
  [[nodiscard]] Outcome<double> ToNumber() const;

  // As a text: empty is "", booleans are "True" and "False", numbers by NumberText.
  [[nodiscard]] std::string ToText() const;

  // As a boolean: 0 is False, all other numbers are True; texts as numbers ("True" and "False" by their
  // word).
  [[nodiscard]] Outcome<bool> ToBoolean() const;

  void Clear() noexcept { mContent = std::monostate{}; }

  // Same kind and same content (numbers by value).
  friend bool operator==(const Value&, const Value&) = default;

 private:
  std::variant<std::monostate, bool, double, std::string> mContent;
};

}  // namespace plotvane::platform
