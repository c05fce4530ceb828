// The class behind ControlWindow: the window procedure of the control, its children, its keyboard.
#pragma once

#include <windows.h>

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "control/graph.h"
#include "control/win32/control_window.h"
#include "control/win32/face_controls.h"
#include "control/win32/fields_window.h"
#include "control/win32/format_window.h"
#include "control/win32/surface_view.h"
#include "control/win32/window.h"

namespace plotvane::control::win32 {

class ControlWindowImplementation final : public ControlWindow,
                                          public Window,
                                          public SurfaceOwner,
                                          public std::enable_shared_from_this<ControlWindowImplementation> {
 public:
  ControlWindowImplementation(HINSTANCE module, std::shared_ptr<void> moduleLock);
  ~ControlWindowImplementation() override { mControls.Forget(); }

  // ---- Face ----
  [[nodiscard]] std::string GetText(TextBox box) override { return Text(box); }
  void SetText(TextBox box, std::string_view text) override;
  void RefreshText(TextBox box) override { ::UpdateWindow(mControls.Box(box)); }
  void SetFocus(TextBox box) override;
  [[nodiscard]] FaceMetrics Metrics() override { return mMetrics; }
  void Apply(const ControlLayout& layout) override;
  void ResetSpinner() override;
  [[nodiscard]] std::shared_ptr<graph::DrawingSurface> Surface() override { return mSurfaceView.Surface(); }
  [[nodiscard]] LineControl& ZoomBoxLine(BoxLine line) override {
    return mSurfaceView.GetOverlay().Line(line);
  }
  void SetTraceMarkerVisible(bool visible) override { mSurfaceView.GetOverlay().SetMarkerVisible(visible); }
  void MoveTraceMarker(graph::PixelPoint topLeft) override { mSurfaceView.GetOverlay().MoveMarker(topLeft); }
  void ShowMessage(const MessageContents& contents) override;
  [[nodiscard]] std::string AskInput(const InputRequest& request) override;
  [[nodiscard]] std::optional<ZoomCommand> PopUpMenu(std::span<const ZoomMenuEntry> entries) override;
  [[nodiscard]] std::shared_ptr<FieldsView> CreateFieldsView(const FieldsDialogText& text,
                                                             std::weak_ptr<DialogEvents> events) override {
    return FieldsWindow::Make(mModule, mModuleLock, text, std::move(events));
  }
  [[nodiscard]] std::shared_ptr<FormatView> CreateFormatView(std::weak_ptr<FormatEvents> events) override {
    return FormatWindow::Make(mModule, mModuleLock, std::move(events));
  }

  // ---- ControlWindow ----
  void Attach(const std::shared_ptr<Graph>& graph) override { mGraph = graph; }
  void SetHost(ControlWindowHost* host) noexcept override { mHost = host; }
  [[nodiscard]] bool Create(HWND parent, const RECT& rect) override;
  void Destroy() noexcept override;
  [[nodiscard]] HWND Handle() const noexcept override { return Window::Handle(); }
  void SetParent(HWND parent) override { ::SetParent(Handle(), parent); }
  void SetRect(const RECT& rect) override;
  void SetClip(const RECT* clip) override;
  void Show(bool visible) override { ::ShowWindow(Handle(), visible ? SW_SHOWNA : SW_HIDE); }
  void TakeFocus() override;
  [[nodiscard]] bool HasFocus() const noexcept override { return IsWithin(::GetFocus()); }
  [[nodiscard]] bool TranslateAccelerator(MSG& message) override;
  [[nodiscard]] std::span<const wchar_t> Mnemonics() const noexcept override { return mMnemonics; }
  bool PressMnemonic(wchar_t letter) override;
  void DrawTo(HDC target, const RECT& rect) override;
  void RefreshAppearance() override;

  // ---- SurfaceOwner ----
  [[nodiscard]] std::shared_ptr<void> KeepOwnerAlive() override { return shared_from_this(); }
  // Keeps the control alive while it handles the event.
  [[nodiscard]] std::shared_ptr<Gestures> Events() override {
    const auto graph = mGraph.lock();
    return graph ? std::shared_ptr<Gestures>(graph, &graph->Events()) : nullptr;
  }
  std::optional<LRESULT> Filter(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;

 protected:
  // ---- Window ----
  [[nodiscard]] std::shared_ptr<void> KeepAlive() override { return shared_from_this(); }
  LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  // While a message or input box is open.
  class ModalScope {
   public:
    explicit ModalScope(ControlWindowImplementation& window);
    ~ModalScope();
    ModalScope(const ModalScope&) = delete;
    ModalScope& operator=(const ModalScope&) = delete;

   private:
    ControlWindowImplementation& mWindow;
    HWND mFocus;
  };

  void EnableHost(bool enable);
  [[nodiscard]] std::string& Text(TextBox box) { return mTexts.at(static_cast<std::size_t>(box)); }
  [[nodiscard]] bool IsWithin(HWND window) const noexcept {
    return Handle() != nullptr && (window == Handle() || ::IsChild(Handle(), window));
  }
  [[nodiscard]] HWND BoxOwner() const noexcept {
    return Handle() ? ::GetAncestor(Handle(), GA_ROOT) : nullptr;
  }

  void CreateChildren();
  void HandleCommand(int id, int notification);
  LRESULT HandleNotify(const NMHDR& header);
  void HandleSize(int width, int height);
  void MeasureAgain();
  [[nodiscard]] static LRESULT ColourFaceText(HDC context);

  // The keys of the control itself, and those that the host's loop would otherwise handle.
  bool HandleKey(HWND window, WPARAM key);
  bool HandlePlainKey(HWND window, WPARAM key);
  bool HandleCharacter(HWND window, WPARAM character);
  [[nodiscard]] bool WantsMessage(const MSG* message);
  void FocusCame(HWND window);
  void FocusWent(HWND to);
  bool MoveFocus(HWND from, bool backwards);

  std::shared_ptr<void> mModuleLock;
  HINSTANCE mModule;
  std::weak_ptr<Graph> mGraph;
  ControlWindowHost* mHost = nullptr;
  std::array<std::string, kTextBoxCount> mTexts;
  std::vector<wchar_t> mMnemonics;
  OwnedFont mFont;
  FaceMetrics mMetrics;
  ControlLayout mLayout;
  FaceMetrics mLayoutMetrics;  // those that the layout was made with
  FaceControls mControls;
  SurfaceView mSurfaceView;
  HWND mLastFocus = nullptr;
};

}  // namespace plotvane::control::win32
