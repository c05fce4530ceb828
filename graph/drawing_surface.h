// DrawingSurface: the few operations that the graph needs from whatever it is drawn on.
#pragma once

#include <cstdint>

namespace plotvane::graph {

// A position on the surface in pixels, growing rightwards and downwards; (0, 0) is the top left pixel.
struct PixelPoint {
  std::int16_t x = 0;
  std::int16_t y = 0;
  friend constexpr bool operator==(PixelPoint, PixelPoint) = default;
};

// Mouse pointers by the kind numbers of SetSurfacePointer.
enum class PointerKind : std::int16_t {
  Arrow = 0,
  ZoomIn = 1,
  ZoomOut = 2,
  SizeWestEast = 3,
  Cross = 4,
  Hourglass = 5,
};

// A colour number as hosts write it: red + 256 × green + 65536 × blue. Negative numbers are the platform's
// system colours.
using Colour = std::int32_t;

// Implemented by the portable raster surface, the GDI surface and the adapter over an object that a host
// assigned to `PIC`. Drawing is clipped to the surface. A host's object may raise errors of its own: they
// come as platform::RunTimeError from any member.
class DrawingSurface {
 public:
  virtual ~DrawingSurface() = default;

  // Fills the surface with its background colour.
  virtual void Clear() = 0;
  // What is drawn from now on survives being covered.
  virtual void SetPersistentDrawing(bool on) = 0;

  // One pixel; with a pen wider than 1 a filled disc of that diameter around it.
  virtual void SetPixel(PixelPoint point, Colour colour) = 0;
  virtual void SetPixel(PixelPoint point) = 0;  // in the surface's foreground colour

  // With a pen of width 1 a one-pixel line whose last pixel is left out, with a wider pen a round-capped
  // stroke.
  virtual void Line(PixelPoint from, PixelPoint to, Colour colour) = 0;
  virtual void Line(PixelPoint from, PixelPoint to) = 0;  // in the surface's foreground colour

  // Shows what was drawn.
  virtual void Refresh() = 0;

  // Size in pixels.
  [[nodiscard]] virtual double ScaleWidth() = 0;
  [[nodiscard]] virtual double ScaleHeight() = 0;

  // Pen width in pixels, as it was set; below 1 it draws as 1.
  [[nodiscard]] virtual std::int16_t GetPenWidth() = 0;
  virtual void SetPenWidth(std::int16_t width) = 0;

  virtual void SetPointer(PointerKind kind) = 0;

  // The device-context handle as a number, 0 where there is none.
  [[nodiscard]] virtual std::int32_t DeviceContext() = 0;
};

}  // namespace plotvane::graph
