#include "control/frmRange.h"

#include <array>
#include <memory>

#include "graph/graph_engine.h"
#include "platform/number_text.h"

namespace plotvane::control {
namespace {

// The field's position in the dialog.
enum Field : std::size_t { kXMin, kXMax, kYMin, kYMax, kXScl, kYScl, kFieldCount };

constexpr std::array<FieldText, kFieldCount> kFields{{
    {"&1    X Minimum: ", "cboXMin"},
    {"&2    X Maximum:", "cboXMax"},
    {"&3    Y Minimum:", "cboYMin"},
    {"&4    Y Maximum:", "cboYMax"},
    {"&5    X Axis Division:", "cboXScl"},
    {"&6    Y Axis Division:", "cboYScl"},
}};

template <double graph::GraphFields::*number>
std::string Shown(const graph::GraphEngine& engine) {
  return platform::NumberText(engine.*number);
}

constexpr std::array<FieldBinding, kFieldCount> kBindings{{
    {Shown<&graph::GraphEngine::Xmin>, RangeText::XMin},
    {Shown<&graph::GraphEngine::Xmax>, RangeText::XMax},
    {Shown<&graph::GraphEngine::Ymin>, RangeText::YMin},
    {Shown<&graph::GraphEngine::Ymax>, RangeText::YMax},
    {Shown<&graph::GraphEngine::Xscl>, RangeText::XScl},
    {Shown<&graph::GraphEngine::Yscl>, RangeText::YScl},
}};

// Minima before maxima: an expression may read what an earlier one stored.
constexpr std::array<Field, kFieldCount> kWriteOrder{kXMin, kYMin, kXMax, kYMax, kXScl, kYScl};

}  // namespace

const FieldsDialogText frmRange::kText{"Edit Range",
                                       kFields,
                                       "Enter a new value or select the previously entered or original value",
                                       "Enter a number for each field.  If you enter a expression it will be "
                                       "evaluated. The expression will then be "
                                       "saved to the combo box for further editing.",
                                       {"cmdOK", "&OK", "Exit and update range"},
                                       {"cmdCancel", "&Cancel", "Exit without saving"}};

frmRange::frmRange() : FieldsDialog(kText, kBindings, FirstEntry::ShownValue) {}

void frmRange::ShowForm(Graph& graph) {
  auto form = FindOpenDialog<frmRange>(graph);
  if (!form) form = std::make_shared<frmRange>();
  form->ShowOn(graph);
}

void frmRange::Write(Graph& graph) {
  for (const Field field : kWriteOrder) WriteField(graph, field);
  graph.PrepareGraph();
  graph.PlotAllY();
}

}  // namespace plotvane::control
