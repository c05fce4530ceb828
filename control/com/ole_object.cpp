// IOleObject and IQuickActivate: the place in a container, the verbs and the size.
#include <algorithm>
#include <string_view>

#include "control/com/enumerator.h"
#include "control/com/graph_object.h"
#include "control/com/himetric.h"
#include "control/com/registration.h"

namespace plotvane::control::com {

// The name of a verb is the receiver's to free.
template <>
struct Giving<OLEVERB> {
  using Kept = OLEVERB;
  [[nodiscard]] static OLEVERB Give(const OLEVERB& kept) {
    OLEVERB verb = kept;
    verb.lpszVerbName = TaskText(kept.lpszVerbName);
    return verb;
  }

  [[nodiscard]] static LPOLESTR TaskText(std::wstring_view text) {
    auto copy = static_cast<LPOLESTR>(::CoTaskMemAlloc((text.size() + 1) * sizeof(OLECHAR)));
    if (copy == nullptr) return nullptr;
    copy[text.copy(copy, text.size())] = L'\0';
    return copy;
  }
};

namespace {

constexpr wchar_t kUserType[] = L"Plotvane Graph";
constexpr wchar_t kEditVerb[] = L"&Edit";

}  // namespace

// ---- Site ----

// A container may take the site away without having closed the control, or give another one.
HRESULT GraphObject::SetClientSite(IOleClientSite* site) noexcept {
  return Enter([&] {
    if (site != mSite.Get()) DeactivateInPlace();
    mSite.Set(site);
    ReadDesignMode();
  });
}

HRESULT GraphObject::GetClientSite(IOleClientSite** site) noexcept {
  if (site == nullptr) return E_POINTER;
  *site = ComPtr<IOleClientSite>(mSite.Get()).Detach();
  return S_OK;
}

HRESULT GraphObject::SetHostNames(LPCOLESTR, LPCOLESTR) noexcept {
  return S_OK;
}

// There is nothing to save, whatever `saving` asks.
HRESULT GraphObject::Close(DWORD) noexcept {
  return Enter([&] {
    DeactivateInPlace();
    if (const auto advises = mAdvises) {
      const win32::HostFloatingPoint hostState;
      advises->SendOnClose();
    }
  });
}

HRESULT GraphObject::SetMoniker(DWORD, IMoniker*) noexcept {
  return E_NOTIMPL;
}

HRESULT GraphObject::GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept {
  if (moniker == nullptr) return E_POINTER;
  *moniker = nullptr;
  return E_NOTIMPL;
}

HRESULT GraphObject::InitFromData(IDataObject*, BOOL, DWORD) noexcept {
  return E_NOTIMPL;
}

HRESULT GraphObject::GetClipboardData(DWORD, IDataObject** data) noexcept {
  if (data == nullptr) return E_POINTER;
  *data = nullptr;
  return E_NOTIMPL;
}

// ---- Verbs ----

HRESULT GraphObject::DoVerb(LONG verb, MSG*, IOleClientSite*, LONG, HWND, const RECT*) noexcept {
  return Enter([&]() -> HRESULT {
    switch (verb) {
      case OLEIVERB_PRIMARY:
      case OLEIVERB_UIACTIVATE: return ActivateInPlace(true);
      case OLEIVERB_SHOW:
      case OLEIVERB_INPLACEACTIVATE: return ActivateInPlace(false);
      case OLEIVERB_HIDE:
        DeactivateUserInterface();
        mWindow->Show(false);
        return S_OK;
      case OLEIVERB_DISCARDUNDOSTATE: return S_OK;  // none is kept
      default: return verb > 0 ? OLEOBJ_S_INVALIDVERB : E_NOTIMPL;
    }
  });
}

HRESULT GraphObject::EnumVerbs(IEnumOLEVERB** verbs) noexcept {
  if (verbs == nullptr) return E_POINTER;
  *verbs = nullptr;
  return Enter([&] {
    const OLEVERB edit{OLEIVERB_PRIMARY, const_cast<LPOLESTR>(kEditVerb), MF_STRING,
                       OLEVERBATTRIB_ONCONTAINERMENU};
    *verbs = Enumerate<IEnumOLEVERB, OLEVERB>({edit});
  });
}

// ---- Class ----

HRESULT GraphObject::Update() noexcept {
  return S_OK;
}
HRESULT GraphObject::IsUpToDate() noexcept {
  return S_OK;
}
HRESULT GraphObject::GetUserClassID(CLSID* id) noexcept {
  return GetClassID(id);
}

HRESULT GraphObject::GetUserType(DWORD, LPOLESTR* type) noexcept {
  if (type == nullptr) return E_POINTER;
  *type = Giving<OLEVERB>::TaskText(kUserType);
  return *type != nullptr ? S_OK : E_OUTOFMEMORY;
}

HRESULT GraphObject::GetMiscStatus(DWORD aspect, DWORD* status) noexcept {
  if (status == nullptr) return E_POINTER;
  *status = aspect == DVASPECT_CONTENT ? kMiscStatus : 0;
  return S_OK;
}

HRESULT GraphObject::SetColorScheme(LOGPALETTE*) noexcept {
  return E_NOTIMPL;
}

// ---- Size ----

HRESULT GraphObject::SetExtent(DWORD aspect, SIZEL* extent) noexcept {
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  if (extent == nullptr) return E_POINTER;
  if (extent->cx < 0 || extent->cy < 0) return E_INVALIDARG;
  return Enter([&] {
    mExtent = *extent;
    // An active control gets its size from the container's rectangles.
    if (!mInPlaceActive) TakeSize(PixelsOf(mExtent));
  });
}

HRESULT GraphObject::GetExtent(DWORD aspect, SIZEL* extent) noexcept {
  if (extent == nullptr) return E_POINTER;
  *extent = SIZEL{};
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  *extent = mExtent;
  return S_OK;
}

// ---- Advises ----

HRESULT GraphObject::Advise(IAdviseSink* sink, DWORD* connection) noexcept {
  if (connection == nullptr) return E_POINTER;
  *connection = 0;
  return Enter([&]() -> HRESULT {
    if (!mAdvises) {
      const HRESULT made = ::CreateOleAdviseHolder(mAdvises.Receive());
      if (FAILED(made)) return made;
    }
    return mAdvises->Advise(sink, connection);
  });
}

HRESULT GraphObject::Unadvise(DWORD connection) noexcept {
  return Enter([&]() -> HRESULT { return mAdvises ? mAdvises->Unadvise(connection) : OLE_E_NOCONNECTION; });
}

HRESULT GraphObject::EnumAdvise(IEnumSTATDATA** advises) noexcept {
  if (advises == nullptr) return E_POINTER;
  *advises = nullptr;
  return Enter([&]() -> HRESULT { return mAdvises ? mAdvises->EnumAdvise(advises) : S_OK; });
}

// ---- IQuickActivate ----

// One call in place of the usual dozen: everything the container offers is taken, everything it asks for is
// told.
HRESULT GraphObject::QuickActivate(QACONTAINER* container, QACONTROL* control) noexcept {
  if (container == nullptr || control == nullptr) return E_POINTER;
  if (container->cbSize < sizeof(QACONTAINER) || control->cbSize < sizeof(QACONTROL)) return E_UNEXPECTED;
  return Enter([&] {
    *control = QACONTROL{};
    control->cbSize = sizeof(QACONTROL);
    SetClientSite(container->pClientSite);
    if (container->pAdviseSink != nullptr) SetAdvise(DVASPECT_CONTENT, 0, container->pAdviseSink);
    if (container->pPropertyNotifySink != nullptr) {
      mPropertyChanges->Advise(container->pPropertyNotifySink, &control->dwPropNotifyCookie);
    }
    if (container->pUnkEventSink != nullptr)
      mEvents->Advise(container->pUnkEventSink, &control->dwEventCookie);
    GetMiscStatus(DVASPECT_CONTENT, &control->dwMiscStatus);
    GetViewStatus(&control->dwViewStatus);
  });
}

HRESULT GraphObject::SetContentExtent(SIZEL* extent) noexcept {
  return SetExtent(DVASPECT_CONTENT, extent);
}
HRESULT GraphObject::GetContentExtent(SIZEL* extent) noexcept {
  return GetExtent(DVASPECT_CONTENT, extent);
}

}  // namespace plotvane::control::com
