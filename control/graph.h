// Graph: the control without its window: everything a host can see, and the state behind the toolbar, the
// mouse and the dialogs.
//
//   auto graph = Graph::Create(face);
//   graph->SetYArray({y1, y2});          // draws at once
//   graph->Engine().Xmin = 0;            // the public fields are those of the engine
//   graph->PrepareGraph();
//   graph->PlotAllY();
//
// Members called by a host let run-time errors pass as platform::RunTimeError; what the user does goes
// through Gestures (control/gestures.h), where an error becomes the text of `txtSimple`. Either way the host
// may call back, or let go of the control, from inside PlotDone, its variable table, a message box, a menu or
// a dialog: each member keeps the object alive until it returns.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "control/geometry.h"
#include "graph/drawing_surface.h"
#include "graph/y_function.h"
#include "platform/variable_table.h"

namespace plotvane::engine {
class clsExp;
}
namespace plotvane::graph {
class GraphEngine;
}

namespace plotvane::control {

class Face;
class Gestures;

// The eight numbers that are written as expression texts, in the order of the interface.
enum class RangeText { ZX, ZY, XMin, XMax, YMin, YMax, XScl, YScl };

class Graph : public std::enable_shared_from_this<Graph> {
 public:
  // A control with the state of a new one: standard range, no functions, radians, its own variable table. The
  // face stays in use until the control is destroyed.
  [[nodiscard]] static std::shared_ptr<Graph> Create(std::shared_ptr<Face> face);

  // Releases the expression object, the surface and the zoom-box outline, then closes every dialog of the
  // component that is open in this thread, the last opened first.
  ~Graph();

  // ---- Public fields: W to YSclStr are members of the engine ----
  [[nodiscard]] graph::GraphEngine& Engine() noexcept;
  // The surface that is drawn on; the control's own picture until a host replaces it. No surface: error 91.
  [[nodiscard]] std::shared_ptr<graph::DrawingSurface> GetPIC() const noexcept;
  void SetPIC(std::shared_ptr<graph::DrawingSurface> surface);

  // ---- Properties ----
  [[nodiscard]] bool GetDegreeMode();
  void SetDegreeMode(bool degrees);
  [[nodiscard]] bool GetToolBarVisible() const noexcept;
  void SetToolBarVisible(bool visible);
  [[nodiscard]] std::shared_ptr<platform::VariableTable> GetVarTable();
  void SetVarTable(std::shared_ptr<platform::VariableTable> table);
  [[nodiscard]] std::int16_t GetPenWidth();
  void SetPenWidth(std::int16_t width);
  [[nodiscard]] std::int16_t GetPlotPixelStep() const noexcept;
  void SetPlotPixelStep(std::int16_t step);
  [[nodiscard]] std::string GetStringEval(RangeText which) const;
  void SetStringEval(RangeText which, std::string_view text);

  // ---- Methods ----
  void PlotAllY();
  void EvaluateAndPlotEachPoint();
  void PlotPointXY();
  void MoveRangeToPointXY();
  void ZoomInXY();
  void ZoomOutXY();
  void ZoomInPixel(float pixelX, float pixelY);
  void ZoomOutPixel(float pixelX, float pixelY);
  void ZBoxPixel();
  void ZStandard();
  void ZTrig();
  void ZNum(double pixelSize);
  void ZInt();
  void ZDec();
  void PrepareGraph();
  // The functions Y1, Y2, … as shared objects; none of them is null.
  void SetYArray(std::vector<std::shared_ptr<graph::YFunction>> functions, bool redrawGraph = true);
  void ShowFormatEditor();
  [[nodiscard]] std::int32_t GetGraphHDC();
  [[nodiscard]] std::int32_t GetGraphWidth();
  [[nodiscard]] std::int32_t GetGraphHeight();
  [[nodiscard]] std::shared_ptr<graph::DrawingSurface> GetGraphPicture();

  // ---- Event ----
  // Called at the end of every PlotAllY; an empty function lets go of the host.
  void SetPlotDone(std::function<void()> handler);

  // ---- For the face ----
  // The control has got this size in pixels: lays out, takes the size of the surface, redraws axes and grid
  // as RedrawAxisOnResize and RedrawGridOnResize ask. Never throws a run-time error; shows its text.
  void Resize(PixelSize size);
  // What the user does.
  [[nodiscard]] Gestures& Events() noexcept;
  // In a host's designer the control shows its axes and lets the user do nothing.
  void SetDesignMode(bool designing) noexcept;
  [[nodiscard]] bool IsDesignMode() const noexcept;

 private:
  friend class Gestures;
  struct Parts;
  explicit Graph(std::shared_ptr<Face> face);

  std::unique_ptr<Parts> mParts;
};

}  // namespace plotvane::control
