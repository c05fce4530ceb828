#include "control/frmFormatGraph.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "platform/conversions.h"
#include "platform/number_text.h"

namespace plotvane::control {
namespace {

const FormatBarText& TextsOf(FormatBar bar) {
  return kFormatBars.at(static_cast<std::size_t>(bar));
}

// The whole part of the number at the front of a text; a number that no float holds is an infinity.
double WholeNumberIn(std::string_view text) {
  const auto number = platform::LeadingNumber(text);
  if (number.Ok()) return std::trunc(number.Get());
  const bool negative =
      text.find_first_not_of(" \t") != text.npos && text[text.find_first_not_of(" \t")] == '-';
  return negative ? -std::numeric_limits<double>::infinity() : std::numeric_limits<double>::infinity();
}

}  // namespace

void frmFormatGraph::ShowFormat(Graph& graph) {
  if (const auto open = FindOpenDialog<frmFormatGraph>(graph)) return open->FillAndShow(graph);
  const auto form = std::make_shared<frmFormatGraph>();
  form->mFormatView = graph.GetFace().CreateFormatView(form);
  form->Open(graph.shared_from_this(), form->mFormatView);
  try {
    form->FillAndShow(graph);
  } catch (...) {
    form->Unload();  // never shown, so it must not stay open
    throw;
  }
}

void frmFormatGraph::FillAndShow(Graph& graph) {
  Fill(graph);
  mFormatView->Show();
}

// ---- Filling ----

void frmFormatGraph::Fill(Graph& graph) {
  const graph::GraphEngine& engine = graph.Engine();
  const bool degrees = graph.GetDegreeMode();
  SetPair(FormatOption::optRectGC, engine.GCStyle == graph::RECTGC, FormatOption::optPolarGC,
          engine.GCStyle == graph::POLARGC);
  SetPair(FormatOption::optDrawLine, engine.PlotStyle == graph::DRAWLINE, FormatOption::optDrawDot,
          engine.PlotStyle == graph::DRAWDOT);
  SetPair(FormatOption::optGridOn, engine.ShowGrid, FormatOption::optGridOff, !engine.ShowGrid);
  SetPair(FormatOption::optAxisOn, engine.ShowAxis, FormatOption::optAxisOff, !engine.ShowAxis);
  SetPair(FormatOption::optDivisionsOn, engine.ShowAxisDivisions, FormatOption::optDivisionsOff,
          !engine.ShowAxisDivisions);
  SetPair(FormatOption::optRadians, !degrees, FormatOption::optDegrees, degrees);
  mFormatView->SetDivisionsEnabled(engine.ShowAxis);
  SetBar(FormatBar::hscPenWidth, graph.GetPenWidth());
  SetBar(FormatBar::hscPlotDensity, graph.GetPlotPixelStep());
}

void frmFormatGraph::SetOption(FormatOption option, bool selected) {
  mSelected.at(static_cast<std::size_t>(option)) = selected;
  mFormatView->SetOption(option, selected);
}

void frmFormatGraph::SetPair(FormatOption first, bool firstSelected, FormatOption second,
                             bool secondSelected) {
  SetOption(first, firstSelected);
  SetOption(second, secondSelected);
}

bool frmFormatGraph::IsSelected(FormatOption option) const noexcept {
  return mSelected[static_cast<std::size_t>(option)];
}

// ---- Options ----

void frmFormatGraph::OptionClicked(FormatOption option) {
  const FormatGroup group = kFormatOptions.at(static_cast<std::size_t>(option)).group;
  for (const FormatOptionText& row : kFormatOptions) {
    if (row.group == group) SetOption(row.option, row.option == option);
  }
  if (group == FormatGroup::Axis) mFormatView->SetDivisionsEnabled(option == FormatOption::optAxisOn);
}

// ---- Bars and their boxes ----

void frmFormatGraph::SetBar(FormatBar bar, int value) {
  const int nearest = std::clamp(value, TextsOf(bar).minimum, TextsOf(bar).maximum);
  mFormatView->SetBar(bar, nearest);
  BarChanged(bar, nearest);
}

std::int16_t frmFormatGraph::BarValue(FormatBar bar) const noexcept {
  return static_cast<std::int16_t>(mBars[static_cast<std::size_t>(bar)]);
}

void frmFormatGraph::BarChanged(FormatBar bar, int value) {
  mBars.at(static_cast<std::size_t>(bar)) = value;
  if (bar == FormatBar::hscPenWidth) DrawPreview(value);
  mFormatView->SetBox(bar, std::to_string(value));
  mFormatView->SetBoxColour(bar, BoxColour::Black);
}

void frmFormatGraph::DrawPreview(int penWidth) {
  graph::DrawingSurface& preview = mFormatView->Preview();
  preview.Clear();
  preview.SetPenWidth(static_cast<std::int16_t>(penWidth));
  preview.SetPixel(
      {platform::ClampToInt16(preview.ScaleWidth() / 2), platform::ClampToInt16(preview.ScaleHeight() / 2)});
  preview.Refresh();
}

// Red: the value is not accepted yet.
void frmFormatGraph::BoxTyped(FormatBar bar) {
  mFormatView->SetBoxColour(bar, BoxColour::Red);
}

void frmFormatGraph::BoxEntered(FormatBar bar) {
  const auto keep = shared_from_this();  // the host may end the dialog while the message is shown
  const auto view = mFormatView;
  const FormatBarText& texts = TextsOf(bar);
  const double typed = WholeNumberIn(view->GetBox(bar));
  const auto refuse = [&](std::string_view complaint, int limit) {
    view->ShowMessage({std::string(texts.subject) + std::string(complaint) + std::to_string(limit),
                       std::string(texts.messageTitle), MessageIcon::Exclamation});
  };
  if (typed > texts.maximum) return refuse(" cannot be greater than ", texts.maximum);
  if (typed < texts.minimum) return refuse(" cannot be less than ", texts.minimum);
  SetBar(bar, static_cast<int>(typed));
}

// ---- Writing back ----

void frmFormatGraph::OkPressed() {
  const auto keep = shared_from_this();
  const auto graph = EditedGraph();
  const bool written = !graph || graph->Events().Run([&] { Write(*graph); });
  if (written) Unload();
}

// Only the option that is selected writes; with none of a pair selected its property stays as it is.
template <typename Writer>
void frmFormatGraph::WriteSwitch(FormatOption on, FormatOption off, Writer write) const {
  if (IsSelected(on)) write(true);
  if (IsSelected(off)) write(false);
}

void frmFormatGraph::Write(Graph& graph) {
  graph::GraphEngine& engine = graph.Engine();
  WriteSwitch(FormatOption::optRectGC, FormatOption::optPolarGC,
              [&](bool rectangular) { engine.GCStyle = rectangular ? graph::RECTGC : graph::POLARGC; });
  WriteSwitch(FormatOption::optDrawLine, FormatOption::optDrawDot,
              [&](bool lines) { engine.PlotStyle = lines ? graph::DRAWLINE : graph::DRAWDOT; });
  WriteSwitch(FormatOption::optGridOn, FormatOption::optGridOff, [&](bool on) { engine.ShowGrid = on; });
  WriteSwitch(FormatOption::optAxisOn, FormatOption::optAxisOff, [&](bool on) { engine.ShowAxis = on; });
  WriteSwitch(FormatOption::optDivisionsOn, FormatOption::optDivisionsOff,
              [&](bool on) { engine.ShowAxisDivisions = on; });
  WriteSwitch(FormatOption::optDegrees, FormatOption::optRadians, [&](bool on) { graph.SetDegreeMode(on); });
  graph.SetPenWidth(BarValue(FormatBar::hscPenWidth));
  graph.SetPlotPixelStep(BarValue(FormatBar::hscPlotDensity));
}

}  // namespace plotvane::control
