// Tracer: the choice of the current function by its number, its evaluation at one x, and the trace marker.
#pragma once

#include <cstdint>

#include "engine/clsExp.h"
#include "graph/graph_frame.h"
#include "graph/plotter.h"
#include "graph/window_model.h"

namespace plotvane::graph {

class Tracer {
 public:
  // All of them outlive the tracer.
  Tracer(WindowModel& window, engine::clsExp& expression, GraphFrame& frame, Plotter& plotter)
      : mWindow(window), mExpression(expression), mFrame(frame), mPlotter(plotter) {}

  // The number in `txtUserCurY`: the number at the front of its text, halves to even; 0 when there is none.
  [[nodiscard]] std::int16_t UserFunctionNumber();

  // The function of that number becomes current. When it does not exist or is not enabled, the current
  // equation becomes empty. Both return whether there is an equation; the second says why not, shows a
  // message box and moves the focus to the number.
  bool SelectFunctionFromUserBox();
  bool ValidateFunctionFromUserBox();

  // The current equation at x = CurrentX into CurrentY, by the full evaluator; false leaves CurrentY alone.
  // `x` is given back. Error 91 without a variable table.
  [[nodiscard]] bool EvaluateCurrentFunctionAt();

  // The same at a column of the surface; error 6 outside 16 bits.
  [[nodiscard]] bool EvaluateAtPixelColumn(float x);

  // Puts the marker on the curve at that column, or hides it where there is none.
  void TraceAtPixel(float x);

  // The marker's new centre; a position outside 16 bits leaves it where it was.
  void MoveTraceMarker(PixelPoint centre);

 private:
  enum class Choice { Chosen, NoSuchFunction, NotEnabled, NoExpression };
  [[nodiscard]] Choice ChooseFunction();
  void RefuseChoice(Choice choice);

  WindowModel& mWindow;
  engine::clsExp& mExpression;
  GraphFrame& mFrame;
  Plotter& mPlotter;
};

}  // namespace plotvane::graph
