// DisplayList: what was drawn on the surface since it was last cleared, to be drawn again: as lines
// elsewhere, or in other system colours.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "control/geometry.h"
#include "graph/drawing_surface.h"

namespace plotvane::control::win32 {

// A colour as it is now: the system's own ones stand behind negative numbers, bit 31 and their index.
[[nodiscard]] COLORREF PlainColour(graph::Colour colour) noexcept;

// One line, or one dot where `isLine` is false; `to` is then the same point.
struct DrawingStep {
  graph::PixelPoint from;
  graph::PixelPoint to;
  graph::Colour colour;
  std::int16_t penWidth;  // as it was set: below 1 too
  bool isLine;
};

// The surface keeps one beside its bitmap, so that metafiles and printers get lines instead of pixels. The
// list gives up when somebody else can draw too (a host that asked for the device context) and when a picture
// has more steps than a metafile is good for; the bitmap is the picture then.
class DisplayList {
 public:
  void Clear() noexcept;
  // Somebody else may draw from now on, until the next Clear.
  void GiveUp() noexcept;
  void Add(const DrawingStep& step);

  // Whether the list tells the whole picture.
  [[nodiscard]] bool IsComplete() const noexcept { return mComplete; }
  [[nodiscard]] const std::vector<DrawingStep>& Steps() const noexcept { return mSteps; }

  // Draws the picture of `size` pixels into `area` (logical units of the target), background first, clipped.
  void DrawTo(HDC target, const RECT& area, PixelSize size) const;

 private:
  static constexpr std::size_t kMostSteps = 200'000;

  std::vector<DrawingStep> mSteps;
  bool mComplete = true;
};

}  // namespace plotvane::control::win32
