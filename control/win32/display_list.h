// DisplayList: what was drawn on the surface since it was last cleared, to be drawn again elsewhere as lines.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "control/geometry.h"
#include "graph/drawing_surface.h"

namespace plotvane::control::win32 {

// The surface keeps one beside its bitmap, so that metafiles and printers get lines instead of pixels. The
// list gives up when somebody else can draw too (a host that asked for the device context) and when a picture
// has more steps than a metafile is good for; the bitmap is the picture then.
class DisplayList {
 public:
  void Clear() noexcept;
  // Somebody else may draw from now on, until the next Clear.
  void GiveUp() noexcept;
  void AddPixel(graph::PixelPoint point, COLORREF colour, std::int16_t penWidth);
  void AddLine(graph::PixelPoint from, graph::PixelPoint to, COLORREF colour, std::int16_t penWidth);

  // Whether the list tells the whole picture.
  [[nodiscard]] bool IsComplete() const noexcept { return mComplete; }

  // Draws the picture of `size` pixels into `area` (logical units of the target), background first, clipped.
  void DrawTo(HDC target, const RECT& area, PixelSize size) const;

 private:
  struct Step {
    graph::PixelPoint from;
    graph::PixelPoint to;
    COLORREF colour;
    std::int16_t penWidth;
    bool isLine;
  };
  static constexpr std::size_t kMostSteps = 200'000;

  void Add(const Step& step);

  std::vector<Step> mSteps;
  bool mComplete = true;
};

}  // namespace plotvane::control::win32
