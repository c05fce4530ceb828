// Calculator: the calculator line's engine and its history, over the variables that the graph uses.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/clsExp.h"
#include "platform/variable_table.h"

namespace plotvane::desktop {

class Calculator {
 public:
  explicit Calculator(std::shared_ptr<platform::VariableTable> table);

  struct Line {
    std::string input;
    std::string answer;  // the result in the number mode of its time, or the error's text
    bool failed = false;
  };

  // Evaluates a line of statements and adds it to the history; an empty line does nothing and gives null.
  const Line* Calculate(std::string_view input);

  [[nodiscard]] const std::vector<Line>& History() const { return mHistory; }

  // Walks through what was typed: towards the older (newer) line and its text; stays at the ends. The newest step
  // gives an empty text.
  [[nodiscard]] std::string Older();
  [[nodiscard]] std::string Newer();

  // Number mode, places and angle unit of the results.
  [[nodiscard]] engine::clsExp& Expression() { return mExpression; }

 private:
  engine::clsExp mExpression;
  std::vector<Line> mHistory;
  std::size_t mPosition = 0;  // index into the history that Older and Newer show; its size is "none"
};

}  // namespace plotvane::desktop
