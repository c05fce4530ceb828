// FaceFrame: the face of a control as the graph engine's surroundings.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "control/clsLineBox.h"
#include "control/face.h"
#include "graph/graph_frame.h"

namespace plotvane::control {

class FaceFrame : public graph::GraphFrame {
 public:
  // The box outlives the frame.
  FaceFrame(std::shared_ptr<Face> face, const clsLineBox& zoomBox);

  std::function<void()> PlotDone;  // the host's handler of the event, may be empty

  void SetSimpleText(std::string_view text) override;
  void RefreshSimpleText() override;
  void SetStatusBarText(std::string_view text) override;
  void ShowMessage(std::string_view text, std::string_view title, graph::MessageIcon icon) override;
  [[nodiscard]] std::string UserCurYText() override;
  void FocusUserCurY() override;
  [[nodiscard]] graph::PixelBox ZoomBox() override;
  void ShowTraceMarker(bool visible) override;
  void PlaceTraceMarker(graph::PixelPoint topLeft) override;
  [[nodiscard]] graph::PixelExtent TraceMarkerSize() override;
  void RaisePlotDone() override;

 private:
  std::shared_ptr<Face> mFace;
  const clsLineBox& mZoomBox;
};

}  // namespace plotvane::control
