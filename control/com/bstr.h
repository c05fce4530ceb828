// Bstr: an owned automation string; the texts of the system are UTF-8 and cross this border here.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>
#include <string_view>
#include <utility>

namespace plotvane::control::com {

// Characters that have no counterpart become U+FFFD.
[[nodiscard]] std::wstring Utf16(std::string_view text);
[[nodiscard]] std::string Utf8(std::wstring_view text);

class Bstr {
 public:
  constexpr Bstr() noexcept = default;
  // A copy of `text`; std::bad_alloc when there is no memory.
  explicit Bstr(std::wstring_view text);
  explicit Bstr(std::string_view text) : Bstr(std::wstring_view(Utf16(text))) {}
  Bstr(Bstr&& other) noexcept : mText(std::exchange(other.mText, nullptr)) {}
  Bstr& operator=(Bstr&& other) noexcept {
    std::swap(mText, other.mText);
    return *this;
  }
  ~Bstr() { ::SysFreeString(mText); }

  [[nodiscard]] BSTR Get() const noexcept { return mText; }
  // A null automation string is the empty text.
  [[nodiscard]] std::wstring_view View() const noexcept {
    return {mText != nullptr ? mText : L"", ::SysStringLen(mText)};
  }
  [[nodiscard]] std::string Text() const { return Utf8(View()); }

  // Where a call writes a new string.
  [[nodiscard]] BSTR* Receive() noexcept {
    ::SysFreeString(std::exchange(mText, nullptr));
    return &mText;
  }
  // Gives the string away, as an out argument wants it.
  [[nodiscard]] BSTR Detach() noexcept { return std::exchange(mText, nullptr); }

 private:
  BSTR mText = nullptr;
};

// The text of an automation string that somebody else owns; null is empty.
[[nodiscard]] inline std::string TextOf(BSTR text) {
  return Utf8({text != nullptr ? text : L"", ::SysStringLen(text)});
}

}  // namespace plotvane::control::com
