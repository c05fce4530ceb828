#include "hosts/desktop/control_site.h"

#include <olectl.h>

namespace plotvane::desktop {

namespace {

// What the container says of itself; a control that asks for anything else gets DISP_E_MEMBERNOTFOUND.
bool ReadAmbient(DISPID member, VARIANT& value) {
  switch (member) {
    case DISPID_AMBIENT_USERMODE:
      V_VT(&value) = VT_BOOL;
      V_BOOL(&value) = VARIANT_TRUE;  // running, not being designed
      return true;
    case DISPID_AMBIENT_UIDEAD:
    case DISPID_AMBIENT_SHOWGRABHANDLES:
    case DISPID_AMBIENT_SHOWHATCHING:
      V_VT(&value) = VT_BOOL;
      V_BOOL(&value) = VARIANT_FALSE;
      return true;
    case DISPID_AMBIENT_LOCALEID:
      V_VT(&value) = VT_I4;
      V_I4(&value) = static_cast<LONG>(::GetUserDefaultLCID());
      return true;
    case DISPID_AMBIENT_BACKCOLOR:
      V_VT(&value) = VT_I4;
      V_I4(&value) = static_cast<LONG>(::GetSysColor(COLOR_BTNFACE));
      return true;
    default: return false;
  }
}

}  // namespace

void ControlSite::Detach() {
  mWindow = nullptr;
  SetActiveObject(nullptr, nullptr);
}

void* ControlSite::Find(REFIID iid) {
  if (iid == IID_IOleClientSite) return static_cast<IOleClientSite*>(this);
  if (iid == IID_IOleWindow || iid == IID_IOleInPlaceSite) return static_cast<IOleInPlaceSite*>(this);
  if (iid == IID_IOleInPlaceUIWindow || iid == IID_IOleInPlaceFrame) return static_cast<IOleInPlaceFrame*>(this);
  if (iid == IID_IOleControlSite) return static_cast<IOleControlSite*>(this);
  return AutomationObject::Find(iid);
}

HRESULT ControlSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
  if (moniker == nullptr) return E_POINTER;
  *moniker = nullptr;
  return E_NOTIMPL;
}

HRESULT ControlSite::GetContainer(IOleContainer** container) {
  if (container == nullptr) return E_POINTER;
  *container = nullptr;
  return E_NOINTERFACE;  // a window with a single control enumerates nothing
}

HRESULT ControlSite::GetWindow(HWND* window) {
  if (window == nullptr) return E_POINTER;
  *window = mWindow;
  return mWindow != nullptr ? S_OK : E_UNEXPECTED;
}

HRESULT ControlSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT position,
                                      LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
  if (frame == nullptr || document == nullptr || position == nullptr || clip == nullptr || info == nullptr) {
    return E_POINTER;
  }
  *frame = nullptr;
  *document = nullptr;  // the frame is the document window, too
  if (mWindow == nullptr) return E_UNEXPECTED;
  AddRef();
  *frame = this;
  *position = mBounds();
  *clip = *position;
  info->fMDIApp = FALSE;
  info->hwndFrame = mWindow;
  info->haccel = nullptr;
  info->cAccelEntries = 0;
  return S_OK;
}

HRESULT ControlSite::SetActiveObject(IOleInPlaceActiveObject* activeObject, LPCOLESTR) {
  mActiveObject = activeObject;
  return S_OK;
}

HRESULT ControlSite::GetExtendedControl(IDispatch** extended) {
  if (extended == nullptr) return E_POINTER;
  *extended = nullptr;
  return E_NOTIMPL;
}

HRESULT ControlSite::TransformCoords(POINTL*, POINTF*, DWORD) { return E_NOTIMPL; }

// Keys that the control offers its container first: none is taken, the window has handled its own already.
HRESULT ControlSite::TranslateAccelerator(MSG*, DWORD) { return S_FALSE; }

HRESULT ControlSite::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                            UINT*) {
  if ((flags & DISPATCH_PROPERTYGET) == 0 || result == nullptr) return DISP_E_MEMBERNOTFOUND;
  return ReadAmbient(member, *result) ? S_OK : DISP_E_MEMBERNOTFOUND;
}

}  // namespace plotvane::desktop
