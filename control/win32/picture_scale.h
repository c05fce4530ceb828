// PictureScale: from the pixels of a picture to the logical units of the target that it is drawn into.
#pragma once

#include <windows.h>

#include <algorithm>

#include "control/geometry.h"

namespace plotvane::control::win32 {

// The transforms of a metafile or a printer do the rest.
class PictureScale {
 public:
  PictureScale(const RECT& area, PixelSize size) noexcept
      : mArea(area), mSize{std::max(size.width, 1), std::max(size.height, 1)} {}

  [[nodiscard]] int X(int column) const noexcept {
    return static_cast<int>(mArea.left) +
           ::MulDiv(column, static_cast<int>(mArea.right - mArea.left), mSize.width);
  }
  [[nodiscard]] int Y(int row) const noexcept {
    return static_cast<int>(mArea.top) +
           ::MulDiv(row, static_cast<int>(mArea.bottom - mArea.top), mSize.height);
  }
  [[nodiscard]] RECT Rect(const PixelRect& rect) const noexcept {
    return {X(rect.left), Y(rect.top), X(rect.Right()), Y(rect.Bottom())};
  }
  // At least one unit.
  [[nodiscard]] int Length(int pixels) const noexcept { return std::max(X(pixels) - X(0), 1); }
  [[nodiscard]] int Height(int pixels) const noexcept { return Y(pixels) - Y(0); }

 private:
  RECT mArea;
  PixelSize mSize;
};

}  // namespace plotvane::control::win32
