// Plotter: draws the Y functions, evaluated point by point or replayed from their paths.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/clsExp.h"
#include "engine/curve.h"
#include "graph/canvas.h"
#include "graph/graph_frame.h"
#include "graph/window_model.h"
#include "graph/y_function.h"

namespace plotvane::graph {

// The function that is being plotted, traced or evaluated.
struct CurrentFunction {
  std::int16_t index = 0;  // from 1; 0 before the first
  std::string equation;
  std::int32_t drawStyle = 0;
  std::int32_t drawColor = 0;
};

class Plotter {
 public:
  // All of them outlive the plotter.
  Plotter(WindowModel& window, engine::clsExp& expression, GraphFrame& frame)
      : mWindow(window), mExpression(expression), mFrame(frame) {}
  Plotter(const Plotter&) = delete;
  Plotter& operator=(const Plotter&) = delete;

  [[nodiscard]] std::int16_t PixelStep() const noexcept { return mPixelStep; }
  void SetPixelStep(std::int16_t step) noexcept { mPixelStep = step; }

  void SetFunctions(std::vector<std::shared_ptr<YFunction>> functions);
  [[nodiscard]] std::int16_t FunctionCount() const noexcept {
    return static_cast<std::int16_t>(mFunctions.size());
  }
  [[nodiscard]] std::shared_ptr<YFunction> Function(std::int16_t n) const;

  [[nodiscard]] CurrentFunction& Current() noexcept { return mCurrent; }
  [[nodiscard]] const CurrentFunction& Current() const noexcept { return mCurrent; }

  // Clears the surface, draws axes and grid, then every enabled function; raises PlotDone. `x` and the
  // pointer are given back also after an error, which leaves RedrawAll as it was and raises no PlotDone.
  // Overtaken by a nested PlotAllY it draws no more. Error 28 when PlotAllY calls are nested too deeply.
  void PlotAllY();

  // The per-point loop of the current function over the current pre-parsed expression. Error 91 without a
  // current function, 9 when the functions became fewer.
  void EvaluateAndPlotEachPoint();

  // Draws the current point.
  void PlotPointXY();

  // A canvas for drawing outside of a plot.
  [[nodiscard]] Canvas MakeCanvas() const { return Canvas(mWindow.PIC, mNewestPass); }

 private:
  void DrawEverything(const Canvas& canvas);
  void PlotEnabledFunctions(const Canvas& canvas);
  void MakeCurrent(std::int16_t index, YFunction& function);
  void PlotOrReplay(const Canvas& canvas, YFunction& function);
  void PlotOneFunction(const Canvas& canvas, YFunction& function);
  void PlotEachPoint(const Canvas& canvas, YFunction& function);
  void ReplayCachedPath(const Canvas& canvas, YFunction& function);
  void DrawCurrentPoint(const Canvas& canvas);
  void ShowPlottingText();
  void StoreX();
  bool Record();
  [[nodiscard]] bool EvaluateAtCurrentX();
  [[nodiscard]] bool EvaluateNext(const Canvas& canvas, engine::Curve& curve, std::int32_t k,
                                  std::int32_t count);
  void PlanPoints(engine::Curve& curve, std::int32_t k, std::int32_t count);
  [[nodiscard]] bool EvaluateRecording(platform::Value& value);

  WindowModel& mWindow;
  engine::clsExp& mExpression;
  GraphFrame& mFrame;
  std::vector<std::shared_ptr<YFunction>> mFunctions;
  CurrentFunction mCurrent;
  std::int16_t mPixelStep = 1;
  std::vector<double> mPlan;      // x of the points announced last
  std::uint32_t mNewestPass = 0;  // counts calls of PlotAllY
  std::int32_t mNesting = 0;      // PlotAllY calls in progress
  // The equation whose recording ended in a tolerated error; it is recorded again at each point until that
  // succeeds.
  std::optional<std::string> mUnfinished;
};

}  // namespace plotvane::graph
