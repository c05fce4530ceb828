// SilentFrame: the surroundings of a graph that has no window.
#pragma once

#include <string>
#include <string_view>

#include "graph/graph_frame.h"

namespace plotvane::terminal {

class SilentFrame : public graph::GraphFrame {
 public:
  // The text of the first message box that a window would have shown; empty when there was none.
  [[nodiscard]] const std::string& Message() const noexcept { return mMessage; }

  void SetSimpleText(std::string_view) override {}
  void RefreshSimpleText() override {}
  void SetStatusBarText(std::string_view) override {}
  void ShowMessage(std::string_view text, std::string_view, graph::MessageIcon) override {
    if (mMessage.empty()) mMessage = text;
  }
  std::string UserCurYText() override { return "1"; }
  void FocusUserCurY() override {}
  graph::PixelBox ZoomBox() override { return {}; }
  void ShowTraceMarker(bool) override {}
  void PlaceTraceMarker(graph::PixelPoint) override {}
  graph::PixelExtent TraceMarkerSize() override { return {}; }
  void RaisePlotDone() override {}

 private:
  std::string mMessage;
};

}  // namespace plotvane::terminal
