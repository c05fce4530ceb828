// The public fields of _Graph: loaded and stored, nothing else.
#include "control/com/graph_object.h"
#include "control/com/member_values.h"
#include "graph/graph_engine.h"

namespace plotvane::control::com {

HRESULT GraphObject::get_W(double* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().W; });
}
HRESULT GraphObject::put_W(double value) noexcept {
  return Write(0x40030009, [&] { mGraph->Engine().W = Take(value); });
}

HRESULT GraphObject::get_H(double* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().H; });
}
HRESULT GraphObject::put_H(double value) noexcept {
  return Write(0x4003000A, [&] { mGraph->Engine().H = Take(value); });
}

HRESULT GraphObject::get_W_2(double* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().W_2; });
}
HRESULT GraphObject::put_W_2(double value) noexcept {
  return Write(0x4003000B, [&] { mGraph->Engine().W_2 = Take(value); });
}

HRESULT GraphObject::get_H_2(double* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().H_2; });
}
HRESULT GraphObject::put_H_2(double value) noexcept {
  return Write(0x4003000C, [&] { mGraph->Engine().H_2 = Take(value); });
}

HRESULT GraphObject::get_Xmax(double* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().Xmax; });
}
HRESULT GraphObject::put_Xmax(double value) noexcept {
  return Write(0x4003000D, [&] { mGraph->Engine().Xmax = Take(value); });
}

HRESULT GraphObject::get_Xmin(double* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().Xmin; });
}
HRESULT GraphObject::put_Xmin(double value) noexcept {
  return Write(0x4003000E, [&] { mGraph->Engine().Xmin = Take(value); });
}

HRESULT GraphObject::get_Ymax(double* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().Ymax; });
}
HRESULT GraphObject::put_Ymax(double value) noexcept {
  return Write(0x4003000F, [&] { mGraph->Engine().Ymax = Take(value); });
}

HRESULT GraphObject::get_Ymin(double* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().Ymin; });
}
HRESULT GraphObject::put_Ymin(double value) noexcept {
  return Write(0x40030010, [&] { mGraph->Engine().Ymin = Take(value); });
}

HRESULT GraphObject::get_Xscl(double* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().Xscl; });
}
HRESULT GraphObject::put_Xscl(double value) noexcept {
  return Write(0x40030011, [&] { mGraph->Engine().Xscl = Take(value); });
}

HRESULT GraphObject::get_Yscl(double* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().Yscl; });
}
HRESULT GraphObject::put_Yscl(double value) noexcept {
  return Write(0x40030012, [&] { mGraph->Engine().Yscl = Take(value); });
}

HRESULT GraphObject::get_ShowAxis(VARIANT_BOOL* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().ShowAxis; });
}
HRESULT GraphObject::put_ShowAxis(VARIANT_BOOL value) noexcept {
  return Write(0x4003001E, [&] { mGraph->Engine().ShowAxis = Take(value); });
}

HRESULT GraphObject::get_ShowAxisDivisions(VARIANT_BOOL* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().ShowAxisDivisions; });
}
HRESULT GraphObject::put_ShowAxisDivisions(VARIANT_BOOL value) noexcept {
  return Write(0x4003001F, [&] { mGraph->Engine().ShowAxisDivisions = Take(value); });
}

HRESULT GraphObject::get_ShowGrid(VARIANT_BOOL* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().ShowGrid; });
}
HRESULT GraphObject::put_ShowGrid(VARIANT_BOOL value) noexcept {
  return Write(0x40030020, [&] { mGraph->Engine().ShowGrid = Take(value); });
}

HRESULT GraphObject::get_RedrawAll(VARIANT_BOOL* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().RedrawAll; });
}
HRESULT GraphObject::put_RedrawAll(VARIANT_BOOL value) noexcept {
  return Write(0x40030021, [&] { mGraph->Engine().RedrawAll = Take(value); });
}

