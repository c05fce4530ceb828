#include "graph/window_model.h"

#include "graph/checked_arithmetic.h"

namespace plotvane::graph {

EmptySides WindowModel::ComputePixelSizes() {
  const double xCandidate = Divide(Checked(Xmax - Xmin), SurfaceWidth);
  const double yCandidate = Divide(Checked(Ymax - Ymin), SurfaceHeight);
  RedrawAll = true;
  const EmptySides empty{xCandidate == 0, yCandidate == 0};
  if (!empty.x && !empty.y) {
    XPixelSize = xCandidate;
    YPixelSize = yCandidate;
  }
  return empty;
}

}  // namespace plotvane::graph
