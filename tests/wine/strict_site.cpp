#include "tests/wine/strict_site.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace plotvane::tests {

int StrictSite::Count(const std::string& call) const {
  return static_cast<int>(std::count(log.begin(), log.end(), call));
}

HRESULT StrictSite::Note(const char* call) noexcept {
  const ComPtr<IOleClientSite> alive(this);
  log.emplace_back(call);
  if (const auto found = actions.find(call); found != actions.end()) {
    const auto run = found->second;
    run();
  }
  return refused == call ? E_FAIL : S_OK;
}

HRESULT StrictSite::Unexpected(const char* call) noexcept {
  ADD_FAILURE() << "the control called " << call;
  return E_NOTIMPL;
}

HRESULT StrictSite::GetContainer(IOleContainer** container) noexcept {
  *container = nullptr;
  return E_NOINTERFACE;
}

HRESULT StrictSite::GetWindow(HWND* window) noexcept {
  *window = mWindow;
  return Note("GetWindow");
}

HRESULT StrictSite::CanInPlaceActivate() noexcept {
  EXPECT_FALSE(inPlace);
  return Note("CanInPlaceActivate");
}

HRESULT StrictSite::OnInPlaceActivate() noexcept {
  EXPECT_FALSE(inPlace);
  inPlace = refused != "OnInPlaceActivate";
  return Note("OnInPlaceActivate");
}

HRESULT StrictSite::OnUIActivate() noexcept {
  EXPECT_TRUE(inPlace);
  EXPECT_FALSE(userInterface);
  userInterface = refused != "OnUIActivate";
  return Note("OnUIActivate");
}

HRESULT StrictSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, RECT* place,
                                     RECT* clip, OLEINPLACEFRAMEINFO* info) noexcept {
  EXPECT_TRUE(inPlace);
  EXPECT_EQ(info->cb, sizeof(OLEINPLACEFRAMEINFO));
  *frame = ComPtr<IOleInPlaceFrame>(this).Detach();
  *document = nullptr;
  *place = position;
  *clip = position;
  info->fMDIApp = FALSE;
  info->hwndFrame = mWindow;
  info->haccel = nullptr;
  info->cAccelEntries = 0;
  return Note("GetWindowContext");
}

HRESULT StrictSite::OnUIDeactivate(BOOL undoable) noexcept {
  EXPECT_TRUE(userInterface);
  EXPECT_EQ(undoable, FALSE);
  userInterface = false;
  return Note("OnUIDeactivate");
}

HRESULT StrictSite::OnInPlaceDeactivate() noexcept {
  EXPECT_TRUE(inPlace);
  EXPECT_FALSE(userInterface);
  inPlace = false;
  return Note("OnInPlaceDeactivate");
}

HRESULT StrictSite::TranslateAccelerator(MSG*, DWORD) noexcept {
  Note("TranslateAccelerator");
  return S_FALSE;
}

HRESULT StrictSite::SetBorderSpace(const BORDERWIDTHS* widths) noexcept {
  EXPECT_EQ(widths, nullptr);
  return Note("SetBorderSpace");
}

HRESULT StrictSite::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) noexcept {
  activeObject = ComPtr<IOleInPlaceActiveObject>(object);
  return Note("SetActiveObject");
}

HRESULT StrictSite::Invoke(DISPID id, REFIID, LCID, WORD kinds, DISPPARAMS* given, VARIANT* result,
                           EXCEPINFO*, UINT*) noexcept {
  EXPECT_NE(kinds & DISPATCH_PROPERTYGET, 0);
  EXPECT_EQ(given->cArgs, 0U);
  HRESULT noted = S_OK;
  switch (id) {
    case DISPID_AMBIENT_USERMODE: noted = Note("UserMode"); break;
    case DISPID_AMBIENT_UIDEAD: noted = Note("UIDead"); break;
    default: return Unexpected("an ambient property that it has no use for");
  }
  if (FAILED(noted)) return noted;
  const auto found = ambients.find(id);
  if (found == ambients.end()) return unknownAmbient;
  *result = Variant(found->second).Detach();
  return S_OK;
}

// ---- Windows ----

HostWindow::HostWindow()
    : mWindow(::CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_CLIPCHILDREN, 50,
                                50, 500, 400, nullptr, nullptr, ::GetModuleHandleW(nullptr), nullptr)) {}

HostWindow::~HostWindow() {
  Destroy();
}

void HostWindow::Destroy() noexcept {
  if (mWindow != nullptr) ::DestroyWindow(std::exchange(mWindow, nullptr));
}

void PumpMessages() {
  MSG message;
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
}

std::wstring TextOfWindow(HWND window) {
  constexpr UINT kPatience = 5000;
  wchar_t text[300]{};
  DWORD_PTR length = 0;
  ::SendMessageTimeoutW(window, WM_GETTEXT, 300, reinterpret_cast<LPARAM>(text), SMTO_NORMAL, kPatience,
                        &length);
  return text;
}

HWND ChildWithText(HWND parent, const std::wstring& text) {
  for (HWND child = nullptr; (child = ::FindWindowExW(parent, child, nullptr, nullptr)) != nullptr;) {
    if (TextOfWindow(child) == text) return child;
    if (const HWND found = ChildWithText(child, text); found != nullptr) return found;
  }
  return nullptr;
}

}  // namespace plotvane::tests
