#include "graph/zooms.h"

#include "graph/checked_arithmetic.h"

namespace plotvane::graph {

namespace {

// The angle constant of the trigonometric window: a near miss of pi, kept as it is.
constexpr double kTrigAngle = 3.141592655359;

}  // namespace

void CentreOnCurrentPoint(WindowModel& window) {
  window.H_2 = Checked(window.H / 2);
  window.W_2 = Checked(window.W / 2);
  window.Xmin = Checked(window.CurrentX - window.W_2);
  window.Xmax = Checked(window.W_2 + window.CurrentX);
  window.Ymin = Checked(window.CurrentY - window.H_2);
  window.Ymax = Checked(window.H_2 + window.CurrentY);
}

void MeasureRange(WindowModel& window) {
  window.W = Checked(window.Xmax - window.Xmin);
  window.H = Checked(window.Ymax - window.Ymin);
}

void DivideByZoomFactors(WindowModel& window) {
  window.W = Divide(window.W, window.ZX);
  window.H = Divide(window.H, window.ZY);
}

void MultiplyByZoomFactors(WindowModel& window) {
  window.W = Checked(window.ZX * window.W);
  window.H = Checked(window.ZY * window.H);
}

bool SelectBox(WindowModel& window, PixelBox box) {
  window.W = Checked(box.width * window.XPixelSize);
  window.H = Checked(box.height * window.YPixelSize);
  if (window.W == 0 || window.H == 0) return false;
  const RealPoint topLeft = PixelToReal(window.Mapping(), {box.left, box.top});
  window.Xmin = topLeft.x;
  window.Xmax = Checked(topLeft.x + window.W);
  window.Ymax = topLeft.y;
  window.Ymin = Checked(topLeft.y - window.H);
  return true;
}

void SetStandardRange(WindowModel& window) {
  window.Xmax = 10;
  window.Xmin = -10;
  window.Ymax = 10;
  window.Ymin = -10;
  window.W = 20;
  window.H = 20;
  window.Xscl = 1;
  window.Yscl = 1;
}

void SetTrigRange(WindowModel& window, bool degrees) {
  window.Xmin = degrees ? -405 : (-9.0 / 4) * kTrigAngle;
  window.Xscl = degrees ? 45 : kTrigAngle / 2;
  window.Xmax = -window.Xmin;
  window.H = 8;
  window.W = window.Xmax - window.Xmin;
  window.Yscl = 1;
  window.Ymax = 4;
  window.Ymin = -4;
}

void SetRangeByPixelSize(WindowModel& window, double pixelSize) {
  window.XPixelSize = pixelSize;
  window.YPixelSize = pixelSize;
  window.Xmax = RoundToMultiple(Checked(pixelSize * 0.5 * window.SurfaceWidth), pixelSize);
  window.Xmin = -window.Xmax;
  window.Ymax = RoundToMultiple(Checked(pixelSize * 0.5 * window.SurfaceHeight), pixelSize);
  window.Ymin = -window.Ymax;
  window.H = Checked(window.Ymax + window.Ymax);
  window.W = Checked(window.Xmax + window.Xmax);
  window.Xscl = Checked(pixelSize * 10);
  window.Yscl = Checked(pixelSize * 10);
  window.RedrawAll = true;
}

}  // namespace plotvane::graph
