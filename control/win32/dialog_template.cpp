#include "control/win32/dialog_template.h"

#include "control/win32/wide_text.h"

namespace plotvane::control::win32 {
namespace {

// The system's extended dialog template: version 1, marked by the word 0xFFFF.
constexpr std::uint16_t kVersion = 1;
constexpr std::uint16_t kExtendedMark = 0xFFFF;
constexpr std::size_t kCountPosition = 8;  // of the number of items, in words

constexpr std::uint16_t kFontPoints = 8;
constexpr wchar_t kFontName[] = L"MS Sans Serif";

}  // namespace

DialogTemplate::DialogTemplate(std::string_view caption, int width, int height, DWORD style) {
  Word(kVersion);
  Word(kExtendedMark);
  Long(0);  // no help identifier
  Long(0);  // no extended style
  Long(style | WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT | DS_CENTER);
  Word(0);  // number of items
  Position({0, 0, width, height});
  Word(0);  // no menu
  Word(0);  // the system's dialog class
  Text(caption);
  Word(kFontPoints);
  Word(FW_NORMAL);
  Word(DEFAULT_CHARSET << 8);  // not italic
  Text(kFontName);
}

void DialogTemplate::Add(const DialogItem& item) {
  if (mWords.size() % 2 != 0) Word(0);  // items begin at multiples of four bytes
  Long(0);
  Long(item.extendedStyle);
  Long(item.style | WS_CHILD | WS_VISIBLE);
  Position(item.rect);
  Long(static_cast<std::uint32_t>(item.id));
  Text(item.className);
  Text(item.text);
  Word(0);  // no creation data
  ++mWords[kCountPosition];
}

void DialogTemplate::Long(std::uint32_t value) {
  Word(static_cast<std::uint16_t>(value & 0xFFFF));
  Word(static_cast<std::uint16_t>(value >> 16));
}

void DialogTemplate::Position(const DialogRect& rect) {
  for (const int number : {rect.left, rect.top, rect.width, rect.height})
    Word(static_cast<std::uint16_t>(number));
}

void DialogTemplate::Text(std::string_view text) {
  Text(ToWide(text).c_str());
}

void DialogTemplate::Text(const wchar_t* text) {
  do {
    Word(static_cast<std::uint16_t>(*text));
  } while (*text++ != L'\0');
}

}  // namespace plotvane::control::win32
