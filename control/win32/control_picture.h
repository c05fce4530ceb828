// The control drawn into any device context: print previews, designers, pictures of documents.
#pragma once

#include <windows.h>

#include <array>
#include <string>

#include "control/face.h"
#include "control/win32/gdi_surface.h"

namespace plotvane::control::win32 {

struct PictureParts {
  const ControlLayout& layout;
  const std::array<std::string, kTextBoxCount>& texts;
  HFONT font;
  const GdiSurface& surface;
  PixelSize pictureSize;  // of the surface
};

// Toolbar, picture and status boxes as they stand, stretched into `rect` (in logical units of the target):
// as pixels on a screen or a bitmap, as lines and texts in a metafile or on a printer. Only writes to the
// target. Without a layout only the picture is drawn.
void DrawControlPicture(HDC target, const RECT& rect, const PictureParts& parts);

}  // namespace plotvane::control::win32
