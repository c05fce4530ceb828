// Gestures: what each press, click, drag and key of the user does, in which order.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "control/action.h"
#include "control/toolbar.h"
#include "control/zoom_menu.h"

namespace plotvane::control {

class Graph;

enum class MouseButton { Left, Right, Other };
enum class Key { Escape, Up, Down };
// Where the key was pressed.
enum class KeyPlace { Control, txtUserCurY };

// Every event is safe to call at any time: a run-time error ends the gesture, its text is shown in
// `txtSimple`, and pointer, action and state stay usable. The control stays alive until the event returns. In
// a host's designer events do nothing.
class Gestures {
 public:
  explicit Gestures(Graph& graph) noexcept : mGraph(graph) {}
  Gestures(const Gestures&) = delete;
  Gestures& operator=(const Gestures&) = delete;

  // ---- Events ----
  void ToolBarPressed(ToolBarItem item);
  void MenuChosen(ZoomCommand command);
  // Positions are surface pixels.
  void MouseDown(MouseButton button, float x, float y);
  void MouseMove(bool leftHeld, float x, float y);
  void MouseUp(MouseButton button, float x, float y);
  // False for a key that has no meaning there.
  bool KeyPressed(Key key, KeyPlace place);
  // The spinner moved away from kSpinnerRest; it is set back.
  void SpinnerChanged(int value);

  [[nodiscard]] Action CurrentAction() const noexcept { return mAction; }

  // What becomes of the current action when an error ends a gesture.
  enum class AfterFailure { KeepAction, EndAction };

  // Runs a doing of the user; false when a run-time error ended it, and in a designer, where it is not run.
  bool Run(const std::function<void()>& gesture, AfterFailure afterFailure = AfterFailure::KeepAction);
  // The same for what happens without the user, in a designer too.
  bool Guard(const std::function<void()>& operation, AfterFailure afterFailure = AfterFailure::KeepAction);

 private:
  // The only way the action changes: leaves the current one, enters the requested one, or none when it is the
  // current one already.
  void SetAction(Action requested);
  void LeaveAction();

  void Redraw();
  void ClickTrace(float x);
  void ZoomClick(void (*zoom)(Graph&, float, float), float x, float y);
  void BeginBox(float x, float y);
  void StretchBox(float x, float y);
  void EndBox();
  void RecentreAt(float x, float y);
  void GoOnTracing();

  void PressGraph();
  void PressZoom();
  void PressTrace();
  void PressEval();
  void ShowEvaluatedPoint();
  void ZoomByNumber();

  void SelectNextFunction() { StepFunction(+1); }
  void SelectPreviousFunction() { StepFunction(-1); }
  void StepFunction(int step);
  void ShowCurrentFunction();
  [[nodiscard]] bool IsPlottable(std::int16_t n);

  void ShowSimple(std::string_view text);
  void Report(std::string_view errorText, AfterFailure afterFailure);

  Graph& mGraph;
  Action mAction = Action::None;
  std::int16_t mBoxAnchorX = 0;  // surface pixels where the drag of the box began
  std::int16_t mBoxAnchorY = 0;
};

}  // namespace plotvane::control
