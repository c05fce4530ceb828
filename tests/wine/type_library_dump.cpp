#include "tests/wine/type_library_dump.h"

#include <array>
#include <sstream>
#include <vector>

#include "control/com/bstr.h"
#include "control/com/com_ptr.h"

namespace plotvane::tests {

namespace {

using control::com::Bstr;
using control::com::ComPtr;

std::string GuidText(REFGUID guid) {
  std::array<wchar_t, 39> text{};
  ::StringFromGUID2(guid, text.data(), static_cast<int>(text.size()));
  return control::com::Utf8(text.data());
}

std::string NameOf(ITypeInfo& info, MEMBERID id = MEMBERID_NIL) {
  Bstr name;
  info.GetDocumentation(id, name.Receive(), nullptr, nullptr, nullptr);
  return name.Text();
}

std::string TypeText(ITypeInfo& info, const TYPEDESC& type) {
  switch (type.vt) {
    case VT_PTR: return TypeText(info, *type.lptdesc) + "*";
    case VT_USERDEFINED: {
      ComPtr<ITypeInfo> referred;
      info.GetRefTypeInfo(type.hreftype, referred.Receive());
      return referred ? NameOf(*referred.Get()) : "?";
    }
    case VT_I2: return "short";
    case VT_I4: return "long";
    case VT_R4: return "float";
    case VT_R8: return "double";
    case VT_BSTR: return "BSTR";
    case VT_DISPATCH: return "IDispatch*";
    case VT_BOOL: return "VARIANT_BOOL";
    case VT_VARIANT: return "VARIANT";
    case VT_HRESULT: return "HRESULT";
    case VT_VOID: return "void";
    default: return "type " + std::to_string(type.vt);
  }
}

const char* KindText(INVOKEKIND kind) {
  switch (kind) {
    case INVOKE_FUNC: return "method";
    case INVOKE_PROPERTYGET: return "get";
    case INVOKE_PROPERTYPUT: return "put";
    case INVOKE_PROPERTYPUTREF: return "putref";
  }
  return "?";
}

std::string FlagsText(USHORT flags) {
  std::string text;
  const auto add = [&](USHORT flag, const char* word) {
    if ((flags & flag) != 0) text += (text.empty() ? "" : " ") + std::string(word);
  };
  add(PARAMFLAG_FIN, "in");
  add(PARAMFLAG_FOUT, "out");
  add(PARAMFLAG_FRETVAL, "retval");
  add(PARAMFLAG_FOPT, "optional");
  return text;
}

void DumpFunction(std::ostream& out, ITypeInfo& info, const FUNCDESC& function) {
  std::array<BSTR, 8> names{};
  UINT count = 0;
  info.GetNames(function.memid, names.data(), static_cast<UINT>(names.size()), &count);
  out << "  slot " << std::dec << function.oVft / static_cast<SHORT>(sizeof(void*)) << " 0x" << std::hex
      << std::uppercase << function.memid << std::dec << " " << KindText(function.invkind) << " "
      << TypeText(info, function.elemdescFunc.tdesc) << " " << control::com::TextOf(names[0]) << "(";
  for (SHORT index = 0; index < function.cParams; ++index) {
    const ELEMDESC& parameter = function.lprgelemdescParam[index];
    if (index > 0) out << ", ";
    out << "[" << FlagsText(parameter.paramdesc.wParamFlags) << "] " << TypeText(info, parameter.tdesc);
    // The value of a property has no name that a caller could use.
    const auto place = static_cast<UINT>(index) + 1;
    if (function.invkind == INVOKE_FUNC && place < count) out << " " << control::com::TextOf(names[place]);
  }
  out << ") flags " << function.wFuncFlags << "\n";
  for (BSTR name : names) ::SysFreeString(name);
}

void DumpFunctions(std::ostream& out, ITypeInfo& info) {
  FUNCDESC* function = nullptr;
  for (UINT index = 0; SUCCEEDED(info.GetFuncDesc(index, &function)); ++index) {
    DumpFunction(out, info, *function);
    info.ReleaseFuncDesc(function);
  }
}

void DumpVariables(std::ostream& out, ITypeInfo& info) {
  VARDESC* variable = nullptr;
  for (UINT index = 0; SUCCEEDED(info.GetVarDesc(index, &variable)); ++index) {
    out << "  " << NameOf(info, variable->memid) << " = " << variable->lpvarValue->lVal << "\n";
    info.ReleaseVarDesc(variable);
  }
}

void DumpImplemented(std::ostream& out, ITypeInfo& info, UINT count) {
  for (UINT index = 0; index < count; ++index) {
    HREFTYPE reference = 0;
    INT flags = 0;
    ComPtr<ITypeInfo> implemented;
    info.GetRefTypeOfImplType(index, &reference);
    info.GetImplTypeFlags(index, &flags);
    info.GetRefTypeInfo(reference, implemented.Receive());
    out << "  implements " << NameOf(*implemented.Get()) << " flags " << flags << "\n";
  }
}

void DumpType(std::ostream& out, ITypeInfo& info) {
  TYPEATTR* attributes = nullptr;
  if (FAILED(info.GetTypeAttr(&attributes))) return;
  constexpr std::array kKinds{"enum", "record", "module", "interface", "dispatch", "class", "alias", "union"};
  out << kKinds[attributes->typekind] << " " << NameOf(info) << " ";
  // Enumerations have no identifier of their own.
  if (attributes->typekind != TKIND_ENUM) out << GuidText(attributes->guid) << " ";
  out << "flags " << attributes->wTypeFlags << " version " << attributes->wMajorVerNum << "."
      << attributes->wMinorVerNum << "\n";
  if (attributes->typekind == TKIND_ENUM) DumpVariables(out, info);
  if (attributes->typekind == TKIND_COCLASS) DumpImplemented(out, info, attributes->cImplTypes);
  if ((attributes->wTypeFlags & TYPEFLAG_FDUAL) != 0) {
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> table;
    info.GetRefTypeOfImplType(static_cast<UINT>(-1), &reference);
    info.GetRefTypeInfo(reference, table.Receive());
    DumpFunctions(out, *table.Get());
  } else if (attributes->typekind == TKIND_DISPATCH) {
    DumpFunctions(out, info);
  }
  info.ReleaseTypeAttr(attributes);
}

}  // namespace

std::string DumpTypeLibrary(ITypeLib& library) {
  std::ostringstream out;
  TLIBATTR* attributes = nullptr;
  Bstr name;
  library.GetDocumentation(-1, name.Receive(), nullptr, nullptr, nullptr);
  library.GetLibAttr(&attributes);
  out << "library " << name.Text() << " " << GuidText(attributes->guid) << " version "
      << attributes->wMajorVerNum << "." << attributes->wMinorVerNum << " locale 0x" << std::hex
      << attributes->lcid << std::dec << " flags " << (attributes->wLibFlags & LIBFLAG_FCONTROL) << "\n";
  library.ReleaseTLibAttr(attributes);
  for (UINT index = 0; index < library.GetTypeInfoCount(); ++index) {
    ComPtr<ITypeInfo> info;
    if (SUCCEEDED(library.GetTypeInfo(index, info.Receive()))) DumpType(out, *info.Get());
  }
  return out.str();
}

}  // namespace plotvane::tests
