// Canvas: the surface as one drawing pass sees it.
#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include "graph/drawing_surface.h"
#include "platform/runtime_error.h"

namespace plotvane::graph {

// A pass may be overtaken: the host plots again from inside a callback. The newer pass then runs to its end,
// and the older one draws no more: its canvas is no longer live and swallows what is drawn on it. The canvas
// keeps the surface alive, since the host may replace it meanwhile.
class Canvas {
 public:
  // `newestPass` counts the passes begun so far and outlives the canvas. Error 91 without a surface.
  Canvas(std::shared_ptr<DrawingSurface> surface, const std::uint32_t& newestPass)
      : mSurface(std::move(surface)), mNewestPass(newestPass), mPass(newestPass) {
    if (!mSurface) throw platform::RunTimeError(platform::StandardError::ObjectNotSet);
  }

  [[nodiscard]] bool Live() const noexcept { return mPass == mNewestPass; }
  [[nodiscard]] DrawingSurface& Surface() const noexcept { return *mSurface; }

  void SetPixel(PixelPoint point) const {
    if (Live()) mSurface->SetPixel(point);
  }
  void SetPixel(PixelPoint point, Colour colour) const {
    if (Live()) mSurface->SetPixel(point, colour);
  }
  void Line(PixelPoint from, PixelPoint to) const {
    if (Live()) mSurface->Line(from, to);
  }
  void Line(PixelPoint from, PixelPoint to, Colour colour) const {
    if (Live()) mSurface->Line(from, to, colour);
  }
  void Refresh() const {
    if (Live()) mSurface->Refresh();
  }

 private:
  std::shared_ptr<DrawingSurface> mSurface;
  const std::uint32_t& mNewestPass;
  std::uint32_t mPass;
};

}  // namespace plotvane::graph
