#include "control/gestures.h"

#include <algorithm>
#include <array>
#include <exception>
#include <new>
#include <optional>
#include <string>

#include "control/frmRange.h"
#include "control/frmZoomFactors.h"
#include "control/graph.h"
#include "graph/mapping.h"
#include "platform/conversions.h"
#include "platform/number_text.h"

namespace plotvane::control {
namespace {

constexpr InputRequest kZoomNumber{"Enter the real number length per pixel", "Zoom Num", ""};
constexpr InputRequest kEvaluate{
    "Enter a expression or value for X. If you enter an expression it will first be evaluated.",
    "Evaluate Function", ""};
constexpr std::string_view kEvaluateEmpty =
    "User must enter a valid X value or expression in order to evaluate the current function.";
constexpr std::string_view kEvaluateBadX =
    "Cannot evaluate X coordinate equation. Enter a valid numeric expression for x.";
constexpr std::string_view kNoFunction = "No Enabled Function Selected";

void ZoomInAt(Graph& graph, float x, float y) {
  graph.ZoomInPixel(x, y);
}
void ZoomOutAt(Graph& graph, float x, float y) {
  graph.ZoomOutPixel(x, y);
}

}  // namespace

// ---- Events ----

void Gestures::ToolBarPressed(ToolBarItem item) {
  Run([this, item] {
    switch (item) {
      case ToolBarItem::cmdGraph: return PressGraph();
      case ToolBarItem::cmdZoom: return PressZoom();
      case ToolBarItem::cmdZoomIn: return SetAction(Action::zin);
      case ToolBarItem::cmdZoomOut: return SetAction(Action::zout);
      case ToolBarItem::cmdZoomBox: return SetAction(Action::zbox);
      case ToolBarItem::cmdRange: return frmRange::ShowForm(mGraph);
      case ToolBarItem::cmdTrace: return PressTrace();
      case ToolBarItem::cmdEval: return PressEval();
      case ToolBarItem::lblUserCurY:
      case ToolBarItem::txtUserCurY: return mGraph.GetFace().SetFocus(TextBox::txtUserCurY);
      case ToolBarItem::vscUpDown: return;
    }
  });
}

void Gestures::MenuChosen(ZoomCommand command) {
  Run([this, command] {
    switch (command) {
      case ZoomCommand::mnuZoomStandard: mGraph.ZStandard(); break;
      case ZoomCommand::mnuZoomTrig: mGraph.ZTrig(); break;
      case ZoomCommand::mnuZoomInt: mGraph.ZInt(); break;
      case ZoomCommand::mnuZoomDecimal: mGraph.ZDec(); break;
      case ZoomCommand::mnuZoomNumber: return ZoomByNumber();
      case ZoomCommand::mnuSep1: return;
      case ZoomCommand::mnuEditZoom: return frmZoomFactors::ShowForm(mGraph);
    }
    mGraph.Engine().ShowRangeStatus();
  });
}

void Gestures::MouseDown(MouseButton button, float x, float y) {
  if (button == MouseButton::Right) Run([=, this] { RecentreAt(x, y); });
  if (button != MouseButton::Left) return;
  switch (mAction) {
    case Action::zin: return ZoomClick(ZoomInAt, x, y);
    case Action::zout: return ZoomClick(ZoomOutAt, x, y);
    case Action::zbox: Run([=, this] { BeginBox(x, y); }); break;
    case Action::trace: Run([=, this] { ClickTrace(x); }, AfterFailure::EndAction); break;
    case Action::None: Run([this] { Redraw(); }); break;
  }
}

void Gestures::MouseMove(bool leftHeld, float x, float y) {
  Run([=, this] {
    if (leftHeld && mAction == Action::zbox) return StretchBox(x, y);
    if (!leftHeld && mAction == Action::trace) return mGraph.Engine().TraceAtPixel(x);
    mGraph.Engine().ShowCoordinatesAtPixel(x, y);
  });
}

void Gestures::MouseUp(MouseButton button, float /*x*/, float /*y*/) {
  if (button == MouseButton::Left && mAction == Action::zbox) EndBox();
}

bool Gestures::KeyPressed(Key key, KeyPlace place) {
  struct Binding {
    Key key;
    std::optional<KeyPlace> place;  // none: anywhere on the control
    void (*run)(Gestures&);
  };
  static constexpr std::array<Binding, 3> kBindings{{
      {Key::Escape, std::nullopt, [](Gestures& gestures) { gestures.SetAction(Action::None); }},
      {Key::Down, KeyPlace::txtUserCurY, [](Gestures& gestures) { gestures.SelectNextFunction(); }},
      {Key::Up, KeyPlace::txtUserCurY, [](Gestures& gestures) { gestures.SelectPreviousFunction(); }},
  }};
  const auto binding = std::find_if(kBindings.begin(), kBindings.end(), [&](const Binding& row) {
    return row.key == key && (!row.place || row.place == place);
  });
  if (binding == kBindings.end()) return false;
  // Escape ends the action whatever happens.
  Run([this, binding] { binding->run(*this); },
      key == Key::Escape ? AfterFailure::EndAction : AfterFailure::KeepAction);
  return true;
}

void Gestures::SpinnerChanged(int value) {
  Run([this, value] {
    mGraph.GetFace().ResetSpinner();
    if (value > kSpinnerRest) SelectNextFunction();
    if (value < kSpinnerRest) SelectPreviousFunction();
  });
}

// ---- Action ----

void Gestures::SetAction(Action requested) {
  LeaveAction();
  mAction = requested == mAction ? Action::None : requested;
  if (mAction != Action::None) mGraph.Engine().SetSurfacePointer(ActionPointer(mAction));
  ShowSimple(ActionCaption(mAction));
}

void Gestures::LeaveAction() {
  if (mAction == Action::None) return;
  if (mAction == Action::zbox) mGraph.ZoomBox().Visible(false);
  if (mAction == Action::trace) mGraph.GetFace().SetTraceMarkerVisible(false);
  mGraph.Engine().SetSurfacePointer(graph::PointerKind::Arrow);
}

// ---- Toolbar and menu ----

void Gestures::PressGraph() {
  SetAction(Action::None);
  Redraw();
}

void Gestures::PressZoom() {
  SetAction(Action::None);
  const auto chosen = mGraph.GetFace().PopUpMenu(kZoomMenu);
  if (chosen) MenuChosen(*chosen);
}

void Gestures::PressTrace() {
  SetAction(Action::None);
  if (mGraph.Engine().ValidateFunctionFromUserBox()) SetAction(Action::trace);
}

void Gestures::ZoomByNumber() {
  const std::string answer = mGraph.GetFace().AskInput(kZoomNumber);
  if (answer.empty()) return;
  mGraph.ZNum(platform::LeadingNumber(answer).OrThrow());
  mGraph.Engine().ShowRangeStatus();
}

void Gestures::PressEval() {
  graph::GraphEngine& engine = mGraph.Engine();
  if (!engine.ValidateFunctionFromUserBox()) return;
  const std::string answer = mGraph.GetFace().AskInput(kEvaluate);
  if (answer.empty()) return ShowSimple(kEvaluateEmpty);

  platform::Value typedX;
  const bool evaluated = mGraph.Expression().Evaluate(answer, typedX);
  const auto x = typedX.ToNumber();
  if (!evaluated || !x.Ok()) return ShowSimple(kEvaluateBadX);
  engine.CurrentX = x.Get();

  if (engine.EvaluateCurrentFunctionAt()) return ShowEvaluatedPoint();
  ShowSimple("Error! Cannot evaluate Y" + std::to_string(engine.CurrentFunctionIndex()) +
             " at X=" + platform::NumberText(engine.CurrentX));
}

void Gestures::ShowEvaluatedPoint() {
  graph::GraphEngine& engine = mGraph.Engine();
  const std::int16_t evaluated = engine.CurrentFunctionIndex();
  engine.ShowEvaluatedPoint();
  engine.SetCurrentFunctionIndex(evaluated);
  GoOnTracing();
}

// ---- Mouse ----

void Gestures::Redraw() {
  mGraph.PlotAllY();
  ShowSimple(ActionCaption(Action::None));
}

void Gestures::ClickTrace(float x) {
  SetAction(Action::None);
  mGraph.Engine().TraceClickAtPixel(x);
}

// One click zooms once and the action ends, also when the zoom fails.
void Gestures::ZoomClick(void (*zoom)(Graph&, float, float), float x, float y) {
  Run(
      [=, this] {
        zoom(mGraph, x, y);
        SetAction(Action::None);
        mGraph.Engine().ShowRangeStatus();
      },
      AfterFailure::EndAction);
}

void Gestures::BeginBox(float x, float y) {
  const graph::PixelPoint anchor = graph::RoundToPixel(x, y);
  mGraph.ZoomBox().Visible(true);
  mGraph.ZoomBox().Move(anchor.x, anchor.y, 0, 0);
  mBoxAnchorX = anchor.x;
  mBoxAnchorY = anchor.y;
}

void Gestures::StretchBox(float x, float y) {
  const graph::PixelPoint corner = graph::RoundToPixel(x, y);
  mGraph.ZoomBox().Move(mBoxAnchorX, mBoxAnchorY, corner.x - mBoxAnchorX, corner.y - mBoxAnchorY);
}

void Gestures::EndBox() {
  Run(
      [this] {
        mGraph.ZoomBox().Visible(false);
        mGraph.ZBoxPixel();
        SetAction(Action::None);
        mGraph.Engine().ShowRangeStatus();
      },
      AfterFailure::EndAction);
}

void Gestures::RecentreAt(float x, float y) {
  graph::GraphEngine& engine = mGraph.Engine();
  engine.MoveRangeToPixel(x, y);
  mGraph.PlotAllY();
  engine.ShowRangeStatus();
  GoOnTracing();
}

// Plotting makes each function current in turn; a trace goes on with the function of `txtUserCurY`.
void Gestures::GoOnTracing() {
  if (mAction == Action::trace) mGraph.Engine().SelectFunctionFromUserBox();
}

// ---- Choice of the function ----

bool Gestures::IsPlottable(std::int16_t n) {
  const auto function = mGraph.Engine().Function(n);
  return function->GetEnabled() && !function->GetEquation().empty();
}

// From the number in the box, or from the nearest end when it is outside 1 to the count, to the next function
// that can be plotted; around the ends, and back to where it began when there is no other.
void Gestures::StepFunction(int step) {
  Face& face = mGraph.GetFace();
  const int count = mGraph.Engine().FunctionCount();
  const double typed = platform::LeadingNumber(face.GetText(TextBox::txtUserCurY)).Get();
  int n = std::clamp<int>(platform::ClampToInt16(typed), 1, std::max(count, 1));
  for (int tries = 0; tries < count; ++tries) {
    n += step;
    if (n > count) n = 1;
    if (n < 1) n = count;
    if (!IsPlottable(static_cast<std::int16_t>(n))) continue;
    face.SetText(TextBox::txtUserCurY, std::to_string(n));
    break;
  }
  ShowCurrentFunction();
}

void Gestures::ShowCurrentFunction() {
  graph::GraphEngine& engine = mGraph.Engine();
  const bool found = engine.SelectFunctionFromUserBox();
  mGraph.GetFace().SetText(TextBox::txtStatusBar1, found
                                                       ? "Y" + std::to_string(engine.CurrentFunctionIndex()) +
                                                             "=" + engine.CurrentEquation()
                                                       : std::string(kNoFunction));
}

// ---- Failures ----

void Gestures::ShowSimple(std::string_view text) {
  mGraph.GetFace().SetText(TextBox::txtSimple, text);
}

bool Gestures::Run(const std::function<void()>& gesture, AfterFailure afterFailure) {
  if (mGraph.IsDesignMode()) return false;
  return Guard(gesture, afterFailure);
}

bool Gestures::Guard(const std::function<void()>& operation, AfterFailure afterFailure) {
  const auto keep = mGraph.shared_from_this();
  try {
    operation();
    return true;
  } catch (const std::bad_alloc&) {
    Report(platform::StandardErrorText(platform::StandardError::OutOfMemory), afterFailure);
  } catch (const std::exception& error) {
    Report(error.what(), afterFailure);
  }
  return false;
}

// A surface of the host may fail here once more; the pointer is then left as it is.
void Gestures::Report(std::string_view errorText, AfterFailure afterFailure) {
  try {
    if (afterFailure == AfterFailure::EndAction) {
      LeaveAction();
    } else {
      mGraph.Engine().SetSurfacePointer(ActionPointer(mAction));
    }
  } catch (const platform::RunTimeError&) {
  }
  if (afterFailure == AfterFailure::EndAction) mAction = Action::None;
  ShowSimple(errorText);
}

}  // namespace plotvane::control
