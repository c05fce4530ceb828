// HostSurface: a drawing surface over an object that a host assigned to PIC.
//
//   Clear()                              SetPixel(X, Y[, Color])
//   Refresh()                            DrawLine(X1, Y1, X2, Y2[, Color])
//   ScaleWidth, ScaleHeight              size in pixels
//   PenWidth                             read and written
//
// must be there; PersistentDrawing (written), MousePointer (written, the kind numbers of the pointers) and hDC
// (read) are used when the object has them. A colour that is missing (the optional argument that a caller left
// out) stands for the object's own foreground colour.
#pragma once

#include "control/com/host_object.h"
#include "graph/drawing_surface.h"

namespace plotvane::control::com {

class HostSurface final : public graph::DrawingSurface {
 public:
  explicit HostSurface(ComPtr<IDispatch> object);

  [[nodiscard]] IDispatch* Object() const noexcept { return mObject.Get(); }

  void Clear() override;
  void SetPersistentDrawing(bool on) override;
  void SetPixel(graph::PixelPoint point, graph::Colour colour) override;
  void SetPixel(graph::PixelPoint point) override;
  void Line(graph::PixelPoint from, graph::PixelPoint to, graph::Colour colour) override;
  void Line(graph::PixelPoint from, graph::PixelPoint to) override;
  void Refresh() override;
  [[nodiscard]] double ScaleWidth() override;
  [[nodiscard]] double ScaleHeight() override;
  [[nodiscard]] std::int16_t GetPenWidth() override;
  void SetPenWidth(std::int16_t width) override;
  void SetPointer(graph::PointerKind kind) override;
  [[nodiscard]] std::int32_t DeviceContext() override;

 private:
  HostObject mObject;
};

}  // namespace plotvane::control::com
