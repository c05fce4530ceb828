// TableObject and NodeTableObject: the control's own variable table for hosts: what VarTable answers, and the
// collections that its CollectFlag gives.
#pragma once

#include <array>
#include <memory>
#include <utility>

#include "control/com/automation_object.h"
#include "control/com/own_object.h"
#include "identifiers/clsNodeTable.h"
#include "identifiers/clsVarTable.h"

namespace plotvane::control::com {

class TableObject final : public AutomationObject<TableObject, OwnObject> {
 public:
  explicit TableObject(std::shared_ptr<identifiers::clsVarTable> table) : mTable(std::move(table)) {}

  [[nodiscard]] const std::shared_ptr<identifiers::clsVarTable>& Table() const noexcept { return mTable; }

  [[nodiscard]] const void* STDMETHODCALLTYPE ModuleTag() noexcept override { return ThisModuleTag(); }

  Variant GetIdValue(const Call& call);
  Variant Change(const Call& call);
  Variant GetIdType(const Call& call);
  Variant IdExists(const Call& call);
  Variant GetId(const Call& call);
  Variant Remove(const Call& call);
  Variant Rename(const Call& call);
  Variant ChangeConstant(const Call& call);
  Variant ChangeReserved(const Call& call);
  Variant CollectFlag(const Call& call);
  Variant SaveTypeToFile(const Call& call);
  Variant LoadTypeFromFile(const Call& call);
  Variant LoadOriginalChemData(const Call& call);
  Variant LoadOtherConstData(const Call& call);
  Variant GetReservedWriteAccess(const Call& call);
  Variant PutReservedWriteAccess(const Call& call);
  Variant GetConstWriteAccess(const Call& call);
  Variant PutConstWriteAccess(const Call& call);

  using Row = Member<TableObject>;
  static constexpr std::array kMembers{
      Row{L"GetIdValue", 1, DISPATCH_METHOD, {L"Id", L"Value"}, 2, &TableObject::GetIdValue},
      Row{L"Change",
          2,
          DISPATCH_METHOD,
          {L"Id", L"Value", L"lType", L"Description"},
          2,
          &TableObject::Change},
      Row{L"GetIdType", 3, DISPATCH_METHOD, {L"Id", L"lType"}, 2, &TableObject::GetIdType},
      Row{L"IdExists", 4, DISPATCH_METHOD, {L"Id"}, 1, &TableObject::IdExists},
      Row{L"GetId", 5, DISPATCH_METHOD, {L"Id", L"Value", L"lType", L"Description"}, 4, &TableObject::GetId},
      Row{L"Remove", 6, DISPATCH_METHOD, {L"Id"}, 1, &TableObject::Remove},
      Row{L"Rename", 7, DISPATCH_METHOD, {L"Id", L"NewId"}, 2, &TableObject::Rename},
      Row{L"ChangeConstant",
          8,
          DISPATCH_METHOD,
          {L"Id", L"Value", L"Description"},
          2,
          &TableObject::ChangeConstant},
      Row{L"ChangeReserved",
          9,
          DISPATCH_METHOD,
          {L"Id", L"Value", L"Description"},
          2,
          &TableObject::ChangeReserved},
      Row{L"CollectFlag", 10, DISPATCH_METHOD, {L"FlagType"}, 1, &TableObject::CollectFlag},
      Row{L"SaveTypeToFile",
          11,
          DISPATCH_METHOD,
          {L"FlagType", L"FilePathAndName"},
          2,
          &TableObject::SaveTypeToFile},
      Row{L"LoadTypeFromFile", 12, DISPATCH_METHOD, {L"FilePathAndName"}, 1, &TableObject::LoadTypeFromFile},
      Row{L"LoadOriginalChemData", 13, DISPATCH_METHOD, {}, 0, &TableObject::LoadOriginalChemData},
      Row{L"LoadOtherConstData", 14, DISPATCH_METHOD, {}, 0, &TableObject::LoadOtherConstData},
      Row{L"ReservedWriteAccess", 15, DISPATCH_PROPERTYGET, {}, 0, &TableObject::GetReservedWriteAccess},
      Row{L"ReservedWriteAccess", 15, DISPATCH_PROPERTYPUT, {L"On"}, 1, &TableObject::PutReservedWriteAccess},
      Row{L"ConstWriteAccess", 16, DISPATCH_PROPERTYGET, {}, 0, &TableObject::GetConstWriteAccess},
      Row{L"ConstWriteAccess", 16, DISPATCH_PROPERTYPUT, {L"On"}, 1, &TableObject::PutConstWriteAccess},
  };

 private:
  std::shared_ptr<identifiers::clsVarTable> mTable;
};

}  // namespace plotvane::control::com
