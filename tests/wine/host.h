// The host's side of the Windows tests: the library from outside, objects that answer by name, an event sink.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>
#include <oleidl.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Plotvane.h"
#include "control/com/bstr.h"
#include "control/com/com_ptr.h"
#include "control/com/implements.h"
#include "control/com/variant.h"

namespace plotvane::tests {

using control::com::Bstr;
using control::com::ComPtr;
using control::com::Implements;
using control::com::Make;
using control::com::Variant;

// COM for the time of a test.
class Apartment {
 public:
  Apartment() { ::OleInitialize(nullptr); }
  ~Apartment() { ::OleUninitialize(); }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
};

// Plotvane.ocx, loaded from its file without any registration; unloaded at the end.
class Library {
 public:
  Library();
  ~Library();
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  [[nodiscard]] ComPtr<IClassFactory> Factory() const;
  [[nodiscard]] ComPtr<::_Graph> CreateGraph() const;
  // Whether nothing of the library is in use any more.
  [[nodiscard]] bool CanUnload() const;
  [[nodiscard]] static std::wstring Path();
  [[nodiscard]] HMODULE Module() const noexcept { return mModule; }

 private:
  HMODULE mModule;
};

// The status of a run-time error.
[[nodiscard]] constexpr HRESULT Standard(int number) {
  return static_cast<HRESULT>(0x800A0000U + static_cast<unsigned>(number));
}

// Arguments in the caller's order; a by-reference one can be written through.
using Arguments = std::vector<VARIANT*>;

// An automation object whose members are functions of the test.
class NamedObject final : public Implements<IDispatch> {
 public:
  using Member = std::function<Variant(Arguments& arguments, WORD kinds)>;

  // A method or property; ids count from 1 in the order of definition.
  void Define(const std::wstring& name, Member member);
  // A property that keeps a value.
  void DefineField(const std::wstring& name, Variant value);
  [[nodiscard]] Variant& Field(const std::wstring& name);
  // What the object stands for where a value is wanted.
  void DefineDefault(std::function<Variant()> value) { mDefault = std::move(value); }
  // Runs `action` before every call of the member; what it throws is what the member throws.
  void Intercept(const std::wstring& name, std::function<void()> action) {
    mIntercepts[name] = std::move(action);
  }

  int nameLookups = 0;
  std::map<std::wstring, int> calls;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) noexcept override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kinds, DISPPARAMS* arguments,
                                   VARIANT* result, EXCEPINFO* exception, UINT*) noexcept override;

 private:
  std::vector<std::pair<std::wstring, Member>> mMembers;
  std::map<std::wstring, Variant> mFields;
  std::function<Variant()> mDefault;
  std::map<std::wstring, std::function<void()>> mIntercepts;
};

// What a member throws to fail the way an automation object does.
struct RaisedError {
  HRESULT status;
  std::wstring source;
  std::wstring text;
};

[[nodiscard]] ComPtr<NamedObject> MakeFunction(const char* equation, LONG colour = 255, bool enabled = true);
// A table with GetIdValue and Change over a map of values.
[[nodiscard]] ComPtr<NamedObject> MakeTable();
// A surface that draws nothing and counts its calls.
[[nodiscard]] ComPtr<NamedObject> MakeSurface(int width = 200, int height = 100);

// A zero-based array whose element 0 is empty, as most languages make it.
[[nodiscard]] Variant ArrayOf(const std::vector<IDispatch*>& objects);

// Calls a member by name, as a script does. The status and, after DISP_E_EXCEPTION, the status and text
// inside.
struct CallResult {
  HRESULT status = E_FAIL;
  Variant value;
  HRESULT raised = S_OK;
  std::string source;
  std::string text;
};
CallResult CallByName(IDispatch* object, const wchar_t* name, WORD kinds,
                      std::vector<Variant> arguments = {});

// Counts PlotDone; `action` runs inside it.
class EventSink final : public Implements<IDispatch> {
 public:
  int plotDone = 0;
  std::function<void()> action;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) noexcept override;
};

// Connects a sink to the events; the cookie to disconnect it.
DWORD Connect(IUnknown* object, REFIID events, IUnknown* sink);
void Disconnect(IUnknown* object, REFIID events, DWORD cookie);

template <typename Interface>
ComPtr<Interface> As(IUnknown* object) {
  return ComPtr<Interface>::From(object);
}

}  // namespace plotvane::tests
