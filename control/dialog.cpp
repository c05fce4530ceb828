#include "control/dialog.h"

#include <utility>

namespace plotvane::control {

void Dialog::Open(const std::shared_ptr<Graph>& graph, std::shared_ptr<DialogView> view) {
  mGraph = graph;
  mView = std::move(view);
  mForms = OpenForms::OfThisThread();
  mForms->Add(shared_from_this());
}

void Dialog::Unload() {
  const auto keep = shared_from_this();
  mGraph.reset();
  if (const auto view = std::exchange(mView, nullptr)) view->Close();
  if (const auto forms = std::exchange(mForms, nullptr)) forms->Remove(*this);
}

void CloseDialogsOf(const Graph& graph) {
  const auto open = OpenForms::OfThisThread()->Forms();  // a copy: closing takes out of the list
  for (const auto& form : open) {
    const auto dialog = std::dynamic_pointer_cast<Dialog>(form);
    if (dialog && dialog->EditedGraph().get() == &graph) dialog->Unload();
  }
}

}  // namespace plotvane::control
