#include "tests/wine/host.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace plotvane::tests {

using control::com::SameObject;
using control::com::ToText;

// ---- Library ----

std::wstring Library::Path() {
  // A path of the building system, which Windows programs find on drive Z.
  std::string path = PLOTVANE_OCX;
  if (path.front() == '/') path = "Z:" + path;
  std::replace(path.begin(), path.end(), '/', '\\');
  return control::com::Utf16(path);
}

Library::Library() : mModule(::LoadLibraryW(Path().c_str())) {
  EXPECT_NE(mModule, nullptr);
}

Library::~Library() {
  EXPECT_TRUE(CanUnload()) << "objects of the library are still alive";
  ::FreeLibrary(mModule);
}

ComPtr<IClassFactory> Library::Factory() const {
  using GetClassObject = HRESULT(STDMETHODCALLTYPE*)(REFCLSID, REFIID, void**);
  const auto get = reinterpret_cast<GetClassObject>(
      reinterpret_cast<void*>(::GetProcAddress(mModule, "DllGetClassObject")));
  ComPtr<IClassFactory> factory;
  EXPECT_EQ(get(CLSID_Graph, IID_IClassFactory, factory.ReceiveVoid()), S_OK);
  return factory;
}

ComPtr<::_Graph> Library::CreateGraph() const {
  ComPtr<::_Graph> graph;
  EXPECT_EQ(Factory()->CreateInstance(nullptr, IID__Graph, graph.ReceiveVoid()), S_OK);
  return graph;
}

bool Library::CanUnload() const {
  using CanUnloadNow = HRESULT(STDMETHODCALLTYPE*)();
  return reinterpret_cast<CanUnloadNow>(
             reinterpret_cast<void*>(::GetProcAddress(mModule, "DllCanUnloadNow")))() == S_OK;
}

// ---- NamedObject ----

void NamedObject::Define(const std::wstring& name, Member member) {
  mMembers.emplace_back(name, std::move(member));
}

void NamedObject::DefineField(const std::wstring& name, Variant value) {
  mFields[name] = std::move(value);
  Define(name, [this, name](Arguments& arguments, WORD kinds) -> Variant {
    if ((kinds & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) == 0) return mFields[name];
    mFields[name] = Variant::Resolved(*arguments.at(0));
    return {};
  });
}

Variant& NamedObject::Field(const std::wstring& name) {
  return mFields[name];
}

HRESULT NamedObject::GetTypeInfoCount(UINT* count) noexcept {
  *count = 0;
  return S_OK;
}

HRESULT NamedObject::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept {
  *info = nullptr;
  return E_NOTIMPL;
}

HRESULT NamedObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) noexcept {
  ++nameLookups;
  for (std::size_t index = 0; index < mMembers.size(); ++index) {
    if (::lstrcmpiW(mMembers[index].first.c_str(), names[0]) == 0) {
      ids[0] = static_cast<DISPID>(index + 1);
      return S_OK;
    }
  }
  ids[0] = DISPID_UNKNOWN;
  return DISP_E_UNKNOWNNAME;
}

HRESULT NamedObject::Invoke(DISPID id, REFIID, LCID, WORD kinds, DISPPARAMS* given, VARIANT* result,
                            EXCEPINFO* exception, UINT*) noexcept {
  if (id == DISPID_VALUE && mDefault) {
    *result = mDefault().Detach();
    return S_OK;
  }
  if (id < 1 || static_cast<std::size_t>(id) > mMembers.size()) return DISP_E_MEMBERNOTFOUND;
  const ComPtr<IDispatch> alive(this);
  const auto member = mMembers[static_cast<std::size_t>(id - 1)];
  ++calls[member.first];
  Arguments arguments;
  for (UINT index = 0; index < given->cArgs; ++index)
    arguments.push_back(&given->rgvarg[given->cArgs - 1 - index]);
  try {
    if (const auto found = mIntercepts.find(member.first); found != mIntercepts.end()) {
      const auto run = found->second;
      run();
    }
    Variant value = member.second(arguments, kinds);
    if (result != nullptr) *result = value.Detach();
    return S_OK;
  } catch (const RaisedError& error) {
    if (exception != nullptr) {
      *exception = EXCEPINFO{};
      exception->scode = error.status;
      exception->bstrSource = Bstr(std::wstring_view(error.source)).Detach();
      exception->bstrDescription = Bstr(std::wstring_view(error.text)).Detach();
    }
    return DISP_E_EXCEPTION;
  } catch (...) {
    ADD_FAILURE() << "a member of a host's object threw something else";
    return E_FAIL;
  }
}

