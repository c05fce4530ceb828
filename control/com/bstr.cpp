#include "control/com/bstr.h"

#include <new>

namespace plotvane::control::com {

std::wstring Utf16(std::string_view text) {
  const int length = static_cast<int>(text.size());
  const int needed = ::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(needed), L'\0');
  ::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), needed);
  return wide;
}

std::string Utf8(std::wstring_view text) {
  const int length = static_cast<int>(text.size());
  const int needed = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string narrow(static_cast<std::size_t>(needed), '\0');
  ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, narrow.data(), needed, nullptr, nullptr);
  return narrow;
}

Bstr::Bstr(std::wstring_view text) : mText(::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
  if (mText == nullptr) throw std::bad_alloc();
}

}  // namespace plotvane::control::com
