// IViewObjectEx: the picture of the control in any device context.
#include "control/com/graph_object.h"
#include "control/com/himetric.h"

namespace plotvane::control::com {

void GraphObject::TakeSize(PixelSize size) {
  mGraph->Resize(size);
  PictureChanged();
}

// Whoever shows a picture of the control is to fetch it anew.
void GraphObject::PictureChanged() noexcept {
  const auto sink = mViewSink;
  const auto data = mDataAdvises;
  if ((mViewFlags & ADVF_ONLYONCE) != 0) mViewSink.Reset();
  const win32::HostFloatingPoint hostState;
  if (sink) sink->OnViewChange(DVASPECT_CONTENT, -1);
  if (data) data->SendOnDataChange(this, 0, 0);
}

HRESULT GraphObject::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC context, const RECTL* bounds,
                          const RECTL*, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) noexcept {
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  if (context == nullptr) return E_INVALIDARG;
  if (bounds == nullptr) return E_POINTER;
  return Enter([&] {
    const RECT rect{bounds->left, bounds->top, bounds->right, bounds->bottom};
    DrawPicture(context, rect);
  });
}

void GraphObject::DrawPicture(HDC context, const RECT& bounds) {
  mWindow->DrawTo(context, bounds);
}

HRESULT GraphObject::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** colours) noexcept {
  if (colours == nullptr) return E_POINTER;
  *colours = nullptr;
  return S_FALSE;  // no palette is wanted
}

HRESULT GraphObject::Freeze(DWORD, LONG, void*, DWORD* freeze) noexcept {
  if (freeze == nullptr) return E_POINTER;
  *freeze = 0;
  return E_NOTIMPL;
}

HRESULT GraphObject::Unfreeze(DWORD) noexcept {
  return E_NOTIMPL;
}

HRESULT GraphObject::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept {
  return Enter([&] {
    ComPtr<IAdviseSink> taken(sink);
    std::swap(mViewSink, taken);
    mViewAspects = aspects;
    mViewFlags = flags;
    if (sink != nullptr && (flags & ADVF_PRIMEFIRST) != 0) PictureChanged();
  });
}

HRESULT GraphObject::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept {
  if (aspects != nullptr) *aspects = mViewAspects;
  if (flags != nullptr) *flags = mViewFlags;
  if (sink != nullptr) *sink = mViewSink.Share();
  return S_OK;
}

HRESULT GraphObject::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, SIZEL* extent) noexcept {
  return GetExtent(aspect, extent);
}

HRESULT GraphObject::GetRect(DWORD aspect, RECTL* rect) noexcept {
  if (rect == nullptr) return E_POINTER;
  *rect = RECTL{};
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  rect->right = mExtent.cx;
  rect->top = 0;
  rect->bottom = -mExtent.cy;  // heights grow upwards here
  return S_OK;
}

HRESULT GraphObject::GetViewStatus(DWORD* status) noexcept {
  if (status == nullptr) return E_POINTER;
  *status = VIEWSTATUS_OPAQUE;
  return S_OK;
}

HRESULT GraphObject::QueryHitPoint(DWORD aspect, const RECT* bounds, POINT point, LONG, DWORD* hit) noexcept {
  if (bounds == nullptr || hit == nullptr) return E_POINTER;
  *hit = HITRESULT_OUTSIDE;
  if (aspect != DVASPECT_CONTENT) return E_FAIL;
  if (::PtInRect(bounds, point) != FALSE) *hit = HITRESULT_HIT;
  return S_OK;
}

HRESULT GraphObject::QueryHitRect(DWORD aspect, const RECT* bounds, const RECT* rect, LONG,
                                  DWORD* hit) noexcept {
  if (bounds == nullptr || rect == nullptr || hit == nullptr) return E_POINTER;
  *hit = HITRESULT_OUTSIDE;
  if (aspect != DVASPECT_CONTENT) return E_FAIL;
  RECT common{};
  if (::IntersectRect(&common, bounds, rect) != FALSE) *hit = HITRESULT_HIT;
  return S_OK;
}

// Any size suits a graph.
HRESULT GraphObject::GetNaturalExtent(DWORD, LONG, DVTARGETDEVICE*, HDC, DVEXTENTINFO*,
                                      SIZEL* extent) noexcept {
  if (extent == nullptr) return E_POINTER;
  *extent = SIZEL{};
  return E_NOTIMPL;
}

}  // namespace plotvane::control::com
