#include "control/win32/format_window.h"

#include <algorithm>
#include <utility>

#include "control/format_texts.h"
#include "control/win32/format_layout.h"
#include "control/win32/message_box.h"
#include "control/win32/wide_text.h"

namespace plotvane::control::win32 {
namespace {

constexpr COLORREF kRed = RGB(255, 0, 0);

int Number(FormatBar bar) {
  return static_cast<int>(bar);
}
int Number(FormatOption option) {
  return static_cast<int>(option);
}

bool IsWithin(int id, int first, std::size_t count) {
  return id >= first && id < first + static_cast<int>(count);
}

}  // namespace

std::shared_ptr<FormatWindow> FormatWindow::Make(HINSTANCE module, std::shared_ptr<void> moduleLock,
                                                 std::weak_ptr<FormatEvents> events) {
  auto window = std::make_shared<FormatWindow>(std::move(moduleLock), std::move(events));
  static_cast<void>(window->CreateModeless(module, DescribeFormatDialog()));
  return window;
}

FormatWindow::FormatWindow(std::shared_ptr<void> moduleLock, std::weak_ptr<FormatEvents> events)
    : mModuleLock(std::move(moduleLock)), mEvents(std::move(events)), mPreview(0, 0) {}

// ---- What the system reports ----

void FormatWindow::HandleInit(Tooltips& tooltips) {
  for (const FormatOptionText& option : kFormatOptions) {
    tooltips.Add(Item(kFirstOption + Number(option.option)), option.tooltip);
  }
  for (const FormatBarText& bar : kFormatBars) {
    ::SetScrollRange(Item(kFirstBar + Number(bar.bar)), SB_CTL, bar.minimum, bar.maximum, FALSE);
    tooltips.Add(Item(kFirstBox + Number(bar.bar)), bar.boxTooltip);
  }
  for (const int preview : {kPreviewText, kPreviewPicture})
    tooltips.Add(Item(preview), kPreviewLabel.tooltip);
  tooltips.Add(Item(kLowDensityText), kLowDensityLabel.tooltip);
  tooltips.Add(Item(kHighDensityText), kHighDensityLabel.tooltip);

  RECT picture{};
  ::GetClientRect(Item(kPreviewPicture), &picture);
  mPreview.Resize(picture.right, picture.bottom);
  mPreview.SetWindow(Item(kPreviewPicture));
}

void FormatWindow::HandleCommand(int id, int notification) {
  const auto events = mEvents.lock();
  if (!events) return;
  if (id == kSaveAndClose) return events->OkPressed();
  if (id == IDCANCEL) return events->CancelPressed();
  if (id == IDOK) return HandleEnter(*events);
  if (IsWithin(id, kFirstOption, kFormatOptionCount) && notification == BN_CLICKED) {
    return events->OptionClicked(static_cast<FormatOption>(id - kFirstOption));
  }
  if (IsWithin(id, kFirstBox, kFormatBarCount) && notification == EN_CHANGE && !mSettingBox) {
    events->BoxTyped(static_cast<FormatBar>(id - kFirstBox));
  }
}

void FormatWindow::HandleEnter(FormatEvents& events) {
  const int id = ::GetDlgCtrlID(::GetFocus());
  if (IsWithin(id, kFirstBox, kFormatBarCount)) events.BoxEntered(static_cast<FormatBar>(id - kFirstBox));
}

INT_PTR FormatWindow::HandleOther(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_HSCROLL: return Scroll(reinterpret_cast<HWND>(lParam), LOWORD(wParam)), TRUE;
    case WM_CTLCOLOREDIT: return ColourOf(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam));
    case WM_SYSCOLORCHANGE: return mPreview.RedrawInSystemColours(), TRUE;
    case WM_DRAWITEM: return PaintPreview(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)), TRUE;
    default: return FALSE;
  }
}

