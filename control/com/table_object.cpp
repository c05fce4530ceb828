#include "control/com/table_object.h"

#include <optional>
#include <string>

#include "control/com/node_table_object.h"

namespace plotvane::control::com {

namespace {

// An optional description; nothing when the caller left it out.
std::optional<std::string> DescriptionOf(const Call& call, std::size_t parameter) {
  if (!call.Has(parameter)) return std::nullopt;
  return ToText(call[parameter]);
}

std::optional<std::string_view> ViewOf(const std::optional<std::string>& text) {
  return text ? std::optional<std::string_view>(*text) : std::nullopt;
}

}  // namespace

Variant TableObject::GetIdValue(const Call& call) {
  platform::Value value;
  const bool found = mTable->GetIdValue(ToText(call[0]), value);
  if (found) call.Write(1, Variant(value));
  return Variant(found);
}

Variant TableObject::Change(const Call& call) {
  std::optional<std::int32_t> type;
  if (call.Has(2)) type = ToInt32(call[2]);
  const auto description = DescriptionOf(call, 3);
  return Variant(mTable->Change(ToText(call[0]), ToValue(call[1]), type, ViewOf(description)));
}

Variant TableObject::GetIdType(const Call& call) {
  std::int32_t type = 0;
  const bool found = mTable->GetIdType(ToText(call[0]), type);
  if (found) call.Write(1, Variant(type));
  return Variant(found);
}

Variant TableObject::IdExists(const Call& call) {
  return Variant(mTable->IdExists(ToText(call[0])));
}

Variant TableObject::GetId(const Call& call) {
  platform::Value value;
  std::int32_t type = 0;
  std::string description;
  const bool found = mTable->GetId(ToText(call[0]), value, type, description);
  if (found) {
    call.Write(1, Variant(value));
    call.Write(2, Variant(type));
    call.Write(3, Variant(std::string_view(description)));
  }
  return Variant(found);
}

Variant TableObject::Remove(const Call& call) {
  return Variant(mTable->Remove(ToText(call[0])));
}

Variant TableObject::Rename(const Call& call) {
  return Variant(mTable->Rename(ToText(call[0]), ToText(call[1])));
}

Variant TableObject::ChangeConstant(const Call& call) {
  const auto description = DescriptionOf(call, 2);
  return Variant(mTable->ChangeConstant(ToText(call[0]), ToValue(call[1]), ViewOf(description)));
}

Variant TableObject::ChangeReserved(const Call& call) {
  const auto description = DescriptionOf(call, 2);
  return Variant(mTable->ChangeReserved(ToText(call[0]), ToValue(call[1]), ViewOf(description)));
}

Variant TableObject::CollectFlag(const Call& call) {
  return Variant(Make<NodeTableObject>(mTable->CollectFlag(ToInt32(call[0]))).Get());
}

Variant TableObject::SaveTypeToFile(const Call& call) {
  mTable->SaveTypeToFile(ToInt32(call[0]), ToText(call[1]));
  return {};
}

Variant TableObject::LoadTypeFromFile(const Call& call) {
  mTable->LoadTypeFromFile(ToText(call[0]));
  return {};
}

Variant TableObject::LoadOriginalChemData(const Call&) {
  mTable->LoadOriginalChemData();
  return {};
}

Variant TableObject::LoadOtherConstData(const Call&) {
  mTable->LoadOtherConstData();
  return {};
}

Variant TableObject::GetReservedWriteAccess(const Call&) {
  return Variant(mTable->ReservedWriteAccess);
}

Variant TableObject::PutReservedWriteAccess(const Call& call) {
  mTable->ReservedWriteAccess = ToBool(call[0]);
  return {};
}

Variant TableObject::GetConstWriteAccess(const Call&) {
  return Variant(mTable->ConstWriteAccess);
}

Variant TableObject::PutConstWriteAccess(const Call& call) {
  mTable->ConstWriteAccess = ToBool(call[0]);
  return {};
}

}  // namespace plotvane::control::com
