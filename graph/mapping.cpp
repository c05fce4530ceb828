#include "graph/mapping.h"

#include <cmath>

#include "graph/checked_arithmetic.h"
#include "platform/conversions.h"

namespace plotvane::graph {

namespace {

// Unlike Divide, an overflow stays an infinity: it lies outside 16 bits like any far position.
double InPixels(double distance, double pixelSize) {
  if (pixelSize == 0) throw platform::RunTimeError(platform::StandardError::DivisionByZero);
  return distance / pixelSize;
}

std::int16_t Clamped(double position) {
  if (std::isnan(position)) throw platform::RunTimeError(platform::StandardError::Overflow);
  return platform::ClampToInt16(position);
}

}  // namespace

PixelPoint RealToPixel(const PixelMapping& mapping, RealPoint point) {
  const double column = InPixels(point.x - mapping.xMin, mapping.xPixelSize) - 1;
  const double row = mapping.surfaceHeight - InPixels(point.y - mapping.yMin, mapping.yPixelSize);
  return {Clamped(column), Clamped(row)};
}

RealPoint PixelToReal(const PixelMapping& mapping, PixelPoint pixel) {
  const double columns = pixel.x + 1;
  const double rows = mapping.surfaceHeight - pixel.y;
  return {Checked(columns * mapping.xPixelSize + mapping.xMin),
          Checked(rows * mapping.yPixelSize + mapping.yMin)};
}

PixelPoint RoundToPixel(float x, float y) {
  const std::int16_t column = platform::ToInt16(x).OrThrow();
  return {column, platform::ToInt16(y).OrThrow()};
}

std::int16_t PlotPointCount(std::int16_t surfaceWidth, std::int16_t step) {
  return Checked16(static_cast<std::int32_t>(std::floor((surfaceWidth - 1) / static_cast<double>(step) + 1)));
}

double NextPlotX(const PixelMapping& mapping, std::int16_t k, std::int16_t step) {
  const std::int16_t following = Checked16(k + 1);
  return Checked(Checked16(following * step) * mapping.xPixelSize + mapping.xMin);
}

double UncheckedNextPlotX(const PixelMapping& mapping, std::int32_t k, std::int32_t step) noexcept {
  return (k + 1) * step * mapping.xPixelSize + mapping.xMin;
}

double RoundToMultiple(double value, double unit) {
  return Checked(std::floor(Divide(value, unit) + 0.5) * unit);
}

double TruncateToMultiple(double value, double unit) {
  return Checked(std::trunc(Divide(value, unit)) * unit);
}

}  // namespace plotvane::graph
