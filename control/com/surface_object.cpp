#include "control/com/surface_object.h"

#include "platform/conversions.h"
#include "platform/runtime_error.h"

namespace plotvane::control::com {

namespace {

graph::PixelPoint PointOf(const Call& call, std::size_t first) {
  return {platform::ClampToInt16(ToDouble(call[first])), platform::ClampToInt16(ToDouble(call[first + 1]))};
}

}  // namespace

Variant SurfaceObject::Clear(const Call&) {
  mSurface->Clear();
  return {};
}

Variant SurfaceObject::SetPixel(const Call& call) {
  const graph::PixelPoint point = PointOf(call, 0);
  if (call.Has(2)) {
    mSurface->SetPixel(point, ToInt32(call[2]));
  } else {
    mSurface->SetPixel(point);
  }
  return {};
}

Variant SurfaceObject::DrawLine(const Call& call) {
  const graph::PixelPoint from = PointOf(call, 0);
  const graph::PixelPoint to = PointOf(call, 2);
  if (call.Has(4)) {
    mSurface->Line(from, to, ToInt32(call[4]));
  } else {
    mSurface->Line(from, to);
  }
  return {};
}

Variant SurfaceObject::Refresh(const Call&) {
  mSurface->Refresh();
  return {};
}

Variant SurfaceObject::GetScaleWidth(const Call&) {
  return Variant(mSurface->ScaleWidth());
}
Variant SurfaceObject::GetScaleHeight(const Call&) {
  return Variant(mSurface->ScaleHeight());
}
Variant SurfaceObject::GetPenWidth(const Call&) {
  return Variant(mSurface->GetPenWidth());
}

Variant SurfaceObject::PutPenWidth(const Call& call) {
  mSurface->SetPenWidth(ToInt16(call[0]));
  return {};
}

Variant SurfaceObject::PutPersistentDrawing(const Call& call) {
  mSurface->SetPersistentDrawing(ToBool(call[0]));
  return {};
}

Variant SurfaceObject::PutMousePointer(const Call& call) {
  const std::int16_t kind = ToInt16(call[0]);
  if (kind < static_cast<std::int16_t>(graph::PointerKind::Arrow) ||
      kind > static_cast<std::int16_t>(graph::PointerKind::Hourglass)) {
    throw platform::RunTimeError(platform::StandardError::InvalidCall);
  }
  mSurface->SetPointer(static_cast<graph::PointerKind>(kind));
  return {};
}

Variant SurfaceObject::GetHdc(const Call&) {
  return Variant(mSurface->DeviceContext());
}

}  // namespace plotvane::control::com
