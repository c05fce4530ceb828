#include "control/com/host_surface.h"

#include <array>
#include <utility>

namespace plotvane::control::com {

namespace {

using graph::Colour;
using graph::PixelPoint;

enum Operation : std::size_t {
  kClear,
  kSetPixel,
  kDrawLine,
  kRefresh,
  kScaleWidth,
  kScaleHeight,
  kPenWidth,
  kPersistentDrawing,
  kMousePointer,
  kHdc,
};
constexpr std::array kOperations{L"Clear",        L"SetPixel",    L"DrawLine", L"Refresh",
                                 L"ScaleWidth",   L"ScaleHeight", L"PenWidth", L"PersistentDrawing",
                                 L"MousePointer", L"hDC"};

}  // namespace

HostSurface::HostSurface(ComPtr<IDispatch> object) : mObject(std::move(object), kOperations) {}

void HostSurface::Clear() {
  mObject.Call(kClear, {});
}
void HostSurface::Refresh() {
  mObject.Call(kRefresh, {});
}

void HostSurface::SetPixel(PixelPoint point, Colour colour) {
  mObject.Call(kSetPixel, std::array{Variant(point.x), Variant(point.y), Variant(colour)});
}

void HostSurface::SetPixel(PixelPoint point) {
  mObject.Call(kSetPixel, std::array{Variant(point.x), Variant(point.y), Variant::Missing()});
}

void HostSurface::Line(PixelPoint from, PixelPoint to, Colour colour) {
  mObject.Call(kDrawLine,
               std::array{Variant(from.x), Variant(from.y), Variant(to.x), Variant(to.y), Variant(colour)});
}

void HostSurface::Line(PixelPoint from, PixelPoint to) {
  mObject.Call(kDrawLine, std::array{Variant(from.x), Variant(from.y), Variant(to.x), Variant(to.y), Variant::Missing()});
}

double HostSurface::ScaleWidth() {
  return ToDouble(mObject.Read(kScaleWidth).Get());
}
double HostSurface::ScaleHeight() {
  return ToDouble(mObject.Read(kScaleHeight).Get());
}
std::int16_t HostSurface::GetPenWidth() {
  return ToInt16(mObject.Read(kPenWidth).Get());
}
void HostSurface::SetPenWidth(std::int16_t width) {
  mObject.Write(kPenWidth, Variant(width));
}

void HostSurface::SetPersistentDrawing(bool on) {
  if (mObject.Has(kPersistentDrawing)) mObject.Write(kPersistentDrawing, Variant(on));
}

void HostSurface::SetPointer(graph::PointerKind kind) {
  if (mObject.Has(kMousePointer)) mObject.Write(kMousePointer, Variant(static_cast<std::int16_t>(kind)));
}

std::int32_t HostSurface::DeviceContext() {
  return mObject.Has(kHdc) ? ToInt32(mObject.Read(kHdc).Get()) : 0;
}

}  // namespace plotvane::control::com
