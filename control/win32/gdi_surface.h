// GdiSurface: the plotting surface of the control's window: a memory bitmap with a device context behind it.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <utility>

#include "control/win32/display_list.h"
#include "control/win32/handles.h"
#include "graph/drawing_surface.h"

namespace plotvane::control::win32 {

// Everything is drawn into a 32-bit bitmap in memory, and the window paints itself from it, so that the
// drawing survives being covered. Owns the bitmap and its device context, never the window.
class GdiSurface : public graph::DrawingSurface {
 public:
  // Shows pointer `kind` over the surface's window.
  using PointerHandler = std::function<void(graph::PointerKind)>;

  // Size in pixels, each at least 0; a side of 0 keeps a bitmap of one pixel. Error 7 when there is no
  // memory.
  GdiSurface(std::int32_t width, std::int32_t height);
  ~GdiSurface() override;
  GdiSurface(const GdiSurface&) = delete;
  GdiSurface& operator=(const GdiSurface&) = delete;

  // The window that shows the surface, or null for none; Refresh repaints it at once.
  void SetWindow(HWND window) noexcept { mWindow = window; }
  void SetPointerHandler(PointerHandler handler) { mPointerHandler = std::move(handler); }

  // A new size keeps the old drawing at the top left and shows the background elsewhere. Error 7 when there
  // is no memory; the surface stays as it was.
  void Resize(std::int32_t width, std::int32_t height);

  // Copies the part `area` (in pixels) to the same place of a window's device context: the window's WM_PAINT.
  void Paint(HDC target, const RECT& area) noexcept;

  // The system's colours are other ones now: the picture is drawn again in them. One that somebody else drew
  // on stays as it is.
  void RedrawInSystemColours();

  [[nodiscard]] HDC Context() const noexcept { return mContext.Get(); }
  [[nodiscard]] HBITMAP Bitmap() const noexcept { return mBitmap.Get(); }

  // The same picture step by step, for targets that want lines.
  [[nodiscard]] const DisplayList& Steps() const noexcept { return mSteps; }

  // graph::DrawingSurface
  void Clear() override;
  void SetPersistentDrawing(bool on) override;
  void SetPixel(graph::PixelPoint point, graph::Colour colour) override;
  void SetPixel(graph::PixelPoint point) override;
  void Line(graph::PixelPoint from, graph::PixelPoint to, graph::Colour colour) override;
  void Line(graph::PixelPoint from, graph::PixelPoint to) override;
  void Refresh() override;
  [[nodiscard]] double ScaleWidth() override { return mWidth; }
  [[nodiscard]] double ScaleHeight() override { return mHeight; }
  [[nodiscard]] std::int16_t GetPenWidth() override { return mPenWidth; }
  void SetPenWidth(std::int16_t width) override { mPenWidth = width; }
  void SetPointer(graph::PointerKind kind) override;
  // The handle's low 32 bits: handles of a 64-bit system fit them.
  [[nodiscard]] std::int32_t DeviceContext() override;

 private:
  void FillBackground(std::int32_t width, std::int32_t height) noexcept;
  void Add(const DrawingStep& step);
  void Draw(const DrawingStep& step);
  void DrawDisc(graph::PixelPoint centre, COLORREF colour, int diameter) noexcept;
  void SelectPen(COLORREF colour, int width);
  void Invalidate() noexcept;

  // In the order of making; the context lets go of bitmap and pen before they are destroyed.
  OwnedBitmap mBitmap;
  OwnedPen mWidePen;
  COLORREF mWidePenColour = 0;
  int mWidePenWidth = 0;
  OwnedMemoryContext mContext;
  HGDIOBJ mFirstBitmap = nullptr;  // what the context held when it was made
  HGDIOBJ mFirstPen = nullptr;
  DisplayList mSteps;
  std::int32_t mWidth = 0;
  std::int32_t mHeight = 0;
  std::int16_t mPenWidth = 1;
  HWND mWindow = nullptr;
  bool mShownLater = false;  // the window was asked to repaint itself and has not done so yet
  PointerHandler mPointerHandler;
};

}  // namespace plotvane::control::win32
