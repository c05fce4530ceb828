#include "control/fields_dialog.h"

#include "control/face.h"
#include "control/gestures.h"
#include "graph/graph_engine.h"

namespace plotvane::control {

void FieldsDialog::ShowOn(Graph& graph) {
  if (!mFieldsView) {
    const auto self = std::static_pointer_cast<FieldsDialog>(shared_from_this());
    mFieldsView = graph.GetFace().CreateFieldsView(mText, self);
    Open(graph.shared_from_this(), mFieldsView);
  }
  for (std::size_t field = 0; field < mBindings.size(); ++field) FillField(graph, field);
  mFieldsView->Show();
}

void FieldsDialog::FillField(Graph& graph, std::size_t field) {
  const FieldBinding& binding = mBindings[field];
  const std::string shown = binding.shownValue(graph.Engine());
  mFieldsView->ClearEntries(field);
  mFieldsView->SetEditText(field, shown);
  if (mFirstEntry == FirstEntry::ShownValue) mFieldsView->AddEntry(field, shown);
  mFieldsView->AddEntry(field, graph.GetStringEval(binding.text));
}

void FieldsDialog::WriteField(Graph& graph, std::size_t field) {
  graph.SetStringEval(mBindings[field].text, mFieldsView->GetEditText(field));
}

void FieldsDialog::OkPressed() {
  const auto keep = shared_from_this();
  const auto graph = EditedGraph();
  const bool written = !graph || graph->Events().Run([&] { Write(*graph); });
  if (written) Unload();
}

}  // namespace plotvane::control
