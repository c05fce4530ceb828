// Settings of the user that every program sees; each is put back with its object.
#pragma once

#include <windows.h>

#include <array>

#include "host_messages.h"

namespace plotvane::test {

// The resolution of every program that is started from now on.
class ScreenResolution {
 public:
  explicit ScreenResolution(int dpi) { Set(dpi); }
  ~ScreenResolution() { Set(USER_DEFAULT_SCREEN_DPI); }
  ScreenResolution(const ScreenResolution&) = delete;
  ScreenResolution& operator=(const ScreenResolution&) = delete;

 private:
  static void Set(int dpi) {
    const auto value = static_cast<DWORD>(dpi);
    ::RegSetKeyValueW(HKEY_CURRENT_USER, L"Control Panel\\Desktop", L"LogPixels", REG_DWORD, &value,
                      sizeof value);
  }
};

// The system's colours as they were.
class SystemColours {
 public:
  SystemColours() {
    for (std::size_t i = 0; i < kPaletteIndices.size(); ++i) mColours[i] = ::GetSysColor(kPaletteIndices[i]);
  }
  ~SystemColours() {
    ::SetSysColors(static_cast<int>(mColours.size()), kPaletteIndices.data(), mColours.data());
  }
  SystemColours(const SystemColours&) = delete;
  SystemColours& operator=(const SystemColours&) = delete;

 private:
  std::array<COLORREF, kPaletteIndices.size()> mColours{};
};

class HighContrastPalette {
 public:
  HighContrastPalette() { SetHighContrast(); }

 private:
  SystemColours mBefore;
};

}  // namespace plotvane::test
