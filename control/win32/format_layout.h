// The places of the controls of the dialog "Format", in dialog units.
#pragma once

#include "control/win32/dialog_template.h"

namespace plotvane::control::win32 {

// Identifiers of the controls; options and bars count on from the first of their kind.
enum FormatId : int {
  kSaveAndClose = 100,  // not IDOK: Enter in a box accepts the box, it does not save
  kNoteText,
  kPenWidthText,
  kPreviewText,
  kPreviewPicture,
  kLowDensityText,
  kHighDensityText,
  kFirstGroup = 200,
  kFirstOption = 300,
  kFirstBar = 400,
  kFirstBox = 500,
};

[[nodiscard]] DialogTemplate DescribeFormatDialog();

}  // namespace plotvane::control::win32
