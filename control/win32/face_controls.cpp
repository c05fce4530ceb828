#include "control/win32/face_controls.h"

#include <commctrl.h>

#include <algorithm>
#include <string>

#include "control/win32/resolution.h"
#include "control/win32/wide_text.h"

namespace plotvane::control::win32 {
namespace {

constexpr int kFirstItemId = 100;
constexpr int kStatusId = 200;
constexpr int kLongestNumber = 9;  // characters in the number box

struct SystemControl {
  const wchar_t* className;
  DWORD style;
  DWORD extendedStyle;
};

SystemControl ControlFor(ItemKind kind) {
  switch (kind) {
    case ItemKind::Button: return {WC_BUTTONW, WS_TABSTOP | BS_PUSHBUTTON, 0};
    case ItemKind::Label: return {WC_STATICW, SS_LEFT, 0};
    case ItemKind::EditBox: return {WC_EDITW, WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE};
    case ItemKind::Spinner: return {UPDOWN_CLASSW, 0, 0};
  }
  return {WC_STATICW, 0, 0};
}

HWND CreateControl(HINSTANCE module, HWND parent, const SystemControl& control, std::string_view text,
                   int id = -1) {
  return ::CreateWindowExW(control.extendedStyle, control.className, ToWide(text).c_str(),
                           WS_CHILD | WS_CLIPSIBLINGS | control.style, 0, 0, 0, 0, parent,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), module, nullptr);
}

// Screen readers take the label before a control for its name, also one that is never shown.
void NameNext(HINSTANCE module, HWND parent, std::string_view name) {
  CreateControl(module, parent, ControlFor(ItemKind::Label), name);
}

void PlaceOne(HWND window, const PixelRect& rect) {
  const UINT visibility = rect.IsEmpty() ? SWP_HIDEWINDOW : SWP_SHOWWINDOW;
  ::SetWindowPos(window, nullptr, rect.left, rect.top, std::max(rect.width, 0), std::max(rect.height, 0),
                 SWP_NOZORDER | SWP_NOACTIVATE | visibility);
}

bool IsShown(HWND window) {
  return (::GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE) != 0;
}

}  // namespace

void FaceControls::Create(HINSTANCE module, HWND parent, KeyboardFilter& filter) {
  mTooltips.Create(module, parent);
  for (const ToolBarItemText& row : kToolBarItems) {
    const auto index = static_cast<int>(IndexOf(row.item));
    const std::string_view text = row.kind == ItemKind::Spinner ? kSpinnerName : row.caption;  // never shown
    const HWND control = CreateControl(module, parent, ControlFor(row.kind), text, kFirstItemId + index);
    mItems[IndexOf(row.item)] = control;
    InstallFilter(control, filter);
    mTooltips.Add(control, row.tooltip);
  }
  ::SendMessageW(Item(ToolBarItem::txtUserCurY), EM_SETLIMITTEXT, kLongestNumber, 0);
  // Its lower arrow counts up: a range turned round.
  const HWND spinner = Item(ToolBarItem::vscUpDown);
  ::SendMessageW(spinner, UDM_SETRANGE32, kSpinnerRest + 1, kSpinnerRest - 1);
  ::SendMessageW(spinner, UDM_SETPOS32, 0, kSpinnerRest);

  const SystemControl status{WC_EDITW, ES_READONLY | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE};
  NameNext(module, parent, kSimpleName);
  mSimple = CreateControl(module, parent, status, "", kStatusId);
  NameNext(module, parent, kStatusBar1Name);
  mStatusBar1 = CreateControl(module, parent, status, "", kStatusId + 1);
  for (const HWND box : {mSimple, mStatusBar1}) InstallFilter(box, filter);
}

void FaceControls::Forget() noexcept {
  mTooltips.Destroy();
  for (const HWND control : mItems) RemoveFilter(control);
  for (const HWND box : {mSimple, mStatusBar1}) RemoveFilter(box);
  mItems = {};
  mSimple = nullptr;
  mStatusBar1 = nullptr;
}

HWND FaceControls::Box(TextBox box) const noexcept {
  switch (box) {
    case TextBox::txtSimple: return mSimple;
    case TextBox::txtStatusBar1: return mStatusBar1;
    case TextBox::txtUserCurY: return Item(ToolBarItem::txtUserCurY);
  }
  return nullptr;
}

std::optional<ToolBarItem> FaceControls::ItemOf(HWND window) const noexcept {
  const auto found = std::find(mItems.begin(), mItems.end(), window);
  if (window == nullptr || found == mItems.end()) return std::nullopt;
  return static_cast<ToolBarItem>(found - mItems.begin());
}

std::optional<ToolBarItem> FaceControls::ItemWithId(int id) noexcept {
  const int index = id - kFirstItemId;
  if (index < 0 || index >= static_cast<int>(kToolBarItemCount)) return std::nullopt;
  return static_cast<ToolBarItem>(index);
}

void FaceControls::Place(const ControlLayout& layout) {
  for (std::size_t i = 0; i < kToolBarItemCount; ++i) PlaceOne(mItems[i], layout.items[i]);
  PlaceOne(mSimple, layout.simple);
  PlaceOne(mStatusBar1, layout.statusBar1);
}

void FaceControls::SetFont(HFONT font) {
  const auto give = [font](HWND control) {
    ::SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
  };
  std::for_each(mItems.begin(), mItems.end(), give);
  give(mSimple);
  give(mStatusBar1);
}

HWND FaceControls::NextStop(HWND from, bool backwards) const noexcept {
  const auto here = ItemOf(from);
  const int step = backwards ? -1 : 1;
  const int count = static_cast<int>(kToolBarItemCount);
  int index = here ? static_cast<int>(IndexOf(*here)) + step : (backwards ? count - 1 : 0);
  for (; index >= 0 && index < count; index += step) {
    const HWND control = mItems[static_cast<std::size_t>(index)];
    if (IsShown(control) && (::GetWindowLongW(control, GWL_STYLE) & WS_TABSTOP) != 0) return control;
  }
  return nullptr;
}

FaceMetrics MeasureFace(HFONT font, int dpi) {
  const WindowContext screen(nullptr);
  const SelectScope selected(screen.Get(), font);
  FaceMetrics metrics;
  metrics.dpi = dpi;
  const TextSize digit = MeasureText(screen.Get(), "0");
  metrics.lineHeight = digit.height;
  metrics.digitWidth = digit.width;
  for (std::size_t i = 0; i < kToolBarItemCount; ++i) {
    metrics.captionWidths[i] =
        MeasureText(screen.Get(), CaptionWithoutMnemonic(kToolBarItems[i].caption)).width;
  }
  return metrics;
}

}  // namespace plotvane::control::win32
