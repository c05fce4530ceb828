#include "control/win32/zoom_popup.h"

#include "control/win32/floating_point_state.h"
#include "control/win32/handles.h"
#include "control/win32/wide_text.h"

namespace plotvane::control::win32 {

std::optional<ZoomCommand> ShowZoomPopup(HWND owner, std::span<const ZoomMenuEntry> entries) {
  const OwnedMenu menu(::CreatePopupMenu());
  UINT_PTR id = 0;  // 0 stands for no choice
  for (const ZoomMenuEntry& entry : entries) {
    const UINT kind = entry.caption.empty() ? MF_SEPARATOR : MF_STRING;
    ::AppendMenuW(menu.Get(), kind, ++id, ToWide(entry.caption).c_str());
  }
  const HostFloatingPoint hostState;  // other windows get their messages meanwhile
  POINT at{};
  ::GetCursorPos(&at);
  const int chosen =
      ::TrackPopupMenu(menu.Get(), TPM_RETURNCMD | TPM_LEFTALIGN, at.x, at.y, 0, owner, nullptr);
  if (chosen <= 0 || static_cast<std::size_t>(chosen) > entries.size()) return std::nullopt;
  return entries[static_cast<std::size_t>(chosen - 1)].command;
}

}  // namespace plotvane::control::win32
