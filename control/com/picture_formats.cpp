#include "control/com/picture_formats.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <utility>

#include "platform/runtime_error.h"

namespace plotvane::control::com {

namespace {

template <typename Handle>
Handle Required(Handle handle) {
  if (handle == nullptr) throw platform::RunTimeError(platform::StandardError::OutOfMemory);
  return handle;
}

RECT BoundsOf(PixelSize size) {
  return {0, 0, size.width, size.height};
}

// Memory in which a format travels; given away with Detach.
class MovableMemory {
 public:
  explicit MovableMemory(std::size_t size)
      : mHandle(Required(::GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, size))) {}
  ~MovableMemory() {
    if (mHandle != nullptr) ::GlobalFree(mHandle);
  }
  MovableMemory(const MovableMemory&) = delete;
  MovableMemory& operator=(const MovableMemory&) = delete;

  template <typename Fill>
  void Write(Fill&& fill) {
    fill(Required(::GlobalLock(mHandle)));
    ::GlobalUnlock(mHandle);
  }
  [[nodiscard]] HGLOBAL Detach() noexcept { return std::exchange(mHandle, nullptr); }

 private:
  HGLOBAL mHandle;
};

// A bitmap in memory with a device context that draws on it.
class MemoryBitmap {
 public:
  explicit MemoryBitmap(const BITMAPINFO& info) : mContext(Required(::CreateCompatibleDC(nullptr))) {
    mBitmap = ::CreateDIBSection(mContext, &info, DIB_RGB_COLORS, &mBits, nullptr, 0);
    if (mBitmap == nullptr) {
      ::DeleteDC(mContext);
      Required(mBitmap);
    }
    mFirst = ::SelectObject(mContext, mBitmap);
  }
  ~MemoryBitmap() {
    ::SelectObject(mContext, mFirst);
    ::DeleteObject(mBitmap);
    ::DeleteDC(mContext);
  }
  MemoryBitmap(const MemoryBitmap&) = delete;
  MemoryBitmap& operator=(const MemoryBitmap&) = delete;

  [[nodiscard]] HDC Context() const noexcept { return mContext; }
  [[nodiscard]] const void* Bits() const noexcept { return mBits; }

 private:
  HDC mContext;
  HBITMAP mBitmap = nullptr;
  HGDIOBJ mFirst = nullptr;
  void* mBits = nullptr;
};

}  // namespace

// The frame of an enhanced metafile is in hundredths of a millimetre by the screen's account of its size,
// which is seldom that of its dots per inch: the picture fills the frame.
HENHMETAFILE MakeEnhancedMetafile(const SIZEL& extent, const DrawPictureInto& draw) {
  const RECT frame{0, 0, extent.cx, extent.cy};
  const HDC context = Required(::CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr));
  const auto units = [&](LONG hundredths, int pixels, int millimetres) {
    return ::MulDiv(static_cast<int>(hundredths), ::GetDeviceCaps(context, pixels),
                    ::GetDeviceCaps(context, millimetres) * 100);
  };
  try {
    draw(context, {0, 0, units(extent.cx, HORZRES, HORZSIZE), units(extent.cy, VERTRES, VERTSIZE)});
  } catch (const std::exception&) {
    ::DeleteEnhMetaFile(::CloseEnhMetaFile(context));
    throw;
  }
  return Required(::CloseEnhMetaFile(context));
}

HGLOBAL MakeMetafilePicture(const SIZEL& extent, PixelSize size, const DrawPictureInto& draw) {
  MovableMemory memory(sizeof(METAFILEPICT));
  const HDC context = Required(::CreateMetaFileW(nullptr));
  try {
    ::SetMapMode(context, MM_ANISOTROPIC);
    ::SetWindowOrgEx(context, 0, 0, nullptr);
    ::SetWindowExtEx(context, size.width, size.height, nullptr);
    draw(context, BoundsOf(size));
  } catch (const std::exception&) {
    ::DeleteMetaFile(::CloseMetaFile(context));
    throw;
  }
  const METAFILEPICT picture{MM_ANISOTROPIC, extent.cx, extent.cy, Required(::CloseMetaFile(context))};
  memory.Write([&](void* target) { std::memcpy(target, &picture, sizeof picture); });
  return memory.Detach();
}

HGLOBAL MakeBitmap(PixelSize size, const DrawPictureInto& draw) {
  const LONG width = std::max(size.width, 1);
  const LONG height = std::max(size.height, 1);
  constexpr WORD kBitsPerPixel = 24;
  const auto stride = static_cast<std::size_t>((width * kBitsPerPixel + 31) / 32 * 4);
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = kBitsPerPixel;
  info.bmiHeader.biCompression = BI_RGB;
  info.bmiHeader.biSizeImage = static_cast<DWORD>(stride * static_cast<std::size_t>(height));

  const MemoryBitmap bitmap(info);
  draw(bitmap.Context(), BoundsOf(size));
  ::GdiFlush();
  MovableMemory memory(sizeof info.bmiHeader + info.bmiHeader.biSizeImage);
  memory.Write([&](void* target) {
    auto bytes = static_cast<unsigned char*>(target);
    std::memcpy(bytes, &info.bmiHeader, sizeof info.bmiHeader);
    std::memcpy(bytes + sizeof info.bmiHeader, bitmap.Bits(), info.bmiHeader.biSizeImage);
  });
  return memory.Detach();
}

}  // namespace plotvane::control::com
