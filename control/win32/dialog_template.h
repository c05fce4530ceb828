// DialogTemplate: describes a dialog box in memory, in dialog units of its font, so that the system scales
// it.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string_view>
#include <vector>

namespace plotvane::control::win32 {

// In dialog units: a quarter of the width and an eighth of the height of the font's average character.
struct DialogRect {
  int left;
  int top;
  int width;
  int height;
};

struct DialogItem {
  const wchar_t* className;
  std::string_view text;
  DialogRect rect;
  DWORD style;
  int id;
  DWORD extendedStyle = 0;
};

class DialogTemplate {
 public:
  // The font is the one of the control's face. `style` adds to a captioned window centred on its monitor.
  DialogTemplate(std::string_view caption, int width, int height, DWORD style);

  // Items in their Tab order.
  void Add(const DialogItem& item);

  [[nodiscard]] const DLGTEMPLATE* Get() const noexcept {
    return reinterpret_cast<const DLGTEMPLATE*>(mWords.data());
  }

 private:
  void Word(std::uint16_t value) { mWords.push_back(value); }
  void Long(std::uint32_t value);
  void Position(const DialogRect& rect);
  void Text(std::string_view text);
  void Text(const wchar_t* text);

  std::vector<std::uint16_t> mWords;
};

}  // namespace plotvane::control::win32
