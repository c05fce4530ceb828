// Bitmap: pixels in memory with a device context, to look at what a control draws.
#pragma once

#include <windows.h>

#include <string>

#include "control/win32/handles.h"

namespace plotvane::tests {

class Bitmap {
 public:
  Bitmap(int width, int height);
  ~Bitmap();
  Bitmap(Bitmap&&) = default;
  Bitmap& operator=(Bitmap&&) = delete;

  [[nodiscard]] HDC Context() const noexcept { return mContext.Get(); }
  // 0x00BBGGRR as RGB() makes it; places outside are the caller's mistake.
  [[nodiscard]] COLORREF At(int x, int y) const;
  [[nodiscard]] int Count(COLORREF colour) const;
  // How many pixels are not the same; all of them when the sizes differ.
  [[nodiscard]] int DifferentPixels(const Bitmap& other) const;

  void Fill(COLORREF colour) const;
  // The metafile over all of it.
  void Play(HENHMETAFILE metafile) const;
  // As a file in the present folder, for people to look at.
  void Save(const std::string& name) const;

 private:
  int mWidth;
  int mHeight;
  BITMAPINFO mInfo{};
  DWORD* mPixels = nullptr;  // 0x00RRGGBB, row by row from the top
  control::win32::OwnedBitmap mBitmap;
  control::win32::OwnedMemoryContext mContext;
  HGDIOBJ mFirst = nullptr;
};

}  // namespace plotvane::tests
