#include "control/win32/cursors.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace plotvane::control::win32 {
namespace {

enum class Sign { Plus, Minus };

// Distances in a cursor of 32 pixels; others are scaled. The hot spot is the centre of the lens.
constexpr double kDesignSize = 32;
constexpr double kLensCentre = 11.5;
constexpr double kLensRadius = 9;
constexpr double kRimHalfWidth = 1.1;
constexpr double kSignReach = 4.5;
constexpr double kSignHalfWidth = 1;
constexpr double kHandleEnd = 28;
constexpr double kHandleHalfWidth = 1.8;
constexpr double kOutlineWidth = 1.1;

// How far the point lies outside the black figure (0 and less: inside), in design pixels.
double DistanceToFigure(double x, double y, Sign sign) {
  const double dx = x - kLensCentre;
  const double dy = y - kLensCentre;
  const double rim = std::abs(std::hypot(dx, dy) - kLensRadius) - kRimHalfWidth;
  const double bar = std::max(std::abs(dx) - kSignReach, std::abs(dy) - kSignHalfWidth);
  const double post = std::max(std::abs(dy) - kSignReach, std::abs(dx) - kSignHalfWidth);
  // The handle runs along the diagonal, from the rim to its end.
  const double along = (dx + dy) / std::sqrt(2.0);
  const double across = std::abs(dx - dy) / std::sqrt(2.0);
  const double length = (kHandleEnd - kLensCentre) * std::sqrt(2.0);
  const double handle = std::max({across - kHandleHalfWidth, kLensRadius - along, along - length});
  const double cross = sign == Sign::Plus ? std::min(bar, post) : bar;
  return std::min({rim, cross, handle});
}

// The two masks of a cursor without colours: AND first, then XOR; (0, 0) is black, (0, 1) white, (1, 0)
// nothing.
struct Masks {
  std::vector<std::uint8_t> andBits;
  std::vector<std::uint8_t> xorBits;
};

Masks DrawMagnifier(int width, int height, Sign sign) {
  const std::size_t rowBytes = static_cast<std::size_t>((width + 15) / 16 * 2);
  Masks masks{std::vector<std::uint8_t>(rowBytes * static_cast<std::size_t>(height), 0xFF),
              std::vector<std::uint8_t>(rowBytes * static_cast<std::size_t>(height), 0)};
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const double distance =
          DistanceToFigure((x + 0.5) * kDesignSize / width, (y + 0.5) * kDesignSize / height, sign);
      if (distance > kOutlineWidth) continue;
      const std::size_t byte = static_cast<std::size_t>(y) * rowBytes + static_cast<std::size_t>(x / 8);
      const auto bit = static_cast<std::uint8_t>(0x80 >> (x % 8));
      masks.andBits[byte] = static_cast<std::uint8_t>(masks.andBits[byte] & ~bit);
      if (distance > 0) masks.xorBits[byte] = static_cast<std::uint8_t>(masks.xorBits[byte] | bit);
    }
  }
  return masks;
}

OwnedCursor MakeMagnifier(Sign sign) {
  const int width = ::GetSystemMetrics(SM_CXCURSOR);
  const int height = ::GetSystemMetrics(SM_CYCURSOR);
  const Masks masks = DrawMagnifier(width, height, sign);
  const int hotX = static_cast<int>(kLensCentre * width / kDesignSize);
  const int hotY = static_cast<int>(kLensCentre * height / kDesignSize);
  return OwnedCursor(
      ::CreateCursor(nullptr, hotX, hotY, width, height, masks.andBits.data(), masks.xorBits.data()));
}

HCURSOR System(LPCWSTR name) {
  return ::LoadCursorW(nullptr, name);
}

}  // namespace

HCURSOR SurfaceCursors::Get(graph::PointerKind kind) {
  switch (kind) {
    case graph::PointerKind::ZoomIn:
      if (!mZoomIn) mZoomIn = MakeMagnifier(Sign::Plus);
      return mZoomIn.Get();
    case graph::PointerKind::ZoomOut:
      if (!mZoomOut) mZoomOut = MakeMagnifier(Sign::Minus);
      return mZoomOut.Get();
    case graph::PointerKind::SizeWestEast: return System(IDC_SIZEWE);
    case graph::PointerKind::Cross: return System(IDC_CROSS);
    case graph::PointerKind::Hourglass: return System(IDC_WAIT);
    case graph::PointerKind::Arrow: break;
  }
  return System(IDC_ARROW);
}

}  // namespace plotvane::control::win32
