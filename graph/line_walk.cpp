#include "graph/line_walk.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace plotvane::graph {

namespace {

constexpr std::int64_t FloorDivide(std::int64_t dividend, std::int64_t divisor) noexcept {
  const std::int64_t quotient = dividend / divisor;
  return dividend % divisor != 0 && (dividend < 0) != (divisor < 0) ? quotient - 1 : quotient;
}

// One axis of a line: where it starts, which way it goes and how far, and the surface's side along it.
struct Axis {
  std::int32_t start;
  std::int32_t sign;
  std::int64_t length;
  std::int32_t side;

  // The first and last distance from the start, in the line's direction, that lie inside; beyond the length
  // or negative where the line ends before.
  [[nodiscard]] std::int64_t FirstInside() const noexcept { return sign > 0 ? -start : start - (side - 1); }
  [[nodiscard]] std::int64_t LastInside() const noexcept { return sign > 0 ? (side - 1) - start : start; }
};

Axis MakeAxis(std::int32_t from, std::int32_t to, std::int32_t side) noexcept {
  return {from, to < from ? -1 : 1, std::abs(to - from), side};
}

// Steps along the longer axis, and the moves of the shorter one that belong to them.
struct Steps {
  std::int64_t n;    // length of the longer axis
  std::int64_t m;    // length of the shorter axis
  std::int64_t tie;  // 1 when a position between two pixels rounds away from the start of the shorter axis

  // The shorter axis has moved by this many pixels after k steps: ceil((2mk - n + tie) / 2n).
  [[nodiscard]] std::int64_t MovesAfter(std::int64_t k) const noexcept {
    return -FloorDivide(n - tie - 2 * m * k, 2 * n);
  }
  // The last step after which it has moved by at most q; never when it does not move.
  [[nodiscard]] std::int64_t LastStepWith(std::int64_t q) const noexcept {
    return FloorDivide(2 * n * q + n - tie, 2 * m);
  }
};

}  // namespace

LineWalk WalkLine(PixelPoint from, PixelPoint to, std::int32_t width, std::int32_t height) noexcept {
  Axis major = MakeAxis(from.x, to.x, width);
  Axis minor = MakeAxis(from.y, to.y, height);
  const bool alongX = major.length >= minor.length;
  if (!alongX) std::swap(major, minor);
  if (major.length == 0 || width <= 0 || height <= 0) return {};

  const Steps steps{major.length, minor.length, minor.sign < 0 ? 1 : 0};
  std::int64_t first = std::max<std::int64_t>(0, major.FirstInside());
  std::int64_t last = std::min(major.length - 1, major.LastInside());
  if (minor.length == 0) {
    if (minor.FirstInside() > 0 || minor.LastInside() < 0) return {};
  } else {
    first = std::max(first, steps.LastStepWith(minor.FirstInside() - 1) + 1);
    last = std::min(last, steps.LastStepWith(minor.LastInside()));
  }
  if (first > last) return {};

  const std::int64_t moved = steps.MovesAfter(first);
  const auto majorPosition = static_cast<std::int32_t>(major.start + major.sign * first);
  const auto minorPosition = static_cast<std::int32_t>(minor.start + minor.sign * moved);
  LineWalk walk;
  walk.count = static_cast<std::int32_t>(last - first + 1);
  walk.x = alongX ? majorPosition : minorPosition;
  walk.y = alongX ? minorPosition : majorPosition;
  (alongX ? walk.xMajor : walk.yMajor) = major.sign;
  (alongX ? walk.yMinor : walk.xMinor) = minor.sign;
  walk.error = 2 * steps.m * (first + 1) - steps.n - 2 * steps.n * moved + steps.tie;
  walk.rise = 2 * steps.m;
  walk.fall = 2 * steps.n;
  return walk;
}

}  // namespace plotvane::graph
