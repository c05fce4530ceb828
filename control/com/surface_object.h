// SurfaceObject: the control's own drawing surface for hosts: what PIC and GetGraphPicture answer.
#pragma once

#include <array>
#include <memory>
#include <utility>

#include "control/com/automation_object.h"
#include "control/com/own_object.h"
#include "graph/drawing_surface.h"

namespace plotvane::control::com {

class SurfaceObject final : public AutomationObject<SurfaceObject, OwnObject> {
 public:
  explicit SurfaceObject(std::shared_ptr<graph::DrawingSurface> surface) : mSurface(std::move(surface)) {}

  [[nodiscard]] const std::shared_ptr<graph::DrawingSurface>& Surface() const noexcept { return mSurface; }

  [[nodiscard]] const void* STDMETHODCALLTYPE ModuleTag() noexcept override { return ThisModuleTag(); }

  Variant Clear(const Call& call);
  Variant SetPixel(const Call& call);
  Variant DrawLine(const Call& call);
  Variant Refresh(const Call& call);
  Variant GetScaleWidth(const Call& call);
  Variant GetScaleHeight(const Call& call);
  Variant GetPenWidth(const Call& call);
  Variant PutPenWidth(const Call& call);
  Variant PutPersistentDrawing(const Call& call);
  Variant PutMousePointer(const Call& call);
  Variant GetHdc(const Call& call);

  // The same names that a host's own surface object answers. Without a colour the surface's foreground colour
  // is used.
  static constexpr std::array kMembers{
      Member<SurfaceObject>{L"Clear", 1, DISPATCH_METHOD, {}, 0, &SurfaceObject::Clear},
      Member<SurfaceObject>{
          L"SetPixel", 2, DISPATCH_METHOD, {L"X", L"Y", L"Color"}, 2, &SurfaceObject::SetPixel},
      Member<SurfaceObject>{L"DrawLine",
                            3,
                            DISPATCH_METHOD,
                            {L"X1", L"Y1", L"X2", L"Y2", L"Color"},
                            4,
                            &SurfaceObject::DrawLine},
      Member<SurfaceObject>{L"Refresh", 4, DISPATCH_METHOD, {}, 0, &SurfaceObject::Refresh},
      Member<SurfaceObject>{L"ScaleWidth", 5, DISPATCH_PROPERTYGET, {}, 0, &SurfaceObject::GetScaleWidth},
      Member<SurfaceObject>{L"ScaleHeight", 6, DISPATCH_PROPERTYGET, {}, 0, &SurfaceObject::GetScaleHeight},
      Member<SurfaceObject>{L"PenWidth", 7, DISPATCH_PROPERTYGET, {}, 0, &SurfaceObject::GetPenWidth},
      Member<SurfaceObject>{L"PenWidth", 7, DISPATCH_PROPERTYPUT, {L"Width"}, 1, &SurfaceObject::PutPenWidth},
      Member<SurfaceObject>{
          L"PersistentDrawing", 8, DISPATCH_PROPERTYPUT, {L"On"}, 1, &SurfaceObject::PutPersistentDrawing},
      Member<SurfaceObject>{
          L"MousePointer", 9, DISPATCH_PROPERTYPUT, {L"Kind"}, 1, &SurfaceObject::PutMousePointer},
      Member<SurfaceObject>{L"hDC", 10, DISPATCH_PROPERTYGET, {}, 0, &SurfaceObject::GetHdc},
  };

 private:
  std::shared_ptr<graph::DrawingSurface> mSurface;
};

}  // namespace plotvane::control::com
