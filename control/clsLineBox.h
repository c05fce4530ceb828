// clsLineBox: the rubber-band outline of the zoom box, made of four line controls.
#pragma once

#include <cstdint>

#include "control/line_control.h"

namespace plotvane::control {

// Positions and sizes are in surface pixels. The box always is the rectangle between the two corners it was
// given: a negative width or height (a drag to the left or upwards) is turned round, so that `Left` and `Top`
// are its upper left corner and `Width` and `Height` are never negative. What 16 bits cannot hold is clamped.
//
// Without line controls the box works all the same and shows nothing.
class clsLineBox {
 public:
  [[nodiscard]] bool Visible() const noexcept { return mVisible; }
  void Visible(bool newVisible);

  void Move(std::int16_t left, std::int16_t top, std::int32_t width, std::int32_t height);

  [[nodiscard]] std::int16_t Left() const noexcept { return mLeft; }
  void Left(std::int16_t newLeft) { Move(newLeft, mTop, mWidth, mHeight); }
  [[nodiscard]] std::int16_t Top() const noexcept { return mTop; }
  void Top(std::int16_t newTop) { Move(mLeft, newTop, mWidth, mHeight); }
  [[nodiscard]] std::int16_t Width() const noexcept { return mWidth; }
  void Width(std::int16_t newWidth) { Move(mLeft, mTop, newWidth, mHeight); }
  [[nodiscard]] std::int16_t Height() const noexcept { return mHeight; }
  void Height(std::int16_t newHeight) { Move(mLeft, mTop, mWidth, newHeight); }

  // Given once, when the control is created; the lines outlive the box.
  void SetLineCntls(LineControl& newTopL, LineControl& newBotL, LineControl& newLeftL,
                    LineControl& newRightL);

 private:
  void PlaceLines();

  LineControl* TopL = nullptr;
  LineControl* BotL = nullptr;
  LineControl* LeftL = nullptr;
  LineControl* RightL = nullptr;
  bool mVisible = false;
  std::int16_t mLeft = 0;
  std::int16_t mTop = 0;
  std::int16_t mWidth = 0;
  std::int16_t mHeight = 0;
};

}  // namespace plotvane::control
