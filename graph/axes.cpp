#include "graph/axes.h"

#include "graph/checked_arithmetic.h"
#include "platform/conversions.h"

namespace plotvane::graph {

namespace {

constexpr std::int32_t kMarkLength = 3;  // pixels

// Counts a coordinate of the current point over the divisions between two edges. Each division is the sum of
// the one before and the scale; truncation towards zero may put the first outside the window. Ends quietly
// when adding the scale no longer changes the counter.
template <typename DrawDivision>
void ForEachDivision(double& counter, double low, double high, double scale, std::int32_t mostPasses,
                     const Canvas& canvas, DrawDivision draw) {
  platform::CountedLoop loop(TruncateToMultiple(low, scale), TruncateToMultiple(high, scale), scale);
  for (; loop.Running() && canvas.Live() && mostPasses > 0; loop.Advance(), --mostPasses) {
    counter = loop.Counter();
    draw();
  }
  counter = loop.Counter();
}

void DrawXMarks(WindowModel& window, const Canvas& canvas, std::int16_t axisRow) {
  window.CurrentY = 0;
  ForEachDivision(window.CurrentX, window.Xmin, window.Xmax, window.Xscl, MostDivisions(window.SurfaceWidth),
                  canvas, [&] {
                    window.CurrentPointToPixel();
                    const std::int16_t column = window.CurrentPixel.x;
                    canvas.Line({column, axisRow}, {column, Checked16(axisRow - kMarkLength)});
                  });
}

void DrawYMarks(WindowModel& window, const Canvas& canvas, std::int16_t axisColumn) {
  window.CurrentX = 0;
  ForEachDivision(window.CurrentY, window.Ymin, window.Ymax, window.Yscl, MostDivisions(window.SurfaceHeight),
                  canvas, [&] {
                    window.CurrentPointToPixel();
                    const std::int16_t row = window.CurrentPixel.y;
                    canvas.Line({axisColumn, row}, {Checked16(axisColumn + kMarkLength), row});
                  });
}

void DrawMarks(WindowModel& window, const Canvas& canvas, PixelPoint origin) {
  if (Divide(window.Xscl, window.XPixelSize) >= 1 && origin.y > 0 && origin.y < window.SurfaceHeight)
    DrawXMarks(window, canvas, origin.y);
  if (Divide(window.Yscl, window.YPixelSize) >= 1 && origin.x > 0 && origin.x < window.SurfaceWidth)
    DrawYMarks(window, canvas, origin.x);
}

bool GridIsWideEnough(const WindowModel& window, std::int16_t penWidth) {
  return Divide(Divide(window.Xscl, window.XPixelSize), penWidth) >= 1 &&
         Divide(Divide(window.Yscl, window.YPixelSize), penWidth) >= 1;
}

}  // namespace

void DrawAxes(WindowModel& window, const Canvas& canvas) {
  if (!window.ShowAxis) return;
  window.SetCurrentPoint({0, 0});
  window.CurrentPointToPixel();
  const PixelPoint origin = window.CurrentPixel;
  canvas.Line({origin.x, 0}, {origin.x, window.SurfaceHeight});
  canvas.Line({0, origin.y}, {window.SurfaceWidth, origin.y});
  if (window.ShowAxisDivisions && canvas.Live()) DrawMarks(window, canvas, origin);
}

void DrawGrid(WindowModel& window, const Canvas& canvas) {
  if (!window.ShowGrid || !canvas.Live()) return;
  if (!GridIsWideEnough(window, canvas.Surface().GetPenWidth())) return;
  const auto drawRow = [&] {
    ForEachDivision(window.CurrentX, window.Xmin, window.Xmax, window.Xscl,
                    MostDivisions(window.SurfaceWidth), canvas, [&] {
                      window.CurrentPointToPixel();
                      canvas.SetPixel(window.CurrentPixel);
                    });
  };
  ForEachDivision(window.CurrentY, window.Ymin, window.Ymax, window.Yscl, MostDivisions(window.SurfaceHeight),
                  canvas, drawRow);
}

}  // namespace plotvane::graph
