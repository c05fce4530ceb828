// Dialog: what the three dialogs share: the control they edit, their place in the list of open forms, their
// end.
#pragma once

#include <memory>

#include "control/dialog_view.h"
#include "control/graph.h"
#include "control/open_forms.h"

namespace plotvane::control {

// A dialog refers to its control without keeping it alive; the reference is given back when the dialog
// closes.
class Dialog : public Form, public std::enable_shared_from_this<Dialog> {
 public:
  void Unload() override;

  // The control that is edited; null after closing.
  [[nodiscard]] std::shared_ptr<Graph> EditedGraph() const noexcept { return mGraph.lock(); }

 protected:
  // Enters the list of open forms.
  void Open(const std::shared_ptr<Graph>& graph, std::shared_ptr<DialogView> view);

 private:
  std::weak_ptr<Graph> mGraph;
  std::shared_ptr<OpenForms> mForms;
  std::shared_ptr<DialogView> mView;
};

// The open dialog of this kind on this control, null when there is none. Each control has at most one of each
// kind; opening it again fills it anew and brings it to the front.
template <typename Kind>
[[nodiscard]] std::shared_ptr<Kind> FindOpenDialog(const Graph& graph) {
  for (const auto& form : OpenForms::OfThisThread()->Forms()) {
    auto dialog = std::dynamic_pointer_cast<Kind>(form);
    if (dialog && dialog->EditedGraph().get() == &graph) return dialog;
  }
  return nullptr;
}

// Closes the dialogs of this control without writing; those of other controls stay.
void CloseDialogsOf(const Graph& graph);

}  // namespace plotvane::control
