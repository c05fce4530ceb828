// YFunction: a function for the graph as an automation object, for C++ hosts.
//
//   IDispatch* y1 = new YFunction(L"sin(x)", RGB(255, 0, 0));   // born with one reference
#pragma once

#include <windows.h>

#include <oleauto.h>

class YFunction final : public IDispatch {
 public:
  YFunction(const wchar_t* equation, long color) {
    for (VARIANT& field : mFields) VariantInit(&field);
    Set(0, VT_BSTR).bstrVal = SysAllocString(equation);  // Equation
    Set(1, VT_BOOL).boolVal = VARIANT_TRUE;              // Enabled
    Set(2, VT_I4).lVal = 0;                              // DrawStyle
    Set(3, VT_I4).lVal = color;                          // DrawColor
    Set(4, VT_BOOL).boolVal = VARIANT_FALSE;             // QuickRedraw
  }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IDispatch)) {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    *object = this;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++mReferences; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --mReferences;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    static const wchar_t* const kNames[] = {L"Equation", L"Enabled", L"DrawStyle", L"DrawColor", L"QuickRedraw"};
    for (ids[0] = 0; ids[0] < 5; ++ids[0]) {
      if (lstrcmpiW(kNames[ids[0]], names[0]) == 0) return S_OK;
    }
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kinds, DISPPARAMS* arguments, VARIANT* result,
                                   EXCEPINFO*, UINT*) override {
    if (id < 0 || id > 4) return DISP_E_MEMBERNOTFOUND;
    if ((kinds & DISPATCH_PROPERTYPUT) != 0) return VariantCopyInd(&mFields[id], &arguments->rgvarg[0]);
    return result != nullptr ? VariantCopy(result, &mFields[id]) : S_OK;
  }

 private:
  ~YFunction() {
    for (VARIANT& field : mFields) VariantClear(&field);
  }
  VARIANT& Set(int field, VARTYPE type) {
    mFields[field].vt = type;
    return mFields[field];
  }

  VARIANT mFields[5];
  ULONG mReferences = 1;
};