void FormatWindow::Scroll(HWND scrollBar, int request) {
  const int id = ::GetDlgCtrlID(scrollBar);
  if (!IsWithin(id, kFirstBar, kFormatBarCount)) return;
  const FormatBarText& bar = kFormatBars.at(static_cast<std::size_t>(id - kFirstBar));
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_POS | SIF_TRACKPOS;
  ::GetScrollInfo(scrollBar, SB_CTL, &info);
  int value = info.nPos;
  switch (request) {
    case SB_LINELEFT: value -= 1; break;
    case SB_LINERIGHT: value += 1; break;
    case SB_PAGELEFT: value -= bar.trackStep; break;
    case SB_PAGERIGHT: value += bar.trackStep; break;
    case SB_LEFT: value = bar.minimum; break;
    case SB_RIGHT: value = bar.maximum; break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION: value = info.nTrackPos; break;
    default: return;
  }
  value = std::clamp(value, bar.minimum, bar.maximum);
  if (value == info.nPos) return;
  SetBar(bar.bar, value);
  if (const auto events = mEvents.lock()) events->BarChanged(bar.bar, value);
}

INT_PTR FormatWindow::ColourOf(HDC context, HWND box) const {
  const int id = ::GetDlgCtrlID(box);
  if (!IsWithin(id, kFirstBox, kFormatBarCount)) return FALSE;
  const bool red = mColours.at(static_cast<std::size_t>(id - kFirstBox)) == BoxColour::Red;
  // Black is the system's text colour, so that the text stays readable in high contrast.
  ::SetTextColor(context, red ? kRed : ::GetSysColor(COLOR_WINDOWTEXT));
  ::SetBkColor(context, ::GetSysColor(COLOR_WINDOW));
  return reinterpret_cast<INT_PTR>(::GetSysColorBrush(COLOR_WINDOW));
}

void FormatWindow::PaintPreview(const DRAWITEMSTRUCT& item) {
  mPreview.Paint(item.hDC, item.rcItem);
}

void FormatWindow::HandleDestroyed() {
  mPreview.SetWindow(nullptr);
  if (const auto events = mEvents.lock()) events->DialogClosed();
}

// ---- What the dialog shows ----

void FormatWindow::Close() {
  mEvents.reset();
  mPreview.SetWindow(nullptr);
  DestroyDialog();
}

void FormatWindow::SetOption(FormatOption option, bool selected) {
  ::SendMessageW(Item(kFirstOption + Number(option)), BM_SETCHECK, selected ? BST_CHECKED : BST_UNCHECKED, 0);
}

void FormatWindow::SetDivisionsEnabled(bool enabled) {
  const int group = kFirstGroup + static_cast<int>(FormatGroup::Divisions);
  for (const int id : {group, kFirstOption + Number(FormatOption::optDivisionsOn),
                       kFirstOption + Number(FormatOption::optDivisionsOff)}) {
    ::EnableWindow(Item(id), enabled ? TRUE : FALSE);
  }
}

void FormatWindow::SetBar(FormatBar bar, int value) {
  ::SetScrollPos(Item(kFirstBar + Number(bar)), SB_CTL, value, TRUE);
}

void FormatWindow::SetBox(FormatBar bar, std::string_view text) {
  mSettingBox = true;
  SetWindowTextTo(Item(kFirstBox + Number(bar)), text);
  mSettingBox = false;
}

std::string FormatWindow::GetBox(FormatBar bar) {
  return WindowText(Item(kFirstBox + Number(bar)));
}

void FormatWindow::SetBoxColour(FormatBar bar, BoxColour colour) {
  mColours.at(static_cast<std::size_t>(bar)) = colour;
  ::InvalidateRect(Item(kFirstBox + Number(bar)), nullptr, TRUE);
}

void FormatWindow::ShowMessage(const MessageContents& contents) {
  ShowMessageBox(Dialog(), contents);
}

}  // namespace plotvane::control::win32
