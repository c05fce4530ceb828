// The members of _Graph, in the order of its function table.
#include <string>
#include <type_traits>
#include <utility>

#include "control/com/bstr.h"
#include "control/com/graph_object.h"
#include "control/com/host_surface.h"
#include "control/com/host_variable_table.h"
#include "graph/graph_engine.h"

namespace plotvane::control::com {

namespace {

using platform::RunTimeError;
using platform::StandardError;

// Values on their way out; each throws rather than give half a value.
void Give(double* out, double value) {
  *out = value;
}
void Give(float* out, float value) {
  *out = value;
}
void Give(short* out, std::int16_t value) {
  *out = value;
}
void Give(LONG* out, std::int32_t value) {
  *out = value;
}
void Give(VARIANT_BOOL* out, bool value) {
  *out = value ? VARIANT_TRUE : VARIANT_FALSE;
}
void Give(BSTR* out, const std::string& value) {
  *out = Bstr(value).Detach();
}
void Give(::GraphCoordStyle* out, std::int32_t value) {
  *out = static_cast<::GraphCoordStyle>(value);
}
void Give(::DrawType* out, std::int32_t value) {
  *out = static_cast<::DrawType>(value);
}

// Values on their way in. A boolean is true for every number but 0.
double Take(double value) {
  return value;
}
float Take(float value) {
  return value;
}
bool Take(VARIANT_BOOL value) {
  return value != VARIANT_FALSE;
}
std::string Take(BSTR value) {
  return TextOf(value);
}
std::int32_t Take(::GraphCoordStyle value) {
  return static_cast<std::int32_t>(value);
}
std::int32_t Take(::DrawType value) {
  return static_cast<std::int32_t>(value);
}

// What a by-reference parameter refers to.
template <typename Type>
Type At(Type* pointer) {
  if (pointer == nullptr) throw RunTimeError(E_POINTER, "Invalid pointer");
  return *pointer;
}

}  // namespace

template <typename Body>
HRESULT GraphObject::Write(DISPID property, Body&& body) noexcept {
  return Enter([&] {
    body();
    NotifyWritten(property);
  });
}

template <typename Out, typename Body>
HRESULT GraphObject::Read(Out* out, Body&& body) noexcept {
  if (out == nullptr) return E_POINTER;
  *out = Out{};
  return Enter([&] { Give(out, body()); });
}

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

// ---- Fields ----

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

// ---- Numbers as expression texts ----

HRESULT GraphObject::get_ZXStringEval(BSTR* value) noexcept {
  return Read(value, [&] { return mGraph->GetStringEval(RangeText::ZX); });
}
HRESULT GraphObject::get_ZYStringEval(BSTR* value) noexcept {
  return Read(value, [&] { return mGraph->GetStringEval(RangeText::ZY); });
}
HRESULT GraphObject::get_XMinStringEval(BSTR* value) noexcept {
  return Read(value, [&] { return mGraph->GetStringEval(RangeText::XMin); });
}
HRESULT GraphObject::get_XMaxStringEval(BSTR* value) noexcept {
  return Read(value, [&] { return mGraph->GetStringEval(RangeText::XMax); });
}
HRESULT GraphObject::get_YMinStringEval(BSTR* value) noexcept {
  return Read(value, [&] { return mGraph->GetStringEval(RangeText::YMin); });
}
HRESULT GraphObject::get_YMaxStringEval(BSTR* value) noexcept {
  return Read(value, [&] { return mGraph->GetStringEval(RangeText::YMax); });
}
HRESULT GraphObject::get_XSclStringEval(BSTR* value) noexcept {
  return Read(value, [&] { return mGraph->GetStringEval(RangeText::XScl); });
}
HRESULT GraphObject::get_YSclStringEval(BSTR* value) noexcept {
  return Read(value, [&] { return mGraph->GetStringEval(RangeText::YScl); });
}

HRESULT GraphObject::put_ZXStringEval(BSTR* value) noexcept {
  return Write(0x6803000B, [&] { mGraph->SetStringEval(RangeText::ZX, Take(At(value))); });
}
HRESULT GraphObject::put_ZYStringEval(BSTR* value) noexcept {
  return Write(0x6803000A, [&] { mGraph->SetStringEval(RangeText::ZY, Take(At(value))); });
}
HRESULT GraphObject::put_XMinStringEval(BSTR* value) noexcept {
  return Write(0x68030009, [&] { mGraph->SetStringEval(RangeText::XMin, Take(At(value))); });
}
HRESULT GraphObject::put_XMaxStringEval(BSTR* value) noexcept {
  return Write(0x68030008, [&] { mGraph->SetStringEval(RangeText::XMax, Take(At(value))); });
}
HRESULT GraphObject::put_YMinStringEval(BSTR* value) noexcept {
  return Write(0x68030007, [&] { mGraph->SetStringEval(RangeText::YMin, Take(At(value))); });
}
HRESULT GraphObject::put_YMaxStringEval(BSTR* value) noexcept {
  return Write(0x68030006, [&] { mGraph->SetStringEval(RangeText::YMax, Take(At(value))); });
}
HRESULT GraphObject::put_XSclStringEval(BSTR* value) noexcept {
  return Write(0x68030005, [&] { mGraph->SetStringEval(RangeText::XScl, Take(At(value))); });
}
HRESULT GraphObject::put_YSclStringEval(BSTR* value) noexcept {
  return Write(0x68030004, [&] { mGraph->SetStringEval(RangeText::YScl, Take(At(value))); });
}

// ---- Methods ----

HRESULT GraphObject::PlotAllY() noexcept {
  return Enter([&] { mGraph->PlotAllY(); });
}
HRESULT GraphObject::EvaluateAndPlotEachPoint() noexcept {
  return Enter([&] { mGraph->EvaluateAndPlotEachPoint(); });
}
HRESULT GraphObject::PlotPointXY() noexcept {
  return Enter([&] { mGraph->PlotPointXY(); });
}
HRESULT GraphObject::MoveRangeToPointXY() noexcept {
  return Enter([&] { mGraph->MoveRangeToPointXY(); });
}
HRESULT GraphObject::ZoomInXY() noexcept {
  return Enter([&] { mGraph->ZoomInXY(); });
}
HRESULT GraphObject::ZoomOutXY() noexcept {
  return Enter([&] { mGraph->ZoomOutXY(); });
}

HRESULT GraphObject::ZoomOutPixel(float* pixelX, float* pixelY) noexcept {
  return Enter([&] { mGraph->ZoomOutPixel(At(pixelX), At(pixelY)); });
}

HRESULT GraphObject::ZoomInPixel(float* pixelX, float* pixelY) noexcept {
  return Enter([&] { mGraph->ZoomInPixel(At(pixelX), At(pixelY)); });
}

HRESULT GraphObject::ZBoxPixel() noexcept {
  return Enter([&] { mGraph->ZBoxPixel(); });
}
HRESULT GraphObject::ZStandard() noexcept {
  return Enter([&] { mGraph->ZStandard(); });
}
HRESULT GraphObject::ZTrig() noexcept {
  return Enter([&] { mGraph->ZTrig(); });
}
HRESULT GraphObject::ZNum(double* pixelSize) noexcept {
  return Enter([&] { mGraph->ZNum(At(pixelSize)); });
}
HRESULT GraphObject::ZInt() noexcept {
  return Enter([&] { mGraph->ZInt(); });
}
HRESULT GraphObject::ZDec() noexcept {
  return Enter([&] { mGraph->ZDec(); });
}
HRESULT GraphObject::PrepareGraph() noexcept {
  return Enter([&] { mGraph->PrepareGraph(); });
}
HRESULT GraphObject::ShowFormatEditor() noexcept {
  return Enter([&] { mGraph->ShowFormatEditor(); });
}

// Everything is looked at before anything changes.
HRESULT GraphObject::SetYArray(VARIANT* functions, VARIANT* redrawGraph) noexcept {
  if (functions == nullptr) return E_POINTER;
  return Enter([&] {
    const bool redraw = redrawGraph == nullptr || IsLeftOut(*redrawGraph) || ToBool(*redrawGraph);
    const HostFunctions known = mFunctions;
    HostFunctions taken = FunctionsOf(*functions, known);
    std::swap(mFunctions, taken);
    mGraph->SetYArray({mFunctions.begin(), mFunctions.end()}, redraw);
  });
}

HRESULT GraphObject::GetGraphHDC(LONG* value) noexcept {
  return Read(value, [&] { return mGraph->GetGraphHDC(); });
}

HRESULT GraphObject::GetGraphWidth(LONG* value) noexcept {
  return Read(value, [&] { return mGraph->GetGraphWidth(); });
}

HRESULT GraphObject::GetGraphHeight(LONG* value) noexcept {
  return Read(value, [&] { return mGraph->GetGraphHeight(); });
}

}  // namespace plotvane::control::com
