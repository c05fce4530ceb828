// LineControl: one straight line shown over the plotting surface without being drawn on it.
#pragma once

#include "graph/drawing_surface.h"

namespace plotvane::control {

// Implemented by the faces; showing, moving and hiding a line leaves the picture under it untouched.
class LineControl {
 public:
  virtual ~LineControl() = default;
  virtual void SetVisible(bool visible) = 0;
  virtual void Place(graph::PixelPoint from, graph::PixelPoint to) = 0;  // both ends belong to the line
};

}  // namespace plotvane::control
