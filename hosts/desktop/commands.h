// The commands of the desktop host: one table from which the menu and the keyboard accelerators are made.
#pragma once

#include <windows.h>

#include <span>

namespace plotvane::desktop {

enum class Command : WORD {
  None = 0,
  New = 100,
  Open,
  Save,
  SaveAs,
  OpenVariables,
  SaveVariables,
  Print,
  Exit,
  CopyPicture,
  SavePng,
  SaveEmf,
  Plot,
  Format,
  ToolBar,
  Radians,
  Degrees,
  Decimal,
  Fixed,
  Octal,
  Hexadecimal,
  Binary,
  About,
};

struct CommandEntry {
  const wchar_t* menu;     // the menu bar's entry it belongs to, with its mnemonic
  Command command;         // None is a separator
  const wchar_t* caption;  // with mnemonic and key name
  BYTE modifiers = 0;      // FCONTROL, FSHIFT, FALT of the accelerator
  WORD key = 0;            // virtual key of the accelerator, 0 for none
};

// In the menu's order. The menu bar's mnemonics keep clear of those of the control's toolbar.
[[nodiscard]] std::span<const CommandEntry> Commands();

// The menu bar and the accelerator table made from Commands(); both belong to the caller.
[[nodiscard]] HMENU MakeMenuBar();
[[nodiscard]] HACCEL MakeAccelerators();

}  // namespace plotvane::desktop
