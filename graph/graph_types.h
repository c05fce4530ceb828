// Enumerations, small records and fixed texts that the graph shares with the control around it.
#pragma once

#include <cstdint>
#include <string_view>

namespace plotvane::graph {

// Style of the coordinate readout. The field `GCStyle` holds any 32-bit number a host writes; an odd one
// reads as rectangular, an even one as polar.
enum GraphCoordStyle : std::int32_t { RECTGC = 1, POLARGC = 2 };

// How points are drawn. The field `PlotStyle` holds any 32-bit number a host writes; DRAWLINE joins the
// points, every other number sets single pixels.
enum DrawType : std::int32_t { DRAWDOT = 1, DRAWLINE = 2 };

// What a click on the surface does.
enum class Action : std::int32_t { None = 0, zin = 1, zout = 2, zbox = 3, trace = 4 };

// A rectangle on the surface in pixels; the width and height of a box that was not drawn are 0.
struct PixelBox {
  std::int16_t left = 0;
  std::int16_t top = 0;
  std::int16_t width = 0;
  std::int16_t height = 0;
  friend constexpr bool operator==(PixelBox, PixelBox) = default;
};

struct PixelExtent {
  std::int16_t width = 0;
  std::int16_t height = 0;
  friend constexpr bool operator==(PixelExtent, PixelExtent) = default;
};

enum class MessageIcon { None, Error, Exclamation };

// Shown in `txtSimple` while no mouse action is armed.
inline constexpr std::string_view kRedrawHint =
    "Left click on the graph to redraw using the current functions";

}  // namespace plotvane::graph
