#include "hosts/desktop/shared_table.h"

namespace plotvane::desktop {

namespace {

bool Succeeded(OwnedVariant& result) {
  const platform::Outcome<bool> answer = TakeValue(result.Get()).ToBoolean();
  return answer.Ok() && answer.Get();
}

}  // namespace

bool SharedTable::GetIdValue(std::string_view id, platform::Value& value) {
  OwnedVariant name;
  PutValue(platform::Value(id), name.Get());
  OwnedVariant found;
  VARIANT reference;
  ::VariantInit(&reference);
  V_VT(&reference) = VT_BYREF | VT_VARIANT;
  V_VARIANTREF(&reference) = &found;
  OwnedVariant result;
  CallByName(*mTable.Get(), L"GetIdValue", DISPATCH_METHOD, {name.Get(), reference}, &result);
  if (!Succeeded(result)) return false;
  value = TakeValue(found.Get());
  return true;
}

bool SharedTable::Change(std::string_view id, const platform::Value& value) {
  OwnedVariant name;
  PutValue(platform::Value(id), name.Get());
  OwnedVariant content;
  PutValue(value, content.Get());
  OwnedVariant result;
  CallByName(*mTable.Get(), L"Change", DISPATCH_METHOD, {name.Get(), content.Get()}, &result);
  return Succeeded(result);
}

}  // namespace plotvane::desktop
