// ControlSite: everything that the window of a host must offer an in-place control, and nothing more.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <oleidl.h>
#include <wrl/client.h>

#include <functional>

#include "hosts/desktop/automation_object.h"

namespace plotvane::desktop {

// The site (IOleClientSite, IOleInPlaceSite, IOleControlSite), the frame (IOleInPlaceFrame) and the ambient
// properties (IDispatch) of one control, all in one object, since the window holds exactly one control.
class ControlSite final
    : public AutomationObject<IOleClientSite, IOleInPlaceSite, IOleInPlaceFrame, IOleControlSite> {
 public:
  // `window`: the parent of the control's window. `bounds`: asks for the rectangle that the control may fill, in
  // pixels of `window`.
  ControlSite(HWND window, std::function<RECT()> bounds) : mWindow(window), mBounds(std::move(bounds)) {}

  // The object that takes keys first while the control is active; may be null. Not counted for the caller.
  [[nodiscard]] IOleInPlaceActiveObject* ActiveObject() const { return mActiveObject.Get(); }
  // Cuts the way back to the window; the control may keep the site a little longer.
  void Detach();

  // IOleClientSite: the control is never saved, moved or linked to.
  STDMETHODIMP SaveObject() override { return E_NOTIMPL; }
  STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** moniker) override;
  STDMETHODIMP GetContainer(IOleContainer** container) override;
  STDMETHODIMP ShowObject() override { return S_OK; }
  STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
  STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

  // IOleWindow, for the site and the frame alike
  STDMETHODIMP GetWindow(HWND* window) override;
  STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

  // IOleInPlaceSite
  STDMETHODIMP CanInPlaceActivate() override { return S_OK; }
  STDMETHODIMP OnInPlaceActivate() override { return S_OK; }
  STDMETHODIMP OnUIActivate() override { return S_OK; }
  STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT position,
                                LPRECT clip, LPOLEINPLACEFRAMEINFO info) override;
  STDMETHODIMP Scroll(SIZE) override { return S_FALSE; }
  STDMETHODIMP OnUIDeactivate(BOOL) override { return S_OK; }
  STDMETHODIMP OnInPlaceDeactivate() override { return S_OK; }
  STDMETHODIMP DiscardUndoState() override { return S_OK; }
  STDMETHODIMP DeactivateAndUndo() override { return S_OK; }
  STDMETHODIMP OnPosRectChange(LPCRECT) override { return S_OK; }  // the window decides the size

  // IOleInPlaceUIWindow and IOleInPlaceFrame: no borders and no menus to lend.
  STDMETHODIMP GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
  STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override { return INPLACE_E_NOTOOLSPACE; }
  STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
  STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* activeObject, LPCOLESTR name) override;
  STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
  STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
  STDMETHODIMP RemoveMenus(HMENU) override { return E_NOTIMPL; }
  STDMETHODIMP SetStatusText(LPCOLESTR) override { return S_OK; }
  STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }
  STDMETHODIMP TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

  // IOleControlSite
  STDMETHODIMP OnControlInfoChanged() override { return S_OK; }
  STDMETHODIMP LockInPlaceActive(BOOL) override { return S_OK; }
  STDMETHODIMP GetExtendedControl(IDispatch** extended) override;
  STDMETHODIMP TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) override;
  STDMETHODIMP TranslateAccelerator(MSG* message, DWORD modifiers) override;
  STDMETHODIMP OnFocus(BOOL) override { return S_OK; }
  STDMETHODIMP ShowPropertyFrame() override { return E_NOTIMPL; }

  // IDispatch: the ambient properties, read by number only.
  STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments,
                      VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

 private:
  ~ControlSite() override = default;
  [[nodiscard]] void* Find(REFIID iid) override;

  HWND mWindow;
  std::function<RECT()> mBounds;
  Microsoft::WRL::ComPtr<IOleInPlaceActiveObject> mActiveObject;
};

}  // namespace plotvane::desktop
