#include "graph/plotter.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "graph/axes.h"
#include "graph/path_cache.h"
#include "graph/saved_variable.h"
#include "platform/number_text.h"

namespace plotvane::graph {

namespace {

using platform::RunTimeError;
using platform::StandardError;
using platform::Value;

// A host that plots again from within a plot comes back at some time; one that does so always would never.
constexpr std::int32_t kDeepestNesting = 32;

// Counts the calls in progress.
class NestingGuard {
 public:
  explicit NestingGuard(std::int32_t& depth) : mDepth(depth) {
    if (mDepth >= kDeepestNesting) throw RunTimeError(StandardError::OutOfStackSpace);
    ++mDepth;
  }
  ~NestingGuard() { --mDepth; }
  NestingGuard(const NestingGuard&) = delete;
  NestingGuard& operator=(const NestingGuard&) = delete;

 private:
  std::int32_t& mDepth;
};

// The hourglass over a surface, until given back.
class BusyPointer {
 public:
  explicit BusyPointer(DrawingSurface& surface) : mSurface(surface) {
    mSurface.SetPointer(PointerKind::Hourglass);
  }
  ~BusyPointer() {
    try {
      GiveBack();
    } catch (...) {  // the first failure is already on its way to the caller
    }
  }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

  void GiveBack() {
    if (std::exchange(mHeld, false)) mSurface.SetPointer(PointerKind::Arrow);
  }

