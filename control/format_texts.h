// Texts and bounds of the dialog "Format", for the dialog and its views.
#pragma once

#include <array>
#include <string_view>

#include "control/dialog_view.h"

namespace plotvane::control {

inline constexpr std::string_view kFormatCaption = "Format";
inline constexpr std::string_view kFormatNote = "Change the format settings and style of the graph window.";

enum class FormatGroup { Coordinate, DrawStyle, Grid, Axis, Divisions, AngleMode, PenStyle, PlotDensity };
inline constexpr std::size_t kFormatGroupCount = 8;

// In the order of FormatGroup. `fraDivisions` lies inside the axis group.
inline constexpr std::array<std::string_view, kFormatGroupCount> kFormatGroupCaptions{
    "Graphing &Coordinate", "&Draw Style", "&Grid",        "&Axis", "Divisions",
    "Angle &Mode",          "&Pen Style",  "Plot &Density"};

struct FormatOptionText {
  FormatOption option;
  FormatGroup group;
  std::string_view name;
  std::string_view caption;
  std::string_view tooltip;
};

// In the order of FormatOption, which is the Tab order.
inline constexpr std::array<FormatOptionText, kFormatOptionCount> kFormatOptions{{
    {FormatOption::optRectGC, FormatGroup::Coordinate, "optRectGC", "Rectangular GC",
     "Uses XY continually updated coordinate display"},
    {FormatOption::optPolarGC, FormatGroup::Coordinate, "optPolarGC", "PolarGC",
     "Uses Radius-Angle polar continually updated coordinate display"},
    {FormatOption::optDrawLine, FormatGroup::DrawStyle, "optDrawLine", "Draw Line",
     "Connect the points on the graph with lines"},
    {FormatOption::optDrawDot, FormatGroup::DrawStyle, "optDrawDot", "Draw Dot",
     "Draw only the single points on the graph"},
    {FormatOption::optGridOn, FormatGroup::Grid, "optGridOn", "Grid On", "Make grid lines visible"},
    {FormatOption::optGridOff, FormatGroup::Grid, "optGridOff", "Grid Off", "Do not show grid lines"},
    {FormatOption::optAxisOn, FormatGroup::Axis, "optAxisOn", "Axis On",
     "Make the standard (x=0, y=0) axis visible"},
    {FormatOption::optAxisOff, FormatGroup::Axis, "optAxisOff", "Axis Off", "Do not show the axis"},
    {FormatOption::optDivisionsOn, FormatGroup::Divisions, "optDivisionsOn", "On",
     "Show scale divisions on the axis"},
    {FormatOption::optDivisionsOff, FormatGroup::Divisions, "optDivisionsOff", "Off",
     "Make the axis single lines only"},
    {FormatOption::optRadians, FormatGroup::AngleMode, "optRadians", "Radians",
     "Trigonometric and inverse trigonometric functions use radians"},
    {FormatOption::optDegrees, FormatGroup::AngleMode, "optDegrees", "Degrees",
     "Trigonometric and inverse trigonometric functions use degrees"},
}};

struct FormatBarText {
  FormatBar bar;
  FormatGroup group;
  std::string_view name;
  std::string_view boxName;
  std::string_view boxTooltip;
  std::string_view subject;  // opens the texts of its messages, names the bar for screen readers
  std::string_view messageTitle;
  int minimum;
  int maximum;
  int trackStep;  // of a click on the track; the arrows step 1
};

inline constexpr std::array<FormatBarText, kFormatBarCount> kFormatBars{{
    {FormatBar::hscPenWidth, FormatGroup::PenStyle, "hscPenWidth", "txtPenWidth",
     "Change the value of the pen width and press <Enter>", "Pen width", "Invalid Pen Width", 1, 30, 1},
    {FormatBar::hscPlotDensity, FormatGroup::PlotDensity, "hscPlotDensity", "txtPlotDensity",
     "Change the plot step value (plot density) and press <Enter>.", "Plot density", "Invalid Plot Density",
     1, 1000, 10},
}};

struct FormatLabelText {
  std::string_view caption;
  std::string_view tooltip;
};

inline constexpr FormatLabelText kPenWidthLabel{"Pen &Width", ""};
// "prieview" is how this control has always spelled it.
inline constexpr FormatLabelText kPreviewLabel{
    "Preview", "The pen width is the width of the axis and graphs of the functions. Here is a prieview."};
// The bar carries the step: its low end is the high density.
inline constexpr FormatLabelText kLowDensityLabel{
    "Lower Density (Faster Speed, Poorer Quality)",
    "Low density corresponds to a high plot-pixel step value along the X-axis."};
inline constexpr FormatLabelText kHighDensityLabel{
    "Higher Density (Slower Speed, Better Quality)",
    "High density corresponds to a low plot-pixel step value along the X-axis."};

inline constexpr ButtonText kFormatOk{"cmdOk", "&Save And Close", ""};
inline constexpr ButtonText kFormatCancel{"cmdCancel", "Cancel (Esc)", ""};

namespace detail {

constexpr bool FormatRowsFollowTheirEnumerations() {
  for (std::size_t i = 0; i < kFormatOptionCount; ++i) {
    if (static_cast<std::size_t>(kFormatOptions[i].option) != i) return false;
  }
  for (std::size_t i = 0; i < kFormatBarCount; ++i) {
    if (static_cast<std::size_t>(kFormatBars[i].bar) != i) return false;
  }
  return true;
}
static_assert(FormatRowsFollowTheirEnumerations());

}  // namespace detail

}  // namespace plotvane::control
