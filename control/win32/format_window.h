// FormatWindow: the dialog "Format" on the screen.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <string_view>

#include "control/dialog_view.h"
#include "control/win32/dialog_window.h"
#include "control/win32/gdi_surface.h"

namespace plotvane::control::win32 {

class FormatWindow : public FormatView, public DialogWindow {
 public:
  // `moduleLock` is held as long as the object lives.
  static std::shared_ptr<FormatWindow> Make(HINSTANCE module, std::shared_ptr<void> moduleLock,
                                            std::weak_ptr<FormatEvents> events);
  FormatWindow(std::shared_ptr<void> moduleLock, std::weak_ptr<FormatEvents> events);

  // DialogView
  void Show() override { ShowDialog(); }
  void Close() override;
  // FormatView
  void SetOption(FormatOption option, bool selected) override;
  void SetDivisionsEnabled(bool enabled) override;
  void SetBar(FormatBar bar, int value) override;
  void SetBox(FormatBar bar, std::string_view text) override;
  [[nodiscard]] std::string GetBox(FormatBar bar) override;
  void SetBoxColour(FormatBar bar, BoxColour colour) override;
  [[nodiscard]] graph::DrawingSurface& Preview() override { return mPreview; }
  void ShowMessage(const MessageContents& contents) override;

 protected:
  void HandleInit(Tooltips& tooltips) override;
  void HandleCommand(int id, int notification) override;
  INT_PTR HandleOther(UINT message, WPARAM wParam, LPARAM lParam) override;
  void HandleDestroyed() override;

 private:
  void HandleEnter(FormatEvents& events);
  void Scroll(HWND scrollBar, int request);
  [[nodiscard]] INT_PTR ColourOf(HDC context, HWND box) const;
  void PaintPreview(const DRAWITEMSTRUCT& item);

  std::shared_ptr<void> mModuleLock;
  std::weak_ptr<FormatEvents> mEvents;
  GdiSurface mPreview;
  std::array<BoxColour, kFormatBarCount> mColours{};
  bool mSettingBox = false;  // a change of a box that is not the user's
};

}  // namespace plotvane::control::win32
