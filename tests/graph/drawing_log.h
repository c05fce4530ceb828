// A surface and a frame that write down what is asked of them, in one list of lines, so that a drawing can be
// compared as text.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "graph/drawing_surface.h"
#include "graph/graph_frame.h"

namespace plotvane::graph::test {

using Log = std::vector<std::string>;

inline std::string Text(PixelPoint point) {
  return std::to_string(point.x) + "," + std::to_string(point.y);
}

// "line 0,0 9,9 colour 255", "pixel 3,4", "clear", "persistent on", "pointer 5", "refresh".
class RecordingSurface : public DrawingSurface {
 public:
  RecordingSurface(Log& log, double width, double height) : mLog(log), mWidth(width), mHeight(height) {}

  // Runs before each call is written down; may throw or call back into the graph.
  std::function<void(std::string_view)> onCall;

  void Clear() override { Write("clear"); }
  void SetPersistentDrawing(bool on) override { Write(on ? "persistent on" : "persistent off"); }
  void SetPixel(PixelPoint point, Colour colour) override {
    Write("pixel " + Text(point) + " colour " + std::to_string(colour));
  }
  void SetPixel(PixelPoint point) override { Write("pixel " + Text(point)); }
  void Line(PixelPoint from, PixelPoint to, Colour colour) override {
    Write("line " + Text(from) + " " + Text(to) + " colour " + std::to_string(colour));
  }
  void Line(PixelPoint from, PixelPoint to) override { Write("line " + Text(from) + " " + Text(to)); }
  void Refresh() override { Write("refresh"); }
  double ScaleWidth() override { return mWidth; }
  double ScaleHeight() override { return mHeight; }
  std::int16_t GetPenWidth() override { return mPenWidth; }
  void SetPenWidth(std::int16_t width) override { mPenWidth = width; }
  void SetPointer(PointerKind kind) override { Write("pointer " + std::to_string(static_cast<int>(kind))); }
  std::int32_t DeviceContext() override { return 0; }

 private:
  void Write(std::string line) {
    if (onCall) onCall(line);
    mLog.push_back(std::move(line));
  }

  Log& mLog;
  double mWidth;
  double mHeight;
  std::int16_t mPenWidth = 1;
};

// "simple …", "refresh simple", "status …", "message …|title|icon", "focus", "marker on", "marker at 3,4",
// "PlotDone".
class RecordingFrame : public GraphFrame {
 public:
  explicit RecordingFrame(Log& log) : mLog(log) {}

  std::string userCurY;
  PixelBox zoomBox;
  PixelExtent markerSize{7, 7};
  std::function<void(std::string_view)> onCall;  // as for the surface

  void SetSimpleText(std::string_view text) override { Write("simple " + std::string(text)); }
  void RefreshSimpleText() override { Write("refresh simple"); }
  void SetStatusBarText(std::string_view text) override { Write("status " + std::string(text)); }
  void ShowMessage(std::string_view text, std::string_view title, MessageIcon icon) override {
    constexpr const char* kIcons[] = {"none", "error", "exclamation"};
    Write("message " + std::string(text) + "|" + std::string(title) + "|" + kIcons[static_cast<int>(icon)]);
  }
  std::string UserCurYText() override { return userCurY; }
  void FocusUserCurY() override { Write("focus"); }
  PixelBox ZoomBox() override { return zoomBox; }
  void ShowTraceMarker(bool visible) override { Write(visible ? "marker on" : "marker off"); }
  void PlaceTraceMarker(PixelPoint topLeft) override { Write("marker at " + Text(topLeft)); }
  PixelExtent TraceMarkerSize() override { return markerSize; }
  void RaisePlotDone() override { Write("PlotDone"); }

 private:
  void Write(std::string line) {
    if (onCall) onCall(line);
    mLog.push_back(std::move(line));
  }

  Log& mLog;
};

// The lines of the log that begin with `start`, in their order.
inline Log LinesStarting(const Log& log, std::string_view start) {
  Log found;
  for (const std::string& line : log)
    if (line.starts_with(start)) found.push_back(line);
  return found;
}

}  // namespace plotvane::graph::test
