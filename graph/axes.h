// The coordinate axes with their division marks, and the grid of dots.
#pragma once

#include "graph/canvas.h"
#include "graph/window_model.h"

namespace plotvane::graph {

// All of it is drawn in the surface's foreground colour and pen. Both routines count with the current point
// and leave it changed: after the marks of an axis, or the dots of the grid, the counter stands past its end.
// The first line of a curve may start there (see Plotter).

// The axes cross at the origin, also outside of the surface. Marks are three pixels long, above the x axis
// and right of the y axis; they are drawn when they are at least a pixel apart and their axis is inside the
// surface. Error 11 for a pixel size or scale of zero, 6 when the end of a mark does not fit 16 bits.
void DrawAxes(WindowModel& window, const Canvas& canvas);

// One dot at each crossing of the divisions, when these are at least the pen's width apart in both
// directions.
void DrawGrid(WindowModel& window, const Canvas& canvas);

// A loop over divisions makes at most this many passes on a surface side of that many pixels. In a window
// whose pixel sizes belong to its range there are never more than the side's pixels and a few; one whose
// edges were written without PrepareGraph may count far outside the surface, and must come to an end there.
[[nodiscard]] constexpr std::int32_t MostDivisions(std::int16_t surfaceSide) noexcept {
  constexpr std::int32_t kAlwaysAllowed = 4096;
  const std::int32_t enough = 2 * std::int32_t{surfaceSide} + 64;
  return enough > kAlwaysAllowed ? enough : kAlwaysAllowed;
}

}  // namespace plotvane::graph
