// GraphFields and WindowModel: the viewing rectangle, its pixel sizes and the current point.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "graph/drawing_surface.h"
#include "graph/graph_types.h"
#include "graph/mapping.h"

namespace plotvane::graph {

// The public fields of the graph: reading and writing only loads and stores. Whoever changes one calls
// PrepareGraph and PlotAllY afterwards. Values are those of a fresh control.
struct GraphFields {
  std::shared_ptr<DrawingSurface> PIC;  // the plotting surface; replaceable

  // Width and height of the rectangle in real units. They are kept apart from the edges: zooms set them, and
  // only the range status recomputes them from the edges. A host that writes the edges and zooms at once
  // zooms from the old size; this is deliberate.
  double W = 20;
  double H = 20;
  double W_2 = 0;  // halves of W and H, set by MoveRangeToPointXY
  double H_2 = 0;

  double Xmax = 10;  // the edges in real units; a reversed pair mirrors the picture
  double Xmin = -10;
  double Ymax = 10;
  double Ymin = -10;
  double Xscl = 1;  // distance between divisions in real units
  double Yscl = 1;

  bool ShowAxis = true;
  bool ShowAxisDivisions = true;
  bool ShowGrid = false;
  bool RedrawAll = false;  // the next PlotAllY evaluates every function afresh
  std::int32_t GCStyle = RECTGC;
  std::int32_t PlotStyle = DRAWLINE;
  bool RedrawGridOnResize = true;
  bool RedrawAxisOnResize = true;
  float ZX = 4;  // zoom factors
  float ZY = 4;

  // The texts from which the numbers of the same name were last set.
  std::string ZXStr, ZYStr, XMinStr, XMaxStr, YMinStr, YMaxStr, XSclStr, YSclStr;
};

// Which sides of a range are empty.
struct EmptySides {
  bool x = false;
  bool y = false;
};

// The public fields together with the working state of the graph engine.
struct WindowModel : GraphFields {
  double XPixelSize = 0;  // real units per pixel; 0 until the first PrepareGraph
  double YPixelSize = 0;
  std::int16_t SurfaceWidth = 0;  // in pixels, set by the layout
  std::int16_t SurfaceHeight = 0;

  double CurrentX = 0;  // the current point in real units: plot position, zoom centre, trace position
  double CurrentY = 0;
  PixelPoint CurrentPixel;   // CurrentPixelX, CurrentPixelY
  PixelPoint PreviousPixel;  // the point from which a line is drawn

  [[nodiscard]] RealPoint CurrentPoint() const noexcept { return {CurrentX, CurrentY}; }
  void SetCurrentPoint(RealPoint point) noexcept {
    CurrentX = point.x;
    CurrentY = point.y;
  }

  [[nodiscard]] PixelMapping Mapping() const noexcept {
    return {Xmin, Ymin, XPixelSize, YPixelSize, SurfaceHeight};
  }

  void CurrentPointToPixel() { CurrentPixel = RealToPixel(Mapping(), CurrentPoint()); }
  void CurrentPixelToPoint() { SetCurrentPoint(PixelToReal(Mapping(), CurrentPixel)); }

  // Computes the pixel sizes from the edges and sets RedrawAll. When a side is empty neither size is stored,
  // not even that of the other side: the earlier ones stay in force, deliberately. Error 11 for a surface
  // without width or height, error 6 for a range that is too large; nothing changes then.
  EmptySides ComputePixelSizes();
};

}  // namespace plotvane::graph
