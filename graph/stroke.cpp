#include "graph/stroke.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace plotvane::graph {

namespace {

// An interval of real columns; empty to begin with.
struct Interval {
  double low = std::numeric_limits<double>::infinity();
  double high = -std::numeric_limits<double>::infinity();

  void Include(Interval other) noexcept {
    if (other.low > other.high) return;
    low = std::min(low, other.low);
    high = std::max(high, other.high);
  }
  // Keeps the columns x with least <= a * x + b <= most.
  void Limit(double a, double b, double least, double most) noexcept {
    if (a == 0) {
      if (b < least || b > most) *this = {};
      return;
    }
    const double one = (least - b) / a;
    const double other = (most - b) / a;
    low = std::max(low, std::min(one, other));
    high = std::min(high, std::max(one, other));
  }
};

Interval DiscRow(double x, double rise, double radius) noexcept {
  const double square = radius * radius - rise * rise;
  if (square < 0) return {};
  const double half = std::sqrt(square);
  return {x - half, x + half};
}

}  // namespace

Stroke::Stroke(PixelPoint from, PixelPoint to, std::int32_t width) noexcept
    : mX(from.x), mY(from.y), mDx(to.x - from.x), mDy(to.y - from.y), mRadius(width / 2.0) {
  if (width % 2 == 0) {
    mX -= 0.5;
    mY -= 0.5;
  }
  mFirstRow = static_cast<std::int32_t>(std::ceil(std::min(mY, mY + mDy) - mRadius));
  mLastRow = static_cast<std::int32_t>(std::floor(std::max(mY, mY + mDy) + mRadius));
}

Span Stroke::Row(std::int32_t row) const noexcept {
  const double rise = row - mY;
  Interval inside = DiscRow(mX, rise, mRadius);
  inside.Include(DiscRow(mX + mDx, rise - mDy, mRadius));
  const double length = std::hypot(mDx, mDy);
  if (length > 0) {
    // Between the caps: the foot of the perpendicular lies on the line, and is near enough.
    Interval body{-std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
    body.Limit(mDx, rise * mDy - mX * mDx, 0, length * length);
    body.Limit(mDy, -rise * mDx - mX * mDy, -mRadius * length, mRadius * length);
    inside.Include(body);
  }
  if (inside.low > inside.high) return {};
  return {static_cast<std::int32_t>(std::ceil(inside.low)),
          static_cast<std::int32_t>(std::floor(inside.high))};
}

}  // namespace plotvane::graph
