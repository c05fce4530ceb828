#include "graph/graph_engine.h"

#include <array>
#include <utility>
#include <variant>

#include "graph/axes.h"
#include "graph/readout.h"
#include "graph/zooms.h"
#include "platform/conversions.h"

namespace plotvane::graph {

namespace {

using platform::RunTimeError;
using platform::StandardError;

// One row per range text: the field that keeps the text, and the number that it sets.
struct RangeTextEntry {
  RangeText which;
  std::string GraphFields::*text;
  std::variant<double GraphFields::*, float GraphFields::*> number;
};

constexpr std::array kRangeTexts{
    RangeTextEntry{RangeText::ZX, &GraphFields::ZXStr, &GraphFields::ZX},
    RangeTextEntry{RangeText::ZY, &GraphFields::ZYStr, &GraphFields::ZY},
    RangeTextEntry{RangeText::XMin, &GraphFields::XMinStr, &GraphFields::Xmin},
    RangeTextEntry{RangeText::XMax, &GraphFields::XMaxStr, &GraphFields::Xmax},
    RangeTextEntry{RangeText::YMin, &GraphFields::YMinStr, &GraphFields::Ymin},
    RangeTextEntry{RangeText::YMax, &GraphFields::YMaxStr, &GraphFields::Ymax},
    RangeTextEntry{RangeText::XScl, &GraphFields::XSclStr, &GraphFields::Xscl},
    RangeTextEntry{RangeText::YScl, &GraphFields::YSclStr, &GraphFields::Yscl},
};

constexpr bool RowsAreInOrder() {
  for (std::size_t i = 0; i < kRangeTexts.size(); ++i)
    if (kRangeTexts[i].which != static_cast<RangeText>(i)) return false;
  return true;
}
static_assert(RowsAreInOrder());

const RangeTextEntry& EntryOf(RangeText which) {
  return kRangeTexts.at(static_cast<std::size_t>(which));
}

// Hides the trace marker at the end of a gesture, also of a failed one.
class TraceMarkerHider {
 public:
  explicit TraceMarkerHider(GraphFrame& frame) : mFrame(frame) {}
  ~TraceMarkerHider() {
    try {
      mFrame.ShowTraceMarker(false);
    } catch (...) {  // a marker that cannot be hidden does not hide the error of the gesture
    }
  }
  TraceMarkerHider(const TraceMarkerHider&) = delete;
  TraceMarkerHider& operator=(const TraceMarkerHider&) = delete;

