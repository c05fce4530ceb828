// PathCache: the pixel path that a function was last drawn along, point by point.
#pragma once

#include <cstdint>
#include <vector>

#include "graph/drawing_surface.h"

namespace plotvane::graph {

// Points are numbered 1 to n; one of them is the current one. The index may stand one past the end (after
// SaveXYPathThenNext at the last point); an access there is error 9.
class PathCache {
 public:
  // To the next point and true; at the last point back to the first and false.
  bool NextPixel() noexcept;
  // To the previous point and true; at the first point on to the last and false.
  bool PreviousPixel() noexcept;
  [[nodiscard]] std::int16_t CurrentPixelIndex() const noexcept { return mIndex; }

  // The function was undefined at the current point.
  [[nodiscard]] bool GetIsBadPixel() const { return Current().bad; }
  void SetIsBadPixel(bool bad) { Current().bad = bad; }

  // The pixel of the current point.
  [[nodiscard]] std::int16_t GetXPath() const { return Current().pixel.x; }
  void SetXPath(std::int16_t column) { Current().pixel.x = column; }
  [[nodiscard]] std::int16_t GetYPath() const { return Current().pixel.y; }
  void SetYPath(std::int16_t row) { Current().pixel.y = row; }
  [[nodiscard]] PixelPoint GetPixel() const { return Current().pixel; }

  void SetPixelToFirst() noexcept { mIndex = 1; }

  // Makes room for that many points, all (0, 0) and not bad, and goes to the first. Error 9 for a negative
  // number.
  void Redimension(std::int16_t numOfPixels);

  // Stores a defined point at the current position, then moves on by one, without wrapping and without a
  // test.
  void SaveXYPathThenNext(std::int16_t x, std::int16_t y);

  [[nodiscard]] std::int16_t NumberOfPixels() const noexcept {
    return static_cast<std::int16_t>(mPoints.size());
  }

 private:
  struct Point {
    PixelPoint pixel;
    bool bad = false;
  };
  [[nodiscard]] Point& Current() { return mPoints[Position()]; }
  [[nodiscard]] const Point& Current() const { return mPoints[Position()]; }
  [[nodiscard]] std::size_t Position() const;

  std::vector<Point> mPoints;
  std::int16_t mIndex = 1;
};

}  // namespace plotvane::graph
