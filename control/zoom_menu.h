// mnuZoom, the pop-up menu of cmdZoom ("Zoom", never shown in a bar).
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace plotvane::control {

enum class ZoomCommand {
  mnuZoomStandard,
  mnuZoomTrig,
  mnuZoomInt,
  mnuZoomDecimal,
  mnuZoomNumber,
  mnuSep1,
  mnuEditZoom,
};

struct ZoomMenuEntry {
  ZoomCommand command;
  std::string_view name;
  std::string_view caption;  // empty for the separator
};

inline constexpr std::string_view kZoomMenuCaption = "Zoom";

inline constexpr std::array<ZoomMenuEntry, 7> kZoomMenu{{
    {ZoomCommand::mnuZoomStandard, "mnuZoomStandard", "&Standard"},
    {ZoomCommand::mnuZoomTrig, "mnuZoomTrig", "&Trig"},
    {ZoomCommand::mnuZoomInt, "mnuZoomInt", "&Integer"},
    {ZoomCommand::mnuZoomDecimal, "mnuZoomDecimal", "&Decimal"},
    {ZoomCommand::mnuZoomNumber, "mnuZoomNumber", "&Number (Per Pixel)"},
    {ZoomCommand::mnuSep1, "mnuSep1", ""},
    {ZoomCommand::mnuEditZoom, "mnuEditZoom", "&Edit Zoom"},
}};

}  // namespace plotvane::control
