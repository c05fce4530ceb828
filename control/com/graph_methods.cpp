// The methods of _Graph, and its numbers as expression texts.
#include <utility>

#include "control/com/graph_object.h"
#include "control/com/member_values.h"

namespace plotvane::control::com {

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
