// The picture of the graph on its way out: clipboard, files, printer.
#pragma once

#include <windows.h>

#include <filesystem>

#include "hosts/desktop/control_host.h"

namespace plotvane::desktop {

// Each throws platform::RunTimeError with a text for the user; a file that was there before survives a failure.

// As an enhanced metafile and as a bitmap of the control's size.
void CopyPicture(HWND owner, ControlHost& control, SIZE pixels);
void SavePng(ControlHost& control, SIZE pixels, const std::filesystem::path& file);
void SaveEmf(ControlHost& control, SIZE pixels, const std::filesystem::path& file);
// Asks for the printer; on one page, as wide as it allows. Does nothing when the user cancels.
void PrintPicture(HWND owner, ControlHost& control, SIZE pixels, const std::wstring& title);

}  // namespace plotvane::desktop
