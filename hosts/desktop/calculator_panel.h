// CalculatorPanel: the calculator line, its history and the list of variables.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "hosts/desktop/calculator.h"
#include "hosts/desktop/layout.h"

namespace plotvane::desktop {

class CalculatorPanel {
 public:
  // `calculator` must outlive the panel. `calculated`: a line was evaluated, variables may have changed.
  CalculatorPanel(HWND parent, Calculator& calculator, std::function<void()> calculated);

  // Shows the variables, one text for each: "a = 2".
  void ShowVariables(const std::vector<std::string>& variables);

  // Fills `place`.
  void Layout(const RECT& place, Scale scale, HFONT font);

  // Enter, Up and Down in the calculator line; true when the key was taken.
  bool OnKey(const MSG& message);
  // A double click in the history brings the line back.
  bool OnCommand(int id, int notification);

 private:
  void Calculate();
  void SetInput(const std::string& text);

  Calculator& mCalculator;
  std::function<void()> mCalculated;
  HWND mInputLabel;
  HWND mInput;
  HWND mHistory;
  HWND mVariablesLabel;
  HWND mVariables;
};

}  // namespace plotvane::desktop
