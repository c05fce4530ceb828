// GraphEngine: the whole graph over its parts: range, plotting, axes and grid, zooms, readouts and trace.
//
//   auto surface = std::make_shared<RasterSurface>(400, 300);
//   GraphEngine graph(expression, frame);
//   graph.PIC = surface;
//   graph.ReadSurfaceSize();
//   graph.PrepareGraph();
//   graph.SetYArray({function});          // draws at once
//
// Failures are platform::RunTimeError; what was assigned before the failure keeps its new value. Every
// operation that evaluates, draws or reports runs code of the host (functions, variable table, surface,
// frame), and that code may call any operation of the same object. It must not destroy the object: the
// control around it keeps itself alive while one of its members runs.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "engine/clsExp.h"
#include "graph/graph_frame.h"
#include "graph/plotter.h"
#include "graph/tracer.h"
#include "graph/window_model.h"
#include "graph/y_function.h"

namespace plotvane::graph {

// The eight range texts, in the order in which an interface lists them.
enum class RangeText { ZX, ZY, XMin, XMax, YMin, YMax, XScl, YScl };

// The public fields (Xmin, ShowGrid, PIC, …) and the working state (CurrentX, SurfaceWidth, …) are those of
// graph/window_model.h.
class GraphEngine : public WindowModel {
 public:
  // Both outlive the graph. The error object's GraphMode is switched on: errors at single points are
  // tolerated.
  GraphEngine(engine::clsExp& expression, GraphFrame& frame);
  GraphEngine(const GraphEngine&) = delete;
  GraphEngine& operator=(const GraphEngine&) = delete;

  // --- Window model ---

  // Takes the size of the surface, in pixels; error 91 without a surface, 6 outside 16 bits.
  void ReadSurfaceSize();

  // Computes the pixel sizes; an empty side is reported by a message box. See WindowModel::ComputePixelSizes.
  void PrepareGraph();

  // The properties ZXStringEval … YSclStringEval. A written text is kept, and evaluated into its number; when
  // it gives no number, the number stays. No redraw, no PrepareGraph. Error 6 for a zoom factor beyond 32-bit
  // floats.
  [[nodiscard]] const std::string& StringEval(RangeText which) const;
  void SetStringEval(RangeText which, std::string_view text);

  // A change sets RedrawAll; writing the value it has does nothing.
  [[nodiscard]] bool GetDegreeMode() const noexcept;
  void SetDegreeMode(bool on) noexcept;

  // --- Plotting ---

  // Pixel columns between evaluated points. A change sets RedrawAll; a value below 1 or unchanged is ignored.
  [[nodiscard]] std::int16_t GetPlotPixelStep() const noexcept { return mPlotter.PixelStep(); }
  void SetPlotPixelStep(std::int16_t step) noexcept;

  // Pen width of the surface; error 91 without one.
  [[nodiscard]] std::int16_t GetPenWidth();
  void SetPenWidth(std::int16_t width);

  // Functions 1 to N; none may be null (424), more than 32,767 are error 6. The objects are shared, not
  // copied.
  void SetYArray(std::vector<std::shared_ptr<YFunction>> functions, bool redrawGraph = true);
  [[nodiscard]] std::int16_t FunctionCount() const noexcept { return mPlotter.FunctionCount(); }
  // n from 1; error 9 outside 1 to the count.
  [[nodiscard]] std::shared_ptr<YFunction> Function(std::int16_t n) const { return mPlotter.Function(n); }

  void PlotAllY() { mPlotter.PlotAllY(); }
  void EvaluateAndPlotEachPoint() { mPlotter.EvaluateAndPlotEachPoint(); }
  void PlotPointXY() { mPlotter.PlotPointXY(); }

  // Number and equation of the current function; 0 and empty before the first.
  [[nodiscard]] std::int16_t CurrentFunctionIndex() const noexcept { return mPlotter.Current().index; }
  void SetCurrentFunctionIndex(std::int16_t n) noexcept { mPlotter.Current().index = n; }
  [[nodiscard]] const std::string& CurrentEquation() const noexcept { return mPlotter.Current().equation; }

  // --- Axes and grid ---

  void DrawAxes();
  void DrawGrid();

  // Pointer of the surface; error 91 without one.
  void SetSurfacePointer(PointerKind kind);

  // --- Zooms and range moves ---

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
  void MoveRangeToPixel(float x, float y);

  // --- Readouts ---

  [[nodiscard]] std::string RectangularText() const;
  [[nodiscard]] std::string PolarText() const;
  [[nodiscard]] std::string CoordinateText() const;
  void ShowCoordinates();
  void ShowCoordinatesAtPixel(float x, float y);
  // Recomputes W and H from the edges, then shows the range.
  void ShowRangeStatus();

  // --- Evaluation at a point, choice of the function, trace ---

  // The current equation at x = CurrentX into CurrentY; false leaves CurrentY alone. `x` is given back.
  [[nodiscard]] bool EvaluateCurrentFunctionAt() { return mTracer.EvaluateCurrentFunctionAt(); }
  [[nodiscard]] bool EvaluateAtPixelColumn(float x) { return mTracer.EvaluateAtPixelColumn(x); }

  // The function whose number stands in `txtUserCurY` becomes current; the first quietly, the second with
  // messages. True when there is one and it has an equation.
  bool SelectFunctionFromUserBox() { return mTracer.SelectFunctionFromUserBox(); }
  bool ValidateFunctionFromUserBox() { return mTracer.ValidateFunctionFromUserBox(); }

  // The mouse moved, or clicked, at that column in trace mode. The click hides the marker in every case.
  void TraceAtPixel(float x) { mTracer.TraceAtPixel(x); }
  void TraceClickAtPixel(float x);
  void MoveTraceMarker(PixelPoint centre) { mTracer.MoveTraceMarker(centre); }

  // Re-centres on the current point, redraws, puts the point back and shows "Evaluate Y", the number of the
  // function and the readout in `txtSimple`: the end of a trace click and of an evaluation at a typed x.
  void ShowEvaluatedPoint();

 private:
  using RangeNumber = std::variant<double GraphFields::*, float GraphFields::*>;
  void EvaluateRangeText(const std::string& text, RangeNumber target);
  void GoToPixel(float x, float y);

  engine::clsExp& mExpression;
  GraphFrame& mFrame;
  Plotter mPlotter;
  Tracer mTracer;
};

}  // namespace plotvane::graph