ComPtr<NamedObject> MakeFunction(const char* equation, LONG colour, bool enabled) {
  auto function = Make<NamedObject>();
  function->DefineField(L"Equation", Variant(equation));
  function->DefineField(L"Enabled", Variant(enabled));
  function->DefineField(L"DrawStyle", Variant(std::int32_t{0}));
  function->DefineField(L"DrawColor", Variant(static_cast<std::int32_t>(colour)));
  function->DefineField(L"QuickRedraw", Variant(false));
  return function;
}

ComPtr<NamedObject> MakeTable() {
  auto table = Make<NamedObject>();
  auto values = std::make_shared<std::map<std::string, Variant>>();
  table->Define(L"GetIdValue", [values](Arguments& arguments, WORD) {
    const auto found = values->find(ToText(*arguments.at(0)));
    if (found == values->end()) return Variant(false);
    EXPECT_EQ(arguments.at(1)->vt, VT_BYREF | VT_VARIANT);
    ::VariantCopy(arguments.at(1)->pvarVal, &found->second.Get());
    return Variant(true);
  });
  table->Define(L"Change", [values](Arguments& arguments, WORD) {
    (*values)[ToText(*arguments.at(0))] = Variant::Resolved(*arguments.at(1));
    return Variant(true);
  });
  return table;
}

ComPtr<NamedObject> MakeSurface(int width, int height) {
  auto surface = Make<NamedObject>();
  const auto nothing = [](Arguments&, WORD) { return Variant(); };
  for (const wchar_t* name : {L"Clear", L"SetPixel", L"DrawLine", L"Refresh"}) surface->Define(name, nothing);
  surface->DefineField(L"ScaleWidth", Variant(std::int32_t{width}));
  surface->DefineField(L"ScaleHeight", Variant(std::int32_t{height}));
  surface->DefineField(L"PenWidth", Variant(std::int16_t{1}));
  return surface;
}

Variant ArrayOf(const std::vector<IDispatch*>& objects) {
  SAFEARRAY* array = ::SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(objects.size() + 1));
  for (std::size_t index = 0; index < objects.size(); ++index) {
    Variant element(objects[index]);
    LONG place = static_cast<LONG>(index + 1);
    ::SafeArrayPutElement(array, &place, &element.Get());
  }
  Variant result;
  result.Get().vt = VT_ARRAY | VT_VARIANT;
  result.Get().parray = array;
  return result;
}

CallResult CallByName(IDispatch* object, const wchar_t* name, WORD kinds, std::vector<Variant> arguments) {
  CallResult call;
  DISPID id = DISPID_UNKNOWN;
  auto text = const_cast<LPOLESTR>(name);
  call.status = object->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(call.status)) return call;
  std::vector<VARIANT> reversed;
  for (const Variant& argument : arguments) reversed.insert(reversed.begin(), argument.Get());
  DISPID put = DISPID_PROPERTYPUT;
  const bool writes = (kinds & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPPARAMS given{reversed.data(), writes ? &put : nullptr, static_cast<UINT>(reversed.size()),
                   writes ? 1U : 0U};
  EXCEPINFO exception{};
  call.status = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kinds, &given, call.value.Receive(),
                               &exception, nullptr);
  call.raised = exception.scode;
  call.source = control::com::TextOf(exception.bstrSource);
  call.text = control::com::TextOf(exception.bstrDescription);
  ::SysFreeString(exception.bstrSource);
  ::SysFreeString(exception.bstrDescription);
  ::SysFreeString(exception.bstrHelpFile);
  return call;
}

// ---- EventSink ----

HRESULT EventSink::GetTypeInfoCount(UINT*) noexcept {
  return E_NOTIMPL;
}
HRESULT EventSink::GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept {
  return E_NOTIMPL;
}
HRESULT EventSink::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept {
  return E_NOTIMPL;
}

HRESULT EventSink::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) noexcept {
  if (id != 1) return DISP_E_MEMBERNOTFOUND;
  const ComPtr<IDispatch> alive(this);
  ++plotDone;
  try {
    if (const auto run = action) run();
    return S_OK;
  } catch (const RaisedError& error) {
    return error.status;
  }
}

DWORD Connect(IUnknown* object, REFIID events, IUnknown* sink) {
  ComPtr<IConnectionPoint> point;
  DWORD cookie = 0;
  EXPECT_EQ(As<IConnectionPointContainer>(object)->FindConnectionPoint(events, point.Receive()), S_OK);
  EXPECT_EQ(point->Advise(sink, &cookie), S_OK);
  return cookie;
}

void Disconnect(IUnknown* object, REFIID events, DWORD cookie) {
  ComPtr<IConnectionPoint> point;
  EXPECT_EQ(As<IConnectionPointContainer>(object)->FindConnectionPoint(events, point.Receive()), S_OK);
  EXPECT_EQ(point->Unadvise(cookie), S_OK);
}

}  // namespace plotvane::tests
