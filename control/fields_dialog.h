// FieldsDialog: a dialog of editable lists, each for one number of the control and the text it was last set
// from.
#pragma once

#include <memory>
#include <span>
#include <string>

#include "control/dialog.h"

namespace plotvane::control {

// One list: how its number is shown, which text was entered last, where OK writes to.
struct FieldBinding {
  std::string (*shownValue)(const graph::GraphEngine& engine);
  RangeText text;
};

// Whether the number that is shown is the first entry of its list.
enum class FirstEntry { ShownValue, PreviousText };

class FieldsDialog : public Dialog, public DialogEvents {
 public:
  void OkPressed() override;
  void CancelPressed() override { Unload(); }
  void DialogClosed() override { Unload(); }

 protected:
  FieldsDialog(const FieldsDialogText& text, std::span<const FieldBinding> bindings, FirstEntry firstEntry)
      : mText(text), mBindings(bindings), mFirstEntry(firstEntry) {}

  // Opens the dialog or, when it is open, fills it anew; shows it.
  void ShowOn(Graph& graph);

  // The edit text of a list, written to its property; the text is evaluated there.
  void WriteField(Graph& graph, std::size_t field);

  // What OK does before the dialog closes.
  virtual void Write(Graph& graph) = 0;

 private:
  void FillField(Graph& graph, std::size_t field);

  const FieldsDialogText& mText;
  std::span<const FieldBinding> mBindings;
  FirstEntry mFirstEntry;
  std::shared_ptr<FieldsView> mFieldsView;
};

}  // namespace plotvane::control
