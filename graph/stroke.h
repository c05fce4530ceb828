// Stroke: the pixels of a round-capped line drawn with a wide pen, row by row.
#pragma once

#include <cstdint>

#include "graph/drawing_surface.h"

namespace plotvane::graph {

// Pixels first to last of one row; empty when first > last.
struct Span {
  std::int32_t first = 0;
  std::int32_t last = -1;
};

// A pixel belongs to the stroke when its centre is at most half the pen's width away from the line between
// the two points. A pen of even width has no middle pixel: its line lies half a pixel further up and left, as
// the platform's does. Both points may be the same: the stroke is a disc.
class Stroke {
 public:
  // `width` in pixels, at least 1.
  Stroke(PixelPoint from, PixelPoint to, std::int32_t width) noexcept;

  // The rows that the stroke may touch.
  [[nodiscard]] std::int32_t FirstRow() const noexcept { return mFirstRow; }
  [[nodiscard]] std::int32_t LastRow() const noexcept { return mLastRow; }

  // The stroke is convex, so a row holds one span.
  [[nodiscard]] Span Row(std::int32_t row) const noexcept;

 private:
  double mX, mY;    // start
  double mDx, mDy;  // way to the end
  double mRadius;
  std::int32_t mFirstRow, mLastRow;
};

}  // namespace plotvane::graph
