#include "control/com/type_library.h"

#include <oleauto.h>

#include "control/com/error_info.h"

namespace plotvane::control::com {

namespace {

void OrThrow(HRESULT status) {
  if (FAILED(status)) throw platform::RunTimeError(StandardErrorOf(status), StandardErrorTextOf(status));
}

}  // namespace

HINSTANCE ThisModule() noexcept {
  HMODULE module = nullptr;
  ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&ThisModule), &module);
  return module;
}

std::wstring ThisModulePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = ::GetModuleFileNameW(ThisModule(), path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

ComPtr<ITypeLib> LoadOwnTypeLibrary() {
  ComPtr<ITypeLib> library;
  OrThrow(::LoadTypeLibEx(ThisModulePath().c_str(), REGKIND_NONE, library.Receive()));
  return library;
}

ComPtr<ITypeInfo> LoadOwnTypeInfo(REFGUID guid) {
  ComPtr<ITypeInfo> info;
  OrThrow(LoadOwnTypeLibrary()->GetTypeInfoOfGuid(guid, info.Receive()));
  return info;
}

ComPtr<ITypeInfo> FunctionTableOf(ITypeInfo& dual) {
  constexpr UINT kOtherHalf = static_cast<UINT>(-1);
  HREFTYPE reference = 0;
  OrThrow(dual.GetRefTypeOfImplType(kOtherHalf, &reference));
  ComPtr<ITypeInfo> table;
  OrThrow(dual.GetRefTypeInfo(reference, table.Receive()));
  return table;
}

}  // namespace plotvane::control::com