 private:
  GraphFrame& mFrame;
};

DrawingSurface& SurfaceOf(const GraphFields& fields) {
  if (!fields.PIC) throw RunTimeError(StandardError::ObjectNotSet);
  return *fields.PIC;
}

}  // namespace

GraphEngine::GraphEngine(engine::clsExp& expression, GraphFrame& frame)
    : mExpression(expression),
      mFrame(frame),
      mPlotter(*this, expression, frame),
      mTracer(*this, expression, frame, mPlotter) {
  mExpression.ErrObj().GraphMode = true;
}

// Window model

void GraphEngine::ReadSurfaceSize() {
  const std::shared_ptr<DrawingSurface> surface = PIC;
  if (!surface) throw RunTimeError(StandardError::ObjectNotSet);
  SurfaceWidth = platform::ToInt16(surface->ScaleWidth()).OrThrow();
  SurfaceHeight = platform::ToInt16(surface->ScaleHeight()).OrThrow();
}

void GraphEngine::PrepareGraph() {
  const EmptySides empty = ComputePixelSizes();
  if (empty.x) mFrame.ShowMessage("Invalid Range! You should change X Max and X Min", "", MessageIcon::None);
  if (empty.y) mFrame.ShowMessage("Invalid Range! You should change Y Max and Y Min", "", MessageIcon::None);
}

const std::string& GraphEngine::StringEval(RangeText which) const {
  return this->*EntryOf(which).text;
}

void GraphEngine::SetStringEval(RangeText which, std::string_view text) {
  const RangeTextEntry& entry = EntryOf(which);
  this->*entry.text = text;
  EvaluateRangeText(std::string(text), entry.number);
}

void GraphEngine::EvaluateRangeText(const std::string& text, RangeNumber target) {
  platform::Value result;
  if (!mExpression.Evaluate(text, result)) return;
  const platform::Outcome<double> number = result.ToNumber();
  if (!number.Ok()) return;
  if (const auto* wide = std::get_if<double GraphFields::*>(&target)) {
    this->** wide = number.Get();
  } else {
    this->*std::get<float GraphFields::*>(target) = platform::ToSingle(number.Get()).OrThrow();
  }
}

bool GraphEngine::GetDegreeMode() const noexcept {
  return mExpression.GetDegreeMode();
}

void GraphEngine::SetDegreeMode(bool on) noexcept {
  if (mExpression.GetDegreeMode() == on) return;
  mExpression.SetDegreeMode(on);
  RedrawAll = true;
}

// Plotting

void GraphEngine::SetPlotPixelStep(std::int16_t step) noexcept {
  if (step < 1 || step == mPlotter.PixelStep()) return;
  mPlotter.SetPixelStep(step);
  RedrawAll = true;
}

std::int16_t GraphEngine::GetPenWidth() {
  return SurfaceOf(*this).GetPenWidth();
}

void GraphEngine::SetPenWidth(std::int16_t width) {
  SurfaceOf(*this).SetPenWidth(width);
}

void GraphEngine::SetYArray(std::vector<std::shared_ptr<YFunction>> functions, bool redrawGraph) {
  mPlotter.SetFunctions(std::move(functions));
  if (redrawGraph) PlotAllY();
}

// Axes and grid

void GraphEngine::DrawAxes() {
  graph::DrawAxes(*this, mPlotter.MakeCanvas());
}

void GraphEngine::DrawGrid() {
  graph::DrawGrid(*this, mPlotter.MakeCanvas());
}

void GraphEngine::SetSurfacePointer(PointerKind kind) {
  SurfaceOf(*this).SetPointer(kind);
}

// Zooms and range moves

void GraphEngine::MoveRangeToPointXY() {
  CentreOnCurrentPoint(*this);
  PrepareGraph();
}

void GraphEngine::ZoomInXY() {
  DivideByZoomFactors(*this);
  MoveRangeToPointXY();
  PlotAllY();
}

void GraphEngine::ZoomOutXY() {
  MultiplyByZoomFactors(*this);
  MoveRangeToPointXY();
  PlotAllY();
}

void GraphEngine::GoToPixel(float x, float y) {
  CurrentPixel = RoundToPixel(x, y);
  CurrentPixelToPoint();
}

void GraphEngine::ZoomInPixel(float pixelX, float pixelY) {
  GoToPixel(pixelX, pixelY);
  ZoomInXY();
}

void GraphEngine::ZoomOutPixel(float pixelX, float pixelY) {
  GoToPixel(pixelX, pixelY);
  ZoomOutXY();
}

void GraphEngine::ZBoxPixel() {
  if (!SelectBox(*this, mFrame.ZoomBox())) {
    mFrame.ShowMessage("Invalid selection. Neither height nor width can be zero!", "ZBox Range Error",
                       MessageIcon::Error);
    return;
  }
  PrepareGraph();
  PlotAllY();
}

void GraphEngine::ZStandard() {
  SetStandardRange(*this);
  PrepareGraph();
  PlotAllY();
}

void GraphEngine::ZTrig() {
  SetTrigRange(*this, GetDegreeMode());
  PrepareGraph();
  PlotAllY();
}

void GraphEngine::ZNum(double pixelSize) {
  SetRangeByPixelSize(*this, pixelSize);
  PlotAllY();
}

void GraphEngine::ZInt() {
  ZNum(1);
}

void GraphEngine::ZDec() {
  ZNum(0.1);
}

void GraphEngine::MoveRangeToPixel(float x, float y) {
  GoToPixel(x, y);
  MoveRangeToPointXY();
}

// Readouts

std::string GraphEngine::RectangularText() const {
  return graph::RectangularText(CurrentPoint());
}

std::string GraphEngine::PolarText() const {
  return graph::PolarText(CurrentPoint());
}

std::string GraphEngine::CoordinateText() const {
  return graph::CoordinateText(GCStyle, CurrentPoint());
}

void GraphEngine::ShowCoordinates() {
  mFrame.SetStatusBarText(CoordinateText());
}

void GraphEngine::ShowCoordinatesAtPixel(float x, float y) {
  GoToPixel(x, y);
  ShowCoordinates();
}

void GraphEngine::ShowRangeStatus() {
  MeasureRange(*this);
  mFrame.SetSimpleText(RangeStatusText(*this));
}

// Trace

void GraphEngine::TraceClickAtPixel(float x) {
  const TraceMarkerHider hider(mFrame);
  if (EvaluateAtPixelColumn(x)) ShowEvaluatedPoint();
}

void GraphEngine::ShowEvaluatedPoint() {
  const RealPoint point = CurrentPoint();
  const std::int16_t index = CurrentFunctionIndex();
  MoveRangeToPointXY();
  PlotAllY();
  SetCurrentPoint(point);
  mFrame.SetSimpleText("Evaluate Y" + std::to_string(index) + ":   " + CoordinateText());
}

}  // namespace plotvane::graph
