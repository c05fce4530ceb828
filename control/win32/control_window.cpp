#include "control/win32/control_window.h"

#include <commctrl.h>

#include <utility>

#include "control/win32/control_picture.h"
#include "control/win32/control_window_implementation.h"
#include "control/win32/message_box.h"
#include "control/win32/resolution.h"
#include "control/win32/wide_text.h"
#include "control/win32/zoom_popup.h"

namespace plotvane::control::win32 {
namespace {

constexpr wchar_t kClassName[] = L"PlotvaneGraph";
constexpr UINT kDpiChangedAfterParent = 0x02E3;  // WM_DPICHANGED_AFTERPARENT, which older headers lack

}  // namespace

std::shared_ptr<ControlWindow> ControlWindow::Make(HINSTANCE module, std::shared_ptr<void> moduleLock) {
  return std::make_shared<ControlWindowImplementation>(module, std::move(moduleLock));
}

ControlWindowImplementation::ControlWindowImplementation(HINSTANCE module, std::shared_ptr<void> moduleLock)
    : mModuleLock(std::move(moduleLock)), mModule(module), mSurfaceView(*this) {
  MeasureAgain();
  for (const ToolBarItemText& row : kToolBarItems) {
    if (const char letter = MnemonicOf(row.caption)) mMnemonics.push_back(static_cast<wchar_t>(letter));
  }
}

// ---- Face ----

void ControlWindowImplementation::SetText(TextBox box, std::string_view text) {
  Text(box) = text;
  SetWindowTextTo(mControls.Box(box), text);
}

void ControlWindowImplementation::SetFocus(TextBox box) {
  if (const HWND window = mControls.Box(box)) ::SetFocus(window);
}

void ControlWindowImplementation::Apply(const ControlLayout& layout) {
  mLayout = layout;
  mLayoutMetrics = mMetrics;
  mSurfaceView.Surface()->Resize(layout.surface.width, layout.surface.height);
  if (Handle() == nullptr) return;
  mControls.Place(layout);
  const PixelRect& surface = layout.surface;
  ::SetWindowPos(mSurfaceView.Handle(), nullptr, surface.left, surface.top, surface.width, surface.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
  ::InvalidateRect(Handle(), nullptr, TRUE);
}

void ControlWindowImplementation::ResetSpinner() {
  ::SendMessageW(mControls.Item(ToolBarItem::vscUpDown), UDM_SETPOS32, 0, kSpinnerRest);
}

ControlWindowImplementation::ModalScope::ModalScope(ControlWindowImplementation& window)
    : mWindow(window), mFocus(window.HasFocus() ? ::GetFocus() : nullptr) {
  mWindow.EnableHost(false);
}

// When the box closes, the system gives the focus to the host's window, not to the control that had it.
ControlWindowImplementation::ModalScope::~ModalScope() {
  mWindow.EnableHost(true);
  const bool hostIsActive = ::GetActiveWindow() != nullptr && ::GetActiveWindow() == mWindow.BoxOwner();
  if (hostIsActive && mWindow.IsWithin(mFocus) && !mWindow.HasFocus()) ::SetFocus(mFocus);
}

// The host may be let go of while the box is open.
void ControlWindowImplementation::EnableHost(bool enable) {
  if (mHost != nullptr) mHost->EnableModeless(enable);
}

void ControlWindowImplementation::ShowMessage(const MessageContents& contents) {
  const ModalScope modal(*this);
  ShowMessageBox(BoxOwner(), contents);
}

std::string ControlWindowImplementation::AskInput(const InputRequest& request) {
  const ModalScope modal(*this);
  return AskForText(mModule, BoxOwner(), request);
}

std::optional<ZoomCommand> ControlWindowImplementation::PopUpMenu(std::span<const ZoomMenuEntry> entries) {
  return ShowZoomPopup(Handle(), entries);
}

// ---- The window ----

bool ControlWindowImplementation::Create(HWND parent, const RECT& rect) {
  const bool created = CreateWindowOf({.module = mModule,
                                       .className = kClassName,
                                       .text = L"Plotvane Graph",
                                       .style = WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN,
                                       .extendedStyle = WS_EX_CONTROLPARENT,
                                       .rect = rect,
                                       .parent = parent,
                                       .background = SystemBackground(COLOR_BTNFACE)});
  if (!created) return false;
  CreateChildren();
  HandleSize(rect.right - rect.left, rect.bottom - rect.top);
  return true;
}

void ControlWindowImplementation::CreateChildren() {
  mControls.Create(mModule, Handle(), *this);
  static_cast<void>(mSurfaceView.Create(mModule, Handle()));
  MeasureAgain();
  mControls.SetFont(mFont.Get());
  for (const TextBox box : {TextBox::txtSimple, TextBox::txtStatusBar1, TextBox::txtUserCurY}) {
    SetWindowTextTo(mControls.Box(box), Text(box));
  }
}

void ControlWindowImplementation::Destroy() noexcept {
  mControls.Forget();
  mLastFocus = nullptr;
  mSurfaceView.DestroyWindow();
  DestroyWindow();
}

void ControlWindowImplementation::SetRect(const RECT& rect) {
  ::SetWindowPos(Handle(), nullptr, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

// The region belongs to the window once it is set.
void ControlWindowImplementation::SetClip(const RECT* clip) {
  if (Handle() == nullptr) return;
  ::SetWindowRgn(Handle(), clip == nullptr ? nullptr : ::CreateRectRgnIndirect(clip), TRUE);
}

LRESULT ControlWindowImplementation::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SIZE: return HandleSize(LOWORD(lParam), HIWORD(lParam)), 0;
    case WM_COMMAND: return HandleCommand(LOWORD(wParam), HIWORD(wParam)), 0;
    case WM_NOTIFY: return HandleNotify(*reinterpret_cast<const NMHDR*>(lParam));
    case WM_SETFOCUS: return TakeFocus(), 0;
    case WM_SYSCOLORCHANGE: return SpreadSystemColours(Handle()), 0;
    case WM_CTLCOLORSTATIC: return ColourFaceText(reinterpret_cast<HDC>(wParam));
    case WM_SETTINGCHANGE:
    case WM_THEMECHANGED:
    case kDpiChangedAfterParent: return RefreshAppearance(), 0;
    case WM_NCDESTROY:
      mControls.Forget();
      mLastFocus = nullptr;
      break;
    default: break;
  }
  return Default(message, wParam, lParam);
}

// A resize clears the picture, so only another size or other measures make one; a new window of the old size
// shows the picture that is there.
void ControlWindowImplementation::HandleSize(int width, int height) {
  const auto graph = mGraph.lock();
  if (!graph) return;
  const PixelSize size{width, height};
  if (graph->Size() == size && mLayoutMetrics == mMetrics)
    Apply(ControlLayout(mLayout));
  else
    graph->Resize(size);
}

void ControlWindowImplementation::HandleCommand(int id, int notification) {
  const auto item = FaceControls::ItemWithId(id);
  const auto events = Events();
  if (!item || !events) return;
  if (*item == ToolBarItem::txtUserCurY) {
    if (notification == EN_CHANGE) Text(TextBox::txtUserCurY) = WindowText(mControls.Item(*item));
    return;
  }
  const bool isButton = kToolBarItems.at(IndexOf(*item)).kind == ItemKind::Button;
  if (isButton && notification == BN_CLICKED) events->ToolBarPressed(*item);
}

// The spinner itself stays where it is: the control answers with the next function.
LRESULT ControlWindowImplementation::HandleNotify(const NMHDR& header) {
  if (header.code != static_cast<UINT>(UDN_DELTAPOS)) return 0;
  const auto& change = reinterpret_cast<const NMUPDOWN&>(header);
  if (const auto events = Events()) events->SpinnerChanged(change.iPos + change.iDelta);
  return TRUE;
}

// Label and status boxes stand on the colour of the buttons, so they have the colour of their captions.
LRESULT ControlWindowImplementation::ColourFaceText(HDC context) {
  ::SetTextColor(context, ::GetSysColor(COLOR_BTNTEXT));
  ::SetBkColor(context, ::GetSysColor(COLOR_BTNFACE));
  return reinterpret_cast<LRESULT>(::GetSysColorBrush(COLOR_BTNFACE));
}

void ControlWindowImplementation::MeasureAgain() {
  const int dpi = ResolutionOf(Handle());
  mFont = MakeFaceFont(dpi);
  mMetrics = MeasureFace(mFont.Get(), dpi);
}

void ControlWindowImplementation::RefreshAppearance() {
  if (Handle() == nullptr) return;
  const OwnedFont old =
      std::exchange(mFont, OwnedFont());  // in use by the controls until they have the new one
  MeasureAgain();
  mControls.SetFont(mFont.Get());
  RECT client{};
  ::GetClientRect(Handle(), &client);
  HandleSize(client.right, client.bottom);
}

void ControlWindowImplementation::DrawTo(HDC target, const RECT& rect) {
  GdiSurface& surface = *mSurfaceView.Surface();
  const PixelSize size{static_cast<int>(surface.ScaleWidth()), static_cast<int>(surface.ScaleHeight())};
  DrawControlPicture(target, rect, {mLayout, mTexts, mFont.Get(), surface, size});
}

}  // namespace plotvane::control::win32
