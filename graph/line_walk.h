// LineWalk: the pixels of a one-pixel line inside a surface, as one integer walk.
#pragma once

#include <cstdint>

#include "graph/drawing_surface.h"

namespace plotvane::graph {

// A line of n = max(|dx|, |dy|) pixels, the last point left out, goes one pixel per step along its longer
// axis; after k steps the other coordinate has moved by the whole number nearest to k * min / n, and a
// position exactly between two pixels counts as the upper, or left, one. These are the pixels of the
// platform's line primitive.
//
// Clipping keeps exactly those pixels of the line that are inside: the walk starts at the first and ends at
// the last of them, with the error term that the whole line would have there, and costs nothing for the parts
// outside.
struct LineWalk {
  std::int32_t count = 0;  // pixels inside the surface; nothing else counts when 0
  std::int32_t x = 0;      // the first of them
  std::int32_t y = 0;
  std::int32_t xMajor = 0;  // every step moves by this …
  std::int32_t yMajor = 0;
  std::int32_t xMinor = 0;  // … and by this too when the error term is above 0, which then falls by `fall`
  std::int32_t yMinor = 0;
  std::int64_t error = 0;
  std::int64_t rise = 0;  // added to the error term at every step
  std::int64_t fall = 0;
};

// Sides of the surface in pixels.
[[nodiscard]] LineWalk WalkLine(PixelPoint from, PixelPoint to, std::int32_t width,
                                std::int32_t height) noexcept;

}  // namespace plotvane::graph
