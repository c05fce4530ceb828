// ClassFactory: makes objects of one class for COM.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include "control/com/implements.h"

namespace plotvane::control::com {

class ClassFactory final : public Implements<IClassFactory> {
 public:
  // Makes an object, part of `outer` unless that is null, and answers its inner IUnknown with one reference.
  using Maker = ComPtr<IUnknown> (*)(IUnknown* outer);

  explicit ClassFactory(Maker make) noexcept : mMake(make) {}

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) noexcept override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override;

 private:
  Maker mMake;
};

}  // namespace plotvane::control::com
