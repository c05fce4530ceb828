// NodeTableObject and NodeObject: a table of identifier records, and one record, for hosts.
#pragma once

#include <array>
#include <memory>
#include <utility>

#include "control/com/automation_object.h"
#include "control/com/own_object.h"
#include "identifiers/clsExNode.h"
#include "identifiers/clsNodeTable.h"

namespace plotvane::control::com {

// Its key is changed only through the table; its links are those of the tree, which they describe.
class NodeObject final : public AutomationObject<NodeObject, OwnObject> {
 public:
  // The table is kept as long as one of its records is in a host's hands.
  NodeObject(std::shared_ptr<identifiers::clsExNode> node, std::shared_ptr<identifiers::clsNodeTable> table)
      : mNode(std::move(node)), mTable(std::move(table)) {}

  [[nodiscard]] identifiers::clsExNode& Node() const noexcept { return *mNode; }
  [[nodiscard]] const std::shared_ptr<identifiers::clsNodeTable>& Table() const noexcept { return mTable; }

  [[nodiscard]] const void* STDMETHODCALLTYPE ModuleTag() noexcept override { return ThisModuleTag(); }

  Variant GetId(const Call& call);
  Variant GetValue(const Call& call);
  Variant PutValue(const Call& call);
  Variant GetFlags(const Call& call);
  Variant PutFlags(const Call& call);
  Variant GetDescription(const Call& call);
  Variant PutDescription(const Call& call);
  Variant GetLeft(const Call& call);
  Variant GetRight(const Call& call);
  Variant GetLeftExists(const Call& call);
  Variant GetRightExists(const Call& call);

  using Row = Member<NodeObject>;
  static constexpr std::array kMembers{
      Row{L"Id", 1, DISPATCH_PROPERTYGET, {}, 0, &NodeObject::GetId},
      Row{L"Value", 2, DISPATCH_PROPERTYGET, {}, 0, &NodeObject::GetValue},
      Row{L"Value", 2, DISPATCH_PROPERTYPUT, {L"Value"}, 1, &NodeObject::PutValue},
      Row{L"Flags", 3, DISPATCH_PROPERTYGET, {}, 0, &NodeObject::GetFlags},
      Row{L"Flags", 3, DISPATCH_PROPERTYPUT, {L"Flags"}, 1, &NodeObject::PutFlags},
      Row{L"Description", 4, DISPATCH_PROPERTYGET, {}, 0, &NodeObject::GetDescription},
      Row{L"Description", 4, DISPATCH_PROPERTYPUT, {L"Description"}, 1, &NodeObject::PutDescription},
      Row{L"Left", 5, DISPATCH_PROPERTYGET, {}, 0, &NodeObject::GetLeft},
      Row{L"Right", 6, DISPATCH_PROPERTYGET, {}, 0, &NodeObject::GetRight},
      Row{L"LeftExists", 7, DISPATCH_PROPERTYGET, {}, 0, &NodeObject::GetLeftExists},
      Row{L"RightExists", 8, DISPATCH_PROPERTYGET, {}, 0, &NodeObject::GetRightExists},
  };

 private:
  [[nodiscard]] Variant Child(bool exists, identifiers::clsExNode* child) const;

  std::shared_ptr<identifiers::clsExNode> mNode;
  std::shared_ptr<identifiers::clsNodeTable> mTable;
};

class NodeTableObject final : public AutomationObject<NodeTableObject> {
 public:
  explicit NodeTableObject(std::shared_ptr<identifiers::clsNodeTable> table) : mTable(std::move(table)) {}

  Variant Add(const Call& call);
  Variant AddNode(const Call& call);
  Variant Search(const Call& call);
  Variant Remove(const Call& call);
  Variant RemoveCurrent(const Call& call);
  Variant FindRightFoot(const Call& call);
  Variant FindLeftFoot(const Call& call);
  Variant GetHeadNode(const Call& call);
  Variant GetCurrentNode(const Call& call);
  Variant GetParentNode(const Call& call);
  Variant GetHasNodes(const Call& call);
  Variant GetAllowDuplicateId(const Call& call);
  Variant PutAllowDuplicateId(const Call& call);
  Variant GetAddLowerCase(const Call& call);
  Variant PutAddLowerCase(const Call& call);
  Variant CollectFlag(const Call& call);
  Variant CollectFlags(const Call& call);
  Variant GetNTArray(const Call& call);
  Variant SaveToFile(const Call& call);
  Variant LoadFromFile(const Call& call);
  Variant DebugDispNodeD(const Call& call);
  Variant DebugDispNodeA(const Call& call);

