// Sizes and rectangles in whole pixels.
#pragma once

namespace plotvane::control {

struct PixelSize {
  int width = 0;
  int height = 0;
  friend constexpr bool operator==(PixelSize, PixelSize) = default;
};

// Right and bottom edges are outside: a rectangle of width 1 covers one column.
struct PixelRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  [[nodiscard]] constexpr int Right() const noexcept { return left + width; }
  [[nodiscard]] constexpr int Bottom() const noexcept { return top + height; }
  [[nodiscard]] constexpr bool IsEmpty() const noexcept { return width <= 0 || height <= 0; }
  friend constexpr bool operator==(PixelRect, PixelRect) = default;
};

}  // namespace plotvane::control
