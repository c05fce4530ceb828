// The picture of the graph on its way out: clipboard, files, printer.
#pragma once

#include <windows.h>

#include <filesystem>

#include "hosts/desktop/control_host.h"
#include "hosts/desktop/page_layout.h"

namespace plotvane::desktop {

// Each throws platform::RunTimeError with a text for the user; a file that was there before survives a failure.

// As an enhanced metafile and as a bitmap of the control's size.
void CopyPicture(HWND owner, ControlHost& control, SIZE pixels);
void SavePng(ControlHost& control, SIZE pixels, const std::filesystem::path& file);
void SaveEmf(ControlHost& control, SIZE pixels, const std::filesystem::path& file);
// Asks for the printer and prints one page. Does nothing when the user cancels.
void PrintPicture(HWND owner, ControlHost& control, SIZE pixels, const std::wstring& title);
// That page, on any device that has its dots: where FitPage puts the picture.
void DrawPage(HDC device, const Page& page, ControlHost& control, SIZE pixels);

}  // namespace plotvane::desktop
