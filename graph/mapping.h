// Every conversion between real and pixel positions, each with its rounding.
//
//   px = round((x - Xmin) / XPixelSize - 1)        x = (px + 1) * XPixelSize + Xmin
//   py = round(SurfaceHeight - (y - Ymin) / YPixelSize)   y = (SurfaceHeight - py) * YPixelSize + Ymin
//
// The offset of one pixel on the x axis, and none on the y axis, is deliberate: column -1 is the left edge
// Xmin, row SurfaceHeight the bottom edge Ymin. Pixel positions grow rightwards and downwards.
#pragma once

#include <cstdint>

#include "graph/drawing_surface.h"

namespace plotvane::graph {

// A position in real units.
struct RealPoint {
  double x = 0;
  double y = 0;
  friend constexpr bool operator==(RealPoint, RealPoint) = default;
};

// The part of the window that both directions use. Sizes are real units per pixel; a negative one mirrors.
struct PixelMapping {
  double xMin = 0;
  double yMin = 0;
  double xPixelSize = 0;
  double yPixelSize = 0;
  std::int16_t surfaceHeight = 0;
};

// Halves to even; a position outside 16 bits is clamped to them, so that a far point never ends a plot.
// Error 11 for a pixel size of zero.
[[nodiscard]] PixelPoint RealToPixel(const PixelMapping& mapping, RealPoint point);

// The exact inverse of the two rules above; error 6 for a result that is too large.
[[nodiscard]] RealPoint PixelToReal(const PixelMapping& mapping, PixelPoint pixel);

// A mouse position to whole pixels, halves to even; error 6 outside 16 bits.
[[nodiscard]] PixelPoint RoundToPixel(float x, float y);

// How many points a plot evaluates: floor((surfaceWidth - 1) / step + 1), of which a step above the width
// leaves one. `step` is at least 1.
[[nodiscard]] std::int16_t PlotPointCount(std::int16_t surfaceWidth, std::int16_t step);

// x of plot point number k + 1 (k from 1): (k + 1) * step pixels right of the left edge. Since the first
// point lies on the edge itself, one step is passed over: with step 1 column 0 is never evaluated. This is
// deliberate. The number of pixels is a 16-bit product (error 6 beyond).
[[nodiscard]] double NextPlotX(const PixelMapping& mapping, std::int16_t k, std::int16_t step);

// The same number where it is finite and the product fits; anything otherwise.
[[nodiscard]] double UncheckedNextPlotX(const PixelMapping& mapping, std::int32_t k,
                                        std::int32_t step) noexcept;

// The multiple of `unit` that is nearest to `value`, halves upwards: floor(value / unit + 0.5) * unit. Error
// 11 for a unit of zero.
[[nodiscard]] double RoundToMultiple(double value, double unit);

// The multiple of `unit` next to `value` on the side of zero: Fix(value / unit) * unit. Error 11 for a unit
// of zero.
[[nodiscard]] double TruncateToMultiple(double value, double unit);

}  // namespace plotvane::graph
