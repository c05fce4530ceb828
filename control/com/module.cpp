// The entry points of the library.
#include <windows.h>

#include <olectl.h>

#include <cwchar>

#include "Plotvane.h"
#include "control/com/class_factory.h"
#include "control/com/fence.h"
#include "control/com/graph_object.h"
#include "control/com/live_objects.h"
#include "control/com/registration.h"

namespace {

using namespace plotvane::control::com;

// The scope that `regsvr32 /n /i:user` names; everything else is the whole machine.
RegistrationScope ScopeOf(LPCWSTR commandLine) {
  return commandLine != nullptr && ::_wcsicmp(commandLine, L"user") == 0 ? RegistrationScope::User
                                                                         : RegistrationScope::Machine;
}

}  // namespace

extern "C" HRESULT STDMETHODCALLTYPE DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (!::IsEqualCLSID(classId, CLSID_Graph)) return CLASS_E_CLASSNOTAVAILABLE;
  return Fence([&] { return Make<ClassFactory>(&GraphObject::Create)->QueryInterface(iid, object); });
}

extern "C" HRESULT STDMETHODCALLTYPE DllCanUnloadNow() {
  return LiveObjectCount() == 0 ? S_OK : S_FALSE;
}

extern "C" HRESULT STDMETHODCALLTYPE DllRegisterServer() {
  return Fence([] { return Register(RegistrationScope::Machine); });
}

extern "C" HRESULT STDMETHODCALLTYPE DllUnregisterServer() {
  return Fence([] { return Unregister(RegistrationScope::Machine); });
}

extern "C" HRESULT STDMETHODCALLTYPE DllInstall(BOOL install, LPCWSTR commandLine) {
  return Fence(
      [&] { return install != FALSE ? Register(ScopeOf(commandLine)) : Unregister(ScopeOf(commandLine)); });
}
