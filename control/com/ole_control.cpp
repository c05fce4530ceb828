// IOleControl: mnemonics, ambient properties and frozen events.
#include <olectl.h>

#include <array>
#include <utility>
#include <vector>

#include "control/com/graph_object.h"

namespace plotvane::control::com {

namespace {

// Containers look a mnemonic up in different ways: by the key, or by the character, upper or lower case.
std::array<ACCEL, 3> EntriesFor(wchar_t letter) {
  const auto upper = static_cast<WORD>(letter);
  const auto lower = static_cast<WORD>(letter - L'A' + L'a');
  return {ACCEL{FALT | FVIRTKEY, upper, upper}, ACCEL{FALT, lower, upper}, ACCEL{FALT, upper, upper}};
}

}  // namespace

// The table of accelerators is the caller's to destroy.
HRESULT GraphObject::GetControlInfo(CONTROLINFO* info) noexcept {
  if (info == nullptr) return E_POINTER;
  return Enter([&]() -> HRESULT {
    std::vector<ACCEL> entries;
    for (const wchar_t letter : mWindow->Mnemonics()) {
      for (const ACCEL& entry : EntriesFor(letter)) entries.push_back(entry);
    }
    info->cb = sizeof(CONTROLINFO);
    info->dwFlags = 0;
    info->cAccel = static_cast<USHORT>(entries.size());
    info->hAccel = ::CreateAcceleratorTableW(entries.data(), static_cast<int>(entries.size()));
    return info->hAccel != nullptr ? S_OK : E_OUTOFMEMORY;
  });
}

HRESULT GraphObject::OnMnemonic(MSG* message) noexcept {
  if (message == nullptr) return E_POINTER;
  return Enter([&] {
    auto letter = static_cast<wchar_t>(message->wParam);
    ::CharUpperBuffW(&letter, 1);
    static_cast<void>(mWindow->PressMnemonic(letter));
  });
}

HRESULT GraphObject::OnAmbientPropertyChange(DISPID id) noexcept {
  return Enter([&] {
    if (id == DISPID_UNKNOWN || id == DISPID_AMBIENT_USERMODE || id == DISPID_AMBIENT_UIDEAD)
      ReadDesignMode();
    mWindow->RefreshAppearance();
  });
}

// While the container wants no events they are kept, and raised afterwards.
HRESULT GraphObject::FreezeEvents(BOOL freeze) noexcept {
  return Enter([&] {
    if (freeze != FALSE) {
      ++mFreezes;
      return;
    }
    if (mFreezes > 0) --mFreezes;
    while (mFreezes == 0 && mHeldEvents > 0) {
      --mHeldEvents;
      RaisePlotDone();
    }
  });
}

void GraphObject::ReadDesignMode() {
  mGraph->SetDesignMode(!mSite.IsRunning());
}

}  // namespace plotvane::control::com
