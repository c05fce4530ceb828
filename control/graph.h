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

#include "control/clsLineBox.h"
#include "control/face.h"
#include "control/face_frame.h"
#include "control/geometry.h"
#include "control/gestures.h"
#include "control/open_forms.h"
#include "engine/clsExp.h"
#include "graph/graph_engine.h"
#include "platform/variable_table.h"

namespace plotvane::control {

using graph::RangeText;

class Graph : public std::enable_shared_from_this<Graph> {
 public:
  // A control with the state of a new one: standard range, no functions, radians, its own variable table. The
  // face stays in use until the control is destroyed.
  [[nodiscard]] static std::shared_ptr<Graph> Create(std::shared_ptr<Face> face);

  // Releases the expression object, the surface and the zoom-box outline, then closes every dialog of the
  // component that is open in this thread, the last opened first.
  ~Graph();

  // ---- Public fields: W to YSclStr are members of the engine ----
  [[nodiscard]] graph::GraphEngine& Engine() noexcept { return mEngine; }
  // The surface that is drawn on: the control's own picture until a host replaces it. With none, drawing is
  // error 91.
  [[nodiscard]] std::shared_ptr<graph::DrawingSurface> GetPIC() const noexcept { return mEngine.PIC; }
  void SetPIC(std::shared_ptr<graph::DrawingSurface> surface);

  // ---- Properties ----
  [[nodiscard]] bool GetDegreeMode() const noexcept;
  void SetDegreeMode(bool degrees) noexcept;
  [[nodiscard]] bool GetToolBarVisible() const noexcept { return mToolBarVisible; }
  void SetToolBarVisible(bool visible);
  [[nodiscard]] std::shared_ptr<platform::VariableTable> GetVarTable() const;
  void SetVarTable(std::shared_ptr<platform::VariableTable> table);
  [[nodiscard]] std::int16_t GetPenWidth();
  void SetPenWidth(std::int16_t width);
  [[nodiscard]] std::int16_t GetPlotPixelStep() const noexcept;
  void SetPlotPixelStep(std::int16_t step) noexcept;
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
  // Nothing in a designer.
  void ShowFormatEditor();
  [[nodiscard]] std::int32_t GetGraphHDC();
  [[nodiscard]] std::int32_t GetGraphWidth();
  [[nodiscard]] std::int32_t GetGraphHeight();
  [[nodiscard]] std::shared_ptr<graph::DrawingSurface> GetGraphPicture() const noexcept;

  // ---- Event ----
  // Called at the end of every PlotAllY; an empty function lets go of the host.
  void SetPlotDone(std::function<void()> handler);

  // ---- For the face ----
  // The control has got this size in pixels: lays out, takes the size of the surface, redraws axes and grid
  // as RedrawAxisOnResize and RedrawGridOnResize ask. Never throws a run-time error; shows its text.
  void Resize(PixelSize size);
  // The size that it has got last; empty before the first.
  [[nodiscard]] PixelSize Size() const noexcept { return mSize; }
  // What the user does.
  [[nodiscard]] Gestures& Events() noexcept { return mGestures; }
  // In a host's designer the control shows its axes, lets the user do nothing and opens no dialogs; its open
  // ones are closed.
  void SetDesignMode(bool designing);
  [[nodiscard]] bool IsDesignMode() const noexcept { return mDesignMode; }

 private:
  struct Passkey {};

 public:
  Graph(Passkey, std::shared_ptr<Face> face);  // for Create
  Graph(const Graph&) = delete;
  Graph& operator=(const Graph&) = delete;

  // ---- For the other classes of this folder ----
  [[nodiscard]] Face& GetFace() noexcept { return *mFace; }
  [[nodiscard]] engine::clsExp& Expression() noexcept { return mExpression; }
  [[nodiscard]] clsLineBox& ZoomBox() noexcept { return mZoomBox; }

 private:
  void Initialise();
  // A member of the host that needs the surface: keeps the control alive meanwhile.
  void Call(const std::function<void()>& operation);
  [[nodiscard]] std::shared_ptr<graph::DrawingSurface> RequirePIC() const;
  // The first resize, when none came from a window: it takes the surface as it is.
  void NeedSurface();
  // Its begin; false when there was one.
  bool BeginFirstResize();
  void LayOutFace();
  void TakeSurface();
  void FinishResize();
  void RedrawAfterResize();

  std::shared_ptr<OpenForms> mForms;
  std::shared_ptr<Face> mFace;
  clsLineBox mZoomBox;
  FaceFrame mFrame;
  engine::clsExp mExpression;
  graph::GraphEngine mEngine;
  Gestures mGestures;
  PixelSize mSize;  // of the control; empty without a window
  bool mSurfaceTaken = false;
  bool mToolBarVisible = true;
  bool mDesignMode = false;
};

}  // namespace plotvane::control
