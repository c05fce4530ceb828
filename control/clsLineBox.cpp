#include "control/clsLineBox.h"

#include <algorithm>
#include <limits>

namespace plotvane::control {
namespace {

std::int16_t Clamp(std::int64_t value) noexcept {
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}

}  // namespace

void clsLineBox::Visible(bool newVisible) {
  mVisible = newVisible;
  for (LineControl* line : {TopL, BotL, LeftL, RightL}) {
    if (line != nullptr) line->SetVisible(newVisible);
  }
}

void clsLineBox::Move(std::int16_t left, std::int16_t top, std::int32_t width, std::int32_t height) {
  const std::int64_t right = std::int64_t{left} + width;
  const std::int64_t bottom = std::int64_t{top} + height;
  mLeft = Clamp(std::min<std::int64_t>(left, right));
  mTop = Clamp(std::min<std::int64_t>(top, bottom));
  mWidth = Clamp(std::max<std::int64_t>(left, right) - mLeft);
  mHeight = Clamp(std::max<std::int64_t>(top, bottom) - mTop);
  PlaceLines();
}

void clsLineBox::SetLineCntls(LineControl& newTopL, LineControl& newBotL, LineControl& newLeftL,
                              LineControl& newRightL) {
  TopL = &newTopL;
  BotL = &newBotL;
  LeftL = &newLeftL;
  RightL = &newRightL;
  PlaceLines();
  Visible(mVisible);
}

void clsLineBox::PlaceLines() {
  if (TopL == nullptr) return;
  const std::int16_t right = Clamp(std::int64_t{mLeft} + mWidth);
  const std::int16_t bottom = Clamp(std::int64_t{mTop} + mHeight);
  TopL->Place({mLeft, mTop}, {right, mTop});
  BotL->Place({mLeft, bottom}, {right, bottom});
  LeftL->Place({mLeft, mTop}, {mLeft, bottom});
  RightL->Place({right, mTop}, {right, bottom});
}

}  // namespace plotvane::control
