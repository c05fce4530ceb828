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
  // What the panel tells the window around it: a line is going to be evaluated; it was, and variables may have
  // changed.
  struct Owner {
    std::function<void()> calculates;
    std::function<void()> calculated;
  };

  // `calculator` must outlive the panel.
  CalculatorPanel(HWND parent, Calculator& calculator, Owner owner);

  // Shows the variables, one text for each: "a = 2".
  void ShowVariables(const std::vector<std::string>& variables);

  // Fills `place`.
  void Layout(const RECT& place, Scale scale, HFONT font);

  // Enter, Up and Down in the calculator line, Enter in the history; true when the key was taken.
  bool OnKey(const MSG& message);
  // A double click in the history (or Enter) brings the line back.
  bool OnCommand(int id, int notification);

 private:
  void Calculate();
  void BringBack();
  void SetInput(const std::string& text);

  Calculator& mCalculator;
  Owner mOwner;
  HWND mInputLabel;
  HWND mInput;
  HWND mHistory;
  HWND mVariablesLabel;
  HWND mVariables;
};

}  // namespace plotvane::desktop