 private:
  DrawingSurface& mSurface;
  bool mHeld = true;
};

}  // namespace

void Plotter::SetFunctions(std::vector<std::shared_ptr<YFunction>> functions) {
  if (functions.size() > std::size_t{std::numeric_limits<std::int16_t>::max()})
    throw RunTimeError(StandardError::Overflow);
  if (std::ranges::find(functions, nullptr) != functions.end())
    throw RunTimeError(StandardError::ObjectRequired);
  mFunctions = std::move(functions);
}

std::shared_ptr<YFunction> Plotter::Function(std::int16_t n) const {
  if (n < 1 || n > FunctionCount()) throw RunTimeError(StandardError::SubscriptOutOfRange);
  return mFunctions[static_cast<std::size_t>(n - 1)];
}

void Plotter::PlotAllY() {
  const NestingGuard nesting(mNesting);
  ++mNewestPass;
  const Canvas canvas = MakeCanvas();
  BusyPointer pointer(canvas.Surface());
  DrawEverything(canvas);
  if (canvas.Live()) {
    mWindow.RedrawAll = false;
    mFrame.SetSimpleText(kRedrawHint);
  }
  pointer.GiveBack();
  mFrame.RaisePlotDone();
}

void Plotter::DrawEverything(const Canvas& canvas) {
  if (canvas.Live()) canvas.Surface().Clear();
  if (canvas.Live()) canvas.Surface().SetPersistentDrawing(true);
  SavedVariable x(mExpression.GetVarTable(), "x");
  DrawAxes(mWindow, canvas);
  DrawGrid(mWindow, canvas);
  canvas.Refresh();
  PlotEnabledFunctions(canvas);
  x.GiveBack();
}

// The host may hand over other functions meanwhile: each is looked up when its turn comes.
void Plotter::PlotEnabledFunctions(const Canvas& canvas) {
  for (std::int32_t i = 1; i <= FunctionCount() && canvas.Live(); ++i) {
    const auto index = static_cast<std::int16_t>(i);
    const std::shared_ptr<YFunction> function = Function(index);
    if (!function->GetEnabled() || !canvas.Live()) continue;
    MakeCurrent(index, *function);
    if (canvas.Live()) PlotOrReplay(canvas, *function);
    canvas.Refresh();
  }
}

void Plotter::MakeCurrent(std::int16_t index, YFunction& function) {
  mCurrent.index = index;
  mCurrent.equation = function.GetEquation();
  mCurrent.drawStyle = function.GetDrawStyle();
  mCurrent.drawColor = function.GetDrawColor();
}

void Plotter::PlotOrReplay(const Canvas& canvas, YFunction& function) {
  // A host's new function may say that its path is valid before it was ever drawn here.
  const bool replay = !mWindow.RedrawAll && function.GetQuickRedraw() && function.Path().NumberOfPixels() > 0;
  if (!canvas.Live()) return;
  if (replay) {
    ReplayCachedPath(canvas, function);
  } else {
    PlotOneFunction(canvas, function);
  }
}

void Plotter::PlotOneFunction(const Canvas& canvas, YFunction& function) {
  if (mCurrent.equation.empty()) return;
  ShowPlottingText();
  if (!canvas.Live()) return;
  mWindow.CurrentX = mWindow.Xmin;
  StoreX();
  if (!canvas.Live()) return;
  mUnfinished.reset();
  const bool recorded = Record();
  if (!canvas.Live()) return;
  if (recorded || mExpression.ErrObj().WasOkGraphErr) PlotEachPoint(canvas, function);
}

// The value of a recording evaluation is not used. A recording that ends in a tolerated error lacks its tail,
// so it is noted as unfinished.
bool Plotter::Record() {
  mExpression.SetAcceptNumericResultOnly(true);
  const std::string equation = mCurrent.equation;
  Value unused;
  const bool recorded = mExpression.EvaluateThenSavePreParsedExpression(equation, unused);
  if (!recorded && mExpression.ErrObj().WasOkGraphErr) mUnfinished = equation;
  return recorded;
}

void Plotter::EvaluateAndPlotEachPoint() {
  if (mCurrent.index == 0) throw RunTimeError(StandardError::ObjectNotSet);
  const std::shared_ptr<YFunction> function = Function(mCurrent.index);
  PlotEachPoint(MakeCanvas(), *function);
}

// The previous pixel stays at the last defined point, so that a gap is bridged by a line; the first line
// starts at the left edge with whatever CurrentY holds. Both are deliberate, and so is the difference to the
// replay.
void Plotter::PlotEachPoint(const Canvas& canvas, YFunction& function) {
  PathCache& path = function.Path();
  const std::int16_t count = PlotPointCount(mWindow.SurfaceWidth, mPixelStep);
  path.Redimension(count);
  mWindow.CurrentPointToPixel();
  mWindow.PreviousPixel = mWindow.CurrentPixel;
  engine::Curve curve(mExpression, "x");
  for (std::int32_t k = 1; k <= count; ++k) {
    const bool defined = EvaluateNext(canvas, curve, k, count);
    if (!canvas.Live()) return;
    if (defined) {
      mWindow.CurrentPointToPixel();
      DrawCurrentPoint(canvas);
      if (!canvas.Live()) return;
      mWindow.PreviousPixel = mWindow.CurrentPixel;
      path.SaveXYPathThenNext(mWindow.CurrentPixel.x, mWindow.CurrentPixel.y);
    } else {
      path.SetIsBadPixel(true);
      path.NextPixel();
    }
    mWindow.CurrentX = NextPlotX(mWindow.Mapping(), static_cast<std::int16_t>(k), mPixelStep);
  }
  function.SetQuickRedraw(true);
}

// Point number k: stores x and evaluates into CurrentY. With the system's own table nobody looks on between
// the two, and the points up to number `count` may be computed ahead.
bool Plotter::EvaluateNext(const Canvas& canvas, engine::Curve& curve, std::int32_t k, std::int32_t count) {
  if (mUnfinished || !mExpression.HasOwnTable()) {
    StoreX();
    return canvas.Live() && EvaluateAtCurrentX();
  }
  mExpression.SetAcceptNumericResultOnly(true);
  if (curve.Planned() == 0) PlanPoints(curve, k, count);
  return curve.At(mWindow.CurrentX, mWindow.CurrentY);
}

// Announces the points from number k on, as the loop will come to them when nobody changes the range or the
// step.
void Plotter::PlanPoints(engine::Curve& curve, std::int32_t k, std::int32_t count) {
  constexpr std::int32_t kMostPlanned = 1024;
  const std::int32_t last =
      std::min({count, k + kMostPlanned, std::numeric_limits<std::int16_t>::max() / mPixelStep});
  const PixelMapping mapping = mWindow.Mapping();
  mPlan.assign(1, mWindow.CurrentX);
  for (; k < last; ++k) mPlan.push_back(UncheckedNextPlotX(mapping, k, mPixelStep));
  curve.Plan(mPlan);
}

// The value of the current function, at the x that was stored last, into CurrentY; false where it is
// undefined.
bool Plotter::EvaluateAtCurrentX() {
  mExpression.SetAcceptNumericResultOnly(true);
  Value value;
  if (!EvaluateRecording(value)) return false;
  mWindow.CurrentY = value.ToNumber().OrThrow();
  return true;
}

bool Plotter::EvaluateRecording(Value& value) {
  if (!mUnfinished) return mExpression.EvaluateCurrentPreParsedExpression(value);
  const std::string equation = *mUnfinished;
  const bool recorded = mExpression.EvaluateThenSavePreParsedExpression(equation, value);
  if (recorded) mUnfinished.reset();
  return recorded;
}

void Plotter::StoreX() {
  const std::shared_ptr<platform::VariableTable> table = mExpression.GetVarTable();
  if (!table) throw RunTimeError(StandardError::ObjectNotSet);
  static_cast<void>(table->Change("x", Value(mWindow.CurrentX)));
}

// Breaks the line at undefined points and restarts it with a line of no length.
void Plotter::ReplayCachedPath(const Canvas& canvas, YFunction& function) {
  ShowPlottingText();
  if (!canvas.Live()) return;
  PathCache& path = function.Path();
  path.SetPixelToFirst();
  mWindow.PreviousPixel = path.GetPixel();
  bool gap = false;
  do {
    if (path.GetIsBadPixel()) {
      gap = true;
      continue;
    }
    mWindow.CurrentPixel = path.GetPixel();
    if (std::exchange(gap, false)) mWindow.PreviousPixel = mWindow.CurrentPixel;
    DrawCurrentPoint(canvas);
    mWindow.PreviousPixel = mWindow.CurrentPixel;
  } while (canvas.Live() && path.NextPixel());
}

void Plotter::PlotPointXY() {
  mWindow.CurrentPointToPixel();
  DrawCurrentPoint(MakeCanvas());
}

void Plotter::DrawCurrentPoint(const Canvas& canvas) {
  if (mWindow.PlotStyle == DRAWLINE) {
    canvas.Line(mWindow.PreviousPixel, mWindow.CurrentPixel, mCurrent.drawColor);
  } else {
    canvas.SetPixel(mWindow.CurrentPixel, mCurrent.drawColor);
  }
}

void Plotter::ShowPlottingText() {
  mFrame.SetSimpleText("Plotting Y" + std::to_string(mCurrent.index) + "=" + mCurrent.equation + " ...");
  mFrame.RefreshSimpleText();
}

}  // namespace plotvane::graph
