// Scenes of random lines and dots, the same on every system, for comparing one drawing surface with another.
#pragma once

#include <cstdint>
#include <random>

#include "graph/drawing_surface.h"

namespace plotvane::graph::test {

// Draws scene number `scene` on a surface of that size. Scenes take turns: lines inside the surface, lines
// that leave it a little, lines from far outside, rays from one point to all sides, polylines as a plot draws
// them, and dots.
class LineScene {
 public:
  LineScene(std::int32_t width, std::int32_t height, std::uint32_t scene)
      : mWidth(width), mHeight(height), mKind(scene % 6), mBits(scene) {}

  void DrawOn(DrawingSurface& surface) {
    surface.Clear();
    switch (mKind) {
      case 0: DrawLines(surface, 0); break;
      case 1: DrawLines(surface, 1); break;
      case 2: DrawFarLines(surface); break;
      case 3: DrawRays(surface); break;
      case 4: DrawPolyline(surface); break;
      default: DrawDots(surface); break;
    }
  }

 private:
  static constexpr int kShapes = 24;

  // From `low` to `high`, both included; not a distribution class, whose numbers differ between libraries.
  std::int16_t Number(std::int32_t low, std::int32_t high) {
    const std::uint32_t range = static_cast<std::uint32_t>(high - low) + 1;
    return static_cast<std::int16_t>(low + static_cast<std::int32_t>(mBits() % range));
  }
  Colour AnyColour() { return static_cast<Colour>(mBits() % 0x1000000u); }
  PixelPoint Near(std::int32_t margin) {
    const std::int16_t x = Number(-margin * mWidth, mWidth + margin * mWidth);
    return {x, Number(-margin * mHeight, mHeight + margin * mHeight)};
  }
  PixelPoint Anywhere() {
    const std::int16_t x = Number(-32768, 32767);
    return {x, Number(-32768, 32767)};
  }
  void DrawOne(DrawingSurface& surface, PixelPoint from, PixelPoint to) {
    surface.Line(from, to, AnyColour());
  }

  void DrawLines(DrawingSurface& surface, std::int32_t margin) {
    for (int i = 0; i < kShapes; ++i) {
      const PixelPoint from = Near(margin);
      DrawOne(surface, from, Near(margin));
    }
  }
  void DrawFarLines(DrawingSurface& surface) {
    for (int i = 0; i < kShapes; ++i) {
      const PixelPoint from = i % 2 == 0 ? Near(0) : Anywhere();
      DrawOne(surface, from, Anywhere());
    }
  }
  void DrawRays(DrawingSurface& surface) {
    const PixelPoint centre = Near(0);
    const std::int16_t reach = Number(3, 20);
    for (std::int32_t d = -reach; d <= reach; ++d) {
      const auto x = [&](std::int32_t by) { return static_cast<std::int16_t>(centre.x + by); };
      const auto y = [&](std::int32_t by) { return static_cast<std::int16_t>(centre.y + by); };
      DrawOne(surface, centre, {x(d), y(-reach)});
      DrawOne(surface, centre, {x(d), y(reach)});
      DrawOne(surface, centre, {x(-reach), y(d)});
      DrawOne(surface, centre, {x(reach), y(d)});
    }
  }
  void DrawPolyline(DrawingSurface& surface) {
    const Colour colour = AnyColour();
    PixelPoint from{-1, Number(0, mHeight)};
    for (std::int32_t x = 1; x < mWidth; ++x) {
      const auto wide = static_cast<std::int16_t>(mBits() % 16 == 0 ? 30000 : 40);
      const PixelPoint to{static_cast<std::int16_t>(x), Number(-wide / 4, wide)};
      surface.Line(from, to, colour);
      from = to;
    }
  }
  void DrawDots(DrawingSurface& surface) {
    for (int i = 0; i < kShapes; ++i) {
      const PixelPoint where = Near(1);
      surface.SetPixel(where, AnyColour());
    }
    surface.SetPixel(Near(0));
    const PixelPoint from = Near(0);
    surface.Line(from, Near(0));
  }

  std::int32_t mWidth;
  std::int32_t mHeight;
  std::uint32_t mKind;
  std::mt19937 mBits;
};

}  // namespace plotvane::graph::test
