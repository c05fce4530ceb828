// Sizes in hundredths of a millimetre, in which containers measure, and in pixels of the screen.
#pragma once

#include <windows.h>

#include "control/geometry.h"

namespace plotvane::control::com {

// Pixels in an inch of the screen, across and down.
struct PixelsPerInch {
  int x = 96;
  int y = 96;
};

[[nodiscard]] PixelsPerInch ScreenPixelsPerInch() noexcept;

// Rounded to the nearest; a size in pixels survives the way there and back.
[[nodiscard]] SIZEL HimetricOf(PixelSize size) noexcept;
[[nodiscard]] PixelSize PixelsOf(const SIZEL& extent) noexcept;

}  // namespace plotvane::control::com
