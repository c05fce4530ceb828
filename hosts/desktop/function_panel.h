// FunctionPanel: the rows Y1 to Y10, each with its switch, colour, equation and error mark.
#pragma once

#include <windows.h>

#include <array>
#include <functional>
#include <string>

#include "hosts/desktop/function_document.h"
#include "hosts/desktop/layout.h"

namespace plotvane::desktop {

class FunctionPanel {
 public:
  // What the panel asks of the window around it.
  struct Owner {
    // A function was edited; draws it at once.
    std::function<void()> edited;
    // The text of what is wrong with an equation; empty when nothing is.
    std::function<std::string(const std::string& equation)> check;
  };

  // Makes the controls as children of `parent`. `document` must outlive the panel.
  FunctionPanel(HWND parent, FunctionDocument& document, Owner owner);
  ~FunctionPanel();
  FunctionPanel(const FunctionPanel&) = delete;
  FunctionPanel& operator=(const FunctionPanel&) = delete;

  // Shows the document's functions, for example after another file was opened.
  void Refresh();
  // Checks every equation again, for example after a variable changed.
  void CheckAll();

  // Fills the width of `place` from its top; returns the first free row of pixels below.
  int Layout(const RECT& place, Scale scale, HFONT font);

  // Messages of `parent` that concern the panel's controls; true when it was theirs.
  bool OnCommand(int id, int notification);
  bool OnDrawItem(const DRAWITEMSTRUCT& item) const;
  // The brush for an equation box with an error; null for any other window.
  [[nodiscard]] HBRUSH OnEditColour(HWND edit, HDC device) const;

 private:
  struct Row {
    HWND enabled = nullptr;
    HWND colour = nullptr;
    HWND equation = nullptr;
    std::string error;
  };

  void ShowRow(std::size_t index);
  void CheckRow(std::size_t index);
  void ShowError();
  void EditEquation(std::size_t index);
  void EditEnabled(std::size_t index);
  void ChooseColour(std::size_t index);

  HWND mParent;
  FunctionDocument& mDocument;
  Owner mOwner;
  std::array<Row, kFunctionCount> mRows;
  std::size_t mCurrent = 0;  // the row that was worked on last
  HWND mError = nullptr;
  HBRUSH mErrorBrush;
  bool mShowing = false;  // set while the panel itself fills the boxes
};

}  // namespace plotvane::desktop
