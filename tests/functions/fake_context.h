// FakeContext: a CallContext over an argument list given as data, for tests of dispatch.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "functions/call_context.h"

namespace plotvane::functions {

struct FakeRecording : RecordedArgument {
  explicit FakeRecording(std::string spelling) : text(std::move(spelling)) {}
  std::string text;
};

// Items are what stands between the commas: a value to read, a text to record or a name, whatever dispatch
// asks for.
class FakeContext : public CallContext {
 public:
  struct Item {
    Item(double number) : value(number) {}                            // NOLINT: literals are items
    Item(platform::Value content) : value(std::move(content)) {}      // NOLINT
    Item(const char* spelled) : value(spelled), spelling(spelled) {}  // NOLINT
    platform::Value value;
    std::string spelling;
  };

  explicit FakeContext(std::vector<Item> items, AngleMode mode = AngleMode::Radians)
      : mItems(std::move(items)), mMode(mode) {}

  std::vector<ErrorPair> raised;
  std::vector<CalculusCall> calculusCalls;
  std::size_t failingItem = 99;  // reading this item raises a division by zero
  bool hasBracket = true;
  bool closes = true;  // false: what follows the last item is neither a comma nor a closing bracket
  int readings = 0;

  bool OpenArguments() override {
    if (!hasBracket) Raise({platform::StandardError::None, CustomError::OpenBracketExpected});
    return hasBracket;
  }
  bool AtEmptyList() override { return mItems.empty(); }
  bool ReadValue(platform::Value& value) override {
    if (Fails()) return false;
    value = mItems[mNext++].value;
    return true;
  }
  std::shared_ptr<RecordedArgument> RecordExpression() override {
    if (Fails()) return nullptr;
    return std::make_shared<FakeRecording>(mItems[mNext++].spelling);
  }
  bool ReadName(std::string& name) override {
    if (Fails()) return false;
    name = mItems[mNext++].spelling;
    return true;
  }
  ArgumentEnd EndArgument() override {
    if (mNext < mItems.size()) return ArgumentEnd::Comma;
    if (closes) return ArgumentEnd::Closed;
    Raise({platform::StandardError::None, CustomError::CloseBracketExpected});
    return ArgumentEnd::Failed;
  }
  AngleMode GetAngleMode() const override { return mMode; }
  bool RunCalculus(const CalculusCall& call, double& result) override {
    calculusCalls.push_back(call);
    result = 42;
    return true;
  }
  void Raise(ErrorPair error) override { raised.push_back(error); }

 private:
  bool Fails() {
    ++readings;
    if (mNext != failingItem) return false;
    Raise({platform::StandardError::DivisionByZero, CustomError::None});
    return true;
  }

  std::vector<Item> mItems;
  AngleMode mMode;
  std::size_t mNext = 0;
};

}  // namespace plotvane::functions
