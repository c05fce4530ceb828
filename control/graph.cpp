#include "control/graph.h"

#include <cmath>
#include <string>
#include <utility>

#include "control/dialog.h"
#include "control/frmFormatGraph.h"
#include "platform/conversions.h"
#include "platform/number_text.h"

namespace plotvane::control {

std::shared_ptr<Graph> Graph::Create(std::shared_ptr<Face> face) {
  auto graph = std::make_shared<Graph>(Passkey{}, std::move(face));
  graph->Initialise();
  return graph;
}

// The fields of the engine are made with the values of a new control: standard range, factors 4, radians,
// axes, divisions and lines on. The first resize computes the pixel sizes, not the creation.
Graph::Graph(Passkey, std::shared_ptr<Face> face)
    : mForms(OpenForms::OfThisThread()),
      mFace(std::move(face)),
      mFrame(mFace, mZoomBox),
      mEngine(mExpression, mFrame),
      mGestures(*this) {}

void Graph::Initialise() {
  mEngine.PIC = mFace->Surface();
  mExpression.CreateNewVarTable();
  mExpression.ErrObj().GraphMode = true;
  mZoomBox.SetLineCntls(mFace->ZoomBoxLine(BoxLine::linSelT), mFace->ZoomBoxLine(BoxLine::linSelB),
                        mFace->ZoomBoxLine(BoxLine::linSelL), mFace->ZoomBoxLine(BoxLine::linSelR));
  mEngine.SetSurfacePointer(graph::PointerKind::Arrow);
  mFace->SetText(TextBox::txtUserCurY, kFirstFunctionText);
}

Graph::~Graph() {
  mFrame.PlotDone = nullptr;
  mExpression.SetVarTable(nullptr);
  mEngine.PIC.reset();
  mZoomBox = {};
  mForms->UnloadAll();
}

// ---- Surface and layout ----

void Graph::SetPIC(std::shared_ptr<graph::DrawingSurface> surface) {
  const auto keep = shared_from_this();
  const auto old = std::exchange(mEngine.PIC, std::move(surface));
}

void Graph::Resize(PixelSize size) {
  mSize = size;
  mSurfaceTaken = true;
  mGestures.Guard([this] {
    LayOutFace();
    TakeSurface();
  });
}

void Graph::SetToolBarVisible(bool visible) {
  if (visible == mToolBarVisible) return;
  mToolBarVisible = visible;
  if (mSize != PixelSize{}) Resize(mSize);
}

// Marked as taken at once, since what follows may call back; not taken when its size cannot be read, so that
// the next member tries again.
bool Graph::BeginFirstResize() {
  if (std::exchange(mSurfaceTaken, true)) return false;
  try {
    mEngine.ReadSurfaceSize();
  } catch (...) {
    mSurfaceTaken = false;
    throw;
  }
  return true;
}

// Like in any resize, a range that cannot be shown is not the failure of the member that came first.
void Graph::NeedSurface() {
  if (!BeginFirstResize()) return;
  mGestures.Guard([this] {
    mEngine.PrepareGraph();
    FinishResize();
  });
}

void Graph::LayOutFace() {
  mFace->Apply(LayOut(mSize, mToolBarVisible, mFace->Metrics()));
}

void Graph::TakeSurface() {
  mEngine.ReadSurfaceSize();
  mEngine.PrepareGraph();
  FinishResize();
}

void Graph::FinishResize() {
  mFace->SetText(TextBox::txtStatusBar1, "Width=" + std::to_string(mEngine.SurfaceWidth) +
                                             " pixels   Height=" + std::to_string(mEngine.SurfaceHeight) +
                                             " pixels");
  if (mEngine.RedrawAxisOnResize || mEngine.RedrawGridOnResize) RedrawAfterResize();
}

void Graph::RedrawAfterResize() {
  const auto surface = mEngine.PIC;
  surface->Clear();
  if (mEngine.RedrawAxisOnResize) mEngine.DrawAxes();
  if (mEngine.RedrawGridOnResize) mEngine.DrawGrid();
  surface->Refresh();
}

std::int32_t Graph::GetGraphHDC() {
  const auto keep = shared_from_this();
  return RequirePIC()->DeviceContext();
}

std::int32_t Graph::GetGraphWidth() {
  const auto keep = shared_from_this();
  NeedSurface();
  return platform::ToInt32(RequirePIC()->ScaleWidth()).OrThrow();
}

std::int32_t Graph::GetGraphHeight() {
  const auto keep = shared_from_this();
  NeedSurface();
  return platform::ToInt32(RequirePIC()->ScaleHeight()).OrThrow();
}

std::shared_ptr<graph::DrawingSurface> Graph::RequirePIC() const {
  if (!mEngine.PIC) throw platform::RunTimeError(platform::StandardError::ObjectNotSet);
  return mEngine.PIC;
}

// ---- Properties ----

bool Graph::GetDegreeMode() const noexcept {
  return mEngine.GetDegreeMode();
}

void Graph::SetDegreeMode(bool degrees) noexcept {
  mEngine.SetDegreeMode(degrees);
}

std::shared_ptr<platform::VariableTable> Graph::GetVarTable() const {
  return mExpression.GetVarTable();
}

void Graph::SetVarTable(std::shared_ptr<platform::VariableTable> table) {
  const auto keep = shared_from_this();
  const auto old = mExpression.GetVarTable();  // let go last: that may run the host's code
  mExpression.SetVarTable(std::move(table));
}

std::int16_t Graph::GetPenWidth() {
  const auto keep = shared_from_this();
  return mEngine.GetPenWidth();
}

void Graph::SetPenWidth(std::int16_t width) {
  const auto keep = shared_from_this();
  mEngine.SetPenWidth(width);
}

std::int16_t Graph::GetPlotPixelStep() const noexcept {
  return mEngine.GetPlotPixelStep();
}

void Graph::SetPlotPixelStep(std::int16_t step) noexcept {
  mEngine.SetPlotPixelStep(step);
}

std::string Graph::GetStringEval(RangeText which) const {
  return mEngine.StringEval(which);
}

void Graph::SetStringEval(RangeText which, std::string_view text) {
  const auto keep = shared_from_this();
  mEngine.SetStringEval(which, text);
}

// ---- Methods ----

void Graph::Call(const std::function<void()>& operation) {
  const auto keep = shared_from_this();
  NeedSurface();
  operation();
}

void Graph::PlotAllY() {
  Call([this] { mEngine.PlotAllY(); });
}

void Graph::EvaluateAndPlotEachPoint() {
  Call([this] { mEngine.EvaluateAndPlotEachPoint(); });
}

void Graph::PlotPointXY() {
  Call([this] { mEngine.PlotPointXY(); });
}

void Graph::MoveRangeToPointXY() {
  Call([this] { mEngine.MoveRangeToPointXY(); });
}

void Graph::ZoomInXY() {
  Call([this] { mEngine.ZoomInXY(); });
}

void Graph::ZoomOutXY() {
  Call([this] { mEngine.ZoomOutXY(); });
}

void Graph::ZoomInPixel(float pixelX, float pixelY) {
  Call([=, this] { mEngine.ZoomInPixel(pixelX, pixelY); });
}

void Graph::ZoomOutPixel(float pixelX, float pixelY) {
  Call([=, this] { mEngine.ZoomOutPixel(pixelX, pixelY); });
}

void Graph::ZBoxPixel() {
  Call([this] { mEngine.ZBoxPixel(); });
}

void Graph::ZStandard() {
  Call([this] { mEngine.ZStandard(); });
}

void Graph::ZTrig() {
  Call([this] { mEngine.ZTrig(); });
}

void Graph::ZNum(double pixelSize) {
  Call([=, this] { mEngine.ZNum(pixelSize); });
}

void Graph::ZInt() {
  Call([this] { mEngine.ZInt(); });
}

void Graph::ZDec() {
  Call([this] { mEngine.ZDec(); });
}

// The preparation of the first resize is this one: an empty range is reported once.
void Graph::PrepareGraph() {
  const auto keep = shared_from_this();
  const bool first = BeginFirstResize();
  mEngine.PrepareGraph();
  if (first) mGestures.Guard([this] { FinishResize(); });
}

void Graph::SetYArray(std::vector<std::shared_ptr<graph::YFunction>> functions, bool redrawGraph) {
  const auto keep = shared_from_this();
  mEngine.SetYArray(std::move(functions), false);
  if (redrawGraph) PlotAllY();
}

void Graph::ShowFormatEditor() {
  const auto keep = shared_from_this();
  if (mDesignMode) return;
  frmFormatGraph::ShowFormat(*this);
}

void Graph::SetDesignMode(bool designing) {
  mDesignMode = designing;
  if (designing) CloseDialogsOf(*this);
}

std::shared_ptr<graph::DrawingSurface> Graph::GetGraphPicture() const noexcept {
  return mEngine.PIC;
}

void Graph::SetPlotDone(std::function<void()> handler) {
  mFrame.PlotDone = std::move(handler);
}

}  // namespace plotvane::control