HRESULT GraphObject::get_GCStyle(::GraphCoordStyle* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().GCStyle; });
}
HRESULT GraphObject::put_GCStyle(::GraphCoordStyle value) noexcept {
  return Write(0x40030022, [&] { mGraph->Engine().GCStyle = Take(value); });
}

HRESULT GraphObject::get_PlotStyle(::DrawType* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().PlotStyle; });
}
HRESULT GraphObject::put_PlotStyle(::DrawType value) noexcept {
  return Write(0x40030023, [&] { mGraph->Engine().PlotStyle = Take(value); });
}

HRESULT GraphObject::get_RedrawGridOnResize(VARIANT_BOOL* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().RedrawGridOnResize; });
}
HRESULT GraphObject::put_RedrawGridOnResize(VARIANT_BOOL value) noexcept {
  return Write(0x40030024, [&] { mGraph->Engine().RedrawGridOnResize = Take(value); });
}

HRESULT GraphObject::get_RedrawAxisOnResize(VARIANT_BOOL* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().RedrawAxisOnResize; });
}
HRESULT GraphObject::put_RedrawAxisOnResize(VARIANT_BOOL value) noexcept {
  return Write(0x40030025, [&] { mGraph->Engine().RedrawAxisOnResize = Take(value); });
}

HRESULT GraphObject::get_ZX(float* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().ZX; });
}
HRESULT GraphObject::put_ZX(float value) noexcept {
  return Write(0x40030026, [&] { mGraph->Engine().ZX = Take(value); });
}

HRESULT GraphObject::get_ZY(float* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().ZY; });
}
HRESULT GraphObject::put_ZY(float value) noexcept {
  return Write(0x40030027, [&] { mGraph->Engine().ZY = Take(value); });
}

HRESULT GraphObject::get_ZXStr(BSTR* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().ZXStr; });
}
HRESULT GraphObject::put_ZXStr(BSTR value) noexcept {
  return Write(0x40030028, [&] { mGraph->Engine().ZXStr = Take(value); });
}

HRESULT GraphObject::get_ZYStr(BSTR* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().ZYStr; });
}
HRESULT GraphObject::put_ZYStr(BSTR value) noexcept {
  return Write(0x40030029, [&] { mGraph->Engine().ZYStr = Take(value); });
}

HRESULT GraphObject::get_XMinStr(BSTR* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().XMinStr; });
}
HRESULT GraphObject::put_XMinStr(BSTR value) noexcept {
  return Write(0x4003002A, [&] { mGraph->Engine().XMinStr = Take(value); });
}

HRESULT GraphObject::get_XMaxStr(BSTR* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().XMaxStr; });
}
HRESULT GraphObject::put_XMaxStr(BSTR value) noexcept {
  return Write(0x4003002B, [&] { mGraph->Engine().XMaxStr = Take(value); });
}

HRESULT GraphObject::get_YMinStr(BSTR* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().YMinStr; });
}
HRESULT GraphObject::put_YMinStr(BSTR value) noexcept {
  return Write(0x4003002C, [&] { mGraph->Engine().YMinStr = Take(value); });
}

HRESULT GraphObject::get_YMaxStr(BSTR* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().YMaxStr; });
}
HRESULT GraphObject::put_YMaxStr(BSTR value) noexcept {
  return Write(0x4003002D, [&] { mGraph->Engine().YMaxStr = Take(value); });
}

HRESULT GraphObject::get_XSclStr(BSTR* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().XSclStr; });
}
HRESULT GraphObject::put_XSclStr(BSTR value) noexcept {
  return Write(0x4003002E, [&] { mGraph->Engine().XSclStr = Take(value); });
}

HRESULT GraphObject::get_YSclStr(BSTR* value) noexcept {
  return Read(value, [&] { return mGraph->Engine().YSclStr; });
}
HRESULT GraphObject::put_YSclStr(BSTR value) noexcept {
  return Write(0x4003002F, [&] { mGraph->Engine().YSclStr = Take(value); });
}

}  // namespace plotvane::control::com
