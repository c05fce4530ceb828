#include "control/win32/surface_view.h"

#include <windowsx.h>

#include "control/face.h"

namespace plotvane::control::win32 {
namespace {

constexpr wchar_t kClassName[] = L"PlotvaneSurface";

float PixelX(LPARAM position) {
  return static_cast<float>(GET_X_LPARAM(position));
}
float PixelY(LPARAM position) {
  return static_cast<float>(GET_Y_LPARAM(position));
}

}  // namespace

SurfaceView::SurfaceView(SurfaceOwner& owner)
    : mOwner(owner),
      mSurface(std::make_shared<GdiSurface>(kDefaultSurfaceSize.width, kDefaultSurfaceSize.height)) {
  mSurface->SetPointerHandler([this](graph::PointerKind kind) { ShowPointer(kind); });
  mOverlay.SetChanged([this](const RECT& area) {
    if (const HWND window = Handle()) ::InvalidateRect(window, &area, FALSE);
  });
}

// A host may keep the surface longer than the control.
SurfaceView::~SurfaceView() {
  mSurface->SetPointerHandler({});
  mSurface->SetWindow(nullptr);
}

bool SurfaceView::Create(HINSTANCE module, HWND parent) {
  const bool created = CreateWindowOf({.module = module,
                                       .className = kClassName,
                                       .text = L"Plot",  // for screen readers
                                       .style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS,
                                       .parent = parent});
  mSurface->SetWindow(Handle());
  return created;
}

LRESULT SurfaceView::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (const auto answer = mOwner.Filter(Handle(), message, wParam, lParam)) return *answer;
  switch (message) {
    case WM_PAINT: return Paint(), 0;
    case WM_ERASEBKGND: return 1;
    case WM_LBUTTONDOWN: return ButtonDown(MouseButton::Left, lParam), 0;
    case WM_RBUTTONDOWN: return ButtonDown(MouseButton::Right, lParam), 0;
    case WM_LBUTTONUP: return ButtonUp(MouseButton::Left, lParam), 0;
    case WM_RBUTTONUP: return ButtonUp(MouseButton::Right, lParam), 0;
    case WM_MOUSEMOVE: return Move(wParam, lParam), 0;
    case WM_SETCURSOR:
      if (LOWORD(lParam) != HTCLIENT) break;
      ::SetCursor(mCursors.Get(mPointer));
      return TRUE;
    case WM_SYSCOLORCHANGE: return mSurface->RedrawInSystemColours(), 0;
    case WM_NCDESTROY: mSurface->SetWindow(nullptr); break;
    default: break;
  }
  return Default(message, wParam, lParam);
}

// Put together in memory and shown at once: nothing flickers, and the picture itself is not touched.
void SurfaceView::Paint() {
  const PaintScope paint(Handle());
  const RECT& area = paint.Area();
  const int width = area.right - area.left;
  const int height = area.bottom - area.top;
  if (width <= 0 || height <= 0) return;
  const OwnedMemoryContext memory(::CreateCompatibleDC(paint.Context()));
  const OwnedBitmap bitmap(::CreateCompatibleBitmap(paint.Context(), width, height));
  if (!memory || !bitmap) return mSurface->Paint(paint.Context(), area);
  const SelectScope selected(memory.Get(), bitmap.Get());
  ::SetViewportOrgEx(memory.Get(), -area.left, -area.top, nullptr);
  mSurface->Paint(memory.Get(), area);
  mOverlay.Invert(memory.Get());
  ::BitBlt(paint.Context(), area.left, area.top, width, height, memory.Get(), area.left, area.top, SRCCOPY);
}

void SurfaceView::ButtonDown(MouseButton button, LPARAM position) {
  ::SetFocus(Handle());
  if (button == MouseButton::Left) ::SetCapture(Handle());
  if (const auto events = mOwner.Events()) events->MouseDown(button, PixelX(position), PixelY(position));
}

void SurfaceView::ButtonUp(MouseButton button, LPARAM position) {
  if (button == MouseButton::Left && ::GetCapture() == Handle()) ::ReleaseCapture();
  if (const auto events = mOwner.Events()) events->MouseUp(button, PixelX(position), PixelY(position));
}

void SurfaceView::Move(WPARAM keys, LPARAM position) {
  if (const auto events = mOwner.Events())
    events->MouseMove((keys & MK_LBUTTON) != 0, PixelX(position), PixelY(position));
}

// Shown at once when the pointer is over the surface; otherwise when it comes there.
void SurfaceView::ShowPointer(graph::PointerKind kind) {
  mPointer = kind;
  POINT at{};
  if (Handle() == nullptr || !::GetCursorPos(&at)) return;
  if (::WindowFromPoint(at) == Handle()) ::SetCursor(mCursors.Get(kind));
}

}  // namespace plotvane::control::win32
