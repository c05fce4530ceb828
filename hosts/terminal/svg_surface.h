// SvgSurface: a drawing surface that keeps what is drawn as vector paths.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "graph/drawing_surface.h"

namespace plotvane::terminal {

// Lines that follow one another become one path through the very points that were drawn; dots become points
// of a path with square or round ends. Positions are the middles of pixels.
class SvgSurface : public graph::DrawingSurface {
 public:
  // Sides in pixels.
  SvgSurface(std::int32_t width, std::int32_t height) : mWidth(width), mHeight(height) {}

  void Write(std::ostream& output) const;

  void Clear() override { mShapes.clear(); }
  void SetPersistentDrawing(bool) override {}
  void SetPixel(graph::PixelPoint point, graph::Colour colour) override;
  void SetPixel(graph::PixelPoint point) override;
  void Line(graph::PixelPoint from, graph::PixelPoint to, graph::Colour colour) override;
  void Line(graph::PixelPoint from, graph::PixelPoint to) override;
  void Refresh() override {}
  double ScaleWidth() override { return mWidth; }
  double ScaleHeight() override { return mHeight; }
  std::int16_t GetPenWidth() override { return mPenWidth; }
  void SetPenWidth(std::int16_t width) override { mPenWidth = width; }
  void SetPointer(graph::PointerKind) override {}
  std::int32_t DeviceContext() override { return 0; }

 private:
  enum class Kind { Lines, Dots };
  // What is drawn in one go, with one pen and colour.
  struct Shape {
    Kind kind;
    std::uint32_t colour;  // 0x00BBGGRR
    std::int16_t penWidth;
    std::string path;
    graph::PixelPoint end;
  };
  Shape& Continue(Kind kind, graph::Colour colour);
  static void WriteShape(std::ostream& output, const Shape& shape);

  std::int32_t mWidth;
  std::int32_t mHeight;
  std::int16_t mPenWidth = 1;
  std::vector<Shape> mShapes;
};

}  // namespace plotvane::terminal
