// What the dialogs need from a window system: views that show what they are told and report what the user
// does.
//
// A view holds no rule: the dialog classes (frmRange, frmZoomFactors, frmFormatGraph) decide. The window
// system may destroy a view's window at any time; the view then reports DialogClosed and answers calls
// without doing anything.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "control/messages.h"
#include "graph/drawing_surface.h"

namespace plotvane::control {

// A modeless window without an owner.
class DialogView {
 public:
  virtual ~DialogView() = default;
  // Shows the window, or brings it to the front when it is shown already.
  virtual void Show() = 0;
  // Destroys the window. No event comes after it.
  virtual void Close() = 0;
};

// The user's doings that every dialog knows.
class DialogEvents {
 public:
  virtual ~DialogEvents() = default;
  virtual void OkPressed() = 0;
  virtual void CancelPressed() = 0;  // also Escape and the close box
  virtual void DialogClosed() = 0;   // the window is gone, whoever destroyed it
};

// ---- A column of labelled editable drop-down lists with a note and two buttons ----

struct FieldText {
  std::string_view label;
  std::string_view name;
};

struct ButtonText {
  std::string_view name;
  std::string_view caption;
  std::string_view tooltip;
};

struct FieldsDialogText {
  std::string_view caption;
  std::span<const FieldText> fields;  // in their tab order
  std::string_view fieldTooltip;
  std::string_view note;
  ButtonText ok;
  ButtonText cancel;
};

class FieldsView : public DialogView {
 public:
  // `field` counts from 0 in the order of FieldsDialogText::fields.
  virtual void SetEditText(std::size_t field, std::string_view text) = 0;
  [[nodiscard]] virtual std::string GetEditText(std::size_t field) = 0;
  virtual void ClearEntries(std::size_t field) = 0;
  virtual void AddEntry(std::size_t field, std::string_view text) = 0;
};

// ---- The format dialog: option buttons in groups, two bars with text boxes, a preview ----

enum class FormatOption {
  optRectGC,
  optPolarGC,
  optDrawLine,
  optDrawDot,
  optGridOn,
  optGridOff,
  optAxisOn,
  optAxisOff,
  optDivisionsOn,
  optDivisionsOff,
  optRadians,
  optDegrees,
};
inline constexpr std::size_t kFormatOptionCount = 12;

enum class FormatBar { hscPenWidth, hscPlotDensity };
inline constexpr std::size_t kFormatBarCount = 2;

enum class BoxColour { Black, Red };

class FormatView : public DialogView {
 public:
  virtual void SetOption(FormatOption option, bool selected) = 0;
  virtual void SetDivisionsEnabled(bool enabled) = 0;  // the whole group fraDivisions
  virtual void SetBar(FormatBar bar, int value) = 0;
  virtual void SetBox(FormatBar bar, std::string_view text) = 0;
  [[nodiscard]] virtual std::string GetBox(FormatBar bar) = 0;
  virtual void SetBoxColour(FormatBar bar, BoxColour colour) = 0;
  [[nodiscard]] virtual graph::DrawingSurface& Preview() = 0;
  virtual void ShowMessage(const MessageContents& contents) = 0;
};

class FormatEvents : public DialogEvents {
 public:
  virtual void OptionClicked(FormatOption option) = 0;
  virtual void BarChanged(FormatBar bar, int value) = 0;  // also while it is dragged
  virtual void BoxTyped(FormatBar bar) = 0;               // by the user, not through SetBox
  virtual void BoxEntered(FormatBar bar) = 0;             // Enter pressed in the box
};

}  // namespace plotvane::control
