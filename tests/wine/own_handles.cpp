#include "tests/wine/own_handles.h"

#include <windows.h>

#include <array>
#include <ostream>

namespace plotvane::tests {

namespace {

constexpr UINT_PTR kPlaces = 0x10000;

template <typename Handle>
Handle AtPlace(UINT_PTR place) {
  return reinterpret_cast<Handle>(place);
}

bool IsOwnWindow(HWND window) {
  DWORD process = 0;
  return ::IsWindow(window) != FALSE && ::GetWindowThreadProcessId(window, &process) != 0 &&
         process == ::GetCurrentProcessId();
}

bool IsIcon(HICON icon) {
  ICONINFO parts{};
  if (::GetIconInfo(icon, &parts) == FALSE) return false;
  // Copies, given to the caller.
  ::DeleteObject(parts.hbmMask);
  if (parts.hbmColor != nullptr) ::DeleteObject(parts.hbmColor);
  return true;
}

std::size_t BytesOf(HANDLE heap) {
  std::size_t bytes = 0;
  PROCESS_HEAP_ENTRY entry{};
  ::HeapLock(heap);
  while (::HeapWalk(heap, &entry) != FALSE) {
    if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) bytes += entry.cbData;
  }
  ::HeapUnlock(heap);
  return bytes;
}

}  // namespace

HandleCount OwnHandles() {
  HandleCount count;
  for (UINT_PTR place = 1; place < kPlaces; ++place) {
    if (::GetObjectType(AtPlace<HGDIOBJ>(place)) != 0) ++count.drawing;
  }
  // Handles of windows and their like are even.
  for (UINT_PTR place = 2; place < kPlaces; place += 2) {
    if (IsOwnWindow(AtPlace<HWND>(place))) ++count.windows;
    if (::IsMenu(AtPlace<HMENU>(place)) != FALSE) ++count.menus;
    if (::CopyAcceleratorTableW(AtPlace<HACCEL>(place), nullptr, 0) > 0) ++count.acceleratorTables;
    if (IsIcon(AtPlace<HICON>(place))) ++count.icons;
  }
  return count;
}

std::ostream& operator<<(std::ostream& out, const HandleCount& count) {
  return out << count.drawing << " for drawing, " << count.windows << " windows, " << count.menus
             << " menus, " << count.acceleratorTables << " accelerator tables, " << count.icons << " icons";
}

std::size_t HeapBytes() {
  std::array<HANDLE, 64> heaps{};
  const DWORD count = ::GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
  std::size_t bytes = 0;
  for (DWORD index = 0; index < count && index < heaps.size(); ++index) bytes += BytesOf(heaps[index]);
  return bytes;
}

}  // namespace plotvane::tests
