// frmRange: the dialog "Edit Range".
#pragma once

#include "control/fields_dialog.h"

namespace plotvane::control {

class frmRange : public FieldsDialog {
 public:
  // Texts of the dialog, for the views.
  static const FieldsDialogText kText;

  frmRange();

  // Keeps the control, fills the lists with the numbers of the range and the texts they were last set from,
  // and shows the dialog without waiting for it.
  static void ShowForm(Graph& graph);

 protected:
  // All six texts, then PrepareGraph and PlotAllY. A range that PrepareGraph refuses stays written.
  void Write(Graph& graph) override;
};

}  // namespace plotvane::control
