// Layout of the control: size, resolution and measured captions in, rectangles out.
//
//   +-------------------------------------------+
//   | picToolBar: buttons, wrapped into rows    |
//   +-------------------------------------------+
//   | picGraph: all that the others leave       |
//   +-------------------------------------------+
//   | txtSimple                                 |
//   | txtStatusBar1                             |
//   +-------------------------------------------+
#pragma once

#include <array>

#include "control/geometry.h"
#include "control/toolbar.h"

namespace plotvane::control {

// What the face measured in the font of the controls, in pixels.
struct FaceMetrics {
  int dpi = 96;
  int lineHeight = 13;                                 // of one line of text
  int digitWidth = 6;                                  // of the widest digit
  std::array<int, kToolBarItemCount> captionWidths{};  // of each caption as it is seen
  friend bool operator==(const FaceMetrics&, const FaceMetrics&) = default;
};

// An empty rectangle: the control is not shown.
struct ControlLayout {
  PixelRect toolBar;
  std::array<PixelRect, kToolBarItemCount> items;  // within the control, not within the strip
  PixelRect surface;                               // at least one pixel
  PixelRect simple;
  PixelRect statusBar1;
};

// A caption is never clipped: a button that is wider than the control, or whose row would leave the surface
// less than half of the height, is not shown at all (its mnemonic still works). The status boxes give way
// when they would take more than half of the height.
[[nodiscard]] ControlLayout LayOut(PixelSize control, bool toolBarVisible, const FaceMetrics& metrics);

// `pixels` at 96 dots per inch at another resolution, halves up, at least 1 for 1 and more.
[[nodiscard]] int ScalePixels(int pixels, int dpi) noexcept;

}  // namespace plotvane::control
