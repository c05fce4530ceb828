#include "hosts/desktop/commands.h"

#include <string_view>
#include <vector>

namespace plotvane::desktop {

namespace {

constexpr const wchar_t* kFile = L"&File";
constexpr const wchar_t* kPicture = L"&Picture";
constexpr const wchar_t* kView = L"&View";
constexpr const wchar_t* kNumbers = L"&Numbers";
constexpr const wchar_t* kHelp = L"&Help";

constexpr CommandEntry kCommands[] = {
    {kFile, Command::New, L"&New\tCtrl+N", FCONTROL, 'N'},
    {kFile, Command::Open, L"&Open Functions...\tCtrl+O", FCONTROL, 'O'},
    {kFile, Command::Save, L"&Save Functions\tCtrl+S", FCONTROL, 'S'},
    {kFile, Command::SaveAs, L"Save Functions &As...\tCtrl+Shift+S", FCONTROL | FSHIFT, 'S'},
    {kFile, Command::None, nullptr},
    {kFile, Command::OpenVariables, L"Open &Variables..."},
    {kFile, Command::SaveVariables, L"Save Va&riables..."},
    {kFile, Command::None, nullptr},
    {kFile, Command::Print, L"&Print...\tCtrl+P", FCONTROL, 'P'},
    {kFile, Command::None, nullptr},
    {kFile, Command::Exit, L"E&xit\tAlt+F4"},
    {kPicture, Command::CopyPicture, L"&Copy\tCtrl+Shift+C", FCONTROL | FSHIFT, 'C'},
    {kPicture, Command::SavePng, L"Save as &PNG..."},
    {kPicture, Command::SaveEmf, L"Save as &EMF..."},
    {kView, Command::Plot, L"&Plot\tF5", 0, VK_F5},
    {kView, Command::Format, L"&Format..."},
    {kView, Command::ToolBar, L"&Toolbar"},
    {kView, Command::None, nullptr},
    {kView, Command::Radians, L"&Radians"},
    {kView, Command::Degrees, L"&Degrees"},
    {kNumbers, Command::Decimal, L"&Decimal"},
    {kNumbers, Command::Fixed, L"&Fixed..."},
    {kNumbers, Command::Octal, L"&Octal"},
    {kNumbers, Command::Hexadecimal, L"&Hexadecimal"},
    {kNumbers, Command::Binary, L"&Binary"},
    {kHelp, Command::About, L"&About Plotvane"},
};

}  // namespace

std::span<const CommandEntry> Commands() { return kCommands; }

HMENU MakeMenuBar() {
  HMENU bar = ::CreateMenu();
  HMENU menu = nullptr;
  std::wstring_view open;
  for (const CommandEntry& entry : kCommands) {
    if (open != entry.menu) {
      open = entry.menu;
      menu = ::CreatePopupMenu();
      ::AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu), entry.menu);
    }
    if (entry.command == Command::None) {
      ::AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    } else {
      ::AppendMenuW(menu, MF_STRING, static_cast<UINT_PTR>(entry.command), entry.caption);
    }
  }
  return bar;
}

HACCEL MakeAccelerators() {
  std::vector<ACCEL> keys;
  for (const CommandEntry& entry : kCommands) {
    if (entry.key == 0) continue;
    keys.push_back({static_cast<BYTE>(entry.modifiers | FVIRTKEY), entry.key, static_cast<WORD>(entry.command)});
  }
  return ::CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size()));
}

}  // namespace plotvane::desktop
