// The properties of _Graph that do more than keep a value, and the objects it hands out.
#include <memory>
#include <utility>

#include "control/com/graph_object.h"
#include "control/com/host_surface.h"
#include "control/com/host_variable_table.h"
#include "control/com/member_values.h"

namespace plotvane::control::com {

namespace {

using platform::RunTimeError;
using platform::StandardError;

}  // namespace

// ---- The drawing surface ----

// One surface is one object to a host, so that it can compare what it reads.
ComPtr<IDispatch> GraphObject::SurfaceForHost(const std::shared_ptr<graph::DrawingSurface>& surface) {
  if (!surface) return nullptr;
  if (const auto* host = dynamic_cast<HostSurface*>(surface.get())) return ComPtr<IDispatch>(host->Object());
  if (!mSurfaceObject || mSurfaceObject->Surface() != surface) mSurfaceObject = Make<SurfaceObject>(surface);
  return ComPtr<IDispatch>(mSurfaceObject.Get());
}

HRESULT GraphObject::get_PIC(IDispatch** value) noexcept {
  if (value == nullptr) return E_POINTER;
  *value = nullptr;
  return Enter([&] { *value = SurfaceForHost(mGraph->GetPIC()).Detach(); });
}

// A surface of this control or of another one is drawn on directly, any other object by the names of its
// members.
HRESULT GraphObject::putref_PIC(IDispatch* value) noexcept {
  return Write(0x40030000, [&] {
    if (const auto own = OwnObjectOf<SurfaceObject>(value)) {
      mGraph->SetPIC(own->Surface());
    } else {
      mGraph->SetPIC(value != nullptr ? std::make_shared<HostSurface>(ComPtr<IDispatch>(value)) : nullptr);
    }
  });
}

HRESULT GraphObject::GetGraphPicture(VARIANT* value) noexcept {
  if (value == nullptr) return E_POINTER;
  ::VariantInit(value);
  return Enter([&] { *value = Variant(SurfaceForHost(mGraph->GetGraphPicture()).Get()).Detach(); });
}

// ---- Properties ----

HRESULT GraphObject::put_DegreeMode(VARIANT_BOOL* value) noexcept {
  return Write(0x6803000C, [&] { mGraph->SetDegreeMode(Take(At(value))); });
}

HRESULT GraphObject::get_DegreeMode(VARIANT_BOOL* value) noexcept {
  return Read(value, [&] { return mGraph->GetDegreeMode(); });
}

HRESULT GraphObject::get_ToolBarVisible(VARIANT_BOOL* value) noexcept {
  return Read(value, [&] { return mGraph->GetToolBarVisible(); });
}

HRESULT GraphObject::put_ToolBarVisible(VARIANT_BOOL value) noexcept {
  return Write(0x68030003, [&] { mGraph->SetToolBarVisible(Take(value)); });
}

HRESULT GraphObject::get_VarTable(VARIANT* value) noexcept {
  if (value == nullptr) return E_POINTER;
  ::VariantInit(value);
  return Enter([&] { *value = Variant(TableForHost(mGraph->GetVarTable()).Get()).Detach(); });
}

ComPtr<IDispatch> GraphObject::TableForHost(const std::shared_ptr<platform::VariableTable>& table) {
  if (const auto* host = dynamic_cast<HostVariableTable*>(table.get()))
    return ComPtr<IDispatch>(host->Object());
  auto own = std::dynamic_pointer_cast<identifiers::clsVarTable>(table);
  if (!own) return nullptr;
  if (!mTableObject || mTableObject->Table() != own) mTableObject = Make<TableObject>(std::move(own));
  return ComPtr<IDispatch>(mTableObject.Get());
}

// A table of this control or of another one is used directly, any other object by the names of its members.
HRESULT GraphObject::putref_VarTable(VARIANT* value) noexcept {
  if (value == nullptr) return E_POINTER;
  return Write(0x68030002, [&] {
    if (!IsObject(*value)) throw RunTimeError(StandardError::ObjectRequired);
    auto object = ObjectOf(*value);
    if (!object && HoldsObject(*value)) throw RunTimeError(StandardError::ObjectRequired);
    if (const auto own = OwnObjectOf<TableObject>(object.Get())) {
      mGraph->SetVarTable(own->Table());
    } else {
      mGraph->SetVarTable(object ? std::make_shared<HostVariableTable>(std::move(object)) : nullptr);
    }
  });
}

HRESULT GraphObject::put_PenWidth(short* value) noexcept {
  return Write(0x68030001, [&] { mGraph->SetPenWidth(At(value)); });
}

HRESULT GraphObject::get_PenWidth(short* value) noexcept {
  return Read(value, [&] { return mGraph->GetPenWidth(); });
}

HRESULT GraphObject::put_PlotPixelStep(short* value) noexcept {
  return Write(0x68030000, [&] { mGraph->SetPlotPixelStep(At(value)); });
}

HRESULT GraphObject::get_PlotPixelStep(short* value) noexcept {
  return Read(value, [&] { return mGraph->GetPlotPixelStep(); });
}

}  // namespace plotvane::control::com
