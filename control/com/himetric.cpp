#include "control/com/himetric.h"

namespace plotvane::control::com {

namespace {

constexpr int kHimetricPerInch = 2540;

}  // namespace

PixelsPerInch ScreenPixelsPerInch() noexcept {
  const HDC screen = ::GetDC(nullptr);
  if (screen == nullptr) return {};
  const PixelsPerInch resolution{::GetDeviceCaps(screen, LOGPIXELSX), ::GetDeviceCaps(screen, LOGPIXELSY)};
  ::ReleaseDC(nullptr, screen);
  return resolution;
}

SIZEL HimetricOf(PixelSize size) noexcept {
  const PixelsPerInch resolution = ScreenPixelsPerInch();
  return {::MulDiv(size.width, kHimetricPerInch, resolution.x),
          ::MulDiv(size.height, kHimetricPerInch, resolution.y)};
}

PixelSize PixelsOf(const SIZEL& extent) noexcept {
  const PixelsPerInch resolution = ScreenPixelsPerInch();
  return {::MulDiv(static_cast<int>(extent.cx), resolution.x, kHimetricPerInch),
          ::MulDiv(static_cast<int>(extent.cy), resolution.y, kHimetricPerInch)};
}

}  // namespace plotvane::control::com
