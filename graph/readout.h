// The texts in which positions and ranges are reported; numbers with up to 15 significant digits.
#pragma once

#include <cstdint>
#include <string>

#include "graph/mapping.h"
#include "graph/window_model.h"

namespace plotvane::graph {

// "X=1    Y=2"
[[nodiscard]] std::string RectangularText(RealPoint point);

// "RADIUS=5    REFANGLE=0 radians". The angle is the reference angle arctan(y / x), between -pi/2 and pi/2:
// the quadrant is not resolved, a point on the y axis shows 0, and the unit is radians in degree mode too.
// All of this is deliberate. Error 6 when the radius or the quotient is too large.
[[nodiscard]] std::string PolarText(RealPoint point);

// The rectangular text for an odd style; for an even one the polar text, three blanks, the rectangular text.
[[nodiscard]] std::string CoordinateText(std::int32_t style, RealPoint point);

// "(20 x 20)  Xmin=-10  XMax=10  YMin=-10  YMax=10". The size in brackets is W twice and never H,
// deliberately.
[[nodiscard]] std::string RangeStatusText(const GraphFields& range);

}  // namespace plotvane::graph
