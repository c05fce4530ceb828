// frmZoomFactors: the dialog "Zoom Factors".
#pragma once

#include "control/fields_dialog.h"

namespace plotvane::control {

class frmZoomFactors : public FieldsDialog {
 public:
  // Texts of the dialog, for the views.
  static const FieldsDialogText kText;

  frmZoomFactors();

  // Keeps the control, fills the lists and shows the dialog without waiting for it. The lists hold only the
  // previous texts, not the numbers.
  static void ShowForm(Graph& graph);

 protected:
  // Both texts; nothing is redrawn, the factors act at the next zoom.
  void Write(Graph& graph) override;
};

}  // namespace plotvane::control
