// The formats in which a picture travels: metafiles and a bitmap.
#pragma once

#include <windows.h>

#include <functional>

#include "control/geometry.h"

namespace plotvane::control::com {

// Draws the picture into a device context, filling `bounds`.
using DrawPictureInto = std::function<void(HDC context, const RECT& bounds)>;

// A picture of `extent` hundredths of a millimetre. The caller owns what is answered; RunTimeError 7 when the
// system has no memory for it.
[[nodiscard]] HENHMETAFILE MakeEnhancedMetafile(const SIZEL& extent, const DrawPictureInto& draw);
// A METAFILEPICT in movable memory, drawn as `size` pixels.
[[nodiscard]] HGLOBAL MakeMetafilePicture(const SIZEL& extent, PixelSize size, const DrawPictureInto& draw);
// A 24-bit device-independent bitmap in movable memory, header first.
[[nodiscard]] HGLOBAL MakeBitmap(PixelSize size, const DrawPictureInto& draw);

}  // namespace plotvane::control::com
