#include "control/frmZoomFactors.h"

#include <array>
#include <memory>

#include "graph/graph_engine.h"
#include "platform/number_text.h"

namespace plotvane::control {
namespace {

constexpr std::array<FieldText, 2> kFields{{
    {"&X Zoom Factor:", "cboXZoomFactor"},
    {"&Y Zoom Factor:", "cboYZoomFactor"},
}};

// The factors are 32-bit floats and are shown with their digits.
template <float graph::GraphFields::*number>
std::string Shown(const graph::GraphEngine& engine) {
  return platform::NumberText(engine.*number);
}

constexpr std::array<FieldBinding, 2> kBindings{{
    {Shown<&graph::GraphEngine::ZX>, RangeText::ZX},
    {Shown<&graph::GraphEngine::ZY>, RangeText::ZY},
}};

}  // namespace

const FieldsDialogText frmZoomFactors::kText{
    "Zoom Factors",
    kFields,
    "Enter a new value or select the previously entered or original value",
    "Edit the Zoom Factors. When zooming in and out, the new range width and height is calculated using "
    "these zoom "
    "factors.  Change these factors to modify the magnitude of the zooming along the x and y axis. If you "
    "enter a "
    "textual expression it will be evaluated numerically and saved to the combo box for further editing.",
    {"cmdOK", "&OK", "Save and Continue"},
    {"cmdCancel", "&Cancel", "Forget I ever came here"}};

frmZoomFactors::frmZoomFactors() : FieldsDialog(kText, kBindings, FirstEntry::PreviousText) {}

void frmZoomFactors::ShowForm(Graph& graph) {
  auto form = FindOpenDialog<frmZoomFactors>(graph);
  if (!form) form = std::make_shared<frmZoomFactors>();
  form->ShowOn(graph);
}

void frmZoomFactors::Write(Graph& graph) {
  for (std::size_t field = 0; field < kFields.size(); ++field) WriteField(graph, field);
}

}  // namespace plotvane::control
