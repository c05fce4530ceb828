// The picture of the graph on its way out: clipboard, files, printer.
#pragma once

#include <windows.h>

#include <filesystem>

#include "hosts/desktop/control_host.h"
#include "hosts/desktop/page_layout.h"

namespace plotvane::desktop {

// Each throws platform::RunTimeError with a text for the user; a file that was there before survives a failure.

// Of the graph alone, in its size: as an enhanced metafile and as a bitmap.
void CopyPicture(HWND owner, ControlHost& control);
void SavePng(ControlHost& control, const std::filesystem::path& file);
void SaveEmf(ControlHost& control, const std::filesystem::path& file);
// Asks for the printer and prints one page. Does nothing when the user cancels.
void PrintPicture(HWND owner, ControlHost& control, const std::wstring& title);
// That page, on any device that has its dots: where FitPage puts the picture.
void DrawPage(HDC device, const Page& page, ControlHost& control);

}  // namespace plotvane::desktop
