#include "control/win32/resolution.h"

#include <string>

#include "control/win32/wide_text.h"

namespace plotvane::control::win32 {
namespace {

constexpr wchar_t kFaceFontName[] = L"MS Sans Serif";
constexpr int kFaceFontPoints = 8;
constexpr int kPointsPerInch = 72;

using GetDpiForWindowFunction = UINT(WINAPI*)(HWND);

// Systems before Windows 10 have no such function.
GetDpiForWindowFunction FindGetDpiForWindow() noexcept {
  const HMODULE user = ::GetModuleHandleW(L"user32.dll");
  const FARPROC found = user == nullptr ? nullptr : ::GetProcAddress(user, "GetDpiForWindow");
  return reinterpret_cast<GetDpiForWindowFunction>(reinterpret_cast<void*>(found));
}

}  // namespace

int ResolutionOf(HWND window) noexcept {
  if (const auto getDpiForWindow = FindGetDpiForWindow(); getDpiForWindow != nullptr && window != nullptr) {
    const UINT dpi = getDpiForWindow(window);
    if (dpi != 0) return static_cast<int>(dpi);
  }
  const WindowContext screen(nullptr);
  const int dpi = ::GetDeviceCaps(screen.Get(), LOGPIXELSY);
  return dpi > 0 ? dpi : USER_DEFAULT_SCREEN_DPI;
}

OwnedFont MakeFaceFont(int dpi) noexcept {
  LOGFONTW font{};
  font.lfHeight = -::MulDiv(kFaceFontPoints, dpi, kPointsPerInch);
  font.lfWeight = FW_NORMAL;
  font.lfCharSet = DEFAULT_CHARSET;
  ::lstrcpynW(font.lfFaceName, kFaceFontName, LF_FACESIZE);
  return OwnedFont(::CreateFontIndirectW(&font));
}

TextSize MeasureText(HDC context, std::string_view text) {
  const std::wstring wide = ToWide(text);
  SIZE size{};
  ::GetTextExtentPoint32W(context, wide.c_str(), static_cast<int>(wide.size()), &size);
  return {static_cast<int>(size.cx), static_cast<int>(size.cy)};
}

}  // namespace plotvane::control::win32
