// Focus: the raster surface and the window system's own surface draw the same pixels.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <vector>

#include "control/win32/gdi_surface.h"
#include "graph/raster_surface.h"
#include "tests/graph/line_scenes.h"

namespace plotvane::graph::test {
namespace {

using control::win32::GdiSurface;

constexpr std::int32_t kWidth = 211;
constexpr std::int32_t kHeight = 137;

struct Picture {
  std::vector<std::uint32_t> pixels;  // 0x00BBGGRR, rows from the top

  [[nodiscard]] std::uint32_t At(std::int32_t x, std::int32_t y) const {
    return pixels[static_cast<std::size_t>(y * kWidth + x)];
  }
};

Picture PictureOf(const RasterSurface& surface) {
  Picture picture;
  for (std::int32_t y = 0; y < kHeight; ++y)
    for (std::int32_t x = 0; x < kWidth; ++x) picture.pixels.push_back(surface.ColourAt(x, y));
  return picture;
}

Picture PictureOf(const GdiSurface& surface) {
  ::GdiFlush();
  Picture picture;
  for (std::int32_t y = 0; y < kHeight; ++y)
    for (std::int32_t x = 0; x < kWidth; ++x) picture.pixels.push_back(::GetPixel(surface.Context(), x, y));
  return picture;
}

// The number of pixels that differ, and the first of them in words.
int Differences(const Picture& raster, const Picture& gdi, std::uint32_t scene) {
  int count = 0;
  for (std::int32_t y = 0; y < kHeight; ++y) {
    for (std::int32_t x = 0; x < kWidth; ++x) {
      if (raster.At(x, y) == gdi.At(x, y)) continue;
      if (count++ == 0) ADD_FAILURE() << "scene " << scene << " differs first at " << x << ", " << y;
    }
  }
  return count;
}

TEST(SurfaceComparison, one_pixel_pens_draw_the_same_pixels) {
  RasterSurface raster(kWidth, kHeight);
  GdiSurface gdi(kWidth, kHeight);
  for (std::uint32_t scene = 0; scene < 300; ++scene) {
    LineScene(kWidth, kHeight, scene).DrawOn(raster);
    LineScene(kWidth, kHeight, scene).DrawOn(gdi);
    ASSERT_EQ(Differences(PictureOf(raster), PictureOf(gdi), scene), 0);
  }
}

constexpr std::int32_t kTolerance = 2;  // pixels from the edge of a stroke

// Whether another colour occurs within the tolerance: the pixel lies along the edge of what was drawn.
bool AlongEdge(const Picture& picture, std::int32_t x, std::int32_t y) {
  const std::uint32_t own = picture.At(x, y);
  for (std::int32_t v = std::max(y - kTolerance, 0); v <= std::min(y + kTolerance, kHeight - 1); ++v)
    for (std::int32_t u = std::max(x - kTolerance, 0); u <= std::min(x + kTolerance, kWidth - 1); ++u)
      if (picture.At(u, v) != own) return true;
  return false;
}

// The tolerance for wide pens: only pixels along the edge of a stroke may differ.
void CompareStroke(std::int16_t pen, PixelPoint from, PixelPoint to) {
  RasterSurface raster(kWidth, kHeight);
  GdiSurface gdi(kWidth, kHeight);
  for (DrawingSurface* surface :
       {static_cast<DrawingSurface*>(&raster), static_cast<DrawingSurface*>(&gdi)}) {
    surface->Clear();
    surface->SetPenWidth(pen);
    surface->Line(from, to, 0);
  }
  const Picture drawn = PictureOf(raster);
  const Picture platform = PictureOf(gdi);
  for (std::int32_t y = 0; y < kHeight; ++y) {
    for (std::int32_t x = 0; x < kWidth; ++x) {
      if (drawn.At(x, y) == platform.At(x, y)) continue;
      ASSERT_TRUE(AlongEdge(drawn, x, y)) << "pen " << pen << " from " << from.x << ", " << from.y << " to "
                                          << to.x << ", " << to.y << " at " << x << ", " << y;
    }
  }
}

TEST(SurfaceComparison, wide_pens_differ_only_along_the_edge_of_a_stroke) {
  std::mt19937 bits(7);
  constexpr std::uint32_t kMargin = 20;  // whole strokes, with their edges, lie inside
  const auto anyPoint = [&] {
    const auto x = static_cast<std::int16_t>(kMargin + bits() % (kWidth - 2 * kMargin));
    return PixelPoint{x, static_cast<std::int16_t>(kMargin + bits() % (kHeight - 2 * kMargin))};
  };
  for (std::int16_t pen = 2; pen <= 30; ++pen) {
    for (int i = 0; i < 4; ++i) {
      const PixelPoint from = anyPoint();
      CompareStroke(pen, from, anyPoint());
    }
    CompareStroke(pen, {100, 70}, {100, 70});
    CompareStroke(pen, {50, 70}, {150, 70});
    CompareStroke(pen, {100, 30}, {100, 100});
  }
}

TEST(SurfaceComparison, a_new_size_keeps_the_old_drawing_at_the_top_left) {
  RasterSurface raster(100, 60);
  GdiSurface gdi(100, 60);
  for (DrawingSurface* surface :
       {static_cast<DrawingSurface*>(&raster), static_cast<DrawingSurface*>(&gdi)}) {
    surface->Clear();
    surface->Line({0, 0}, {99, 59}, 255);
  }
  raster.Resize(kWidth, kHeight);
  gdi.Resize(kWidth, kHeight);
  EXPECT_EQ(Differences(PictureOf(raster), PictureOf(gdi), 0), 0);
  EXPECT_EQ(raster.ColourAt(0, 0), 255u);
  EXPECT_EQ(raster.ColourAt(150, 100), 0xFFFFFFu);
}

}  // namespace
}  // namespace plotvane::graph::test
