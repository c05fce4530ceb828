// FieldsWindow: the dialogs "Edit Range" and "Zoom Factors" on the screen.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <string_view>

#include "control/dialog_view.h"
#include "control/win32/dialog_window.h"

namespace plotvane::control::win32 {

class FieldsWindow : public FieldsView, public DialogWindow {
 public:
  // `text` outlives the window; `moduleLock` is held as long as the object lives.
  static std::shared_ptr<FieldsWindow> Make(HINSTANCE module, std::shared_ptr<void> moduleLock,
                                            const FieldsDialogText& text, std::weak_ptr<DialogEvents> events);
  FieldsWindow(std::shared_ptr<void> moduleLock, const FieldsDialogText& text,
               std::weak_ptr<DialogEvents> events);

  // DialogView
  void Show() override;
  void Close() override;
  // FieldsView
  void SetEditText(std::size_t field, std::string_view text) override;
  [[nodiscard]] std::string GetEditText(std::size_t field) override;
  void ClearEntries(std::size_t field) override;
  void AddEntry(std::size_t field, std::string_view text) override;

 protected:
  void HandleInit(Tooltips& tooltips) override;
  void HandleCommand(int id, int notification) override;
  void HandleDestroyed() override;

 private:
  [[nodiscard]] DialogTemplate Describe() const;
  [[nodiscard]] HWND List(std::size_t field) const noexcept;

  std::shared_ptr<void> mModuleLock;
  const FieldsDialogText& mText;
  std::weak_ptr<DialogEvents> mEvents;
};

}  // namespace plotvane::control::win32
