#include "graph/readout.h"

#include <cmath>

#include "graph/checked_arithmetic.h"
#include "platform/number_text.h"

namespace plotvane::graph {

using platform::NumberText;

std::string RectangularText(RealPoint point) {
  return "X=" + NumberText(point.x) + "    Y=" + NumberText(point.y);
}

std::string PolarText(RealPoint point) {
  const double angle = point.x != 0 ? std::atan(Divide(point.y, point.x)) : 0;
  const double radius = std::sqrt(Checked(point.y * point.y + point.x * point.x));
  return "RADIUS=" + NumberText(radius) + "    REFANGLE=" + NumberText(angle) + " radians";
}

std::string CoordinateText(std::int32_t style, RealPoint point) {
  const bool rectangular = style % 2 != 0;
  return rectangular ? RectangularText(point) : PolarText(point) + "   " + RectangularText(point);
}

std::string RangeStatusText(const GraphFields& range) {
  const std::string width = NumberText(range.W);
  return "(" + width + " x " + width + ")  Xmin=" + NumberText(range.Xmin) +
         "  XMax=" + NumberText(range.Xmax) + "  YMin=" + NumberText(range.Ymin) +
         "  YMax=" + NumberText(range.Ymax);
}

}  // namespace plotvane::graph
