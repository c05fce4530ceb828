#include "hosts/desktop/variable_list.h"

#include "identifiers/clsVarTable.h"

namespace plotvane::desktop {

using platform::Value;

namespace {

bool Flag(IDispatch& node, const wchar_t* name) {
  const platform::Outcome<bool> flag = ValueByName(node, name).ToBoolean();
  return flag.Ok() && flag.Get();
}

ComPtr<IDispatch> CollectVariables(IDispatch& table) {
  OwnedVariant type;
  PutValue(Value(static_cast<double>(identifiers::kVariableType)), type.Get());
  OwnedVariant collected;
  CallByName(table, L"CollectFlag", DISPATCH_METHOD, {type.Get()}, &collected);
  return V_VT(&collected.Get()) == VT_DISPATCH ? V_DISPATCH(&collected.Get()) : nullptr;
}

}  // namespace

std::vector<std::string> ListVariables(IDispatch& table) {
  std::vector<std::string> variables;
  const ComPtr<IDispatch> nodes = CollectVariables(table);
  if (!nodes || !Flag(*nodes.Get(), L"HasNodes")) return variables;

  // In order, with a stack of its own: the tree may be one long chain.
  std::vector<ComPtr<IDispatch>> ancestors;
  ComPtr<IDispatch> node = ObjectByName(*nodes.Get(), L"HeadNode");
  while (node || !ancestors.empty()) {
    while (node) {
      ancestors.push_back(node);
      node = Flag(*node.Get(), L"LeftExists") ? ObjectByName(*node.Get(), L"Left") : nullptr;
    }
    node = ancestors.back();
    ancestors.pop_back();
    const std::string id = ValueByName(*node.Get(), L"Id").ToText();
    if (id != "x" && id != "X") variables.push_back(id + " = " + ValueByName(*node.Get(), L"Value").ToText());
    node = Flag(*node.Get(), L"RightExists") ? ObjectByName(*node.Get(), L"Right") : nullptr;
  }
  return variables;
}

}  // namespace plotvane::desktop
