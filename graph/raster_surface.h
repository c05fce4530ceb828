// RasterSurface: a drawing surface in memory, for programs and systems without windows.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>

#include "graph/drawing_surface.h"

namespace plotvane::graph {

// White, drawn on in black where no colour is given. With a pen of one pixel its pixels are those of the
// platform's own surface; with wider pens some of those within two pixels of a stroke's edge may differ
// (graph/stroke.h). A side may be 0: drawing then has no effect.
class RasterSurface : public DrawingSurface {
 public:
  // Sides in pixels, 0 to 32,767. Error 5 outside of that, error 7 when there is no memory.
  RasterSurface(std::int32_t width, std::int32_t height);

  // A new size keeps the old drawing at the top left. Errors as above, and then the surface stays as it was.
  void Resize(std::int32_t width, std::int32_t height);

  [[nodiscard]] std::int32_t Width() const noexcept { return mWidth; }
  [[nodiscard]] std::int32_t Height() const noexcept { return mHeight; }

  // Plain colours, 0x00BBGGRR. The point, or row, lies inside the surface; `pixels` holds Width() of them.
  [[nodiscard]] std::uint32_t ColourAt(std::int32_t x, std::int32_t y) const noexcept;
  void CopyRow(std::int32_t y, std::span<std::uint32_t> pixels) const noexcept;

  // What the pointer was set to last.
  [[nodiscard]] PointerKind Pointer() const noexcept { return mPointer; }

  // DrawingSurface; Refresh and persistent drawing have nothing to do here.
  void Clear() override;
  void SetPersistentDrawing(bool) override {}
  void SetPixel(PixelPoint point, Colour colour) override;
  void SetPixel(PixelPoint point) override;
  void Line(PixelPoint from, PixelPoint to, Colour colour) override;
  void Line(PixelPoint from, PixelPoint to) override;
  void Refresh() override {}
  [[nodiscard]] double ScaleWidth() override { return mWidth; }
  [[nodiscard]] double ScaleHeight() override { return mHeight; }
  [[nodiscard]] std::int16_t GetPenWidth() override { return mPenWidth; }
  void SetPenWidth(std::int16_t width) override { mPenWidth = width; }
  void SetPointer(PointerKind kind) override { mPointer = kind; }
  [[nodiscard]] std::int32_t DeviceContext() override { return 0; }

 private:
  struct Free {
    void operator()(std::uint32_t* pixels) const noexcept { std::free(pixels); }
  };
  // Each pixel's difference from the background, as bits: zero is an untouched pixel. Fresh memory is zero
  // already, so that a surface of any size costs only what is drawn on it.
  using Pixels = std::unique_ptr<std::uint32_t[], Free>;

  [[nodiscard]] static Pixels Allocate(std::int32_t width, std::int32_t height);
  [[nodiscard]] std::size_t Offset(std::int32_t x, std::int32_t y) const noexcept;
  void DrawThinLine(PixelPoint from, PixelPoint to, std::uint32_t ink) noexcept;
  void DrawStroke(PixelPoint from, PixelPoint to, std::uint32_t ink) noexcept;

  std::int32_t mWidth;
  std::int32_t mHeight;
  Pixels mPixels;
  std::int16_t mPenWidth = 1;
  PointerKind mPointer = PointerKind::Arrow;
};

}  // namespace plotvane::graph
