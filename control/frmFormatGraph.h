// frmFormatGraph: the dialog "Format": drawing options, angle mode, pen width and plot density.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>

#include "control/dialog.h"
#include "control/format_texts.h"

namespace plotvane::control {

// Writes back only on "Save And Close" and never redraws: what needs a fresh evaluation sets RedrawAll
// through the control's own properties.
class frmFormatGraph : public Dialog, public FormatEvents {
 public:
  // Keeps the control, fills the dialog from it and shows it without waiting for it. When the control cannot
  // be read (it has no surface), the error goes to the caller and a dialog that was not open yet stays
  // closed.
  static void ShowFormat(Graph& graph);

  void OkPressed() override;
  void CancelPressed() override { Unload(); }
  void DialogClosed() override { Unload(); }
  void OptionClicked(FormatOption option) override;
  void BarChanged(FormatBar bar, int value) override;
  void BoxTyped(FormatBar bar) override;
  void BoxEntered(FormatBar bar) override;

 private:
  void FillAndShow(Graph& graph);
  void Fill(Graph& graph);
  void Write(Graph& graph);
  void SetOption(FormatOption option, bool selected);
  void SetPair(FormatOption first, bool firstSelected, FormatOption second, bool secondSelected);
  // Calls `write` with true when `on` is selected, with false when `off` is.
  template <typename Writer>
  void WriteSwitch(FormatOption on, FormatOption off, Writer write) const;
  [[nodiscard]] bool IsSelected(FormatOption option) const noexcept;
  // Moves the bar to the nearest value within its bounds and runs its change handler.
  void SetBar(FormatBar bar, int value);
  [[nodiscard]] std::int16_t BarValue(FormatBar bar) const noexcept;
  void DrawPreview(int penWidth);

  std::shared_ptr<FormatView> mFormatView;
  std::array<bool, kFormatOptionCount> mSelected{};
  std::array<int, kFormatBarCount> mBars{};
};

}  // namespace plotvane::control
