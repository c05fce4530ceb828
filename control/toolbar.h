// The controls of the toolbar strip and the two status boxes: names, captions, tooltips, in their Tab order.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "control/mnemonic.h"

namespace plotvane::control {

enum class ToolBarItem {
  cmdGraph,
  cmdZoom,
  cmdZoomIn,
  cmdZoomOut,
  cmdZoomBox,
  cmdRange,
  cmdTrace,
  cmdEval,
  lblUserCurY,
  txtUserCurY,
  vscUpDown,
};

enum class ItemKind { Button, Label, EditBox, Spinner };

struct ToolBarItemText {
  ToolBarItem item;
  ItemKind kind;
  std::string_view name;
  std::string_view caption;
  std::string_view tooltip;
};

inline constexpr std::array<ToolBarItemText, 11> kToolBarItems{{
    {ToolBarItem::cmdGraph, ItemKind::Button, "cmdGraph", "&Graph", "Graph the functions"},
    {ToolBarItem::cmdZoom, ItemKind::Button, "cmdZoom", "&Zoom", "Choose between many zoom styles"},
    {ToolBarItem::cmdZoomIn, ItemKind::Button, "cmdZoomIn", "Z&In", "Zoom In"},
    {ToolBarItem::cmdZoomOut, ItemKind::Button, "cmdZoomOut", "Z&Out", "Zoom Out"},
    {ToolBarItem::cmdZoomBox, ItemKind::Button, "cmdZoomBox", "Z&Box", "Zoom Box"},
    {ToolBarItem::cmdRange, ItemKind::Button, "cmdRange", "&Range...",
     "Change the Range (and Domain) of the graph intervals"},
    {ToolBarItem::cmdTrace, ItemKind::Button, "cmdTrace", "&Trace",
     "Trace the cursor over the points on the graph"},
    {ToolBarItem::cmdEval, ItemKind::Button, "cmdEval", "&Eval",
     "Evaluate the graph at a particular domain value"},
    {ToolBarItem::lblUserCurY, ItemKind::Label, "lblUserCurY", "&Y:", ""},
    {ToolBarItem::txtUserCurY, ItemKind::EditBox, "txtUserCurY", "",
     "Function to be used in things like a Trace"},
    {ToolBarItem::vscUpDown, ItemKind::Spinner, "vscUpDown", "", ""},
}};

inline constexpr std::size_t kToolBarItemCount = kToolBarItems.size();

[[nodiscard]] constexpr std::size_t IndexOf(ToolBarItem item) noexcept {
  return static_cast<std::size_t>(item);
}

// What screen readers call the controls that have neither a caption nor a label that is shown.
inline constexpr std::string_view kSpinnerName = "Function number";
inline constexpr std::string_view kSimpleName = "Message";
inline constexpr std::string_view kStatusBar1Name = "Position";

// The number of the function that trace and evaluation use, as `txtUserCurY` starts.
inline constexpr std::string_view kFirstFunctionText = "1";

// Where the spinner rests; a change to one more or one less steps through the functions.
inline constexpr int kSpinnerRest = 1;

namespace detail {

constexpr bool RowsFollowTheEnumeration() {
  for (std::size_t i = 0; i < kToolBarItemCount; ++i) {
    if (IndexOf(kToolBarItems[i].item) != i) return false;
  }
  return true;
}

constexpr bool MnemonicsDiffer() {
  for (std::size_t i = 0; i < kToolBarItemCount; ++i) {
    const char letter = MnemonicOf(kToolBarItems[i].caption);
    for (std::size_t k = 0; letter != '\0' && k < i; ++k) {
      if (MnemonicOf(kToolBarItems[k].caption) == letter) return false;
    }
  }
  return true;
}

static_assert(RowsFollowTheEnumeration());
static_assert(MnemonicsDiffer());

}  // namespace detail

}  // namespace plotvane::control
