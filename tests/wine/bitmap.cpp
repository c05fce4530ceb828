#include "tests/wine/bitmap.h"

#include <algorithm>
#include <cstddef>
#include <fstream>

namespace plotvane::tests {

namespace {

constexpr DWORD kColourBits = 0x00FFFFFF;

DWORD PixelOf(COLORREF colour) {
  return static_cast<DWORD>(GetRValue(colour) << 16 | GetGValue(colour) << 8 | GetBValue(colour));
}

}  // namespace

Bitmap::Bitmap(int width, int height)
    : mWidth(width), mHeight(height), mContext(::CreateCompatibleDC(nullptr)) {
  mInfo.bmiHeader.biSize = sizeof mInfo.bmiHeader;
  mInfo.bmiHeader.biWidth = width;
  mInfo.bmiHeader.biHeight = -height;
  mInfo.bmiHeader.biPlanes = 1;
  mInfo.bmiHeader.biBitCount = 32;
  void* bits = nullptr;
  mBitmap.Reset(::CreateDIBSection(nullptr, &mInfo, DIB_RGB_COLORS, &bits, nullptr, 0));
  mPixels = static_cast<DWORD*>(bits);
  mFirst = ::SelectObject(mContext.Get(), mBitmap.Get());
}

Bitmap::~Bitmap() {
  if (mContext) ::SelectObject(mContext.Get(), mFirst);
}

COLORREF Bitmap::At(int x, int y) const {
  ::GdiFlush();
  const DWORD pixel =
      mPixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(mWidth) + static_cast<std::size_t>(x)];
  return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF);
}

int Bitmap::Count(COLORREF colour) const {
  ::GdiFlush();
  return static_cast<int>(std::count_if(mPixels, mPixels + mWidth * mHeight, [&](DWORD pixel) {
    return (pixel & kColourBits) == PixelOf(colour);
  }));
}

int Bitmap::DifferentPixels(const Bitmap& other) const {
  if (mWidth != other.mWidth || mHeight != other.mHeight) return mWidth * mHeight;
  ::GdiFlush();
  int different = 0;
  for (int place = 0; place < mWidth * mHeight; ++place) {
    if ((mPixels[place] & kColourBits) != (other.mPixels[place] & kColourBits)) ++different;
  }
  return different;
}

void Bitmap::Fill(COLORREF colour) const {
  const RECT whole{0, 0, mWidth, mHeight};
  const control::win32::OwnedBrush brush(::CreateSolidBrush(colour));
  ::FillRect(mContext.Get(), &whole, brush.Get());
}

void Bitmap::Play(HENHMETAFILE metafile) const {
  const RECT place{0, 0, mWidth, mHeight};
  ::PlayEnhMetaFile(mContext.Get(), metafile, &place);
}

void Bitmap::Save(const std::string& name) const {
  ::GdiFlush();
  const auto bytes = static_cast<DWORD>(mWidth * mHeight) * sizeof(DWORD);
  BITMAPFILEHEADER file{};
  file.bfType = 0x4D42;  // "BM"
  file.bfOffBits = sizeof file + sizeof mInfo.bmiHeader;
  file.bfSize = static_cast<DWORD>(file.bfOffBits + bytes);
  std::ofstream out(name, std::ios::binary);
  out.write(reinterpret_cast<const char*>(&file), sizeof file);
  out.write(reinterpret_cast<const char*>(&mInfo.bmiHeader), sizeof mInfo.bmiHeader);
  out.write(reinterpret_cast<const char*>(mPixels), static_cast<std::streamsize>(bytes));
}

}  // namespace plotvane::tests