  using Row = Member<NodeTableObject>;
  static constexpr std::array kMembers{
      Row{L"Add", 1, DISPATCH_METHOD, {L"Id"}, 1, &NodeTableObject::Add},
      Row{L"AddNode", 2, DISPATCH_METHOD, {L"NodeToAdd"}, 1, &NodeTableObject::AddNode},
      Row{L"Search", 3, DISPATCH_METHOD, {L"Id"}, 1, &NodeTableObject::Search},
      Row{L"Remove", 4, DISPATCH_METHOD, {L"Id"}, 1, &NodeTableObject::Remove},
      Row{L"RemoveCurrent", 5, DISPATCH_METHOD, {}, 0, &NodeTableObject::RemoveCurrent},
      Row{L"FindRightFoot", 6, DISPATCH_METHOD, {L"StartNode"}, 1, &NodeTableObject::FindRightFoot},
      Row{L"FindLeftFoot", 7, DISPATCH_METHOD, {L"StartNode"}, 1, &NodeTableObject::FindLeftFoot},
      Row{L"HeadNode", 8, DISPATCH_PROPERTYGET, {}, 0, &NodeTableObject::GetHeadNode},
      Row{L"CurrentNode", 9, DISPATCH_PROPERTYGET, {}, 0, &NodeTableObject::GetCurrentNode},
      Row{L"ParentNode", 10, DISPATCH_PROPERTYGET, {}, 0, &NodeTableObject::GetParentNode},
      Row{L"HasNodes", 11, DISPATCH_PROPERTYGET, {}, 0, &NodeTableObject::GetHasNodes},
      Row{L"AllowDuplicateId", 12, DISPATCH_PROPERTYGET, {}, 0, &NodeTableObject::GetAllowDuplicateId},
      Row{L"AllowDuplicateId", 12, DISPATCH_PROPERTYPUT, {L"On"}, 1, &NodeTableObject::PutAllowDuplicateId},
      Row{L"AddLowerCase", 13, DISPATCH_PROPERTYGET, {}, 0, &NodeTableObject::GetAddLowerCase},
      Row{L"AddLowerCase", 13, DISPATCH_PROPERTYPUT, {L"On"}, 1, &NodeTableObject::PutAddLowerCase},
      Row{L"CollectFlag", 14, DISPATCH_METHOD, {L"FlagType"}, 1, &NodeTableObject::CollectFlag},
      Row{L"CollectFlags", 15, DISPATCH_METHOD, {L"FlagTypes"}, 1, &NodeTableObject::CollectFlags},
      Row{L"NTArray", 16, DISPATCH_PROPERTYGET, {}, 0, &NodeTableObject::GetNTArray},
      Row{L"SaveToFile", 17, DISPATCH_METHOD, {L"FilePathAndName"}, 1, &NodeTableObject::SaveToFile},
      Row{L"LoadFromFile", 18, DISPATCH_METHOD, {L"FilePathAndName"}, 1, &NodeTableObject::LoadFromFile},
      Row{L"DebugDispNodeD", 19, DISPATCH_METHOD, {L"StartNode"}, 1, &NodeTableObject::DebugDispNodeD},
      Row{L"DebugDispNodeA", 20, DISPATCH_METHOD, {L"StartNode"}, 1, &NodeTableObject::DebugDispNodeA},
  };

 private:
  [[nodiscard]] Variant ObjectFor(std::shared_ptr<identifiers::clsExNode> node) const;
  // The record that a host hands back; error 424 for anything else, 5 for a record of another table.
  [[nodiscard]] identifiers::clsExNode& OwnNode(const VARIANT& argument) const;

  std::shared_ptr<identifiers::clsNodeTable> mTable;
};

}  // namespace plotvane::control::com
