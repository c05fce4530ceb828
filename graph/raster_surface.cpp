#include "graph/raster_surface.h"

#include <algorithm>
#include <cstddef>
#include <limits>

#include "graph/colours.h"
#include "graph/line_walk.h"
#include "graph/stroke.h"
#include "platform/runtime_error.h"

namespace plotvane::graph {

namespace {

constexpr std::uint32_t kBackground = 0xFFFFFF;
constexpr std::uint32_t kForeground = 0x000000;

constexpr std::uint32_t Ink(std::uint32_t colour) noexcept {
  return colour ^ kBackground;
}

}  // namespace

RasterSurface::RasterSurface(std::int32_t width, std::int32_t height)
    : mWidth(width), mHeight(height), mPixels(Allocate(width, height)) {}

RasterSurface::Pixels RasterSurface::Allocate(std::int32_t width, std::int32_t height) {
  constexpr std::int32_t kMost = std::numeric_limits<std::int16_t>::max();
  if (width < 0 || height < 0 || width > kMost || height > kMost)
    throw platform::RunTimeError(platform::StandardError::InvalidCall);
  const auto count = static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height);
  if (count > std::numeric_limits<std::size_t>::max() / sizeof(std::uint32_t))
    throw platform::RunTimeError(platform::StandardError::OutOfMemory);
  const auto wanted = std::max<std::size_t>(1, static_cast<std::size_t>(count));
  Pixels pixels(static_cast<std::uint32_t*>(std::calloc(wanted, sizeof(std::uint32_t))));
  if (!pixels) throw platform::RunTimeError(platform::StandardError::OutOfMemory);
  return pixels;
}

void RasterSurface::Resize(std::int32_t width, std::int32_t height) {
  Pixels pixels = Allocate(width, height);
  const std::size_t kept = static_cast<std::size_t>(std::min(width, mWidth));
  for (std::int32_t y = 0; y < std::min(height, mHeight); ++y)
    std::copy_n(&mPixels[Offset(0, y)], kept,
                &pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width)]);
  mPixels = std::move(pixels);
  mWidth = width;
  mHeight = height;
}

std::size_t RasterSurface::Offset(std::int32_t x, std::int32_t y) const noexcept {
  return static_cast<std::size_t>(y) * static_cast<std::size_t>(mWidth) + static_cast<std::size_t>(x);
}

std::uint32_t RasterSurface::ColourAt(std::int32_t x, std::int32_t y) const noexcept {
  return Ink(mPixels[Offset(x, y)]);
}

void RasterSurface::CopyRow(std::int32_t y, std::span<std::uint32_t> pixels) const noexcept {
  std::transform(&mPixels[Offset(0, y)], &mPixels[Offset(0, y)] + mWidth, pixels.begin(),
                 [](std::uint32_t ink) { return Ink(ink); });
}

void RasterSurface::Clear() {
  std::fill_n(mPixels.get(), static_cast<std::size_t>(mWidth) * static_cast<std::size_t>(mHeight), 0u);
}

void RasterSurface::SetPixel(PixelPoint point, Colour colour) {
  if (mPenWidth > 1) {
    DrawStroke(point, point, Ink(ResolveColour(colour)));
  } else if (point.x >= 0 && point.x < mWidth && point.y >= 0 && point.y < mHeight) {
    mPixels[Offset(point.x, point.y)] = Ink(ResolveColour(colour));
  }
}

void RasterSurface::SetPixel(PixelPoint point) {
  SetPixel(point, kForeground);
}

void RasterSurface::Line(PixelPoint from, PixelPoint to, Colour colour) {
  const std::uint32_t ink = Ink(ResolveColour(colour));
  if (mPenWidth > 1) {
    DrawStroke(from, to, ink);
  } else {
    DrawThinLine(from, to, ink);
  }
}

void RasterSurface::Line(PixelPoint from, PixelPoint to) {
  Line(from, to, kForeground);
}

void RasterSurface::DrawThinLine(PixelPoint from, PixelPoint to, std::uint32_t ink) noexcept {
  const LineWalk walk = WalkLine(from, to, mWidth, mHeight);
  if (walk.count == 0) return;
  const std::ptrdiff_t major = std::ptrdiff_t{walk.yMajor} * mWidth + walk.xMajor;
  const std::ptrdiff_t minor = std::ptrdiff_t{walk.yMinor} * mWidth + walk.xMinor;
  std::uint32_t* pixel = &mPixels[Offset(walk.x, walk.y)];
  std::int64_t error = walk.error;
  *pixel = ink;
  for (std::int32_t left = walk.count - 1; left > 0; --left) {
    if (error > 0) {
      pixel += minor;
      error -= walk.fall;
    }
    pixel += major;
    error += walk.rise;
    *pixel = ink;
  }
}

void RasterSurface::DrawStroke(PixelPoint from, PixelPoint to, std::uint32_t ink) noexcept {
  const Stroke stroke(from, to, mPenWidth);
  const std::int32_t lastRow = std::min(stroke.LastRow(), mHeight - 1);
  for (std::int32_t row = std::max(stroke.FirstRow(), 0); row <= lastRow; ++row) {
    const Span span = stroke.Row(row);
    const std::int32_t first = std::max(span.first, 0);
    const std::int32_t last = std::min(span.last, mWidth - 1);
    if (first <= last)
      std::fill_n(&mPixels[Offset(first, row)], static_cast<std::size_t>(last - first + 1), ink);
  }
}

}  // namespace plotvane::graph
