#include "control/win32/wide_text.h"

namespace plotvane::control::win32 {

std::wstring ToWide(std::string_view text) {
  const int length = static_cast<int>(text.size());
  const int needed = ::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(needed), L'\0');
  ::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), needed);
  return wide;
}

std::string FromWide(std::wstring_view text) {
  const int length = static_cast<int>(text.size());
  const int needed = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string narrow(static_cast<std::size_t>(needed), '\0');
  ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, narrow.data(), needed, nullptr, nullptr);
  return narrow;
}

namespace {

std::wstring WideWindowText(HWND window) {
  const int length = ::GetWindowTextLengthW(window);
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  const int copied = ::GetWindowTextW(window, text.data(), length + 1);
  text.resize(static_cast<std::size_t>(copied));
  return text;
}

}  // namespace

std::string WindowText(HWND window) {
  return FromWide(WideWindowText(window));
}

void SetWindowTextTo(HWND window, std::string_view text) {
  const std::wstring wide = ToWide(text);
  if (wide != WideWindowText(window)) ::SetWindowTextW(window, wide.c_str());
}

}  // namespace plotvane::control::win32
