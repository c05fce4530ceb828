// Value: what an identifier holds and an expression yields: nothing, a boolean, a number or a text.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/outcome.h"

namespace plotvane::platform {

class Value {
 public:
  enum class Kind { Empty, Boolean, Number, Text };

  Value() = default;
  explicit Value(bool truth) : mKind(Kind::Boolean), mNumber(truth ? 1 : 0) {}
  explicit Value(double number) : mKind(Kind::Number), mNumber(number) {}
  explicit Value(std::string text)
      : mKind(Kind::Text), mText(std::make_shared<const std::string>(std::move(text))) {}
  explicit Value(std::string_view text) : Value(std::string(text)) {}
  explicit Value(const char* text) : Value(std::string(text)) {}

  Value(const Value&) = default;
  Value& operator=(const Value&) = default;
  // A value that was moved from is empty.
  Value(Value&& other) noexcept
      : mKind(std::exchange(other.mKind, Kind::Empty)),
        mNumber(std::exchange(other.mNumber, 0)),
        mText(std::move(other.mText)) {}
  Value& operator=(Value&& other) noexcept {
    mKind = std::exchange(other.mKind, Kind::Empty);
    mNumber = std::exchange(other.mNumber, 0);
    mText = std::move(other.mText);
    return *this;
  }
  ~Value() = default;

  [[nodiscard]] Kind GetKind() const noexcept { return mKind; }
  [[nodiscard]] bool IsEmpty() const noexcept { return mKind == Kind::Empty; }
  [[nodiscard]] bool IsBoolean() const noexcept { return mKind == Kind::Boolean; }
  [[nodiscard]] bool IsNumber() const noexcept { return mKind == Kind::Number; }
  [[nodiscard]] bool IsText() const noexcept { return mKind == Kind::Text; }

  // The content as it is; only for the kind that is held.
  [[nodiscard]] bool Boolean() const noexcept { return mNumber != 0; }
  [[nodiscard]] double Number() const noexcept { return mNumber; }
  [[nodiscard]] const std::string& Text() const noexcept { return *mText; }

  // As a number: empty is 0, True is -1, False is 0, a text that is a number from end to end converts, any
  // other text is error 13, one that is too large error 6.
  [[nodiscard]] Outcome<double> ToNumber() const;

  // As a text: empty is "", booleans are "True" and "False", numbers by NumberText.
  [[nodiscard]] std::string ToText() const;

  // As a boolean: 0 is False, all other numbers are True; texts as numbers ("True" and "False" by their
  // word).
  [[nodiscard]] Outcome<bool> ToBoolean() const;

  void Clear() noexcept { *this = Value(); }

  // What `value = Value(number)` does, for loops that store many numbers in one place.
  void SetNumber(double number) noexcept {
    mKind = Kind::Number;
    mNumber = number;
    if (mText) mText.reset();
  }
  // The same for a value that is a number already.
  void ReplaceNumber(double number) noexcept { mNumber = number; }

  // Same kind and same content (numbers by value).
  friend bool operator==(const Value& a, const Value& b) noexcept {
    if (a.mKind != b.mKind) return false;
    return a.IsText() ? a.Text() == b.Text() : a.mNumber == b.mNumber;
  }

 private:
  Kind mKind = Kind::Empty;
  double mNumber = 0;                        // of a number; 1 or 0 of a boolean
  std::shared_ptr<const std::string> mText;  // of a text, never changed; copies of a value share it
};

}  // namespace plotvane::platform
