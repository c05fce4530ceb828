// GraphFrame: what the graph asks of its surroundings besides the drawing surface.
#pragma once

#include <string>
#include <string_view>

#include "graph/drawing_surface.h"
#include "graph/graph_types.h"

namespace plotvane::graph {

// Implemented by the control around the graph, and by programs without a window. Any member may call back
// into the graph (a message box runs the host's message loop, `PlotDone` runs the host's code); the graph
// expects that.
class GraphFrame {
 public:
  virtual ~GraphFrame() = default;

  // The one-line status boxes `txtSimple` and `txtStatusBar1`.
  virtual void SetSimpleText(std::string_view text) = 0;
  virtual void RefreshSimpleText() = 0;
  virtual void SetStatusBarText(std::string_view text) = 0;

  // A message box with an OK button; an empty title stands for the default one.
  virtual void ShowMessage(std::string_view text, std::string_view title, MessageIcon icon) = 0;

  // The text of `txtUserCurY`, in which the user chooses a function by number.
  [[nodiscard]] virtual std::string UserCurYText() = 0;
  virtual void FocusUserCurY() = 0;

  // The zoom box as it was last drawn.
  [[nodiscard]] virtual PixelBox ZoomBox() = 0;

  // The trace marker `shpTraceBox`; positions are those of its top left pixel.
  virtual void ShowTraceMarker(bool visible) = 0;
  virtual void PlaceTraceMarker(PixelPoint topLeft) = 0;
  [[nodiscard]] virtual PixelExtent TraceMarkerSize() = 0;

  // Raises the event `PlotDone`.
  virtual void RaisePlotDone() = 0;
};

}  // namespace plotvane::graph
