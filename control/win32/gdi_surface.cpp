#include "control/win32/gdi_surface.h"

#include <algorithm>
#include <utility>

#include "graph/colours.h"
#include "platform/runtime_error.h"

namespace plotvane::control::win32 {

namespace {

[[noreturn]] void ThrowOutOfMemory() {
  throw platform::RunTimeError(platform::StandardError::OutOfMemory);
}

// A 32-bit bitmap whose rows run from the top; null when there is no memory.
HBITMAP CreatePixels(std::int32_t width, std::int32_t height) noexcept {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = std::max(width, 1);
  info.bmiHeader.biHeight = -std::max(height, 1);
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  void* pixels = nullptr;
  return ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
}

}  // namespace

GdiSurface::GdiSurface(std::int32_t width, std::int32_t height) : mContext(::CreateCompatibleDC(nullptr)) {
  if (!mContext) ThrowOutOfMemory();
  mFirstBitmap = ::GetCurrentObject(mContext.Get(), OBJ_BITMAP);
  mFirstPen = ::GetCurrentObject(mContext.Get(), OBJ_PEN);
  Resize(width, height);
}

// A bitmap or pen is destroyed only when no context holds it.
GdiSurface::~GdiSurface() {
  ::SelectObject(mContext.Get(), mFirstPen);
  ::SelectObject(mContext.Get(), mFirstBitmap);
}

void GdiSurface::Resize(std::int32_t width, std::int32_t height) {
  OwnedBitmap bitmap(CreatePixels(width, height));
  if (!bitmap) ThrowOutOfMemory();
  const OwnedMemoryContext old(::CreateCompatibleDC(nullptr));
  if (!old) ThrowOutOfMemory();

  ::SelectObject(mContext.Get(), bitmap.Get());
  FillBackground(width, height);
  if (mBitmap) {
    const HGDIOBJ first = ::SelectObject(old.Get(), mBitmap.Get());
    ::BitBlt(mContext.Get(), 0, 0, std::min(width, mWidth), std::min(height, mHeight), old.Get(), 0, 0,
             SRCCOPY);
    ::SelectObject(old.Get(), first);
  }
  mBitmap = std::move(bitmap);
  mWidth = width;
  mHeight = height;
}

void GdiSurface::FillBackground(std::int32_t width, std::int32_t height) noexcept {
  const RECT all{0, 0, width, height};
  ::FillRect(mContext.Get(), &all, ::GetSysColorBrush(COLOR_WINDOW));
}

void GdiSurface::Paint(HDC target, const RECT& area) noexcept {
  mShownLater = false;
  ::BitBlt(target, area.left, area.top, area.right - area.left, area.bottom - area.top, mContext.Get(),
           area.left, area.top, SRCCOPY);
}

void GdiSurface::Clear() {
  mSteps.Clear();
  FillBackground(mWidth, mHeight);
  Invalidate();
}

// The memory bitmap is persistent at all times.
void GdiSurface::SetPersistentDrawing(bool) {}

void GdiSurface::SetPixel(graph::PixelPoint point, graph::Colour colour) {
  Add({point, point, colour, mPenWidth, false});
}

void GdiSurface::SetPixel(graph::PixelPoint point) {
  SetPixel(point, graph::kWindowText);
}

void GdiSurface::Line(graph::PixelPoint from, graph::PixelPoint to, graph::Colour colour) {
  Add({from, to, colour, mPenWidth, true});
}

void GdiSurface::Line(graph::PixelPoint from, graph::PixelPoint to) {
  Line(from, to, graph::kWindowText);
}

void GdiSurface::Add(const DrawingStep& step) {
  mSteps.Add(step);
  Draw(step);
  Invalidate();
}

// A stroke of no length is its round cap; not every version of the system draws one by itself.
void GdiSurface::Draw(const DrawingStep& step) {
  const COLORREF colour = PlainColour(step.colour);
  if (step.penWidth > 1 && step.from == step.to) {
    DrawDisc(step.from, colour, step.penWidth);
  } else if (step.isLine) {
    SelectPen(colour, step.penWidth);
    ::MoveToEx(mContext.Get(), step.from.x, step.from.y, nullptr);
    ::LineTo(mContext.Get(), step.to.x, step.to.y);
  } else {
    ::SetPixelV(mContext.Get(), step.from.x, step.from.y, colour);
  }
}

void GdiSurface::DrawDisc(graph::PixelPoint centre, COLORREF colour, int diameter) noexcept {
  const int left = centre.x - diameter / 2;
  const int top = centre.y - diameter / 2;
  ::SelectObject(mContext.Get(), ::GetStockObject(DC_PEN));
  ::SetDCPenColor(mContext.Get(), colour);
  ::SetDCBrushColor(mContext.Get(), colour);
  const HGDIOBJ brush = ::SelectObject(mContext.Get(), ::GetStockObject(DC_BRUSH));
  ::Ellipse(mContext.Get(), left, top, left + diameter, top + diameter);
  ::SelectObject(mContext.Get(), brush);
}

// One-pixel lines use the context's own pen, of which only the colour changes; a wide pen is made anew for
// each width and colour.
void GdiSurface::SelectPen(COLORREF colour, int width) {
  if (width <= 1) {
    ::SelectObject(mContext.Get(), ::GetStockObject(DC_PEN));
    ::SetDCPenColor(mContext.Get(), colour);
    return;
  }
  if (!mWidePen || mWidePenColour != colour || mWidePenWidth != width) {
    OwnedPen pen(::CreatePen(PS_SOLID, width, colour));
    if (!pen) ThrowOutOfMemory();
    ::SelectObject(mContext.Get(), mFirstPen);  // a selected pen is never destroyed
    mWidePen = std::move(pen);
    mWidePenColour = colour;
    mWidePenWidth = width;
  }
  ::SelectObject(mContext.Get(), mWidePen.Get());
}

void GdiSurface::RedrawInSystemColours() {
  if (!mSteps.IsComplete()) return;
  FillBackground(mWidth, mHeight);
  for (const DrawingStep& step : mSteps.Steps()) Draw(step);
  Invalidate();
}

// Asks once for a repaint, which takes in all that is drawn until it happens.
void GdiSurface::Invalidate() noexcept {
  if (!mWindow || mShownLater) return;
  mShownLater = true;
  ::InvalidateRect(mWindow, nullptr, FALSE);
}

void GdiSurface::Refresh() {
  if (!mWindow) return;
  ::GdiFlush();
  ::InvalidateRect(mWindow, nullptr, FALSE);
  ::UpdateWindow(mWindow);
}

void GdiSurface::SetPointer(graph::PointerKind kind) {
  if (mPointerHandler) mPointerHandler(kind);
}

std::int32_t GdiSurface::DeviceContext() {
  mSteps.GiveUp();
  const auto handle = reinterpret_cast<std::uintptr_t>(mContext.Get());
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(handle));
}

}  // namespace plotvane::control::win32
